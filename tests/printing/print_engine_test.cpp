#include "printing/print_engine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <string>

#include "support/print_fixture.h"

namespace quillbox::test {
namespace {

TEST_F(PrintDataTest, APageIsARecordOfTheSpoolFilledUpWithBlanks) {
  holdLines(4);
  block("a", 3);
  EXPECT_TRUE(spool() == padded("Albums, page 1\r\n" + printed("a", 3)));
  block("b", 3);
  EXPECT_TRUE(spool() == padded("Albums, page 1\r\n" + printed("a", 3)) +
                             padded("     Albums, page 2\r\n" + printed("b", 3)));
}

TEST_F(PrintDataTest, WhoeverHasCountedThePagesOrBegunAnewLeavesTheSpoolClosed) {
  block("a", 3);
  pageCount();
  expectNothingOpen();
  block("b", 3);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 3) + printed("b", 3)}));
  begin();
  expectNothingOpen();
  block("c", 3);
  pageCount();
  expectNothingOpen();
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("c", 3)}));
}

TEST_F(PrintDataTest, ThePageCountIsAllThatItsModeAsksFor) {
  EXPECT_EQ(pageCount(), 0);
  holdLines(4);
  block("a", 1);
  EXPECT_EQ(pageCount(), 1);
  block("b", 4);
  const PrintLines lines = lines_;
  const Texts fonts = desktop_.fakePrinter.fonts;
  files_.forget();
  board_.told.clear();
  EXPECT_EQ(pageCount(), 2);
  EXPECT_EQ(files_.operations(),
            (std::vector<OperationRecord>{{FileOperation::write, "printer.tmp"},
                                          {FileOperation::close, "printer.tmp"}}));
  EXPECT_TRUE(board_.told.empty());
  EXPECT_EQ(desktop_.fakePrinter.fonts, fonts);
  EXPECT_EQ(lines_, lines);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 1),
                            "     Albums, page 2\r\n" + printed("b", 4)}));
}

TEST_F(PrintDataTest, ResettingEmptiesTheLinesAndDeletesTheSpool) {
  block("a", 3);
  lines_.fill("left over");
  files_.forget();
  std::int16_t count = 12;
  engine_.PrintData(lines_, count, print_mode::reset);
  EXPECT_TRUE(std::ranges::all_of(lines_, &std::string::empty));
  EXPECT_EQ(count, 12);
  EXPECT_EQ(pageCount(), 0);
  EXPECT_FALSE(std::filesystem::exists("printer.tmp"));
  EXPECT_EQ(files_.operations().back(), (OperationRecord{FileOperation::remove, "printer.tmp"}));
  files_.forget();
  begin();  // with no spool there is nothing to delete
  EXPECT_EQ(files_.operations(),
            (std::vector<OperationRecord>{{FileOperation::exists, "printer.tmp"}}));
}

TEST_F(PrintDataTest, AfterAResetNothingOfTheLastPrintoutIsLeft) {
  holdLines(10);
  block("a", 9);
  block("b", 9);
  begin("Tapes");
  block("c", 9);
  EXPECT_EQ(pages(), (Texts{"Tapes 1\r\n" + printed("c", 9)}));
  EXPECT_EQ(pageCount(), 1);
}

TEST_F(PrintDataTest, WithoutAResetTheNextPrintoutGoesOnWhereTheLastOneEnded) {
  holdLines(10);
  block("a", 3);
  pageCount();
  engine_.PrintOut(print_mode::cancelled, 1, "");
  block("b", 6);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 3) + printed("b", 6)}));
  pageCount();
  engine_.PrintOut(print_mode::cancelled, 1, "");
  block("c", 2);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 3) + printed("b", 6),
                            "     Albums, page 2\r\n" + printed("c", 2)}));
  EXPECT_EQ(pageCount(), 2);
}

TEST_F(PrintDataTest, WithoutAResetThePageAtHandIsInTheNextSpoolToo) {
  for (const int count : {0, 3, 7, 8}) {  // nothing new, fits, fills the page, does not fit
    SCOPED_TRACE(count);
    holdLines(10);
    begin();
    block("a", 3);
    desktop_.expectInput("Starting Page", "Printer Data", std::nullopt, "1");
    engine_.PrintOut(print_mode::printer, static_cast<std::int16_t>(pageCount()), "");
    ASSERT_FALSE(std::filesystem::exists("printer.tmp"));
    block("b", count);
    const std::string kept = printed("a", 3) + (count <= 7 ? printed("b", count) : "");
    EXPECT_TRUE(spool().starts_with(padded("Albums, page 1\r\n" + kept)));
  }
}

