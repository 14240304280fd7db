#pragma once

#include <string>

namespace quillbox {

/// The system's printer, or a substitute. Operations that fail throw a RunTimeError.
class Printer {
 public:
  virtual ~Printer() = default;

  virtual void setFont(const std::string& name, double points) = 0;

  /// The printable height of a page, in points.
  virtual double printableHeight() = 0;

  /// Prints lines (UTF-8, each ended by CR LF) from the top of the sheet. A text that does not fit
  /// continues on further sheets.
  virtual void print(const std::string& text) = 0;

  /// What is printed next starts a new sheet. If nothing follows the last call, its sheet is
  /// dropped; an empty sheet between two calls is not.
  virtual void newPage() = 0;

  /// Sends what was printed to the printer; does nothing when nothing was printed.
  virtual void endDocument() = 0;

  /// Discards what was printed and not yet sent.
  virtual void dropDocument() = 0;
};

}  // namespace quillbox
