// The second pages of the video, software and comic editors, with real keys, down to the bytes of
// the file.

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMenu>

#include "support/family_steps.h"

namespace quillbox::test {
namespace {

constexpr std::size_t kEntryWidth = 50;

/// A second page as the user sees it, and where its entries are in the record.
struct Page {
  ModelKind kind;
  const char* formName;
  const char* caption;
  std::string boxName;
  std::string captionName;
  std::vector<std::string> captions;
  std::vector<std::pair<const char*, const char*>> buttons;  ///< Previous, Next, Exit
  std::size_t listOffset;
};

void PrintTo(const Page& page, std::ostream* out) { *out << page.formName; }

std::vector<std::string> tenCaptions(const std::string& word) {
  std::vector<std::string> captions;
  for (int i = 1; i < 10; ++i) captions.push_back(word + " &" + std::to_string(i) + ":");
  captions.push_back(word + " 1&0:");
  return captions;
}

const Page kMovies = {
    kVideo,
    "frmVideoTitles",
    "Video Tape Collection Manager",
    "txtMovieTitle_",
    "lblvidtitles_",
    tenCaptions("Movie"),
    {{"cmdPrev", "Pre&vious Item"}, {"cmdNext", "&Next Item"}, {"cmdExit", "E&xit Window"}},
    52};
const Page kPrograms = {
    kSoftware,
    "frmSoftwareTitles",
    "Software Collection Manager",
    "txtProgram_",
    "lblProgram_",
    tenCaptions("Program"),
    {{"cmdPrevious", "Pre&vious Item"}, {"cmdNext", "Ne&xt Item"}, {"cmdExit", "E&xit Window"}},
    60};
const Page kNotes = {
    kComics,
    "frmComicTitles",
    "Comic Notes Data",
    "txtCmic_",
    "lblCmic_",
    {"Notes &1:", "Notes &2:", "Notes &3:", "Notes &4:", "Notes &5:"},
    {{"cmdPrevious", "Pre&vious Item"}, {"cmdNext", "&Next Item"}, {"cmdExit", "E&xit Window"}},
    100};

class ListPage : public FamilySteps, public testing::WithParamInterface<Page> {
 protected:
  ListPage() : FamilySteps(GetParam().kind) {}

  std::size_t entryCount() const { return GetParam().captions.size(); }

  /// A collection of three items, "A" to "C"; entry 1 of each is "first of A", and so on; the last
  /// entry "last of A".
  std::string threeItems() const {
    std::string collection = familyFile(kind(), {"A", "B", "C"});
    for (std::size_t n = 1; n <= 3; ++n) {
      const std::string name(1, static_cast<char>('A' + n - 1));
      setEntry(collection, n, 0, "first of " + name);
      setEntry(collection, n, entryCount() - 1, "last of " + name);
    }
    return collection;
  }
  void setEntry(std::string& collection, std::size_t n, std::size_t entry,
                const std::string& text) const {
    collection.replace(n * kind().recordLength + GetParam().listOffset + entry * kEntryWidth,
                       text.size(), text);
  }
  void openThree() { openBytes(threeItems()); }

  std::string boxOf(std::size_t entry) const { return GetParam().boxName + std::to_string(entry); }
  std::string entry(std::size_t number) { return shown(boxOf(number).c_str()); }
  std::string lastEntry() { return entry(entryCount() - 1); }
  void typeEntry(std::size_t number, const std::string& keys) {
    type(boxOf(number).c_str(), keys.c_str());
  }
  std::string storedEntry(int n, std::size_t number) {
    return textAt(stored(n), GetParam().listOffset + number * kEntryWidth);
  }

