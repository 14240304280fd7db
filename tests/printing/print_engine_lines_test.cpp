#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/print_fixture.h"

namespace quillbox::test {
namespace {

using PrintDataFailures = PrintDataTest;

TEST_F(PrintDataTest, AnEmptyLineAddsNothingButIsCounted) {
  holdLines(6);
  block(Texts{"a", "", "b", "", ""});
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed({"a", "b"})}));
  block(Texts{"c"});  // the sixth line
  EXPECT_EQ(pages(),
            (Texts{"Albums, page 1\r\n" + printed({"a", "b", "c"}), "     Albums, page 2\r\n"}));
  begin();
  block("a", 3);
  block(Texts{"", "", "b", ""});
  block("c", 2);  // 6 with the empty ones of page 2
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 3),
                            "     Albums, page 2\r\n" + printed({"b"}) + printed("c", 2),
                            "     Albums, page 3\r\n"}));
}

TEST_F(PrintDataTest, TheFirstPageGetsItsHeadingAnewUntilItHasHadALine) {
  block(Texts{});
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n"}));
  lines_.front() = "Tapes";
  block(Texts{""});
  EXPECT_EQ(pages(), (Texts{"Tapes 1\r\n"}));
  lines_.front() = "Books";
  block(Texts{"a"});
  EXPECT_EQ(pages(), (Texts{"Tapes 1\r\n" + printed({"a"})}));
}

TEST_F(PrintDataTest, AHeadingThatBeginsWithAZeroByteGivesWayToTheFirstLine) {
  for (const std::int16_t mode : kPrintModes) {
    begin(std::string(1, '\0') + "Albums");
    block(Texts{"a", "b"}, mode);
    EXPECT_EQ(pages(), (Texts{printed({"a", "b"})})) << mode;
  }
}

TEST_F(PrintDataTest, ALineOfBlanksIsKept) {
  block(Texts{"a", "   ", " ", "b  ", "  c"});
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n"
                            "     a\r\n"
                            "        \r\n"
                            "      \r\n"
                            "     b  \r\n"
                            "       c\r\n"}));
  begin();
  block(Texts{" "});
  block(Texts{"a"});
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n      \r\n     a\r\n"}));
}

TEST_F(PrintDataTest, WhatWasTakenIsEmptiedAndNothingElse) {
  holdLines(10);
  for (const int count : {4, 6, 5, 20}) {  // fits, fills the page, fits, does not fit
    lines_.fill("left alone");
    block("a", count);
    for (std::size_t line = 0; line < lines_.size(); ++line)
      EXPECT_EQ(lines_.at(line),
                line == 0 || line > static_cast<std::size_t>(count) ? "left alone" : "")
          << count << " lines, line " << line;
  }
}

TEST_F(PrintDataTest, TextsAreStoredInTheCharactersOfRecords) {
  begin("D\xE9j\xE0 vu");
  block(Texts{"\x80 5, na\xEFve \x93quoted\x94"});
  EXPECT_EQ(pages(), (Texts{"D\xE9j\xE0 vu 1\r\n     \x80 5, na\xEFve \x93quoted\x94\r\n"}));
}

TEST_F(PrintDataTest, WhatDoesNotGoIntoThePagesRecordIsCutOff) {
  holdLines(90);
  const Texts wide(80, std::string(100, 'w'));
  block(wide);
  const std::string whole = "Albums, page 1\r\n" + printed(wide);
  ASSERT_GT(whole.size(), kPageLength);
  EXPECT_TRUE(spool() == whole.substr(0, kPageLength));
  block("a", 5);
  EXPECT_TRUE(spool() == whole.substr(0, kPageLength));
  EXPECT_EQ(lines_[1], "");
  block("b", 6);
  EXPECT_TRUE(spool() ==
              whole.substr(0, kPageLength) + padded("     Albums, page 2\r\n" + printed("b", 6)));
}

TEST_F(PrintDataTest, APageIsCutOffToTheCharacter) {
  const std::string heading = "Albums, page 1\r\n";
  const std::size_t room = kPageLength - heading.size() - 7;  // the indent and the line's end
  for (const std::size_t more : {0U, 1U, 2U, 3U}) {
    begin();
    const std::string line(room + more, 'w');
    block(Texts{line});
    const std::string whole = heading + "     " + line + "\r\n";
    EXPECT_TRUE(spool() == whole.substr(0, kPageLength)) << more;
  }
}

