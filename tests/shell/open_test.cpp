// The open dialog, the new-collection dialog and the save-as routine.

#include <QRadioButton>

#include "forms/elided_label.h"
#include "platform/paths.h"
#include "shell/IO.h"
#include "support/family_files.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class OpenDialog : public FormTest {
 protected:
  void expectOpen(std::optional<std::string> answer) {
    desktop_.expectOpen("Open Collection", kOpenFilter, std::move(answer));
  }
};

TEST_F(OpenDialog, OpensEachKindInItsEditorWithItsCode) {
  const struct {
    const char* fixture;
    const char* formName;
    const char* caption;
    int kindCode;
  } kinds[] = {
      {"albums.MCS", "frmMusic", "Music Collection Manager (albums.MCS)", 1},
      {"longbox.CCS", "frmComics", "Comic Collection Manager (longbox.CCS)", 2},
      {"tapes.VCS", "frmVideo", "Video Tape Collection Manager (tapes.VCS)", 3},
      {"disks.SCS", "frmSoftware", "Software Collection Manager (disks.SCS)", 4},
      {"shelf.BCS", "frmBooks", "Book Collection Manager (shelf.BCS)", 5},
      {"sounds.WCS", "frmWave", "Wave File Collection (sounds.WCS)", 6},
      {"tunes.ICS", "frmWave", "MIDI File Collection (tunes.ICS)", 7},
      {"pictures.GCS", "frmWave", "Graphic File Collection (pictures.GCS)", 8},
      {"songs.MPS", "frmWave", "MP3 File Collection (songs.MPS)", 9},
  };
  start();
  for (const auto& kind : kinds) {
    SCOPED_TRACE(kind.fixture);
    const std::string before = readFile(dataFile(kind.fixture));
    writeFile(path(kind.fixture), before);
    expectOpen(path(kind.fixture));
    choose("O");
    EXPECT_EQ(formName(), kind.formName);
    EXPECT_EQ(caption(), kind.caption);
    EXPECT_EQ(state_->kindCode, kind.kindCode);
    EXPECT_EQ(state_->CurRec, 1);
    EXPECT_EQ(file(kind.fixture), before) << "opening writes nothing";
    close();
    EXPECT_EQ(formName(), "frmBegin2");
  }
}

TEST_F(OpenDialog, TakesASmallExtension) {
  writeFile(path("jazz.mcs"), musicFile({album("A")}));
  start();
  expectOpen(path("jazz.mcs"));
  choose("O");
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(desktop_.dialogName, "cdlQBX1");
}

TEST_F(OpenDialog, OpensNothingOfAnotherExtension) {
  writeFile(path("letter.TXT"), "Dear Ann");
  writeFile(path(), musicFile({album("A")}));
  start({path()});
  expectOpen(path("letter.TXT"));
  choose("OpenFile");
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(file("letter.TXT"), "Dear Ann");
}

TEST_F(OpenDialog, AsksAgainWhileTheFileIsNotThere) {
  writeFile(path(), musicFile({album("A")}));
  start();
  expectOpen(path("gone.MCS"));
  desktop_.expectMessage("Quillbox", "File not found?!");
  expectOpen(path("gone too.MCS"));
  desktop_.expectMessage("Quillbox", "File not found?!");
  expectOpen(path());
  choose("O");
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_FALSE(std::filesystem::exists(path("gone.MCS")));
}

