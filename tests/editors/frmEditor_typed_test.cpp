// Nothing typed is lost, and writing and deleting can be undone.

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QProcess>
#include <algorithm>
#include <filesystem>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

namespace fs = std::filesystem;

class Typed : public EditorTest {
 protected:
  explicit Typed(const ModelKind& kind) : EditorTest(kind) {
    typedFolder_ = QString::fromStdString(path("state"));
  }

  std::string status() { return label("lblStatus"); }
  bool isOffered(const char* button) {
    const auto* found = form().findChild<QPushButton*>(QString::fromUtf8(button));
    return found != nullptr && found->isVisible();
  }

  /// Types into the second text of the form.
  void typeOther(const char* text) { type(kind().otherBox(), text); }

  std::size_t keptFiles() {
    if (!fs::exists(path("state"))) return 0;
    // On Windows one that is only being written can be seen, under another name.
    const fs::directory_iterator files(path("state"));
    return static_cast<std::size_t>(std::count_if(begin(files), end(files), [](const auto& file) {
      return file.path().extension() == ".json";
    }));
  }

  /// The collection in a restarted program.
  void reopen() { openBytes(bytes()); }
};

class EachTyped : public Typed, public testing::WithParamInterface<ModelKind> {
 protected:
  EachTyped() : Typed(GetParam()) {}
};