TEST_F(PrintDataTest, TheNextLineFollowsWhereTheBlanksAtACutEndBegan) {
  block(Texts{"a" + std::string(6000, ' ')});
  block(Texts{"b"});
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n     a     b\r\n"}));
}

TEST_F(PrintDataTest, AHeadingMayFillThePage) {
  holdLines(5);
  begin(std::string(6000, 'h'));
  block("a", 4);
  block("b", 4);
  EXPECT_TRUE(spool() ==
              std::string(kPageLength, 'h') + "     " + std::string(kPageLength - 5, 'h'));
}

TEST_F(PrintDataTest, TheBoardTellsOfThePageThatTheBlockEndedOn) {
  holdLines(5);
  board_.told.clear();
  block("a", 4);
  block("b", 4);
  block("c", 1);
  EXPECT_EQ(board_.told,
            (Texts{"clear", "line: Generating page 1...", "clear", "line: Generating page 2...",
                   "clear", "line: Generating page 3..."}));
}

TEST_F(PrintDataTest, TheSpoolsFileNumberIsTakenFromWhoeverHasIt) {
  writeFile("other", "kept");
  state_.files.open(file_number::spool, "other", OpenMode::update);
  state_.files.open(file_number::collection, "other", OpenMode::update);
  block("a", 2);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 2)}));
  EXPECT_EQ(readFile("other"), "kept");
  EXPECT_TRUE(state_.files.isOpen(file_number::collection));
}

TEST_F(PrintDataTest, EveryFileMayBeClosedBetweenTwoBlocks) {
  holdLines(5);
  for (const char* name : {"a", "b", "c"}) {
    block(name, 4);
    state_.files.closeAll();
  }
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("a", 4),
                            "     Albums, page 2\r\n" + printed("b", 4),
                            "     Albums, page 3\r\n" + printed("c", 4)}));
  begin();
  block("d", 4);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("d", 4)}));
}

TEST_F(PrintDataTest, TheSpoolLiesInTheCurrentFolder) {
  std::filesystem::create_directory("below");
  std::filesystem::current_path("below");
  block("a", 2);
  std::filesystem::current_path(folder_.path());
  EXPECT_TRUE(std::filesystem::exists("below/printer.tmp"));
  EXPECT_FALSE(std::filesystem::exists("printer.tmp"));
}

TEST_F(PrintDataFailures, AfterAnyFailureAResetBeginsARightPrintout) {
  for (const int count : {5, 7, 8}) {  // fits, fills the page, does not fit
    for (const bool shortWrites : {false, true}) {
      files_.shortWrites = shortWrites;
      for (int nth = 0;; ++nth) {
        SCOPED_TRACE(std::to_string(count) + " lines, operation " + std::to_string(nth));
        holdLines(10);
        begin();
        files_.failNth(nth, ErrorNumber::diskFull);
        const Failure failure = failureOf([&] {
          block("a", 3);
          block("b", count);
        });
        pageCount();
        expectNothingOpen();
        const bool allTried = !files_.hasFailed();
        files_.failNth(-1, ErrorNumber::diskFull);  // nothing fails from here on
        if (allTried) break;
        // A failure to write the pages does not matter before they are delivered.
        EXPECT_EQ(failure, nth == 0 ? (Failure{61, "printer.tmp"}) : Failure{});
        begin();
        block("c", 3);
        EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("c", 3)}));
        EXPECT_EQ(pageCount(), 1);
      }
    }
  }
}

TEST_F(PrintDataFailures, WhatCouldNotBeWrittenIsWrittenLater) {
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    begin();
    files_.failNth(FileOperation::open, 0, ErrorNumber::diskFull);
    EXPECT_EQ(failureOf([&] { block("a", 2); }), (Failure{61, "printer.tmp"}));
    block("a", 2);
    files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
    EXPECT_EQ(pageCount(), 1);
    EXPECT_TRUE(files_.hasFailed());
    expectNothingOpen();
    block("b", 2);
    files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
    EXPECT_EQ(pageCount(), 1);
    desktop_.expectPrint(PrintChoice{true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt",
                        shortWrites ? "list.txt" : "", "list.txt");
    std::int16_t mode = print_mode::printer;
    engine_.OpenPrinter(mode);
    engine_.PrintOut(mode, 1, "Albums");
    EXPECT_EQ(readFile("list.txt"),
              "Albums\r\nAlbums, page 1\r\n" + printed("a", 2) + printed("b", 2) + "\r\n");
    expectNothingOpen();
  }
}

