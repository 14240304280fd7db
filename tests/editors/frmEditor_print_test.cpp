// Print List in each editor, from the print dialog back to the editor.

#include <QEvent>
#include <utility>
#include <vector>

#include "forms/qt_text.h"
#include "printing/frmRecDisp.h"
#include "support/form_fixture.h"
#include "support/machine.h"

namespace quillbox::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kFilter = "Text File (*.txt)|*.txt";
const std::string kFailed =
    "System Error! Print routines have FAILED! Please contact the author for a bug fix!";

/// The expected dialogs of every test in this file.
void expectPaper(FakeDesktop& desktop, const std::string& pages) {
  desktop.expectPrint(PrintChoice{false});
  desktop.expectInput("Starting Page", "Printer Data", "1", "1");
  desktop.expectInput("Ending Page", "Printer Data", pages, pages);
}

void expectTextFile(FakeDesktop& desktop, std::optional<std::string> name,
                    std::optional<std::string> offered = {}) {
  desktop.expectPrint(PrintChoice{true});
  desktop.expectSave("Print to FileName", kFilter, std::move(offered), std::move(name));
}

class PrintList : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  PrintList() : EditorTest(GetParam()) {}

  /// Three items with the second one on screen, and a typed change.
  void openThree() {
    before_ = collection({item("first"), item("second"), item("third")});
    openBytes(before_);
    press(kind().buttons.next);
    ASSERT_EQ(first(), "second");
    type(kind().otherBox(), "typed");
  }

  /// Makes a page hold a single line: each item is on a page of its own, after an empty one.
  void makeAPageForEachItem() { desktop_.fakePrinter.height = 60; }

  void print() {
    choose("PrintList");
    desktop_.expectNothingLeft();
  }

  /// Only the editor is on screen, with item 1 as it is in the file.
  void expectBackWithItemOne() {
    EXPECT_EQ(formName(), kind().formName);
    EXPECT_EQ(state_->CurRec, 1);
    EXPECT_EQ((*state_).*kind().row().position, 1);
    EXPECT_EQ(indicator(), kind().label(1, state_->Count));
    EXPECT_EQ(first(), "first");
    EXPECT_NE(other(), "typed");
    EXPECT_EQ(bytes(), before_);
    press(kind().buttons.write);
    EXPECT_EQ(bytes(), before_) << "the item on screen is not item 1";
  }
  void expectNothingOnPaper() {
    EXPECT_EQ(desktop_.fakePrinter.sheets, Texts{});
    EXPECT_EQ(desktop_.fakePrinter.documents, 0);
  }
  bool isSpoolThere() const { return std::filesystem::exists(path("printer.tmp")); }

  static void expectInOrder(const std::string& text, const Texts& parts) {
    std::size_t at = 0;
    for (const std::string& part : parts) {
      at = text.find(part, at);
      EXPECT_NE(at, std::string::npos) << part << " in\n" << text;
      if (at == std::string::npos) return;
    }
  }

  std::string before_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, PrintList, testing::ValuesIn(kModelEditors), nameOfKind);

TEST_P(PrintList, PrintsASheetForEachPageAndComesBackWithItemOne) {
  openThree();
  makeAPageForEachItem();
  expectPaper(desktop_, "4");
  print();
  const Texts& sheets = desktop_.fakePrinter.sheets;
  ASSERT_EQ(sheets.size(), 4U);
  for (int page = 1; page <= 4; ++page) {
    const std::string& sheet = sheets.at(static_cast<std::size_t>(page) - 1);
    EXPECT_TRUE(sheet.starts_with("Quillbox V1.71   - ")) << sheet;
    EXPECT_NE(sheet.find(" Printout Page # " + std::to_string(page) + "\r\n"), std::string::npos);
  }
  expectInOrder(sheets.at(1), {"Record #          :  1 of 3\r\n", ": first\r\n", "-----\r\n"});
  expectInOrder(sheets.at(2), {"Record #          :  2 of 3\r\n", ": second\r\n", "-----\r\n"});
  expectInOrder(sheets.at(3), {"Record #          :  3 of 3\r\n", ": third\r\n", "-----\r\n"});
  EXPECT_EQ(desktop_.fakePrinter.documents, 1);
  EXPECT_EQ(desktop_.fakePrinter.fonts.back(), "Courier New 10");
  EXPECT_FALSE(isSpoolThere());
  expectBackWithItemOne();
}

