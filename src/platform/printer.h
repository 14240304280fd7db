#pragma once

#include <string>

namespace quillbox {

/// The system's printer, or what stands in for it. Operations that fail throw a RunTimeError.
class Printer {
 public:
  virtual ~Printer() = default;

  virtual void setFont(const std::string& name, double points) = 0;

  /// What can be printed on between the top and the bottom of a page, in points.
  virtual double printableHeight() = 0;

  /// Prints lines (UTF-8, each ended by CR LF) from the top of the sheet on. A text that does not
  /// fit goes on on further sheets.
  virtual void print(const std::string& text) = 0;

  /// What is printed next is printed on a new sheet. A sheet that nothing is printed on after the
  /// last call is dropped; one between two calls is not.
  virtual void newPage() = 0;

  /// Hands over what was printed; without anything printed it does nothing.
  virtual void endDocument() = 0;

  /// Forgets what was printed and not handed over.
  virtual void dropDocument() = 0;
};

}  // namespace quillbox
