// Files and folders that are dropped on the forms.

#include <QMimeData>

#include "support/family_files.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

constexpr Qt::DropActions kAll = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

class FileDropsTest : public FormTest {
 protected:
  FileDropsTest() {
    writeFile(path("jazz.MCS"), musicFile({album("Miles Davis")}));
    writeFile(path("tapes.VCS"), familyFile(kVideo, {"A", "B"}));
    writeFile(path("sounds.WCS"), familyFile(kWaves, {"a.wav"}));
  }

  QList<QUrl> urls(std::initializer_list<const char*> names) {
    QList<QUrl> all;
    for (const char* name : names) all << QUrl::fromLocalFile(QString::fromStdString(path(name)));
    return all;
  }

  /// Acts as a file manager: drags over the widget, and drops if that is accepted. Returns whether
  /// it was, and how.
  Qt::DropAction drop(QWidget& on, const QList<QUrl>& urls, Qt::DropActions possible = kAll) {
    QMimeData dragged;
    dragged.setUrls(urls);
    dragged.setText(urls.front().toString());
    const QPoint middle = on.rect().center();
    QDragEnterEvent enter(middle, possible, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&on, &enter);
    if (!enter.isAccepted()) return Qt::IgnoreAction;
    QDragMoveEvent move(middle, possible, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&on, &move);
    EXPECT_TRUE(move.isAccepted());
    QDropEvent dropped(middle, possible, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&on, &dropped);
    EXPECT_TRUE(dropped.isAccepted());
    QApplication::processEvents();
    return dropped.dropAction();
  }
  Qt::DropAction drop(QWidget& on, const char* name) { return drop(on, urls({name})); }
};

TEST_F(FileDropsTest, OpenACollectionFromTheStartScreen) {
  start();
  EXPECT_EQ(drop(form(), "sounds.WCS"), Qt::CopyAction);
  EXPECT_EQ(formName(), "frmWave");
  EXPECT_EQ(state_->currentPath, path("sounds.WCS"));
  EXPECT_EQ(state_->kindCode, 6);
}