TEST_P(EachTyped, TextComesBackAfterAStep) {
  open({item("One"), item("Two")});
  typeOther("Typed");
  press(kind().buttons.next);
  EXPECT_EQ(status(), "Item 1 was left with text that is not written");
  press("cmdBringBack");
  EXPECT_EQ(first(), "One");
  EXPECT_EQ(other(), "Typed");
  EXPECT_TRUE(control<QLabel>("lblNotWritten").isVisible());
  EXPECT_EQ(status(), "The text is back on item 1: Write Data stores it");
  EXPECT_EQ(bytes(), collection({item("One"), item("Two")}));
  EXPECT_EQ(state_->CurRec, 1);
  press(kind().buttons.write);
  EXPECT_NE(bytes().find("Typed"), std::string::npos);
  EXPECT_EQ(keptFiles(), 0U);
  press(kind().buttons.next);
  QTest::keyClick(&form(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(status(), "There is no text to bring back");
}

TEST_P(EachTyped, TextComesBackAfterEveryWayToLeaveTheItem) {
  open({item("One"), item("Two"), item("Three")});
  const auto bringBack = [&] {
    EXPECT_EQ(status(), "Item 1 was left with text that is not written");
    QTest::keyClick(&form(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(first(), "One");
    EXPECT_EQ(other(), "Typed");
  };
  typeOther("Typed");
  desktop_.expectInput("Record #", "Go To Record", "3");
  press(kind().buttons.goTo);
  bringBack();
  press(kind().buttons.clear);
  bringBack();
  openSideForm(kind().search);
  type(kind().firstBox(), "Three");
  press(kind().search.begin);
  EXPECT_EQ(first(), "Three");
  bringBack();
  EXPECT_EQ(bytes(), collection({item("One"), item("Two"), item("Three")}));
}

TEST_P(EachTyped, TextOfANewItemComesBack) {
  open({item("One")});
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  desktop_.expectInput("Record #", "Go To Record", "1");
  press(kind().buttons.goTo);
  EXPECT_EQ(status(), "A new item was left with text that is not written");
  press("cmdBringBack");
  EXPECT_EQ(first(), "New");
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(status(), "The text is back on a new item: Write Data stores it");
}

TEST_P(EachTyped, TextIsOfferedWhenTheCollectionIsOpenedAgain) {
  open({item("One"), item("Two")});
  press(kind().buttons.next);
  typeOther("Typed");
  choose(kind().menu.exitCollection);
  reopen();
  EXPECT_EQ(status(), "Text typed for item 2 was not written");
  press("cmdBringBack");
  EXPECT_EQ(first(), "Two");
  EXPECT_EQ(other(), "Typed");
}

TEST_P(EachTyped, TextIsOfferedOnce) {
  open({item("One"), item("Two")});
  typeOther("Typed");
  close();
  reopen();
  EXPECT_TRUE(isOffered("cmdBringBack"));
  reopen();
  EXPECT_FALSE(isOffered("cmdBringBack"));
  QTest::keyClick(&form(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(other(), "Typed");
}

TEST_P(EachTyped, TextIsKeptWhileItStandsOnTheForm) {
  open({item("One")});
  typeOther("Typed");
  EXPECT_TRUE(waitFor([&] { return keptFiles() == 1; }));
  // As after a kill: the program is not told of its end.
  reopen();
  EXPECT_EQ(status(), "Text typed for item 1 was not written");
  press("cmdBringBack");
  EXPECT_EQ(other(), "Typed");
  EXPECT_EQ(bytes(), collection({item("One")}));
}

TEST_P(EachTyped, TextThatIsTypedBackIsNotKept) {
  open({item("One"), item("Two")});
  const std::string before = other();
  typeOther("Typed");
  EXPECT_TRUE(waitFor([&] { return keptFiles() == 1; }));
  typeOther(before.c_str());
  EXPECT_TRUE(waitFor([&] { return keptFiles() == 0; }));
  press(kind().buttons.next);
  EXPECT_FALSE(isOffered("cmdBringBack"));
}

TEST_P(EachTyped, TextIsKeptWhenAnErrorEndsTheProgram) {
  open({item("One")});
  typeOther("Typed");
  openSideForm(kind().sort);
  files_.failNth(0, ErrorNumber::permissionDenied);
  desktop_.tolerateMessages = true;
  press(kind().sort.begin);
  ASSERT_TRUE(desktop_.endedAtOnce);
  EXPECT_EQ(keptFiles(), 1U);
}

TEST_P(EachTyped, TextFindsItsItemAtItsNewPlace) {
  if (kind().sort.boxes == std::string_view("chkBsort")) GTEST_SKIP() << "sorting ends the program";
  open({item("Beta"), item("Alpha")});
  typeOther("Typed");
  desktop_.expectMessage("Quillbox", "Sorting complete.");
  openSideForm(kind().sort);
  if (*kind().sort.boxes != '\0') tick((std::string(kind().sort.boxes) + "_0").c_str());
  press(kind().sort.begin);
  EXPECT_EQ(first(), "Alpha");
  press("cmdBringBack");
  EXPECT_EQ(first(), "Beta");
  EXPECT_EQ(other(), "Typed");
  EXPECT_EQ((*state_).*kind().row().position, 2);
}

TEST_P(EachTyped, TextOfAnItemThatIsGoneBecomesANewItem) {
  open({item("One"), item("Two")});
  typeOther("Typed");
  press(kind().buttons.next);
  writeFile(collectionPath(), collection({item("Other"), item("Two")}));
  press("cmdBringBack");
  EXPECT_EQ(status(), "Item 1 has changed since: its text is on a new item now");
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(first(), "One");
  EXPECT_EQ(other(), "Typed");
}

TEST_P(EachTyped, ANewItemThatWasWrittenIsNotKept) {
  open({item("One")});
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  press(kind().buttons.write);
  EXPECT_EQ(status(), "Written as item 2 of 2");
  EXPECT_FALSE(isOffered("cmdBringBack"));
  EXPECT_EQ(keptFiles(), 0U);
}

TEST_P(EachTyped, AFailedBringBackLeavesTheForm) {
  open({item("One"), item("Two")});
  typeOther("Typed");
  press(kind().buttons.next);
  files_.failNth(0, ErrorNumber::permissionDenied);
  desktop_.tolerateMessages = true;
  press("cmdBringBack");
  EXPECT_EQ(first(), "Two");
  QTest::keyClick(&form(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(first(), "One");
  EXPECT_EQ(other(), "Typed");
}

TEST_P(EachTyped, AWriteCanBeTakenBack) {
  open({item("One"), item("Two")});
  const std::string before = bytes();
  typeOther("Typed");
  press(kind().buttons.write);
  EXPECT_EQ(status(), "Written as item 1 of 2");
  press("cmdUndoWrite");
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(status(), "Item 1 is as it was");
  EXPECT_NE(other(), "Typed");
  EXPECT_FALSE(control<QLabel>("lblNotWritten").isVisible());
}

TEST_P(EachTyped, OnlyWhatWasWrittenIsTakenBack) {
  open({item("One"), item("Two")});
  typeOther("Typed");
  press(kind().buttons.write);
  writeFile(collectionPath(), collection({item("Other"), item("Two")}));
  press("cmdUndoWrite");
  EXPECT_EQ(status(), "Item 1 has changed since and stays");
  EXPECT_EQ(bytes(), collection({item("Other"), item("Two")}));
}

TEST_P(EachTyped, TakingBackCanBeTriedAgainWhenItFails) {
  open({item("One"), item("Two")});
  const std::string before = bytes();
  typeOther("Typed");
  press(kind().buttons.write);
  desktop_.tolerateMessages = true;
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  press("cmdUndoWrite");
  EXPECT_EQ(status(), "Written as item 1 of 2");
  files_.shortWrites = true;  // half of the item is written
  files_.failNth(FileOperation::write, kind().skipsDeleted() ? 1 : 0, ErrorNumber::diskFull);
  press("cmdUndoWrite");
  EXPECT_TRUE(files_.hasFailed());
  EXPECT_EQ(other(), "Typed");
  files_.heal();
  press("cmdUndoWrite");
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(status(), "Item 1 is as it was");
}

TEST_P(EachTyped, BringingBackCanBeTriedAgainWhenItFails) {
  open({item("One"), item("Two")});
  typeOther("Typed");
  press(kind().buttons.next);
  const std::string shown = other();
  desktop_.tolerateMessages = true;
  files_.failNth(0, ErrorNumber::deviceIo);
  press("cmdBringBack");
  EXPECT_EQ(other(), shown);
  EXPECT_EQ(status(), "Item 1 was left with text that is not written");
  files_.heal();
  press("cmdBringBack");
  EXPECT_EQ(first(), "One");
  EXPECT_EQ(other(), "Typed");
}

TEST_P(EachTyped, AFileThatEndsBeforeItsLastItemSaysWhere) {
  const std::string whole = collection({item("One"), item("Two"), item("Three"), item("Four")});
  const auto cutAfter = [&](std::size_t items) {
    openBytes(whole.substr(0, (items + 1) * kind().recordLength));
    return status();
  };
  EXPECT_EQ(cutAfter(4), "");
  EXPECT_EQ(cutAfter(3), "The file ends at item 3");
  EXPECT_EQ(cutAfter(1), "The file ends at item 1");
  EXPECT_EQ(cutAfter(0), "The file ends before item 1");
  press(kind().buttons.next);
  EXPECT_EQ(status(), "");
}

TEST_P(EachTyped, WhereAFileEndsIsNoMatterWhenItCannotBeFound) {
  open({item("One"), item("Two")});
  const std::string cut = bytes().substr(0, 2 * kind().recordLength);
  files_.forget();
  openBytes(cut);
  const auto opened = static_cast<int>(
      std::ranges::count(files_.operations(), FileOperation::open, &OperationRecord::operation));
  files_.failNth(FileOperation::open, opened - 1, ErrorNumber::deviceIo);
  openBytes(cut);
  EXPECT_TRUE(files_.hasFailed());
  files_.heal();
  EXPECT_EQ(status(), "");
  EXPECT_EQ(first(), "One");
}

TEST_P(EachTyped, AWriteThatChangesNothingHasNothingToTakeBack) {
  open({item("One")});
  press(kind().buttons.write);
  EXPECT_EQ(status(), "Written as item 1 of 1");
  EXPECT_FALSE(isOffered("cmdUndoWrite"));
}

TEST_P(EachTyped, ADeletionCanBeTakenBack) {
  if (kind().buttons.remove == nullptr) GTEST_SKIP() << "nothing is deleted here";
  open({item("One"), item("Two")});
  const std::string before = bytes();
  desktop_.expectQuestion(kind().titles.question, "Do you really want to delete this?!",
                          Answer::yes);
  if (kind().titles.deleted != nullptr) desktop_.expectMessage(kind().titles.deleted, "Deleted.");
  press(kind().buttons.remove);
  EXPECT_EQ(status(), "Item 1 deleted");
  EXPECT_NE(bytes(), before);
  press("cmdUndoDelete");
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(first(), "One");
  EXPECT_EQ(state_->CurRec, 1);
}

TEST_P(EachTyped, AStatusGoesWithTheNextCommand) {
  open({item("One"), item("Two")});
  press(kind().buttons.write);
  EXPECT_NE(status(), "");
  press(kind().buttons.next);
  EXPECT_EQ(status(), "");
}

TEST_P(EachTyped, AnEmptyCollectionSaysHowToBegin) {
  open({});
  EXPECT_EQ(status(), "No item yet: choose Clear Data to type the first");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&control<QLabel>("lblStatus"))->role(),
            QAccessible::StatusBar);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&control<QLabel>("lblStatus"))
                ->text(QAccessible::Name)
                .toStdString(),
            status());
}

TEST_P(EachTyped, ACopyIsANewItemThatIsNotWritten) {
  open({item("One"), item("Two")});
  const std::string before = other();
  QTest::keyClick(&form(), Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(first(), "One");
  EXPECT_TRUE(before.starts_with(other()));  // except for its padding
  EXPECT_TRUE(control<QLabel>("lblNotWritten").isVisible());
  EXPECT_EQ(bytes(), collection({item("One"), item("Two")}));
  press(kind().buttons.write);
  EXPECT_EQ(bytes(), collection({item("One"), item("Two"), item("One")}));
}

TEST_P(EachTyped, WhatDiffersIsTinted) {
  open({item("One")});
  const QColor usual = box(kind().otherBox()).palette().color(QPalette::Base);
  typeOther("Typed");
  EXPECT_NE(box(kind().otherBox()).palette().color(QPalette::Base), usual);
  EXPECT_EQ(box(kind().firstBox()).palette().color(QPalette::Base), usual);
  press(kind().buttons.write);
  EXPECT_EQ(box(kind().otherBox()).palette().color(QPalette::Base), usual);
}

INSTANTIATE_TEST_SUITE_P(Editors, EachTyped, testing::ValuesIn(kModelEditors),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(EachTyped, AListingAndAnExportSayWhatBecameOfThem) {
  open({item("One"), item("Two")});
  desktop_.expectPrint(PrintChoice{.toFile = true});
  desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", "mine.txt", path("list.txt"));
  choose("PrintList");
  EXPECT_EQ(status(), "Listed 2 items to list.txt");
}

class MusicTyped : public Typed {
 protected:
  MusicTyped() : Typed(kMusic) {}
};

TEST_F(MusicTyped, TextIsKeptOnceWhateverIsOpenedInBetween) {
  open({item("One"), item("Two")});
  writeFile(path("other.MCS"), collection({item("Other")}));
  press("cmdNext");
  typeOther("Typed");
  const auto openFile = [&](const std::string& name) {
    desktop_.tolerateOpen = path(name);
    choose("OpenFile");
    desktop_.tolerateOpen.reset();
  };
  openFile("other.MCS");
  EXPECT_EQ(status(), "");
  openFile(name());
  EXPECT_EQ(status(), "Text typed for item 2 was not written");
  press("cmdBringBack");
  EXPECT_EQ(first(), "Two");
  press("cmdWriteData");
  QTest::keyClick(&form(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(status(), "There is no text to bring back");
}

TEST_F(MusicTyped, TextOfAFormThatComesBackAfterAFailedOpenIsKept) {
  open({item("One"), item("Two")});
  writeFile(path("other.MCS"), collection({item("Other")}));
  typeOther("Typed");
  files_.failNth(0, ErrorNumber::permissionDenied);
  desktop_.tolerateMessages = true;
  desktop_.tolerateOpen = path("other.MCS");
  choose("OpenFile");
  ASSERT_EQ(formName(), "frmMusic");
  EXPECT_EQ(other(), "Typed");
  typeOther("Typed again");
  press("cmdNext");
  press("cmdBringBack");
  EXPECT_EQ(other(), "Typed again");
}

TEST_F(MusicTyped, SongsComeBack) {
  open({item("One"), item("Two")});
  choose("EditSongs");
  type("txtSongTitle_3", "Another");
  press("cmdExit");
  press("cmdNext");
  press("cmdBringBack");
  choose("EditSongs");
  EXPECT_EQ(shown("txtSongTitle_3"), "Another");
}

TEST_F(MusicTyped, APastedTrackListIsKeptWhileItStandsOnThePage) {
  open({item("One")});
  choose("EditSongs");
  press("cmdClearList");
  QApplication::clipboard()->setText(QStringLiteral("First\nSecond"));
  box("txtSongTitle_0").setFocus();
  QTest::keyClick(&box("txtSongTitle_0"), Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(waitFor([&] { return keptFiles() == 1; }));
  start({collectionPath()});  // as after a kill
  press("cmdBringBack");
  choose("EditSongs");
  EXPECT_EQ(shown("txtSongTitle_1"), "Second");
}

TEST_F(MusicTyped, SongsThatWereClearedComeBack) {
  open({item("One")});
  choose("EditSongs");
  type("txtSongTitle_3", "Another");
  press("cmdClearList");
  EXPECT_EQ(shown("txtSongTitle_3"), "");
  press("cmdBringBack");
  EXPECT_EQ(formName(), "frmSongEdit1");
  EXPECT_EQ(shown("txtSongTitle_3"), "Another");
}

TEST_F(MusicTyped, ChecksAndListsComeBack) {
  open({item("One"), item("Two")});
  tick("chkCurrLoaned");
  pick("cmbGenre", 5);
  press("cmdNext");
  EXPECT_FALSE(check("chkCurrLoaned").isChecked());
  press("cmdBringBack");
  EXPECT_TRUE(check("chkCurrLoaned").isChecked());
  EXPECT_TRUE(box("txtBorrower").isEnabled());
  EXPECT_EQ(list("cmbGenre").currentIndex(), 5);
}

TEST_F(MusicTyped, AnExportSaysItsLines) {
  open({item("One"), item("Two")});
  desktop_.expectSave("File Save As", path("jazz.csv"));
  desktop_.expectMessage("Quillbox", "Data Exported...");
  choose("ExportData");
  const std::string text = readFile(path("jazz.csv"));
  EXPECT_EQ(status(),
            "Exported " + std::to_string(std::ranges::count(text, '\n')) + " lines to jazz.csv");
}

TEST_F(MusicTyped, AHintSaysWhatWillBecomeOfAText) {
  open({item("One")});
  const auto hint = [&](const char* name, const char* text) {
    type(name, text);
    const auto* shown = form().findChild<QLabel*>(QStringLiteral("lblHint"));
    EXPECT_EQ(box(name).accessibleDescription(), shown->isVisible() ? shown->text() : QString());
    return box(name).accessibleDescription().toStdString();
  };
  EXPECT_EQ(hint("txtAquireCost", "12"), "");
  EXPECT_EQ(hint("txtAquireCost", "12.50"), "");
  EXPECT_EQ(hint("txtAquireCost", "12 crowns"), "will be stored as 12");
  EXPECT_EQ(hint("txtAquireCost", "much"), "will be stored as 0");
  EXPECT_EQ(hint("txtAquireCost", "99999999999999999999"), "too large");
  EXPECT_EQ(hint("txtNotes", "D\u00f6rte"), "");
  EXPECT_EQ(hint("txtNotes", "\u010cech"), "\u010c becomes ?");
  EXPECT_EQ(hint("txtNotes", std::string(44, 'x').c_str()), "");
  EXPECT_EQ(hint("txtNotes", std::string(45, 'x').c_str()), "5 characters left");
  EXPECT_EQ(hint("txtNotes", std::string(49, 'x').c_str()), "1 character left");
  EXPECT_EQ(hint("txtNotes", std::string(50, 'x').c_str()), "0 characters left");
  box("txtAlbum").setFocus();
  EXPECT_EQ(box("txtNotes").accessibleDescription(), "");
  EXPECT_EQ(box("txtAquireDate").placeholderText(), "empty: today");
  choose("SearchRecords");
  EXPECT_EQ(box("txtAquireDate").placeholderText(), "");
}

/// The program that is killed below, in a separate process.
TEST_F(MusicTyped, DISABLED_WaitsToBeKilled) {
  typedFolder_ = qEnvironmentVariable("QUILLBOX_TYPED");
  start({qgetenv("QUILLBOX_COLLECTION").toStdString()});
  type("txtNotes", "Typed before the kill");
  EXPECT_FALSE(QTest::qWaitFor([] { return false; }, 60'000));
}

TEST_F(MusicTyped, TextOutlastsAKill) {
  writeFile(collectionPath(), collection({item("One"), item("Two")}));
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QUILLBOX_TYPED"), typedFolder_);
  environment.insert(QStringLiteral("QUILLBOX_COLLECTION"),
                     QString::fromStdString(collectionPath()));
  for (const char* share : {"GTEST_TOTAL_SHARDS", "GTEST_SHARD_INDEX"})  // of this process only
    environment.remove(QLatin1String(share));
  program.setProcessEnvironment(environment);
  program.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=MusicTyped.DISABLED_WaitsToBeKilled"),
                 QStringLiteral("--gtest_also_run_disabled_tests")});
  ASSERT_TRUE(waitFor([&] { return keptFiles() == 1; }));
  program.kill();
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);

  start({collectionPath()});
  EXPECT_EQ(status(), "Text typed for item 1 was not written");
  press("cmdBringBack");
  EXPECT_EQ(shown("txtNotes"), "Typed before the kill");
}

class VideoTyped : public Typed {
 protected:
  VideoTyped() : Typed(kVideo) {}
};

TEST_F(VideoTyped, AStepOnTheListPageTellsThere) {
  open({item("One"), item("Two")});
  choose("EditTitles");
  type("txtMovieTitle_2", "Another");
  press("cmdNext");
  EXPECT_EQ(formName(), "frmVideoTitles");
  EXPECT_EQ(status(), "Item 1 was left with text that is not written");
  press("cmdBringBack");
  EXPECT_EQ(formName(), "frmVideoTitles");
  EXPECT_EQ(shown("txtMovieTitle_2"), "Another");
}

TEST_F(VideoTyped, AHintTellsADateFromOtherTexts) {
  open({item("One")});
  type("txtAquireDate", "someday");
  EXPECT_EQ(box("txtAquireDate").accessibleDescription(), "not a date");
  type("txtAquireDate", "3/14/1998");
  EXPECT_EQ(box("txtAquireDate").accessibleDescription(), "");
  EXPECT_EQ(box("txtAquireDate").placeholderText(), "empty: 1/1/80");
}

TEST_F(VideoTyped, TheFocusGoesToTheDateThatCannotBeRead) {
  open({item("One")});
  type("txtAquireDate", "someday");
  box("txtPublisher").setFocus();
  desktop_.tolerateMessages = true;
  press("cmdUpdate");
  EXPECT_EQ(form().focusWidget(), &box("txtAquireDate"));
}

class SoftwareTyped : public Typed {
 protected:
  SoftwareTyped() : Typed(kSoftware) {}
};

TEST_F(SoftwareTyped, AnItemThatTheListPageShowsWasNotTyped) {
  open({item("One"), item("Two")});
  choose("EditTitles");
  for (int step = 1; step <= 2; ++step) press("cmdNext");
  form().close();
  EXPECT_TRUE(control<QLabel>("lblNotWritten").isVisible());
  press(kind().buttons.next);
  EXPECT_FALSE(isOffered("cmdBringBack"));
  EXPECT_EQ(keptFiles(), 0U);
}

}  // namespace
}  // namespace quillbox::test
