#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/print_fixture.h"

namespace quillbox::test {
namespace {

using PrintToPrinter = PrintOutTest;

TEST_F(PrintToPrinter, EachPageIsASheetWithoutTheBlanksAroundIt) {
  spool({"Albums 1\r\n     a\r\n", "     Albums 2\r\n     b\r\n", "     c\r\n", "  d  e  "});
  print("1", "4", 4);
  EXPECT_EQ(printer().sheets,
            (Texts{"Albums 1\r\n     a\r\n", "Albums 2\r\n     b\r\n", "c\r\n", "d  e"}));
  EXPECT_EQ(printer().documents, 1);
  EXPECT_FALSE(hasSpool());
}

TEST_F(PrintToPrinter, TheTextIsTurnedIntoThePrintersCharacters) {
  spool({"\x80 5, na\xEFve \x93quoted\x94\r\n"});
  print("1", "1", 1);
  EXPECT_EQ(printer().sheets, (Texts{"\u20AC 5, na\u00EFve \u201Cquoted\u201D\r\n"}));
}

TEST_F(PrintToPrinter, TheRangeIsWhatTheAnswersBeginWith) {
  const Texts all{"p1", "p2", "p3", "p4"};
  const struct {
    const char* first;
    const char* last;
    Texts sheets;
  } rows[] = {
      {"1", "4", all},
      {"2", "3", {"p2", "p3"}},
      {"4", "4", {"p4"}},
      {"3", "2", {}},
      {"1", "0", {}},
      {"5", "4", {}},
      {"3", "6", {"p3", "p4", "", ""}},
      {"7", "8", {"", ""}},
      {"0", "2", {"", "p1", "p2"}},
      {"-1", "1", {"", "", "p1"}},
      {"-3", "-2", {"", ""}},
      {"", "1", {"", "p1"}},
      {"", "", {""}},
      {"all", "1", {"", "p1"}},
      {"1", "all", {}},
      {"2nd", "3rd", {"p2", "p3"}},
      {"  2", "3  ", {"p2", "p3"}},
      {"2.5", "3.5", {"p2", "p3", "p4"}},
      {"1e0", "2-4", {"p1", "p2"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.first) + " to " + row.last);
    printer().sheets.clear();
    printer().documents = 0;
    spool(all);
    print(row.first, row.last, 4);
    EXPECT_EQ(printer().sheets, row.sheets);
    EXPECT_EQ(printer().documents, row.sheets.empty() ? 0 : 1);
    EXPECT_FALSE(hasSpool());
  }
}

TEST_F(PrintToPrinter, ANumberBeyondSixteenBitsIsAnError) {
  spool({"a\r\n"});
  for (const std::string number : {"32768", "-32769", "99999", "1e9"}) {
    desktop_.expectInput("Starting Page", "Printer Data", number, "1");
    EXPECT_EQ(failureOf([&] { engine_.PrintOut(print_mode::printer, 1, ""); }).number, 6);
    expectRange("1", number, 1);
    EXPECT_EQ(failureOf([&] { engine_.PrintOut(print_mode::printer, 1, ""); }).number, 6);
  }
  EXPECT_TRUE(hasSpool());
  EXPECT_EQ(printer().documents, 0);
  expectNothingOpen();
}

TEST_F(PrintToPrinter, CancellingEitherQuestionPrintsNothingAndDeletesTheSpool) {
  for (const bool atFirst : {true, false}) {
    spool({"a\r\n", "b\r\n"});
    if (atFirst)
      desktop_.expectInput("Starting Page", "Printer Data", std::nullopt, "1");
    else
      expectRange("1", std::nullopt, 2);
    engine_.PrintOut(print_mode::printer, 2, "Albums");
    desktop_.expectNothingLeft();
    EXPECT_FALSE(hasSpool());
    EXPECT_EQ(printer().documents, 0);
    EXPECT_TRUE(board_.told.empty());
    expectNothingOpen();
  }
}

TEST_F(PrintToPrinter, TheBoardCountsToTheLastPageOrTheNumberOfThoseAskedFor) {
  const struct {
    const char* first;
    const char* last;
    Texts lines;
  } rows[] = {
      {"1", "3", {"1 of 3", "2 of 3", "3 of 3"}},
      {"3", "3", {"3 of 3"}},
      {"2", "3", {"2 of 3", "3 of 3"}},
      {"1", "2", {"1 of 2", "2 of 2"}},
      {"2", "2", {"2 of 1"}},
      {"3", "5", {"3 of 3", "4 of 3", "5 of 3"}},
      {"-1", "0", {"-1 of 2", "0 of 2"}},
      {"2", "1", {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.first) + " to " + row.last);
    board_.told.clear();
    board_.steps.clear();
    spool({"a\r\n", "b\r\n", "c\r\n"});
    print(row.first, row.last, 3);
    Texts expected{"open: Printing to Printer..."};
    std::vector<std::pair<int, int>> steps;
    for (const std::string& line : row.lines) {
      const std::string blank = line.starts_with('-') ? "" : " ";
      expected.insert(expected.end(), {"clear", "line: Printing Page" + blank + line + "..."});
      steps.emplace_back(static_cast<int>(steps.size()) + 1, static_cast<int>(row.lines.size()));
    }
    expected.emplace_back("close");
    EXPECT_EQ(board_.told, expected);
    EXPECT_EQ(board_.steps, steps);
  }
}

TEST_F(PrintToPrinter, PagesInTheMiddleOfALongPrintoutAreCountedToTheirOwnNumber) {
  spool(Texts(10, "a\r\n"));
  print("3", "5", 10);
  EXPECT_EQ(
      board_.told,
      (Texts{"open: Printing to Printer...", "clear", "line: Printing Page 3 of 3...", "clear",
             "line: Printing Page 4 of 3...", "clear", "line: Printing Page 5 of 3...", "close"}));
}

TEST_F(PrintToPrinter, APageThatWasCutOffIsNotPrinted) {
  const std::string full(kPageLength, 'w');
  const std::string almost = full.substr(1);
  spool({"a", full, almost, " " + almost, almost + " ", "b"});
  print("1", "6", 6);
  EXPECT_TRUE(printer().sheets == (Texts{"a", almost, almost, almost, "b"}));
  EXPECT_EQ(board_.steps.size(), 6U);
}

TEST_F(PrintToPrinter, AnyOtherModeIsThePrinter) {
  spool({"a"});
  expectRange("1", "1", 1);
  engine_.PrintOut(7, 1, "Albums");
  EXPECT_EQ(printer().sheets, (Texts{"a"}));
}

TEST_F(PrintToPrinter, APrinterThatFailsPrintsNothingAndTheSpoolStays) {
  for (const int sheets : {0, 1, 2, 3}) {
    SCOPED_TRACE(sheets);
    printer().sheets.clear();
    printer().documents = 0;
    printer().dropped = 0;
    spool({"a", "b", "c"});
    printer().failsAfter = sheets;
    EXPECT_EQ(failureOf([&] { print("1", "3", 3); }).number, 57);
    EXPECT_EQ(printer().documents, 0);
    EXPECT_EQ(printer().dropped, 1);
    EXPECT_TRUE(hasSpool());
    expectNothingOpen();
    printer().failsAfter.reset();
    print("2", "3", 3);
    EXPECT_EQ(printer().sheets, (Texts{"b", "c"}));
    EXPECT_EQ(printer().documents, 1);
    EXPECT_EQ(printer().dropped, 1);
    EXPECT_FALSE(hasSpool());
  }
}

TEST_F(PrintToPrinter, TheSpoolGoesWhenTheDocumentIsHandedOver) {
  spool({"a", "b"});
  printer().failsAtEnd = true;
  EXPECT_EQ(failureOf([&] { print("1", "2", 2); }), (Failure{57, "the printer"}));
  EXPECT_EQ(printer().dropped, 1);
  EXPECT_TRUE(hasSpool());
  expectNothingOpen();
  printer().failsAtEnd = false;
  print("1", "2", 2);
  EXPECT_EQ(printer().sheets, (Texts{"a", "b"}));
  EXPECT_FALSE(hasSpool());
}

TEST_F(PrintToPrinter, AfterAnyFailureTheSpoolIsStillThereAndCanBePrinted) {
  for (int nth = 0;; ++nth) {
    SCOPED_TRACE("operation " + std::to_string(nth));
    spool({"a", "b"});
    files_.failNth(nth, ErrorNumber::deviceIo);
    const Failure failure = failureOf([&] { print("1", "2", 2); });
    if (!files_.hasFailed()) break;
    EXPECT_EQ(failure, (Failure{57, "printer.tmp"}));
    expectNothingOpen();
    ASSERT_TRUE(hasSpool());
    printer().sheets.clear();
    print("1", "2", 2);
    EXPECT_EQ(printer().sheets, (Texts{"a", "b"}));
    EXPECT_FALSE(hasSpool());
  }
}

}  // namespace
}  // namespace quillbox::test