TEST_P(PrintList, PrintsTheChosenPagesAlone) {
  openThree();
  makeAPageForEachItem();
  desktop_.expectPrint(PrintChoice{false});
  desktop_.expectInput("Starting Page", "Printer Data", "2", "1");
  desktop_.expectInput("Ending Page", "Printer Data", "3", "4");
  print();
  ASSERT_EQ(desktop_.fakePrinter.sheets.size(), 2U);
  expectInOrder(desktop_.fakePrinter.sheets.front(), {" Page # 2\r\n", ": first\r\n"});
  expectInOrder(desktop_.fakePrinter.sheets.back(), {" Page # 3\r\n", ": second\r\n"});
  expectBackWithItemOne();
}

TEST_P(PrintList, PrintsNothingWhenAPageIsCancelled) {
  openThree();
  makeAPageForEachItem();
  desktop_.expectPrint(PrintChoice{false});
  desktop_.expectInput("Starting Page", "Printer Data", std::nullopt, "1");
  print();
  expectBackWithItemOne();
  desktop_.expectPrint(PrintChoice{false});
  desktop_.expectInput("Starting Page", "Printer Data", "1", "1");
  desktop_.expectInput("Ending Page", "Printer Data", std::nullopt, "4");
  print();
  expectBackWithItemOne();
  expectNothingOnPaper();
  EXPECT_FALSE(isSpoolThere());
}

TEST_P(PrintList, WritesATextFileWithOneHeadingAndComesBackWithItemOne) {
  openThree();
  makeAPageForEachItem();
  expectTextFile(desktop_, path("list.txt"));
  print();
  const std::string text = file("list.txt");
  EXPECT_TRUE(text.starts_with("Quillbox V1.71   - ")) << text;
  expectInOrder(text, {" Page # 1\r\n", " 1 of 3\r\n", ": first\r\n", " 2 of 3\r\n", ": second\r\n",
                       " 3 of 3\r\n", ": third\r\n", "-----\r\n"});
  EXPECT_EQ(text.find("Page # 2"), std::string::npos);
  EXPECT_FALSE(isSpoolThere());
  expectNothingOnPaper();
  expectBackWithItemOne();
}

TEST_P(PrintList, CancelledPrintsNothingButComesBackWithItemOne) {
  openThree();
  desktop_.expectPrint(std::nullopt);
  print();
  expectNothingOnPaper();
  EXPECT_TRUE(isSpoolThere()) << "the pages are composed all the same";
  expectBackWithItemOne();
}

TEST_P(PrintList, DropsANewItemThatIsBeingTyped) {
  openThree();
  press(kind().buttons.clear);
  type(kind().firstBox(), "new");
  desktop_.expectPrint(std::nullopt);
  print();
  expectBackWithItemOne();
}

TEST_P(PrintList, ListsWhatIsInTheFileEachTime) {
  before_ = collection({item("first")});
  openBytes(before_);
  for (int time = 1; time <= 2; ++time) {
    expectPaper(desktop_, "1");
    print();
  }
  ASSERT_EQ(desktop_.fakePrinter.sheets.size(), 2U);
  EXPECT_EQ(desktop_.fakePrinter.sheets.front(), desktop_.fakePrinter.sheets.back());
  type(kind().otherBox(), "changed");
  press(kind().buttons.write);
  expectPaper(desktop_, "1");
  print();
  expectInOrder(desktop_.fakePrinter.sheets.back(), {": changed\r\n"});
}

/// Records the titles of the board, and whether the editor is visible then.
class BoardTitles : public QObject {
 public:
  BoardTitles(QWidget& board, const QWidget& editor) : board_(board), editor_(editor) {
    board_.installEventFilter(this);
  }
  Texts titles;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::WindowTitleChange) {
      titles.push_back(toUtf8Text(board_.windowTitle()));
      EXPECT_FALSE(editor_.isVisible()) << titles.back();
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QWidget& board_;
  const QWidget& editor_;
};

