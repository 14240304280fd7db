#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "printing/print_engine.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/fake_desktop.h"
#include "support/recording_board.h"
#include "support/test_folder.h"

namespace quillbox::test {

using Texts = std::vector<std::string>;

inline constexpr std::size_t kPageLength = 5520;
inline constexpr std::int16_t kPrintModes[] = {print_mode::printer, print_mode::textFile,
                                               print_mode::cancelled};

/// The lines of a block: "a1", "a2", ...
inline Texts texts(const std::string& name, int count) {
  Texts all;
  for (int n = 1; n <= count; ++n) all.push_back(name + std::to_string(n));
  return all;
}

/// The lines in the form of a page.
inline std::string printed(const Texts& lines) {
  std::string page;
  for (const std::string& line : lines) page += "     " + line + "\r\n";
  return page;
}

inline std::string printed(const std::string& name, int count) {
  return printed(texts(name, count));
}

inline std::string padded(std::string page) {
  page.resize(kPageLength, ' ');
  return page;
}

/// Composes pages.
class PrintDataTest : public testing::Test {
 protected:
  PrintDataTest() { begin(); }

  /// Begins a printout with its own page heading.
  void begin(const std::string& heading = "Albums, page") {
    std::int16_t none = 0;
    engine_.PrintData(lines_, none, print_mode::reset);
    lines_.front() = heading;
  }

  /// Makes a page long enough for that many lines and its heading.
  void holdLines(int lines) { desktop_.fakePrinter.height = (lines + 5) * 10; }

  void block(const Texts& texts, std::int16_t mode = print_mode::printer) {
    std::ranges::copy(texts, lines_.begin() + 1);
    auto count = static_cast<std::int16_t>(texts.size());
    engine_.PrintData(lines_, count, mode);
  }
  void block(const std::string& name, int count, std::int16_t mode = print_mode::printer) {
    block(texts(name, count), mode);
  }

  int pageCount() {
    std::int16_t count = -7;
    engine_.PrintData(lines_, count, print_mode::pageCount);
    return count;
  }

  /// The spool file; all pages are in it once they are counted.
  std::string spool() {
    pageCount();
    return readFile("printer.tmp");
  }

  /// The pages of the spool, without padding.
  Texts pages() {
    const std::string bytes = spool();
    EXPECT_EQ(bytes.size() % kPageLength, 0U);
    Texts all;
    for (std::size_t at = 0; at < bytes.size(); at += kPageLength) {
      std::string page = bytes.substr(at, kPageLength);
      page.resize(page.find_last_not_of(' ') + 1);
      all.push_back(page);
    }
    return all;
  }

  void expectNothingOpen() const {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  TestFolder folder_;
  FailingFiles files_;
  AppState state_{files_};
  FakeDesktop desktop_;
  RecordingBoard board_;
  PrintEngine engine_{state_, desktop_, board_};
  PrintLines lines_;
};

/// Delivers pages.
class PrintOutTest : public testing::Test {
 protected:
  /// Creates the spool with these pages.
  void spool(const Texts& pages) {
    std::string bytes;
    for (std::string page : pages) {
      page.resize(kPageLength, ' ');
      bytes += page;
    }
    writeFile("printer.tmp", bytes);
  }
  bool hasSpool() const { return std::filesystem::exists("printer.tmp"); }

  /// Chooses a text file of that name.
  void chooseFile(const std::optional<std::string>& name,
                  const std::optional<std::string>& offered) {
    desktop_.expectPrint(PrintChoice{true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", offered, name);
    std::int16_t mode = print_mode::printer;
    engine_.OpenPrinter(mode);
    EXPECT_EQ(mode, print_mode::textFile);
    desktop_.expectNothingLeft();
  }

  void writeTo(const std::string& name, int pages, const std::string& header = "Albums") {
    chooseFile(name, offered_);
    const std::string stem = name.substr(0, name.find('.'));
    offered_ = stem == name ? name : stem + ".txt";
    engine_.PrintOut(print_mode::textFile, static_cast<std::int16_t>(pages), header);
    expectNothingOpen();
  }

  void expectRange(const std::string& first, const std::optional<std::string>& last, int pages) {
    desktop_.expectInput("Starting Page", "Printer Data", first, "1");
    desktop_.expectInput("Ending Page", "Printer Data", last, std::to_string(pages));
  }
  void print(const std::string& first, const std::string& last, int pages) {
    expectRange(first, last, pages);
    engine_.PrintOut(print_mode::printer, static_cast<std::int16_t>(pages), "Albums");
    expectNothingOpen();
  }

  FakePrinter& printer() { return desktop_.fakePrinter; }

  void expectNothingOpen() const {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  TestFolder folder_;
  FailingFiles files_;
  AppState state_{files_};
  FakeDesktop desktop_;
  RecordingBoard board_;
  PrintEngine engine_{state_, desktop_, board_};
  std::optional<std::string> offered_;  // what the next save dialog offers, if known
};

}  // namespace quillbox::test