TEST_F(OpenDialog, CancelledFromAnEditorLeadsToTheStartScreen) {
  writeFile(path(), musicFile({album("A")}));
  start({path()});
  expectOpen(std::nullopt);
  choose("OpenFile");
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(OpenDialog, TheStartScreenIsGoneBeforeTheEditorSaysAnything) {
  writeFile(path(), std::string("\0\0\1\0001.71    ", 12));  // one that is refused
  start();
  bool isOnScreen = true;
  const QWidget& startScreen = form();
  desktop_.onBox = [&](const std::string&, const std::string&) {
    isOnScreen = startScreen.isVisible();
  };
  expectOpen(path());
  desktop_.expectMessage("QBX - Music Manager",
                         "Old File Type Incompatible. Contact us for upgrades.");
  choose("O");
  EXPECT_FALSE(isOnScreen);
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(OpenDialog, ACollectionThatCannotBeReadBringsTheStartScreenBack) {
  writeFile(path(), musicFile({album("A")}));
  start();
  expectOpen(path());
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  desktop_.expectMessage("Quillbox", "Run-time error '57':\n\nDevice I/O error\n" + path());
  choose("O");
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(state_->currentPath, "");
}

TEST_F(OpenDialog, CancelledFromTheStartScreenChangesNothing) {
  start();
  expectOpen(std::nullopt);
  choose("O");
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(OpenDialog, ClearsTheNewCollectionFlag) {
  writeFile(path(), musicFile({album("A")}));
  start();
  state_->newCollection = true;
  expectOpen(path());
  choose("O");
  EXPECT_FALSE(state_->newCollection);
  EXPECT_EQ(headerOf(file()).Count, 1);
}

TEST_F(OpenDialog, ACollectionThatCannotBeOpenedLeavesTheEditorWithWhatItHad) {
  writeFile(path(), musicFile({album("A"), album("B")}));
  std::filesystem::create_directory(path("folder.VCS"));
  std::filesystem::create_directory(path("folder.MCS"));
  start({path()});
  press("cmdNext");
  type("txtAlbum", "typed");
  for (const char* name : {"folder.VCS", "folder.MCS"}) {
    SCOPED_TRACE(name);
    expectOpen(path(name));
    desktop_.expectMessage("Quillbox",
                           "Run-time error '75':\n\nPath/File access error\n" + path(name));
    choose("OpenFile");
    EXPECT_EQ(formName(), "frmMusic");
    EXPECT_EQ(label(), "Record #: 2 Of 2");
    EXPECT_EQ(shown("txtAlbum"), "typed");
  }
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 2).Album), "typed");
}

TEST_F(OpenDialog, MovesBetweenKindsWithoutAnEmptyDesktop) {
  writeFile(path(), musicFile({album("A")}));
  writeFile(path("tapes.VCS"), readFile(dataFile("tapes.VCS")));
  start({path()});
  expectOpen(path("tapes.VCS"));
  choose("OpenFile");
  EXPECT_EQ(formName(), "frmVideo");
  expectOpen(path());
  choose("OpenFile");
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(label(), "Record #: 1 Of 1");
}

// ---- New collection

class NewCollection : public FormTest {
 protected:
  void openDialog() {
    start();
    choose("N");
    EXPECT_EQ(formName(), "frmNewCollection");
  }
  void select(int option) {
    control<QRadioButton>(("optQBX_" + std::to_string(option)).c_str()).click();
  }
  void name(const char* typed) { type("txtColName", typed); }
  std::string pathLine() { return control<ElidedLabel>("lblPath").fullText().toStdString(); }
};

TEST_F(NewCollection, ShowsTheNineKindsInTheirOrder) {
  openDialog();
  EXPECT_EQ(caption(), "New Collection");
  const char* captions[] = {
      "&Music Collection",     "&Video Collection",        "&Comic Collection",
      "&Software Collection",  "&Book Collection",         "&Wav File Collection",
      "M&idi File Collection", "&Graphic File Collection", "MP&3 File Collection"};
  for (int i = 0; i < 9; ++i) {
    const auto& option = control<QRadioButton>(("optQBX_" + std::to_string(i + 1)).c_str());
    EXPECT_EQ(option.text(), captions[i]);
    EXPECT_EQ(option.font().families(), (QStringList{"MS Sans Serif", form().font().family()}));
  }
  EXPECT_EQ(button("cmdNew").text(), "&Go");
  EXPECT_EQ(box("txtColName").accessibleName(), "Collection Name:");
}

TEST_F(NewCollection, MakesACollectionOfEachKindAndOpensItsEditor) {
  const struct {
    const char* extension;
    const char* formName;
    const char* label;
    const char* indicator;
    int kindCode;
  } kinds[] = {
      {"MCS", "frmMusic", "New Record", "lblIndex", 1},
      {"VCS", "frmVideo", "New Record", "lblIndex", 3},
      {"CCS", "frmComics", "New Record", "lblIndex", 2},
      {"SCS", "frmSoftware", "New Record", "lblIndex", 4},
      {"BCS", "frmBooks", "New Record", "lblBookCap", 5},
      {"WCS", "frmWave", "Record #:None", "lblRec", 6},
      {"ICS", "frmWave", "Record #:None", "lblRec", 7},
      {"GCS", "frmWave", "Record #:None", "lblRec", 8},
      {"MPS", "frmWave", "Record #:None", "lblRec", 9},
  };
  start();
  for (int i = 0; i < 9; ++i) {
    const auto& kind = kinds[i];
    SCOPED_TRACE(kind.extension);
    choose("N");
    name("Mine");
    select(i + 1);
    press("cmdNew");
    EXPECT_EQ(formName(), kind.formName);
    EXPECT_EQ(label(kind.indicator), kind.label);
    EXPECT_EQ(state_->CurRec, kNewItem);
    EXPECT_EQ(state_->kindCode, kind.kindCode);
    EXPECT_FALSE(state_->newCollection);
    EXPECT_EQ(file("Mine." + std::string(kind.extension)), std::string("\0\0\1\0001.71    ", 12));
    close();
    EXPECT_EQ(formName(), "frmBegin2");
  }
}