TEST_F(FileDropsTest, OpenACollectionInPlaceOfAnother) {
  start({path("jazz.MCS")});
  drop(form(), "tapes.VCS");
  EXPECT_EQ(formName(), "frmVideo");
  EXPECT_EQ(label(), "Record # 1 of 2");
  drop(form(), "jazz.MCS");
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(FileDropsTest, LandOnTextBoxesAsOnTheWindow) {
  start({path("jazz.MCS")});
  const std::string before = shown("txtArtist");
  drop(box("txtArtist"), "tapes.VCS");
  EXPECT_EQ(formName(), "frmVideo");
  drop(box("txtVidTitle"), "jazz.MCS");
  EXPECT_EQ(shown("txtArtist"), before) << "the name was not put into the box";
}

TEST_F(FileDropsTest, OpenACollectionFromEveryFormOfAnEditor) {
  for (const char* way : {"EditSongs", "SortRecords", "SearchRecords"}) {
    SCOPED_TRACE(way);
    start({path("jazz.MCS")});
    choose(way);
    EXPECT_NE(formName(), "frmMusic");
    drop(form(), "tapes.VCS");
    EXPECT_EQ(formName(), "frmVideo");
  }
}

TEST_F(FileDropsTest, OpenACollectionFromTheNewCollectionDialog) {
  start();
  choose("N");
  drop(form(), "tapes.VCS");
  EXPECT_EQ(formName(), "frmVideo");
}

TEST_F(FileDropsTest, LeaveTheNewCollectionDialogToShowItsKindsOnceAndUnchosen) {
  start();
  choose("N");
  control<QRadioButton>("optQBX_3").click();
  drop(form(), "jazz.MCS");
  choose("NewFile");
  const auto kinds = form().findChildren<QRadioButton*>();
  EXPECT_EQ(kinds.size(), 9);
  for (const auto* kind : kinds) EXPECT_FALSE(kind->isChecked()) << kind->text().toStdString();
}

TEST_F(FileDropsTest, RefuseWhatIsNoCollection) {
  writeFile(path("letter.txt"), "Dear Ann");
  std::filesystem::create_directory(path("folder"));
  start({path("jazz.MCS")});
  for (const char* name : {"letter.txt", "folder", "gone.MCS"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(drop(form(), name), Qt::IgnoreAction);
    EXPECT_EQ(drop(box("txtArtist"), name), Qt::IgnoreAction);
  }
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_FALSE(std::filesystem::exists(path("gone.MCS")));
}

TEST_F(FileDropsTest, RefuseSeveralFilesAtOnce) {
  start();
  EXPECT_EQ(drop(form(), urls({"jazz.MCS", "tapes.VCS"})), Qt::IgnoreAction);
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(FileDropsTest, NeverMoveTheFile) {
  start();
  EXPECT_EQ(drop(form(), urls({"jazz.MCS"}), Qt::MoveAction), Qt::IgnoreAction);
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(drop(form(), urls({"jazz.MCS"}), Qt::MoveAction | Qt::LinkAction), Qt::LinkAction);
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(FileDropsTest, LeaveDraggedTextsToTheBoxes) {
  start({path("jazz.MCS")});
  QMimeData text;
  text.setText("typed elsewhere");
  QDragEnterEvent enter({5, 5}, kAll, &text, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&box("txtArtist"), &enter);
  EXPECT_TRUE(enter.isAccepted());
}

TEST_F(FileDropsTest, AreRefusedWhileACommandRuns) {
  start({path("jazz.MCS")});
  int tries = 0;
  desktop_.onBox = [&](const std::string&, const std::string&) {
    EXPECT_EQ(drop(form(), "tapes.VCS"), Qt::IgnoreAction);
    ++tries;
  };
  desktop_.expectQuestion("QBX - Music Manager", "Do you really want to delete this?!", Answer::no);
  desktop_.expectMessage("QBX - Music Manager", "Aborted.");
  press("cmdDelete");
  EXPECT_EQ(tries, 2);
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(FileDropsTest, OfACollectionThatCannotBeReadLeaveTheEditor) {
  start({path("jazz.MCS")});
  type("txtAlbum", "typed");
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  desktop_.expectMessage("Quillbox",
                         "Run-time error '57':\n\nDevice I/O error\n" + path("tapes.VCS"));
  drop(form(), "tapes.VCS");
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(shown("txtAlbum"), "typed");
  EXPECT_EQ(state_->currentPath, path("jazz.MCS"));
}

TEST_F(FileDropsTest, NoteTheCollectionThatIsLeft) {
  RecentCollections recents(QString::fromStdString(path("windows.ini")));
  recents_ = &recents;
  start({path("jazz.MCS")});
  press("cmdClearData");
  type("txtArtist", "Monk");
  press("cmdWriteData");
  drop(form(), "tapes.VCS");
  EXPECT_EQ(recents.all(),
            (std::vector<RecentCollection>{{path("tapes.VCS"), 2}, {path("jazz.MCS"), 2}}));
  close();
  choose("X");
  modQBX1_.reset();
  program_.reset();
}

TEST_F(FileDropsTest, OfAFolderFillAMediaCatalogue) {
  std::filesystem::create_directory(path("my sounds"));
  writeFile(path("my sounds/b.wav"), "");
  writeFile(path("my sounds/c.WAV"), "");
  writeFile(path("my sounds/d.mp3"), "");
  start({path("sounds.WCS")});
  drop(form(), "sounds.WCS");
  ASSERT_EQ(formName(), "frmWave");
  drop(form(), "my sounds");
  EXPECT_EQ(formName(), "frmWave");
  EXPECT_EQ(label("lblRec"), "Record #: 1 of 3");
  EXPECT_EQ(std::filesystem::current_path(), path("my sounds")) << "as the Load command does";
  EXPECT_EQ(shown("txtFileName"), "a.wav");
}

TEST_F(FileDropsTest, OfAFolderDoNotWaitForTheNextLoadCommand) {
  std::filesystem::create_directory(path("my sounds"));
  std::filesystem::create_directory(path("others"));
  writeFile(path("my sounds/b.wav"), "");
  writeFile(path("others/c.wav"), "");
  start();
  drop(form(), "sounds.WCS");
  drop(form(), "my sounds");
  desktop_.tolerateOpen = path("others/c.wav");
  choose("LoadMenu");
  EXPECT_EQ(label("lblRec"), "Record #: 1 of 3") << "that asks for a folder again";
}

TEST_F(FileDropsTest, OfAFolderAreRefusedByOtherForms) {
  std::filesystem::create_directory(path("my sounds"));
  writeFile(path("my sounds/b.wav"), "");
  start();
  EXPECT_EQ(drop(form(), "my sounds"), Qt::IgnoreAction);
  drop(form(), "sounds.WCS");
  choose("SortCollection");
  EXPECT_EQ(drop(form(), "my sounds"), Qt::IgnoreAction);
}

}  // namespace
}  // namespace quillbox::test
