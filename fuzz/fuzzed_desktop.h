#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "platform/desktop.h"
#include "platform/printer.h"
#include "text/windows1252.h"

namespace quillbox::fuzz {

/// A printer of any page height that requires correct calls.
class FuzzedPrinter : public Printer {
 public:
  double height = 700;
  int sheets = 0;  ///< of the document that is neither sent nor dropped

  void setFont(const std::string& /*name*/, double /*points*/) override {}
  double printableHeight() override { return height; }
  void print(const std::string& text) override {
    require(isUtf8(text), "what is printed is UTF-8");
    ++sheets;
  }
  void newPage() override { require(sheets > 0, "a sheet is printed on before the next"); }
  void endDocument() override { sheets = 0; }
  void dropDocument() override { sheets = 0; }
};

/// A user who prints to a file or to paper and types anything.
class FuzzedDesktop : public Desktop {
 public:
  static constexpr const char* kListFile = "/list.txt";

  bool toFile = true;
  std::vector<std::optional<std::string>> answers;  ///< to input boxes, the last one first
  FuzzedPrinter paper;

  Answer messageBox(const MessageBox& /*box*/) override { return Answer::ok; }
  std::optional<std::string> inputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                                      const std::string& preset) override {
    if (answers.empty()) return preset;
    const std::optional<std::string> answer = answers.back();
    answers.pop_back();
    return answer;
  }
  std::optional<std::string> openDialog(const FileDialog& /*dialog*/) override {
    return std::nullopt;
  }
  std::optional<std::string> saveDialog(const FileDialog& /*dialog*/) override { return kListFile; }
  std::string shortDateForm() override { return "M/d/yy"; }
  std::string todayText() override { return "11/21/26"; }
  void printerSetup(const std::string& /*name*/) override {}
  std::optional<PrintChoice> printDialog(const std::string& /*title*/,
                                         const std::string& /*documentName*/) override {
    return PrintChoice{toFile};
  }
  Printer& printer() override { return paper; }
  void rest(int /*milliseconds*/, const std::function<bool()>& /*over*/) override {}
  void quit() override {}
  void endAtOnce() override {}
};

}  // namespace quillbox::fuzz