  void openPage() {
    choose("EditTitles");
    EXPECT_EQ(formName(), GetParam().formName);
  }
  void leavePage() {
    press("cmdExit");
    EXPECT_EQ(formName(), kind().formName);
  }
  void pageNext() { press(GetParam().buttons[1].first); }
  void pagePrevious() { press(GetParam().buttons[0].first); }
};

const auto pageName = [](const testing::TestParamInfo<Page>& page) { return page.param.kind.name; };

INSTANTIATE_TEST_SUITE_P(Kinds, ListPage, testing::Values(kMovies, kPrograms, kNotes), pageName);

// ---- What all of them do

TEST_P(ListPage, ShowsTheEntriesOfTheItemOnScreenInsteadOfTheEditor) {
  openThree();
  pressNext();
  openPage();  // the one form on screen
  EXPECT_EQ(caption(), GetParam().caption);
  EXPECT_EQ(entry(0), "first of B");
  EXPECT_EQ(entry(1), "");
  EXPECT_EQ(lastEntry(), "last of B");
}

TEST_P(ListPage, SaysWhoseListItIs) {
  openThree();
  pressNext();
  openPage();
  EXPECT_EQ(label("lblItem"), "Record # 2 of 3 \u2013 B");
  leavePage();
  type(kind().firstBox(), "Typed");
  openPage();
  EXPECT_EQ(label("lblItem"), "Record # 2 of 3 \u2013 Typed") << "as the form calls it";
  leavePage();
  press(kind().buttons.clear);
  openPage();
  EXPECT_EQ(label("lblItem"), "New Record");
}

TEST_P(ListPage, SaysWhichItemItSteppedTo) {
  openThree();
  state_->ListPos = 1;
  openPage();
  pageNext();
  EXPECT_EQ(label("lblItem"), "Record # 2 of 3 \u2013 B");
  leavePage();
  openPage();
  EXPECT_EQ(label("lblItem"), "Record # 2 of 3 \u2013 B") << "not the item of the indicator";
  leavePage();
  desktop_.expectInput("Record #", "Go To Record", "3");
  press(kind().buttons.goTo);
  openPage();
  EXPECT_EQ(label("lblItem"), "Record # 3 of 3 \u2013 C");
}

TEST_P(ListPage, AfterWritingItIsTheListOfTheItemThatWasWritten) {
  openThree();
  state_->ListPos = 2;
  openPage();
  pageNext();
  leavePage();
  press(kind().buttons.write);
  const std::string written = indicator();
  openPage();
  EXPECT_EQ(label("lblItem"), written + " \u2013 C");
}

TEST_P(ListPage, ATextOfSeveralLinesFillsItsEmptyBoxesAndIsUndoneAtOnce) {
  openThree();
  openPage();
  QApplication::clipboard()->setText("1. One\n2. Two\n3. Three");
  QLineEdit& first = box(boxOf(0).c_str());
  first.setFocus();
  first.deselect();
  QTest::keyClick(&first, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(entry(0), "first of A");
  EXPECT_EQ(entry(1), "One");
  EXPECT_EQ(entry(3), "Three");
  EXPECT_EQ(label("lblStatus"), "3 lines pasted. Ctrl+Z takes them back.");
  QTest::keyClick(&first, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(entry(0), "first of A");
  EXPECT_EQ(entry(1), "");
  EXPECT_EQ(label("lblStatus"), "");
  QTest::keyClick(&first, Qt::Key_V, Qt::ControlModifier);
  leavePage();
  press(kind().buttons.write);
  EXPECT_EQ(storedEntry(1, 2), "Two");
}

TEST_P(ListPage, WhatWasPastedIsForgottenWithItsItem) {
  openThree();
  openPage();
  QApplication::clipboard()->setText("One\nTwo");
  QLineEdit& second = box(boxOf(1).c_str());
  second.setFocus();
  QTest::keyClick(&second, Qt::Key_V, Qt::ControlModifier);
  pageNext();
  EXPECT_EQ(label("lblStatus"), "Item 1 was left with text that is not written");
  QTest::keyClick(&second, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(entry(1), "");
}

TEST_P(ListPage, TheMenuItemSaysWhatTheListIs) {
  openThree();
  EXPECT_TRUE(control<QAction>("EditTitles").toolTip().startsWith("The "));
  EXPECT_TRUE(control<QMenu>("EditMenu").toolTipsVisible());
  if (kind().name == kComics.name) {
    EXPECT_EQ(control<QAction>("EditTitles").toolTip(), "The notes on this comic");
  }
}

TEST_P(ListPage, HasItsControlsByNameAndCaption) {
  openThree();
  openPage();
  EXPECT_EQ(form().findChildren<QLineEdit*>().size(), static_cast<qsizetype>(entryCount()));
  for (std::size_t i = 0; i < entryCount(); ++i) {
    const std::string expected = GetParam().captions[i];
    const auto& label = control<QLabel>((GetParam().captionName + std::to_string(i)).c_str());
    QLineEdit& captioned = box(boxOf(i).c_str());
    EXPECT_EQ(label.text().toStdString(), expected);
    EXPECT_EQ(label.buddy(), &captioned);
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(&captioned)->text(QAccessible::Name).toStdString(),
        QString::fromStdString(expected).remove('&').toStdString());
    EXPECT_EQ(captioned.maxLength(), 50);
  }
  EXPECT_EQ(form().findChildren<QPushButton*>().size(), 3);
  for (const auto& [name, text] : GetParam().buttons)
    EXPECT_EQ(button(name).text().toStdString(), text);
}

TEST_P(ListPage, TabGoesFromEntryToEntryAndOnToTheButtons) {
  openThree();
  openPage();
  box(boxOf(0).c_str()).setFocus();
  std::vector<std::string> order;
  for (std::size_t i = 0; i < entryCount(); ++i) order.push_back(boxOf(i));
  for (const auto& row : GetParam().buttons) order.emplace_back(row.first);
  for (const std::string& name : order) {
    EXPECT_EQ(form().focusWidget()->objectName().toStdString(), name);
    QTest::keyClick(form().focusWidget(), Qt::Key_Tab);
  }
}

TEST_P(ListPage, FitsASmallScreen) {
  openThree();
  openPage();
  EXPECT_LE(form().minimumSizeHint().width(), 1024);
  EXPECT_LE(form().minimumSizeHint().height(), 700);
}

TEST_P(ListPage, ReachesTheFileOnlyWithWriteData) {
  openThree();
  openPage();
  typeEntry(1, "typed");
  typeEntry(entryCount() - 1, "the end");
  leavePage();
  EXPECT_EQ(bytes(), threeItems()) << "leaving writes nothing";
  pressWrite();
  EXPECT_EQ(storedEntry(1, 0), "first of A");
  EXPECT_EQ(storedEntry(1, 1), "typed");
  EXPECT_EQ(storedEntry(1, entryCount() - 1), "the end");
  EXPECT_EQ(stored(2), itemBytes(kind(), threeItems(), 2));
  openPage();
  EXPECT_EQ(entry(1), "typed");
}

TEST_P(ListPage, ClosingTheWindowIsLeavingIt) {
  openThree();
  openPage();
  typeEntry(1, "typed");
  close();
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(bytes(), threeItems());
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  pressWrite();
  EXPECT_EQ(storedEntry(1, 1), "typed");
}

TEST_P(ListPage, WhatIsTypedIsLostWhenTheEditorStepsOn) {
  openThree();
  openPage();
  typeEntry(1, "typed");
  leavePage();
  pressNext();
  pressPrevious();
  openPage();
  EXPECT_EQ(entry(0), "first of A");
  EXPECT_EQ(entry(1), "");
  leavePage();
  pressWrite();
  EXPECT_EQ(storedEntry(1, 1), "");
}

TEST_P(ListPage, WhatIsTypedIsLostWhenThePageStepsOn) {
  openThree();
  state_->ListPos = 1;
  openPage();
  typeEntry(1, "typed");
  pageNext();
  EXPECT_EQ(entry(1), "");
  pagePrevious();
  EXPECT_EQ(entry(0), "first of A");
  EXPECT_EQ(entry(1), "");
  EXPECT_EQ(bytes(), threeItems());
}

TEST_P(ListPage, IsEmptiedByClearData) {
  openThree();
  pressClear();
  openPage();
  for (std::size_t i = 0; i < entryCount(); ++i) EXPECT_EQ(entry(i), "");
}

TEST_P(ListPage, IsEmptiedByDelete) {
  openThree();
  pressDelete(Answer::yes);
  openPage();
  EXPECT_EQ(entry(0), "");
  EXPECT_EQ(lastEntry(), "");
}

TEST_P(ListPage, AnItemTypedNewIsStoredWithItsEntries) {
  openThree();
  pressClear();
  typeFirst("D");
  openPage();
  for (std::size_t i = 0; i < entryCount(); ++i) typeEntry(i, "entry " + std::to_string(i));
  leavePage();
  pressWrite();
  EXPECT_EQ(storedFirst(4), "D");
  for (std::size_t i = 0; i < entryCount(); ++i)
    EXPECT_EQ(storedEntry(4, i), "entry " + std::to_string(i));
  openPage();
  EXPECT_EQ(entry(0), "") << "ready for the next item";
}

TEST_P(ListPage, EntriesAreCutAtTheirWidth) {
  openThree();
  openPage();
  const std::string sixty = std::string(49, 'x') + "yz" + std::string(9, 'z');
  typeEntry(1, sixty);
  leavePage();
  pressWrite();
  EXPECT_EQ(storedEntry(1, 1), sixty.substr(0, 50));
  EXPECT_EQ(storedEntry(1, 2), "");
}

TEST_P(ListPage, EntriesAreShownTrimmedAndUpToTheirFirstNul) {
  std::string collection = threeItems();
  setEntry(collection, 1, 0, std::string("  So\0What", 9));
  openBytes(collection);
  openPage();
  EXPECT_EQ(entry(0), "  So");
  EXPECT_EQ(lastEntry(), "last of A");
}

TEST_P(ListPage, IsEmptyAfterAFreshLoadOfAnEmptyCollection) {
  openThree();
  writeFile(path("empty." + std::string(kind().extension)), familyHeader(0));
  openHere(path("empty." + std::string(kind().extension)));
  openPage();
  EXPECT_EQ(entry(0), "");
  EXPECT_EQ(lastEntry(), "");
}

TEST_P(ListPage, GoesRoundAndRound) {
  openThree();
  state_->ListPos = 2;
  openPage();
  pageNext();
  EXPECT_EQ(entry(0), "first of C");
  EXPECT_EQ(state_->ListPos, 3);
  pageNext();
  EXPECT_EQ(entry(0), "first of A");
  EXPECT_EQ(state_->ListPos, 1);
  pagePrevious();
  EXPECT_EQ(entry(0), "first of C");
  EXPECT_EQ(lastEntry(), "last of C");
  EXPECT_EQ(state_->ListPos, 3);
  pagePrevious();
  EXPECT_EQ(entry(0), "first of B");
  leavePage();
  EXPECT_EQ(first(), "B") << "the editor shows the same record";
  EXPECT_EQ(bytes(), threeItems());
}

TEST_P(ListPage, AnOldPositionGoesDownByOneAndUpToTheFirst) {
  openThree();
  state_->ListPos = 50;
  openPage();
  pagePrevious();
  EXPECT_EQ(state_->ListPos, 49);
  EXPECT_EQ(entry(0), "") << "blank past the end of the file";
  EXPECT_EQ(lastEntry(), "");
  pageNext();
  EXPECT_EQ(state_->ListPos, 1);
  EXPECT_EQ(entry(0), "first of A");
  state_->ListPos = 50;
  pageNext();
  EXPECT_EQ(state_->ListPos, 1);
  EXPECT_EQ(bytes(), threeItems());
}

TEST_P(ListPage, SteppingInAnEmptyCollectionWritesNothing) {
  openBytes(familyHeader(0));
  openPage();
  pageNext();
  pagePrevious();
  EXPECT_EQ(entry(0), "");
  leavePage();
  EXPECT_EQ(bytes(), familyHeader(0));
}

TEST_P(ListPage, AFailedStepLeavesThePageAndThePosition) {
  openThree();
  state_->ListPos = 1;
  openPage();
  typeEntry(1, "typed");
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  expectFileError("'57':\n\nDevice I/O error");
  pageNext();
  EXPECT_EQ(formName(), GetParam().formName);
  EXPECT_EQ(state_->ListPos, 1);
  EXPECT_EQ(state_->CurRec, 1);
  EXPECT_EQ(entry(0), "first of A");
  EXPECT_EQ(entry(1), "typed");
}

// ---- The page of the video editor

class VideoPage : public ListPage {};

INSTANTIATE_TEST_SUITE_P(Kinds, VideoPage, testing::Values(kMovies), pageName);

TEST_P(VideoPage, TheEditorStaysInStep) {
  openThree();
  openPage();
  pageNext();
  leavePage();
  EXPECT_EQ(indicator(), "Record # 2 of 3");
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(state_->ListPos, 2);
  EXPECT_TRUE(previousEnabled());
  EXPECT_TRUE(nextEnabled());
  openPage();
  pageNext();
  pageNext();
  leavePage();
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  EXPECT_FALSE(previousEnabled());
  openPage();
  pagePrevious();
  leavePage();
  EXPECT_EQ(indicator(), "Record # 3 of 3");
  EXPECT_FALSE(nextEnabled());
}

TEST_P(VideoPage, WhatIsTypedAfterAStepGoesToTheItemThatIsShown) {
  openThree();
  openPage();
  pageNext();
  typeEntry(1, "typed");
  leavePage();
  pressWrite();
  EXPECT_EQ(storedEntry(2, 1), "typed");
  EXPECT_EQ(storedEntry(1, 1), "");
}

TEST_P(VideoPage, AStepEndsTheTypingOfANewItem) {
  openThree();
  pressNext();
  pressClear();
  openPage();
  pageNext();
  leavePage();
  EXPECT_EQ(indicator(), "Record # 3 of 3");
  EXPECT_EQ(state_->CurRec, 3);
  typeFirst("Changed");
  pressWrite();
  EXPECT_EQ(storedFirst(3), "Changed");
  EXPECT_EQ(bytes().size(), threeItems().size());
}

TEST_P(VideoPage, ADeletedItemLeavesThePageAsItWas) {
  std::string collection = threeItems();
  collection.replace(2 * kind().recordLength, kind().recordLength, deletedItem(kind()));
  openBytes(collection);
  openPage();
  pageNext();
  EXPECT_EQ(state_->ListPos, 2);
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(entry(0), "first of A");
  pageNext();
  EXPECT_EQ(entry(0), "first of C");
}

// ---- The pages of the software and comic editors

class OtherPages : public ListPage {};

INSTANTIATE_TEST_SUITE_P(Kinds, OtherPages, testing::Values(kPrograms, kNotes), pageName);

TEST_P(OtherPages, TheEditorShowsTheRecordButStaysWhereItIs) {
  openThree();
  EXPECT_EQ(state_->ListPos, 0) << "nothing has moved it since the start";
  openPage();
  pagePrevious();
  EXPECT_EQ(state_->ListPos, 3);
  EXPECT_EQ(entry(0), "first of C");
  leavePage();
  EXPECT_EQ(first(), "C");
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  EXPECT_EQ(state_->CurRec, 1);
  EXPECT_FALSE(previousEnabled());
  EXPECT_TRUE(nextEnabled());
  pressNext();
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(indicator(), "Record # 2 of 3");
  EXPECT_EQ(state_->ListPos, 3) << "the editor does not move the page's position";
}

TEST_P(OtherPages, TheFirstStepOfAllIsToTheFirstItem) {
  openThree();
  pressGoTo("3");
  openPage();
  pageNext();
  EXPECT_EQ(state_->ListPos, 1);
  EXPECT_EQ(entry(0), "first of A");
  leavePage();
  EXPECT_EQ(indicator(), "Record # 3 of 3");
  EXPECT_FALSE(nextEnabled());
}

TEST_P(OtherPages, AStepWhileANewItemIsTypedStaysInNewItemMode) {
  openThree();
  pressNext();
  pressClear();
  openPage();
  pageNext();
  leavePage();
  EXPECT_EQ(indicator(), "Record #-1 of 3");
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(first(), "A");
  pressWrite();
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(4));
  EXPECT_EQ(storedFirst(4), "A") << "a copy of what was shown";
  EXPECT_EQ(storedEntry(4, 0), "first of A");
  EXPECT_EQ(bytes().substr(12, threeItems().size() - 12), threeItems().substr(12));
}

TEST_P(OtherPages, ADeletedItemIsShown) {
  std::string collection = threeItems();
  collection.replace(2 * kind().recordLength, kind().recordLength, deletedItem(kind()));
  openBytes(collection);
  state_->ListPos = 1;
  openPage();
  pageNext();
  EXPECT_EQ(entry(0), "");
  leavePage();
  EXPECT_EQ(first(), "DELETED");
}

TEST_P(OtherPages, StepFromWhereTheVideoEditorWasLast) {
  std::string tapes = familyHeader(60);
  tapes.resize(61 * kVideo.recordLength);
  writeFile(path("tapes.VCS"), tapes);
  writeFile(collectionPath(), threeItems());
  start({path("tapes.VCS")});
  desktop_.expectInput("Record #", "Go To Record", "50");
  press(kVideo.buttons.goTo);
  desktop_.expectOpen("Open Collection", kOpenFilter, collectionPath());
  choose("OpenFile");
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(state_->ListPos, 50);
  openPage();
  pagePrevious();
  EXPECT_EQ(state_->ListPos, 49);
  EXPECT_EQ(entry(0), "");
  leavePage();
  EXPECT_EQ(first(), "");
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  openPage();
  pageNext();
  EXPECT_EQ(state_->ListPos, 1);
  EXPECT_EQ(entry(0), "first of A");
  EXPECT_EQ(bytes(), threeItems());
}

}  // namespace
}  // namespace quillbox::test
