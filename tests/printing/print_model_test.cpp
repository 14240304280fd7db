#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/disk_file_system.h"
#include "printing/print_engine.h"
#include "support/fake_desktop.h"
#include "support/test_folder.h"
#include "text/windows1252.h"

namespace quillbox::test {
namespace {

constexpr std::size_t kPageLength = 5520;
constexpr unsigned kSeed = 20'261'121;
constexpr int kPrintouts = 320;
constexpr int kMaxBlocks = 30;
constexpr int kManyBlocks = 200;  // more pages than are kept in memory

std::string withoutBlanksAtTheEnd(std::string text) {
  text.resize(text.find_last_not_of(' ') + 1);
  return text;
}

/// The printout step by step, on whole pages filled with blanks. Slow, and the reference for the
/// real one.
class PrintModel {
 public:
  int page = 0;
  std::string spool;
  int filled = 0;    ///< blocks that filled a page
  int turned = 0;    ///< blocks that did not fit
  int overfull = 0;  ///< texts that were cut

  void reset() {
    page = 0;
    pageText_ = std::string(kPageLength, ' ');
    spool.clear();
    lineCount_ = 0;
    linesOnPage_ = 0;
  }

  void block(std::vector<std::string> lines, int count, int mode, int height) {
    const int linesPerPage = linesOf(height);
    if (page < 1) page = 1;
    if (page == 1 && linesOnPage_ == 0) setPageText(headed("", lines.front()));
    if (lineCount_ + count < linesPerPage) {
      add(lines, count);
      lineCount_ += count;
      put();
    } else if (lineCount_ + count > linesPerPage) {
      ++turned;
      put();
      turn(lines.front(), mode);
      add(lines, count);
      lineCount_ = linesOnPage_;
    } else {
      ++filled;
      add(lines, count);
      put();
      turn(lines.front(), mode);
    }
    put();
  }

  std::string pageOf(int number) const {
    const auto at = static_cast<std::size_t>(number - 1) * kPageLength;
    return at < spool.size() ? spool.substr(at, kPageLength) : "";
  }

 private:
  /// Tenths of the height, minus five, an exact half rounded to the even number.
  static int linesOf(int height) {
    const int tenths = height - 50;
    int whole = 0;
    while ((whole + 1) * 10 <= tenths) ++whole;
    while (whole * 10 > tenths) --whole;
    const int rest = tenths - whole * 10;
    if (rest > 5 || (rest == 5 && whole % 2 != 0)) ++whole;
    return whole;
  }

  void setPageText(std::string text) {
    if (text.size() > kPageLength) ++overfull;
    text.resize(kPageLength, ' ');
    pageText_ = text;
  }

  std::string headed(const std::string& indent, const std::string& heading) const {
    return indent + heading + " " + std::to_string(page) + "\r\n";
  }

  void add(const std::vector<std::string>& lines, int count) {
    for (int line = 1; line <= count; ++line) {
      const std::string& text = lines[static_cast<std::size_t>(line)];
      if (!text.empty()) setPageText(withoutBlanksAtTheEnd(pageText_) + "     " + text + "\r\n");
      linesOnPage_ = line;
    }
  }

  void turn(const std::string& heading, int mode) {
    page = page + 1;
    linesOnPage_ = 0;
    setPageText(mode == 255 ? "" : headed("     ", heading));
  }

  void put() {
    const auto at = static_cast<std::size_t>(page - 1) * kPageLength;
    if (spool.size() < at + kPageLength) spool.resize(at + kPageLength, '\0');
    spool.replace(at, kPageLength, pageText_);
  }

  std::string pageText_ = std::string(kPageLength, ' ');
  int lineCount_ = 0;
  int linesOnPage_ = 0;
};

/// Blocks of every size, with the lines that are likely to go wrong.
class RandomBlocks {
 public:
  int upTo(int most) { return static_cast<int>(random_() % (static_cast<unsigned>(most) + 1)); }
  bool once(int inSoMany) { return upTo(inSoMany - 1) == 0; }

  int lineCount() { return once(5) ? upTo(100) : upTo(14); }

  /// Few lines and many, halves and none.
  int height() {
    if (once(8)) return upTo(60);
    return once(2) ? 50 + 10 * upTo(30) + 5 : 60 + upTo(900);
  }

  std::string line() {
    if (once(5)) return "";
    if (once(8)) return std::string(static_cast<std::size_t>(1 + upTo(5)), ' ');
    std::string text(static_cast<std::size_t>(once(10) ? upTo(900) : 1 + upTo(60)), ' ');
    for (char& c : text) c = kCharacters[static_cast<std::size_t>(upTo(kCharacters.size() - 1))];
    if (once(4)) text.append(static_cast<std::size_t>(upTo(200)), ' ');
    return text;
  }

 private:
  static constexpr std::string_view kCharacters{"abcXYZ 019.,-\xE9\x80  \r\n\0", 20};

  std::mt19937 random_{kSeed};
};

class PrintModelTest : public testing::Test {
 protected:
  bool isSpoolRight() const {
    if (!std::filesystem::exists("printer.tmp")) return model_.spool.empty();
    return readFile("printer.tmp") == model_.spool;
  }

