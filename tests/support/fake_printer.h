#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/printer.h"
#include "platform/run_time_error.h"

namespace quillbox::test {

/// A printer that keeps its sheets, and can fail.
class FakePrinter : public Printer {
 public:
  double height = 756;              ///< points
  std::optional<int> failsAfter;    ///< sheets; then every operation is run-time error 57
  bool failsAtEnd = false;          ///< only when the document is sent
  std::vector<std::string> sheets;  ///< sent
  std::vector<std::string> fonts;   ///< "Courier New 10", ...
  int documents = 0;                ///< sent
  int dropped = 0;

  void setFont(const std::string& name, double points) override {
    fonts.push_back(name + " " + std::to_string(static_cast<int>(points)));
  }
  double printableHeight() override { return height; }
  void print(const std::string& text) override {
    failIfGone();
    if (isSheetDue_) printed_.emplace_back();
    isSheetDue_ = false;
    printed_.back() += text;
  }
  void newPage() override {
    failIfGone();
    if (isSheetDue_) printed_.emplace_back();
    isSheetDue_ = true;
  }
  void endDocument() override {
    failIfGone();
    if (failsAtEnd) throw RunTimeError(ErrorNumber::deviceIo, "the printer");
    if (!printed_.empty()) ++documents;
    sheets.insert(sheets.end(), printed_.begin(), printed_.end());
    forget();
  }
  void dropDocument() override {
    ++dropped;
    forget();
  }

 private:
  void failIfGone() const {
    if (failsAfter && static_cast<int>(printed_.size()) >= *failsAfter)
      throw RunTimeError(ErrorNumber::deviceIo, "the printer");
  }
  void forget() {
    printed_.clear();
    isSheetDue_ = true;
  }

  std::vector<std::string> printed_;
  bool isSheetDue_ = true;
};

}  // namespace quillbox::test