TEST_F(PrintDataTest, AnEngineThatWasNeverResetBeginsWithPageOneToo) {
  for (const std::int16_t mode : kPrintModes) {
    std::filesystem::remove("printer.tmp");
    PrintEngine fresh(state_, desktop_, board_);
    lines_ = {"Albums, page", "a", "b"};
    std::int16_t count = 2;
    fresh.PrintData(lines_, count, mode);
    fresh.PrintData(lines_, count, print_mode::pageCount);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed({"a", "b"})})) << mode;
  }
}

TEST_F(PrintDataTest, TheFirstPageHasAHeadingWhereverItGoes) {
  for (const std::int16_t mode : kPrintModes) {
    begin();
    block("a", 2, mode);
    EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 2)})) << mode;
    begin("");
    block("a", 2, mode);
    EXPECT_EQ(pages(), (Texts{" 1\r\n" + printed("a", 2)})) << mode;
  }
}

TEST_F(PrintDataTest, ThePrinterIsMeasuredInItsFontBeforeEachBlock) {
  desktop_.fakePrinter.fonts.clear();
  holdLines(10);
  block("a", 5);
  EXPECT_EQ(desktop_.fakePrinter.fonts, (Texts{"Courier New 10"}));
  holdLines(6);
  block("b", 5);
  EXPECT_EQ(desktop_.fakePrinter.fonts, (Texts{"Courier New 10", "Courier New 10"}));
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 5),
                            "     Albums, page 2\r\n" + printed("b", 5)}));
  holdLines(12);
  block("c", 5);
  EXPECT_EQ(pages().back(), "     Albums, page 2\r\n" + printed("b", 5) + printed("c", 5));
}

TEST_F(PrintDataTest, APageHoldsAsManyLinesAsFitAnExactHalfToTheEvenNumber) {
  const struct {
    double height;
    int lines;
  } rows[] = {
      {756, 71},   {755, 70},   {765, 72}, {745, 70},   {770, 72},   {720, 67},      {750, 70},
      {754.9, 70}, {755.1, 71}, {764, 71}, {745.1, 70}, {744.9, 69}, {735, 68},      {725, 68},
      {120, 7},    {65, 2},     {64.9, 1}, {75, 2},     {75.01, 3},  {785.19, 74},   {841.89, 79},
      {595, 54},   {605, 56},   {792, 74}, {60, 1},     {1000, 95},  {1049.99, 100},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.height);
    desktop_.fakePrinter.height = row.height;
    begin();
    block("a", row.lines - 1);
    EXPECT_EQ(pageCount(), 1);
    begin();
    block("a", row.lines);
    EXPECT_EQ(pages(),
              (Texts{"Albums, page 1\r\n" + printed("a", row.lines), "     Albums, page 2\r\n"}));
    if (row.lines == 100) continue;
    begin();
    block("a", row.lines + 1);
    EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n",
                              "     Albums, page 2\r\n" + printed("a", row.lines + 1)}));
  }
}

TEST_F(PrintDataTest, APageTooLowForALineBeginsANewOneForEachBlock) {
  for (const double height : {54.0, 50.0, 20.0, 0.0}) {
    desktop_.fakePrinter.height = height;
    begin();
    block("a", 1);
    block("b", 2);
    EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n", "     Albums, page 2\r\n" + printed("a", 1),
                              "     Albums, page 3\r\n" + printed("b", 2)}))
        << height;
  }
}

TEST_F(PrintDataTest, APageOfMoreLinesThanA16BitNumberIsAnOverflowBeforeAnythingIsMade) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  for (const double height : {327'730.0, 1e300, infinite, -1e6, -infinite, none}) {
    desktop_.fakePrinter.height = height;
    begin();
    EXPECT_EQ(failureOf([&] { block("a", 3); }), (Failure{6, ""})) << height;
    EXPECT_EQ(lines_.at(1), "a1") << height;
    EXPECT_FALSE(std::filesystem::exists("printer.tmp")) << height;
    EXPECT_EQ(pageCount(), 0) << height;
    holdLines(32767);
    begin();
    block("a", 3);
    EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 3)})) << height;
  }
}

TEST_F(PrintDataTest, BlocksFollowOneAnotherWhileThePageHasRoom) {
  for (const std::int16_t mode : kPrintModes) {
    holdLines(10);
    begin();
    block("a", 3, mode);
    block("b", 3, mode);
    block("c", 3, mode);
    EXPECT_EQ(pages(),
              (Texts{"Albums, page 1\r\n" + printed("a", 3) + printed("b", 3) + printed("c", 3)}))
        << mode;
    EXPECT_EQ(pageCount(), 1);
  }
}

