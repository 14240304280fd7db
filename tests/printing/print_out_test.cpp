#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "support/machine.h"
#include "support/print_fixture.h"

namespace quillbox::test {
namespace {

/// A desktop without a printer to choose.
class NoPrinterDesktop : public FakeDesktop {
 public:
  std::optional<PrintChoice> printDialog(const std::string& /*title*/,
                                         const std::string& /*documentName*/) override {
    throw RunTimeError(ErrorNumber::deviceIo);
  }
};

using OpenPrinterTest = PrintOutTest;
using PrintToFile = PrintOutTest;

TEST_F(OpenPrinterTest, PaperLeavesTheModeAlone) {
  for (const std::int16_t before : {print_mode::printer, std::int16_t{7}}) {
    std::int16_t mode = before;
    desktop_.expectPrint(PrintChoice{});
    engine_.OpenPrinter(mode);
    EXPECT_EQ(mode, before);
  }
}

TEST_F(OpenPrinterTest, CancellingIsAModeOfItsOwn) {
  std::int16_t mode = print_mode::printer;
  desktop_.expectPrint(std::nullopt);
  engine_.OpenPrinter(mode);
  EXPECT_EQ(mode, -1);
}

TEST_F(OpenPrinterTest, AnErrorIsIgnored) {
  NoPrinterDesktop desktop;
  PrintEngine engine(state_, desktop, board_);
  std::int16_t mode = print_mode::printer;
  EXPECT_EQ(failureOf([&] { engine.OpenPrinter(mode); }), Failure{});
  EXPECT_EQ(mode, print_mode::printer);
}

TEST_F(OpenPrinterTest, TheLastFileNameIsOfferedCutAtItsFirstDot) {
  const struct {
    const char* typed;
    const char* offeredNext;
  } rows[] = {
      {"", ""},
      {"report.doc", "report.txt"},
      {"a.b.c", "a.txt"},
      {"list", "list"},
      {"list.", "list.txt"},
      {".profile", ".txt"},
      {"d\xC3\xA9j\xC3\xA0 vu.TXT", "d\xC3\xA9j\xC3\xA0 vu.txt"},
      {"/home/my.lists/albums.doc", "/home/my.txt"},
      {"../albums", ".txt"},
  };
  std::string offered;
  for (const auto& row : rows) {
    chooseFile(row.typed, offered);
    offered = row.offeredNext;
  }
  chooseFile("last", offered);
}

TEST_F(OpenPrinterTest, ThePrintersDialogsDoNotTouchTheFileName) {
  chooseFile("report.doc", "");
  std::int16_t mode = print_mode::printer;
  desktop_.expectPrint(PrintChoice{});
  engine_.OpenPrinter(mode);
  desktop_.expectPrint(std::nullopt);
  engine_.OpenPrinter(mode);
  chooseFile("other", "report.txt");
}

TEST_F(OpenPrinterTest, ACancelledSaveDialogKeepsTheNameItOffered) {
  chooseFile("report.doc", "");
  chooseFile(std::nullopt, "report.txt");
  spool({"Page 1\r\n"});
  engine_.PrintOut(print_mode::textFile, 1, "Albums");
  EXPECT_EQ(readFile("report.txt"), "Albums\r\nPage 1\r\n\r\n");
  EXPECT_FALSE(std::filesystem::exists("report.doc"));
}

TEST_F(OpenPrinterTest, ACancelledSaveDialogAtFirstLeavesNoName) {
  chooseFile(std::nullopt, "");
  spool({"Page 1\r\n"});
  EXPECT_EQ(failureOf([&] { engine_.PrintOut(print_mode::textFile, 1, "Albums"); }).number, 53);
  EXPECT_TRUE(hasSpool());
  expectNothingOpen();
}

TEST_F(OpenPrinterTest, BeforeANameWasChosenTheCollectionsIsOfferedAndNotTakenUnchosen) {
  state_.currentPath = "/home/my.lists/vol. 2.MCS";
  chooseFile(std::nullopt, "vol. 2.txt");
  spool({"Page 1\r\n"});
  EXPECT_EQ(failureOf([&] { engine_.PrintOut(print_mode::textFile, 1, "Albums"); }).number, 53);
  EXPECT_FALSE(std::filesystem::exists("vol. 2.txt"));
  chooseFile("report.doc", "vol. 2.txt");
  chooseFile("other", "report.txt");
}

TEST_F(OpenPrinterTest, ADocumentIsOfferedTheCollectionsName) {
  for (const auto& [path, offered] :
       {std::pair("", ""), std::pair("/home/my.lists/jazz.MCS", "jazz.pdf")}) {
    state_.currentPath = path;
    desktop_.expectPrint(PrintChoice{});
    std::int16_t mode = print_mode::printer;
    engine_.OpenPrinter(mode);
    EXPECT_EQ(desktop_.documentName, offered);
  }
}

TEST_F(PrintOutTest, ACancelledPrintoutLeavesTheSpoolAndDoesNothing) {
  spool({"Page 1\r\n"});
  const std::string before = readFile("printer.tmp");
  engine_.PrintOut(print_mode::cancelled, 1, "Albums");
  EXPECT_TRUE(readFile("printer.tmp") == before);
  EXPECT_TRUE(files_.operations().empty());
  EXPECT_TRUE(board_.told.empty());
  EXPECT_EQ(printer().documents, 0);
}

TEST_F(PrintOutTest, PrinterSetupLeavesALargerFontUntilTheNextBlock) {
  engine_.PrinterSetup();
  EXPECT_EQ(desktop_.printerSetups, 1);
  EXPECT_EQ(printer().fonts, (Texts{"Courier New 12"}));
  PrintLines lines;
  std::int16_t count = 1;
  lines[1] = "a";
  engine_.PrintData(lines, count, print_mode::printer);
  EXPECT_EQ(printer().fonts, (Texts{"Courier New 12", "Courier New 10"}));
}

TEST_F(PrintToFile, TheFileIsTheHeaderAndThePagesEachFollowedByAnEmptyLine) {
  spool({"Albums 1\r\n     a\r\n     b\r\n", "     c\r\n", "", "  d  "});
  writeTo("list.txt", 4, "Quillbox V1.71");
  EXPECT_EQ(readFile("list.txt"),
            "Quillbox V1.71\r\n"
            "Albums 1\r\n     a\r\n     b\r\n\r\n"
            "     c\r\n\r\n"
            "\r\n"
            "  d\r\n");
  EXPECT_FALSE(hasSpool());
}

TEST_F(PrintToFile, TheNameIsUsedAsItWasTyped) {
  for (const std::string name : {"report", "report.doc", "a.b.c", "r\xC3\xA9sum\xC3\xA9 1.TXT"}) {
    spool({"Page 1\r\n"});
    writeTo(name, 1);
    EXPECT_EQ(readFile(name), "Albums\r\nPage 1\r\n\r\n") << name;
  }
}

TEST_F(PrintToFile, WhatThePrintoutComposedIsWhatTheFileHolds) {
  PrintLines lines;
  std::int16_t count = 0;
  engine_.PrintData(lines, count, print_mode::reset);
  lines[0] = "Albums, page";
  printer().height = 100;  // 5 lines
  for (const char* name : {"one", "two", "three"}) {
    lines[1] = name;
    lines[2] = "  ";
    lines[3] = "\xE9t\xE9";
    count = 3;
    engine_.PrintData(lines, count, print_mode::textFile);
  }
  engine_.PrintData(lines, count, print_mode::pageCount);
  writeTo("list.txt", count);
  EXPECT_EQ(readFile("list.txt"),
            "Albums\r\n"
            "Albums, page 1\r\n     one\r\n       \r\n     \xE9t\xE9\r\n\r\n"
            "     two\r\n       \r\n     \xE9t\xE9\r\n\r\n"
            "     three\r\n       \r\n     \xE9t\xE9\r\n\r\n");
}

TEST_F(PrintToFile, APageThatWasCutOffIsWrittenWhole) {
  const std::string full(kPageLength, 'w');
  spool({full, "b\r\n"});
  writeTo("list.txt", 2);
  EXPECT_TRUE(readFile("list.txt") == "Albums\r\n" + full + "\r\nb\r\n\r\n");
}

TEST_F(PrintToFile, WithoutPagesTheFileIsTheHeader) {
  spool({"a\r\n"});
  writeTo("list.txt", 0);
  EXPECT_EQ(readFile("list.txt"), "Albums\r\n");
  EXPECT_FALSE(hasSpool());
  writeTo("list.txt", 0, "");  // without any spool
  EXPECT_EQ(readFile("list.txt"), "\r\n");
  EXPECT_FALSE(hasSpool());
}

TEST_F(PrintToFile, ManyPagesAreWrittenInTheirOrder) {
  Texts pages;
  std::string expected = "Albums\r\n";
  for (int page = 1; page <= 60; ++page) {
    pages.push_back(std::to_string(page) + std::string(5000, 'w') + "\r\n");
    expected += pages.back() + "\r\n";
  }
  spool(pages);
  writeTo("list.txt", 60);
  EXPECT_TRUE(readFile("list.txt") == expected);
}

TEST_F(PrintToFile, WhatWasInTheFileBeforeIsGone) {
  writeFile("list.txt", std::string(100'000, '#'));
  spool({"a\r\n"});
  writeTo("list.txt", 1);
  EXPECT_EQ(readFile("list.txt"), "Albums\r\na\r\n\r\n");
}

TEST_F(PrintToFile, TheBoardCountsThePages) {
  spool({"a\r\n", "b\r\n", "c\r\n"});
  writeTo("list.txt", 3);
  EXPECT_EQ(board_.told,
            (Texts{"open: Writing to file...", "clear", "line: Printing 1 of 3 to file...", "clear",
                   "line: Printing 2 of 3 to file...", "clear", "line: Printing 3 of 3 to file...",
                   "close"}));
  EXPECT_EQ(board_.steps, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}}));
}

TEST_F(PrintToFile, TheFileNumbersAreTakenFromWhoeverHasThem) {
  writeFile("other", "kept");
  state_.files.open(file_number::collection, "other", OpenMode::update);
  state_.files.open(file_number::spool, "other", OpenMode::update);
  spool({"a\r\n"});
  writeTo("list.txt", 1);
  EXPECT_EQ(readFile("list.txt"), "Albums\r\na\r\n\r\n");
  EXPECT_EQ(readFile("other"), "kept");
}

TEST_F(PrintToFile, AFileThatCannotBeMadeIsAnErrorAndTheSpoolStays) {
  std::filesystem::create_directory("folder");
  std::filesystem::create_directory("closed");
  writeFile("locked", "kept");
  using std::filesystem::perms;
  std::filesystem::permissions(
      "closed", perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec);
  std::filesystem::permissions("locked", perms::owner_read | perms::group_read);
  spool({"a\r\n"});
  const OrdinaryUser user(folder_);
  const struct {
    const char* name;
    int error;
  } rows[] = {
      {"", 53},       {"missing/list", 76}, {"locked/list", 76},
      {"folder", 75}, {"closed/list", 70},  {"locked", 70},
  };
  std::string offered;
  for (const auto& row : rows) {
    const std::string_view name = row.name;
    if (kMachine.permissions != nullptr && name == "closed/list") continue;
    if (kMachine.readOnlyFiles != nullptr && name == "locked") continue;
    chooseFile(row.name, offered);
    offered = row.name;
    EXPECT_EQ(failureOf([&] { engine_.PrintOut(print_mode::textFile, 1, "Albums"); }),
              (Failure{row.error, row.name}));
    EXPECT_TRUE(hasSpool()) << row.name;
    expectNothingOpen();
  }
  EXPECT_EQ(readFile("locked"), "kept");
}

TEST_F(PrintToFile, ASpoolThatLacksAPageIsAnErrorAndStays) {
  const Texts whole = {"a\r\n", "b\r\n"};
  std::string offered;
  for (const int pages : {3, 4}) {
    spool(whole);
    const std::string before = readFile("printer.tmp");
    chooseFile("list.txt", offered);
    offered = "list.txt";
    EXPECT_EQ(failureOf([&] {
                engine_.PrintOut(print_mode::textFile, static_cast<std::int16_t>(pages), "Albums");
              }),
              (Failure{63, "printer.tmp"}))
        << pages;
    EXPECT_TRUE(readFile("printer.tmp") == before);
    expectNothingOpen();
  }
}

TEST_F(PrintToFile, TheOpenCollectionIsNeverWrittenOver) {
  state_.currentPath = folder_.path("jazz.MCS");
  writeFile(state_.currentPath, "the collection");
  makeLink("jazz.MCS", "symbolic");
  std::filesystem::create_hard_link("jazz.MCS", "hard");
  spool({"a\r\n"});
  std::optional<std::string> offered;
  for (const std::string& name :
       {state_.currentPath, std::string("symbolic"), std::string("hard"), std::string("./hard")}) {
    chooseFile(name, offered);
    offered = name == state_.currentPath ? folder_.path("jazz.txt") : name;
    EXPECT_EQ(failureOf([&] { engine_.PrintOut(print_mode::textFile, 1, "Albums"); }),
              (Failure{55, name}));
    EXPECT_EQ(readFile(state_.currentPath), "the collection");
    EXPECT_TRUE(hasSpool());
    expectNothingOpen();
  }
}

TEST_F(PrintToFile, ThePagesAreNeverWrittenOver) {
  std::filesystem::create_directory("below");
  spool({"a\r\n", "b\r\n"});
  const std::string pages = readFile("printer.tmp");
  makeLink("printer.tmp", "symbolic");
  std::filesystem::create_hard_link("printer.tmp", "hard");
  std::string offered;
  for (const std::string& name :
       {std::string("printer.tmp"), folder_.path("printer.tmp"),
        std::string("below/../printer.tmp"), std::string("symbolic"), std::string("hard")}) {
    SCOPED_TRACE(name);
    chooseFile(name, offered);
    offered = name.substr(0, name.find('.'));
    if (offered != name) offered += ".txt";
    EXPECT_EQ(failureOf([&] { engine_.PrintOut(print_mode::textFile, 2, "Albums"); }),
              (Failure{55, name}));
    EXPECT_TRUE(readFile("printer.tmp") == pages);
    expectNothingOpen();
  }
  offered_ = offered;
  writeTo("list", 2);
  EXPECT_EQ(readFile("list"), "Albums\r\na\r\n\r\nb\r\n\r\n");
  EXPECT_FALSE(hasSpool());
}

TEST_F(PrintToFile, AnyOtherFileMayBeWrittenOverWhileACollectionIsOpen) {
  state_.currentPath = folder_.path("jazz.MCS");
  writeFile(state_.currentPath, "the collection");
  writeFile("blues.MCS", "the collection");
  spool({"a\r\n"});
  writeTo("blues.MCS", 1);
  EXPECT_EQ(readFile("blues.MCS"), "Albums\r\na\r\n\r\n");
  EXPECT_EQ(readFile(state_.currentPath), "the collection");
}

TEST_F(PrintToFile, AfterAnyFailureTheSpoolIsStillThereAndCanBeWritten) {
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    for (int nth = 0;; ++nth) {
      SCOPED_TRACE("operation " + std::to_string(nth));
      std::filesystem::remove("list.txt");
      spool({"a\r\n", "b\r\n"});
      files_.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = failureOf([&] { writeTo("list.txt", 2); });
      if (!files_.hasFailed()) break;
      EXPECT_EQ(failure.number, 61);
      EXPECT_TRUE(failure.file == "list.txt" || failure.file == "printer.tmp") << failure.file;
      expectNothingOpen();
      ASSERT_TRUE(hasSpool());
      engine_.PrintOut(print_mode::textFile, 2, "Albums");
      EXPECT_EQ(readFile("list.txt"), "Albums\r\na\r\n\r\nb\r\n\r\n");
      EXPECT_FALSE(hasSpool());
      expectNothingOpen();
    }
  }
}

}  // namespace
}  // namespace quillbox::test