TEST_P(PrintList, TheBoardStandsForTheEditorMeanwhile) {
  openThree();
  makeAPageForEachItem();
  const BoardTitles told(dynamic_cast<frmRecDisp&>(program_->board()), form());
  expectPaper(desktop_, "4");
  print();
  EXPECT_EQ(told.titles, (Texts{"Printing Status...", "Printing Status", "Printing to Printer..."}))
      << "loaded, then given its captions";
  expectTextFile(desktop_, path("list.txt"));
  print();
  EXPECT_EQ(told.titles, (Texts{"Printing Status...", "Printing Status", "Printing to Printer...",
                                "Printing Status", "Writing to file..."}));
}

TEST_P(PrintList, TheEditorMakesWayForTheBoardBehindThePrintDialog) {
  openThree();
  const QMainWindow& shown = form();
  desktop_.onBox = [&](const std::string& title, const std::string&) {
    EXPECT_EQ(shown.isVisible(), title == "QBX List Print");
    // Nothing is read from the collection before the board appears.
    files_.beforeRead = [&] {
      const QMainWindow& board = formNamed("frmRecDisp");
      EXPECT_FALSE(shown.isVisible());
      EXPECT_TRUE(board.isVisible());
      const auto* lines = board.findChild<QLabel*>("lblLines");
      EXPECT_TRUE(waitFor([&] { return lines->text() == "Starting Print Routine..."; }))
          << lines->text().toStdString();
    };
  };
  desktop_.expectPrint(std::nullopt);
  print();
  EXPECT_EQ(files_.beforeRead, nullptr) << "never read";
}

TEST_P(PrintList, SetsUpThePrinterAndLeavesTheScreenAlone) {
  const char* const actions[] = {"PrintSetup", "SetupPrinter", "PrinterSetup"};
  openThree();
  int found = 0;
  for (const char* action : actions) {
    if (form().findChild<QAction*>(action) == nullptr) continue;
    ++found;
    choose(action);
  }
  EXPECT_EQ(found, 1);
  EXPECT_EQ(desktop_.printerSetups, 1);
  EXPECT_EQ(desktop_.fakePrinter.fonts, (Texts{"Courier New 12"}));
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(other(), "typed");
}

// ---- The name of the text file

TEST_P(PrintList, OffersTheLastNameCutAtItsFirstDot) {
  openThree();
  expectTextFile(desktop_, path("my.old.list"));
  print();
  expectTextFile(desktop_, path("without a dot"), path("my.txt"));
  print();
  expectTextFile(desktop_, path("list.txt"), path("without a dot"));
  print();
  EXPECT_EQ(file("my.old.list"), file("without a dot"));
  EXPECT_EQ(file("my.old.list"), file("list.txt"));
  EXPECT_FALSE(std::filesystem::exists(path("my.txt")));
}

TEST_P(PrintList, ACancelledNameIsTheOneThatWasOffered) {
  openThree();
  expectTextFile(desktop_, path("my.list"));
  print();
  expectTextFile(desktop_, std::nullopt, path("my.txt"));
  print();
  EXPECT_EQ(file("my.txt"), file("my.list"));
  expectBackWithItemOne();
}

// ---- Errors are never shown