TEST_F(PrintDataFailures, NoPageOfManyIsLostWhenAWriteFails) {
  constexpr int blocks = 3 * static_cast<int>(kRecordBlockBytes / kPageLength);
  holdLines(4);
  Texts expected;
  for (int n = 1; n <= blocks; ++n)
    expected.push_back((n == 1 ? "Albums, page " : "     Albums, page ") + std::to_string(n) +
                       "\r\n" + printed(std::to_string(n) + ".", 3));
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    for (int nth = 0;; ++nth) {
      SCOPED_TRACE("write " + std::to_string(nth));
      begin();
      files_.failNth(FileOperation::write, nth, ErrorNumber::diskFull);
      int failures = 0;
      for (int n = 1; n <= blocks; ++n)
        if (failureOf([&] { block(std::to_string(n) + ".", 3); }) == Failure{61, "printer.tmp"})
          ++failures;
      EXPECT_EQ(pageCount(), blocks);
      const bool allTried = !files_.hasFailed();
      EXPECT_EQ(failures, nth < 2 ? 1 : 0);  // the last pages are written when they are counted
      EXPECT_TRUE(pages() == expected);
      if (allTried) break;
    }
  }
}

TEST_F(PrintDataFailures, PagesThatCannotBeWrittenAreAnErrorWhenTheyAreDelivered) {
  for (const std::int16_t mode : {print_mode::printer, print_mode::textFile}) {
    begin();
    block("a", 3);
    files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
    const int pages = pageCount();
    files_.failNth(FileOperation::write, 0, ErrorNumber::deviceIo);
    EXPECT_EQ(failureOf([&] { engine_.PrintOut(mode, static_cast<std::int16_t>(pages), ""); }),
              (Failure{57, "printer.tmp"}));
    expectNothingOpen();
    EXPECT_EQ(this->pages(), (Texts{"Albums, page 1\r\n" + printed("a", 3)}));
  }
}

TEST_F(PrintDataFailures, AResetThatCannotDeleteTheSpoolIsAnErrorAndCanBeRepeated) {
  for (const FileOperation operation :
       {FileOperation::close, FileOperation::exists, FileOperation::remove}) {
    begin();
    block("a", 3);
    files_.failNth(operation, 0, ErrorNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { begin(); }), (Failure{70, "printer.tmp"}));
    expectNothingOpen();
    begin("Tapes");
    block("b", 3);
    EXPECT_EQ(pages(), (Texts{"Tapes 1\r\n" + printed("b", 3)}));
  }
}

/// The heading, and nothing from an earlier printout, however often the spool remains.
TEST_F(PrintDataFailures, ASpoolThatCannotBeDeletedDoesNotHarmTheNextPrintouts) {
  holdLines(10);
  for (const std::int16_t mode : {print_mode::printer, print_mode::textFile})
    for (const FileOperation operation :
         {FileOperation::close, FileOperation::exists, FileOperation::remove}) {
      begin();
      block("a", 9, mode);
      block("b", 9, mode);
      block("c", 9, mode);
      for (const char* again : {"x", "y"}) {
        if (operation == FileOperation::close) block(again, 1, mode);  // else nothing is open
        files_.failNth(operation, 0, ErrorNumber::permissionDenied);
        EXPECT_EQ(failureOf([&] { begin(); }), (Failure{70, "printer.tmp"}));
        lines_.front() = "Tapes";
        EXPECT_EQ(pageCount(), 0);
        block(again, 4, mode);
        const Texts expected = {"Tapes 1\r\n" + printed(again, 4)};
        EXPECT_EQ(pages(), expected);
        block("z", 7, mode);
        EXPECT_EQ(pageCount(), 2);
        expectNothingOpen();
      }
      begin();
      EXPECT_FALSE(std::filesystem::exists("printer.tmp"));
    }
}

TEST_F(PrintDataFailures, AFolderOfTheSpoolsNameIsAnError) {
  std::filesystem::create_directory("printer.tmp");
  EXPECT_EQ(failureOf([&] { block("a", 3); }), (Failure{75, "printer.tmp"}));
  EXPECT_NE(failureOf([&] { begin(); }).number, 0);
  expectNothingOpen();
  std::filesystem::remove("printer.tmp");
  begin();
  block("b", 3);
  EXPECT_EQ(pages(), (Texts{"Albums, page 1\r\n" + printed("b", 3)}));
}

}  // namespace
}  // namespace quillbox::test