TEST_F(NewCollection, HasNoPositionLeftFromTheCollectionBefore) {
  writeFile(path("tapes.VCS"), familyFile(kVideo, {"A", "B", "C"}));
  start({path("tapes.VCS")});
  press("cmdNext");
  state_->dataFolder = folder_.path();
  choose("NewFile");
  name("Mine");
  select(2);
  press("cmdNew");
  EXPECT_EQ(state_->ListPos, 0);
  type("txtVidTitle", "first");
  press("cmdUpdate");
  choose("EditTitles");
  press("cmdNext");
  press("cmdExit");
  EXPECT_EQ(label(), "Record # 1 of 1");
  type("txtPublisher", "changed");
  press("cmdUpdate");
  EXPECT_EQ(file("Mine.VCS").size(), 2 * kVideo.recordLength) << "nothing is stored beyond Count";
}

TEST_F(NewCollection, WantsAName) {
  openDialog();
  select(1);
  desktop_.expectMessage("QBX - File Manager", "Must specify filename!");
  press("cmdNew");
  EXPECT_EQ(formName(), "frmNewCollection");
}

TEST_F(NewCollection, StaysWithoutAKind) {
  openDialog();
  name("Jazz");
  press("cmdNew");
  EXPECT_EQ(formName(), "frmNewCollection");
  EXPECT_EQ(state_->currentPath, "") << "nothing is open";
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
  select(1);
  press("cmdNew");
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(NewCollection, SaysWhatIsMissingWithoutAKindAndLeadsThere) {
  openDialog();
  name("Jazz");
  press("cmdNew");
  EXPECT_EQ(pathLine(), "Choose a kind of collection first.");
  EXPECT_EQ(form().focusWidget(), &control<QRadioButton>("optQBX_1"));
  EXPECT_FALSE(control<QRadioButton>("optQBX_1").isChecked());
  select(3);
  EXPECT_EQ(pathLine(), "Makes " + path("Jazz.CCS")) << "it goes with the next thing done";
}

TEST_F(NewCollection, ShowsThePathItWillMakeWhileItIsTyped) {
  openDialog();
  EXPECT_EQ(pathLine(), "Makes a collection in " + folder_.path());
  name("Jazz");
  EXPECT_EQ(pathLine(), "Makes " + path("Jazz") + " with the ending of its kind");
  select(1);
  EXPECT_EQ(pathLine(), "Makes " + path("Jazz.MCS"));
  name("my lists/<b>J\u00e4zz & more.MCS");
  EXPECT_EQ(pathLine(),
            "Makes " + joinPath(folder_.path(), "my lists/<b>J\u00e4zz & more.MCS.MCS"));
  select(5);
  EXPECT_EQ(pathLine(),
            "Makes " + joinPath(folder_.path(), "my lists/<b>J\u00e4zz & more.MCS.BCS"));
  name("Shelf");
  press("cmdNew");
  EXPECT_EQ(state_->currentPath, path("Shelf.BCS")) << "and makes it there";
}

TEST_F(NewCollection, ShowsThatItGoesToTheRootFolderAfterAStartWithACollection) {
  writeFile(path(), musicFile({album("A")}));
  start({path()});
  choose("NewFile");
  EXPECT_EQ(pathLine(), "Makes a collection in " + joinPath("", ""));
  name("Jazz");
  select(1);
  EXPECT_EQ(pathLine(), "Makes " + joinPath("", "Jazz.MCS"));
}

TEST_F(NewCollection, KeepsTheLongestPathOnItsLine) {
  openDialog();
  const int width = form().width();
  select(1);
  name(std::string(200, 'W').c_str());
  QApplication::processEvents();
  EXPECT_EQ(form().width(), width);
  auto& line = control<ElidedLabel>("lblPath");
  EXPECT_EQ(line.fullText().toStdString(), "Makes " + path(std::string(200, 'W') + ".MCS"));
  EXPECT_TRUE(
      line.text().startsWith(QString::fromStdString("Makes " + folder_.path().substr(0, 3))))
      << line.text().toStdString();
  EXPECT_TRUE(line.text().endsWith("WW.MCS")) << line.text().toStdString();
  EXPECT_EQ(line.toolTip(), line.fullText());
}

TEST_F(NewCollection, IsLeftByACancelButtonBesideGo) {
  openDialog();
  name("Jazz");
  press("cmdCancel");
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(NewCollection, TakesTheNameAsTyped) {
  openDialog();
  name("jazz.MCS");
  select(1);
  press("cmdNew");
  EXPECT_TRUE(std::filesystem::exists(path("jazz.MCS.MCS")));
}

TEST_F(NewCollection, GoesWithEnter) {
  openDialog();
  select(1);
  name("Jazz");
  QTest::keyClick(&box("txtColName"), Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(NewCollection, GoesWithEnterFromAKindAndLeavesWithEscape) {
  openDialog();
  name("Jazz");
  select(1);
  QTest::keyClick(&control<QRadioButton>("optQBX_1"), Qt::Key_Escape);
  QApplication::processEvents();
  EXPECT_EQ(formName(), "frmBegin2");
  choose("N");
  select(2);
  QTest::keyClick(&control<QRadioButton>("optQBX_2"), Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(formName(), "frmVideo");
}

TEST_F(NewCollection, AsksBeforeItDeletesAnOldCollection) {
  writeFile(path("Jazz.MCS"), musicFile({album("A")}));
  openDialog();
  name("Jazz");
  select(1);
  desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?", Answer::yes);
  press("cmdNew");
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(file("Jazz.MCS").size(), 12U);
}

TEST_F(NewCollection, ANoKeepsTheFileButNotItsCount) {
  const std::string before = musicFile({album("A"), album("B")});
  writeFile(path("Jazz.MCS"), before);
  openDialog();
  name("Jazz");
  select(1);
  desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?", Answer::no);
  press("cmdNew");
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(headerOf(file("Jazz.MCS")).Count, 0);
  EXPECT_EQ(file("Jazz.MCS").substr(12), before.substr(12));
  type("txtArtist", "New");
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file("Jazz.MCS"), 1).Artist), "New");
  EXPECT_EQ(text(itemOf(file("Jazz.MCS"), 2).Artist), "B");
}

TEST_F(NewCollection, ClosingItLeadsToTheStartScreenAndDrawsTheOptionsAnew) {
  openDialog();
  select(3);
  close();
  EXPECT_EQ(formName(), "frmBegin2");
  choose("N");
  for (int i = 1; i <= 9; ++i)
    EXPECT_FALSE(control<QRadioButton>(("optQBX_" + std::to_string(i)).c_str()).isChecked());
  EXPECT_EQ(form().findChildren<QRadioButton*>().size(), 9);
}

TEST_F(NewCollection, ACollectionThatCannotBeMadeLeadsToTheStartScreen) {
  openDialog();
  state_->dataFolder = path("gone");
  name("Jazz");
  select(2);
  desktop_.expectMessage("Quillbox",
                         "Run-time error '76':\n\nPath not found\n" + path("gone/Jazz.VCS"));
  press("cmdNew");
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(state_->newCollection);
}

TEST_F(NewCollection, GoesToTheRootFolderAfterAStartWithACollection) {
  writeFile(path(), musicFile({album("A")}));
  start({path()});
  choose("NewFile");
  name("no such folder/Jazz");
  select(1);
  desktop_.expectMessage("Quillbox", "Run-time error '76':\n\nPath not found\n" +
                                         joinPath("", "no such folder/Jazz.MCS"));
  press("cmdNew");
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(NewCollection, AFileThatCannotBeDeletedKeepsTheDialog) {
  std::filesystem::create_directory(path("Jazz.MCS"));
  openDialog();
  name("Jazz");
  select(1);
  desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?", Answer::yes);
  desktop_.expectMessage("Quillbox",
                         "Run-time error '75':\n\nPath/File access error\n" + path("Jazz.MCS"));
  press("cmdNew");
  EXPECT_EQ(formName(), "frmNewCollection");
  EXPECT_TRUE(std::filesystem::is_directory(path("Jazz.MCS")));
}

// ---- Save as, and DelFile

class SaveAs : public FormTest {
 protected:
  std::string ask() {
    std::string chosen = "before";
    IO::SaveAs(*program_, chosen);
    return chosen;
  }
};

TEST_F(SaveAs, GivesTheChosenNameAndKeepsTheCurrentPath) {
  writeFile(path(), musicFile({album("A")}));
  start({path()});
  desktop_.expectSave("File Save As", path("out.txt"));
  EXPECT_EQ(ask(), path("out.txt"));
  EXPECT_EQ(state_->currentPath, path());
}

TEST_F(SaveAs, NeverLooksAtTheChosenFolder) {
  writeFile(path(), musicFile({album("A")}));
  start({path()});
  desktop_.expectSave("File Save As", "/no such folder/out.txt");
  EXPECT_EQ(ask(), "/no such folder/out.txt");
}

TEST_F(SaveAs, GivesABareNameOrACancelAtOnce) {
  start();
  state_->currentPath = path("gone/jazz.MCS");
  desktop_.expectSave("File Save As", "out.txt");
  EXPECT_EQ(ask(), "out.txt");
  desktop_.expectSave("File Save As", std::nullopt);
  EXPECT_EQ(ask(), "");
}

TEST_F(SaveAs, AsksAgainWhileTheCollectionsOwnFolderListsNothing) {
  start();
  state_->currentPath = path("gone/jazz.MCS");
  desktop_.expectSave("File Save As", path("out.txt"));
  desktop_.expectMessage("Quillbox", "Invalid Path!");
  desktop_.expectSave("File Save As", path("out.txt"));
  desktop_.expectMessage("Quillbox", "Invalid Path!");
  desktop_.expectSave("File Save As", std::nullopt);
  EXPECT_EQ(ask(), "");
  std::filesystem::create_directory(path("gone"));
  desktop_.expectSave("File Save As", path("out.txt"));
  desktop_.expectMessage("Quillbox", "Invalid Path!");
  desktop_.expectSave("File Save As", "bare");
  EXPECT_EQ(ask(), "bare") << "an empty folder lists nothing either";
}

TEST_F(SaveAs, LooksAtEveryFolderOnTheWayToTheCollectionFromTheLastToTheFirst) {
  start();
  std::filesystem::create_directories(path("outer/inner"));
  writeFile(path("outer/inner/jazz.MCS"), "");
  state_->currentPath = path("outer/inner/jazz.MCS");
  std::vector<OperationRecord> looks;
  for (std::filesystem::path folder = path("outer/inner");; folder = folder.parent_path()) {
    const bool isRoot = folder == folder.root_path();
    looks.push_back({FileOperation::list, folder.string() + (isRoot ? "" : joinPath("", ""))});
    if (isRoot) break;
  }
  files_.forget();
  desktop_.expectSave("File Save As", path("out.txt"));
  EXPECT_EQ(ask(), path("out.txt"));
  EXPECT_TRUE(files_.operations() == looks);
  for (int nth = 0; nth < std::ssize(looks); ++nth) {
    SCOPED_TRACE(nth);
    files_.failNth(FileOperation::list, nth, ErrorNumber::permissionDenied);
    desktop_.expectSave("File Save As", path("out.txt"));
    desktop_.expectMessage("Quillbox", "Invalid Path!");
    desktop_.expectSave("File Save As", path("other.txt"));
    EXPECT_EQ(ask(), path("other.txt"));
  }
}

TEST_F(SaveAs, DelFileTakesABareNameToLieInTheProgramsFolder) {
  start();
  const std::string name = "quillbox-test-DelFile.MCS";
  const std::string beside = joinPath(files_.programFolder(), name);
  writeFile(beside, "old");
  desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?", Answer::no);
  IO::DelFile(*program_, name);
  EXPECT_TRUE(std::filesystem::exists(beside));
  desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?", Answer::yes);
  IO::DelFile(*program_, name);
  EXPECT_FALSE(std::filesystem::exists(beside));
  IO::DelFile(*program_, name);  // nothing there: nothing asked
}

}  // namespace
}  // namespace quillbox::test