TEST_P(PrintList, AFolderThatMayNotBeWrittenPrintsNothing) {
  QUILLBOX_NEEDS(permissions);
  openThree();
  std::filesystem::permissions(
      folder_.path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  {
    const OrdinaryUser user(folder_);
    expectPaper(desktop_, "1");
    print();
    expectTextFile(desktop_, path("list.txt"));
    print();
    desktop_.expectPrint(std::nullopt);
    print();
  }
  expectNothingOnPaper();
  EXPECT_FALSE(isSpoolThere());
  EXPECT_FALSE(std::filesystem::exists(path("list.txt")));
  expectBackWithItemOne();
}

TEST_P(PrintList, ATextFileThatCannotBeMadeIsNoError) {
  openThree();
  expectTextFile(desktop_, path("gone/list"));
  print();
  expectBackWithItemOne();
  expectTextFile(desktop_, std::nullopt, path("gone/list"));
  print();
  expectBackWithItemOne();
  EXPECT_FALSE(std::filesystem::exists(path("gone")));
}

TEST_P(PrintList, ATextFileWithoutANameIsNotWritten) {
  openThree();
  expectTextFile(desktop_, std::nullopt, "mine.txt");
  print();
  std::filesystem::remove(path("printer.tmp"));
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
    EXPECT_EQ(entry.path().string(), collectionPath());
  expectBackWithItemOne();
}

TEST_P(PrintList, ATextFileNeverTakesThePlaceOfTheCollection) {
  openThree();
  makeLink(collectionPath(), path("other name"));
  for (const std::string& chosen : {collectionPath(), name(), path("other name")}) {
    SCOPED_TRACE(chosen);
    openBytes(before_);
    expectTextFile(desktop_, chosen);
    print();
    expectBackWithItemOne();
  }
}

TEST_P(PrintList, APrinterThatGoesAwayPrintsNothing) {
  openThree();
  makeAPageForEachItem();
  for (const int sheets : {0, 1, 3}) {
    SCOPED_TRACE(sheets);
    desktop_.fakePrinter.failsAfter = sheets;
    expectPaper(desktop_, "4");
    print();
    expectNothingOnPaper();
    expectBackWithItemOne();
  }
  EXPECT_EQ(desktop_.fakePrinter.dropped, 3);
  desktop_.fakePrinter.failsAfter.reset();
  expectPaper(desktop_, "4");
  print();
  EXPECT_EQ(desktop_.fakePrinter.sheets.size(), 4U) << "nothing of the listings before is left";
  EXPECT_FALSE(isSpoolThere());
}

TEST_P(PrintList, ACollectionThatIsGoneIsListedBlankAndLeavesTheScreenAlone) {
  openThree();
  makeAPageForEachItem();
  std::filesystem::remove(collectionPath());
  expectPaper(desktop_, "4");
  print();
  ASSERT_EQ(desktop_.fakePrinter.sheets.size(), 4U);
  expectInOrder(desktop_.fakePrinter.sheets.back(), {" 3 of 3\r\n", ": \r\n", "-----\r\n"});
  EXPECT_EQ(desktop_.fakePrinter.sheets.back().find("third"), std::string::npos);
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(other(), "typed");
  EXPECT_FALSE(std::filesystem::exists(collectionPath()));
}

// ---- An empty collection

TEST_P(PrintList, AnEmptyCollectionEndsOnTheBoardAndThenTheStartScreen) {
  using Choice = std::optional<PrintChoice>;
  for (const Choice& choice : {Choice{PrintChoice{false}}, Choice{PrintChoice{true}}, Choice{}}) {
    SCOPED_TRACE(choice ? static_cast<int>(choice->toFile) : -1);
    open({});
    desktop_.expectPrint(choice);
    if (choice && choice->toFile)
      desktop_.expectSave("Print to FileName", kFilter, std::nullopt, "list.txt");
    desktop_.expectMessage("Quillbox", kFailed);
    print();
    EXPECT_EQ(formName(), "frmRecDisp");
    EXPECT_EQ(caption(), "Printing Status");
    EXPECT_EQ(label("lblStatus"), "Nothing printed: the collection is empty");
    close();
    EXPECT_EQ(formName(), "frmBegin2");
    EXPECT_FALSE(isSpoolThere());
    EXPECT_FALSE(std::filesystem::exists(path("list.txt")));
  }
  expectNothingOnPaper();
}

TEST_P(PrintList, AnotherCollectionCanBeListedAfterAnEmptyOne) {
  open({});
  desktop_.expectPrint(std::nullopt);
  desktop_.expectMessage("Quillbox", kFailed);
  print();
  close();
  before_ = collection({item("first")});
  writeFile(collectionPath(), before_);
  desktop_.tolerateOpen = collectionPath();
  choose("O");
  expectPaper(desktop_, "1");
  print();
  ASSERT_EQ(desktop_.fakePrinter.sheets.size(), 1U);
  expectInOrder(desktop_.fakePrinter.sheets.front(), {" 1 of 1\r\n", ": first\r\n"});
  expectBackWithItemOne();
}

}  // namespace
}  // namespace quillbox::test