TEST_F(PrintDataTest, ABlockThatDoesNotFitBeginsTheNextPage) {
  for (const std::int16_t mode : kPrintModes) {
    const bool headed = mode != print_mode::textFile;
    holdLines(10);
    begin();
    block("a", 6, mode);
    block("b", 5, mode);
    block("c", 4, mode);  // 9 lines now
    block("d", 2, mode);
    block("e", 7, mode);  // 9 lines again
    EXPECT_EQ(
        pages(),
        (Texts{"Albums, page 1\r\n" + printed("a", 6),
               (headed ? "     Albums, page 2\r\n" : "") + printed("b", 5) + printed("c", 4),
               (headed ? "     Albums, page 3\r\n" : "") + printed("d", 2) + printed("e", 7)}))
        << mode;
  }
}

TEST_F(PrintDataTest, AfterABlockThatFillsThePageTheNextOneCountsAsHoldingTheLinesBefore) {
  for (const std::int16_t mode : kPrintModes) {
    const bool headed = mode != print_mode::textFile;
    holdLines(10);
    begin();
    block("a", 6, mode);
    block("b", 4, mode);
    EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 6) + printed("b", 4),
                              headed ? "     Albums, page 2\r\n" : ""}))
        << mode;
    block("c", 3, mode);  // 9 lines, 6 of which are on page 1
    block("d", 1, mode);
    block("e", 2, mode);
    EXPECT_EQ(pages(),
              (Texts{"Albums, page 1\r\n" + printed("a", 6) + printed("b", 4),
                     (headed ? "     Albums, page 2\r\n" : "") + printed("c", 3) + printed("d", 1),
                     headed ? "     Albums, page 3\r\n" : "",
                     (headed ? "     Albums, page 4\r\n" : "") + printed("e", 2)}))
        << mode;
  }
}

TEST_F(PrintDataTest, TwelveBlocksOfEightLines) {
  for (const std::int16_t mode : kPrintModes) {
    const bool headed = mode != print_mode::textFile;
    holdLines(72);
    begin();
    for (int n = 1; n <= 12; ++n) block("a", 8, mode);
    const std::string one = printed("a", 8);
    std::string nine;
    for (int n = 1; n <= 9; ++n) nine += one;
    EXPECT_EQ(pages(), headed ? (Texts{"Albums, page 1\r\n" + nine, "     Albums, page 2\r\n" + one,
                                       "     Albums, page 3\r\n" + one,
                                       "     Albums, page 4\r\n" + one, "     Albums, page 5\r\n"})
                              : (Texts{"Albums, page 1\r\n" + nine, one, one, one, ""}))
        << mode;
  }
}

TEST_F(PrintDataTest, ABlockLongerThanAPageIsNotSplit) {
  for (const std::int16_t mode : kPrintModes) {
    const bool headed = mode != print_mode::textFile;
    holdLines(10);
    begin();
    block("a", 2, mode);
    block("b", 100, mode);
    block("c", 1, mode);
    EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 2),
                              (headed ? "     Albums, page 2\r\n" : "") + printed("b", 100),
                              (headed ? "     Albums, page 3\r\n" : "") + printed("c", 1)}))
        << mode;
  }
}

TEST_F(PrintDataTest, ABlockOfNoLinesThatBeginsAPageLeavesItEmpty) {
  holdLines(10);
  block("a", 12);
  EXPECT_EQ(pageCount(), 2);
  block("b", 0);  // after a page that holds more than fits
  EXPECT_EQ(pageCount(), 3);
  block("c", 3);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n", "     Albums, page 2\r\n" + printed("a", 12),
                            "     Albums, page 3\r\n" + printed("c", 3)}));
}

TEST_F(PrintDataTest, TheModeAndTheHeadingAreThoseOfTheBlockThatBeginsThePage) {
  holdLines(5);
  block("a", 4, print_mode::textFile);
  block("b", 4, print_mode::printer);
  lines_.front() = "Tapes";
  block("c", 4, print_mode::textFile);
  block("d", 4, print_mode::cancelled);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 4),
                            "     Albums, page 2\r\n" + printed("b", 4), printed("c", 4),
                            "     Tapes 4\r\n" + printed("d", 4)}));
}

}  // namespace
}  // namespace quillbox::test