  void reset() {
    std::int16_t none = 0;
    engine_.PrintData(lines_, none, print_mode::reset);
    model_.reset();
    lines_.front() = random_.once(6) ? "" : "Heading " + random_.line();
  }

  void composeBlock(std::int16_t mode) {
    auto count = static_cast<std::int16_t>(random_.lineCount());
    const std::string heading = lines_.front();
    for (std::size_t line = 1; line <= static_cast<std::size_t>(count); ++line)
      lines_.at(line) = random_.line();
    const int height = random_.once(6) ? random_.height() : height_;
    desktop_.fakePrinter.height = height;
    model_.block({lines_.begin(), lines_.end()}, count, mode, height);
    engine_.PrintData(lines_, count, mode);
    ++blocks_;
    for (std::size_t line = 1; line <= static_cast<std::size_t>(count); ++line)
      ASSERT_EQ(lines_.at(line), "");
    ASSERT_EQ(lines_.front(), heading);
  }

  std::int16_t pageCount() {
    std::int16_t count = -1;
    engine_.PrintData(lines_, count, print_mode::pageCount);
    EXPECT_EQ(count, model_.page);
    return count;
  }

  void deliverToFile() {
    desktop_.expectPrint(PrintChoice{true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", fileName_, "list.txt");
    fileName_ = "list.txt";
    std::int16_t mode = print_mode::printer;
    engine_.OpenPrinter(mode);
    engine_.PrintOut(mode, pageCount(), "header");
    std::string expected = "header\r\n";
    for (int page = 1; page <= model_.page; ++page)
      expected += withoutBlanksAtTheEnd(model_.pageOf(page)) + "\r\n";
    ASSERT_TRUE(readFile("list.txt") == expected);
  }

  void deliverToPrinter() {
    const int first = 1 + random_.upTo(2);
    const int last = model_.page - random_.upTo(2);
    desktop_.expectInput("Starting Page", "Printer Data", std::to_string(first), "1");
    desktop_.expectInput("Ending Page", "Printer Data", std::to_string(last),
                         std::to_string(model_.page));
    desktop_.fakePrinter.sheets.clear();
    engine_.PrintOut(print_mode::printer, pageCount(), "header");
    std::vector<std::string> expected;
    for (int page = first; page <= last; ++page) {
      std::string text = withoutBlanksAtTheEnd(model_.pageOf(page));
      text.erase(0, text.find_first_not_of(' '));
      if (text.size() != kPageLength) expected.push_back(toUtf8(text));
    }
    ASSERT_TRUE(desktop_.fakePrinter.sheets == expected);
  }

  void printOut(std::int16_t mode) {
    height_ = random_.height();
    const bool mixed = random_.once(8);
    const int blocks = random_.upTo(random_.once(8) ? kManyBlocks : kMaxBlocks);
    for (int block = 0; block < blocks; ++block) {
      const bool toFile = mixed ? random_.once(2) : mode == print_mode::textFile;
      ASSERT_NO_FATAL_FAILURE(composeBlock(toFile ? print_mode::textFile : print_mode::printer));
    }
    pageCount();
    ASSERT_TRUE(isSpoolRight());
    delivered_ = !random_.once(5);
    if (!delivered_)
      engine_.PrintOut(print_mode::cancelled, pageCount(), "header");
    else if (mode == print_mode::textFile)
      ASSERT_NO_FATAL_FAILURE(deliverToFile());
    else
      ASSERT_NO_FATAL_FAILURE(deliverToPrinter());
    desktop_.expectNothingLeft();
    if (delivered_) model_.spool.clear();
    ASSERT_TRUE(isSpoolRight());
    ASSERT_NE(std::filesystem::exists("printer.tmp"), delivered_ || model_.spool.empty());
    ASSERT_FALSE(state_.files.isOpen(file_number::spool));
  }

  TestFolder folder_;
  DiskFileSystem files_;
  AppState state_{files_};
  FakeDesktop desktop_;
  NoBoard board_;
  PrintEngine engine_{state_, desktop_, board_};
  PrintLines lines_;
  PrintModel model_;
  RandomBlocks random_;
  int height_ = 0;
  bool delivered_ = true;
  int blocks_ = 0;
  std::string fileName_;
};

TEST_F(PrintModelTest, RandomPrintoutsAreThoseOfTheModelByteForByte) {
  for (int n = 0; n < kPrintouts; ++n) {
    SCOPED_TRACE("printout " + std::to_string(n));
    // Without a reset a printout continues where the last one ended.
    if (delivered_ || random_.once(2)) reset();
    ASSERT_NO_FATAL_FAILURE(printOut(n % 2 == 0 ? print_mode::printer : print_mode::textFile));
  }
  EXPECT_GT(blocks_, 4'000);
  EXPECT_GT(model_.filled, 50);
  EXPECT_GT(model_.turned, 1'000);
  EXPECT_GT(model_.overfull, 50);
}

}  // namespace
}  // namespace quillbox::test
