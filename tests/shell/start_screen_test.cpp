// What the start screen shows besides its commands: recent collections, those under their backup's
// name, and a file on the command line that was not opened.

#include <QAccessible>

#include "forms/elided_label.h"
#include "forms/recent_list.h"
#include "support/family_files.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class FullStartScreen : public FormTest {
 protected:
  FullStartScreen() { keepSettingsIn("windows.ini"); }

  void keepSettingsIn(const char* name) {
    settings_ = std::make_unique<RecentCollections>(QString::fromStdString(path(name)));
    recents_ = settings_.get();
  }

  ~FullStartScreen() override {
    modQBX1_.reset();
    program_.reset();
  }

  /// Shelves of books and albums that were opened, the albums last.
  void keepTwo() {
    writeFile(path("shelf.BCS"), familyFile(kBooks, {"B", "A", "C"}));
    writeFile(path("jazz.MCS"), musicFile({album("Miles Davis")}));
    recents_->opened(path("shelf.BCS"), 3);
    recents_->opened(path("jazz.MCS"), 1);
  }

  /// Sorts the books of a started program, which ends it.
  void sortBooks() {
    choose("SortBooks");
    press("cmdSort");
    EXPECT_TRUE(desktop_.endedAtOnce);
    desktop_.endedAtOnce = false;
  }

  bool isListShown() {
    const auto* list = form().findChild<RecentList*>();
    return list != nullptr && list->isVisible();
  }
  RecentList& list() { return control<RecentList>("lstRecent"); }
  std::string row(int number) { return list().item(number)->text().toStdString(); }
  void key(Qt::Key key) {
    QTest::keyClick(form().focusWidget(), key);
    QApplication::processEvents();
  }
  void click(int number) {
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualItemRect(list().item(number)).center());
    QApplication::processEvents();
  }

  /// The lines shown, each with its button's caption in brackets.
  std::vector<std::string> notices() {
    std::vector<std::string> texts;
    for (int element = 0;; ++element) {
      const QString which = QStringLiteral("Notice_%1").arg(element);
      const auto* label = form().findChild<ElidedLabel*>("lbl" + which);
      if (label == nullptr) return texts;
      if (!label->isVisible()) continue;
      const auto* button = form().findChild<QPushButton*>("cmd" + which);
      const QString caption = button->isVisible() ? " [" + button->text() + "]" : QString();
      texts.push_back((label->fullText() + caption).toStdString());
    }
  }

  std::unique_ptr<RecentCollections> settings_;
};

using Texts = std::vector<std::string>;

// ---- Recent collections

TEST_F(FullStartScreen, ShowsNoListWhereNothingWasOpened) {
  start();
  EXPECT_FALSE(isListShown());
  EXPECT_EQ(notices(), Texts());
}

TEST_F(FullStartScreen, ListsWhatWasOpenedWithKindCountAndFolder) {
  keepTwo();
  start();
  ASSERT_EQ(list().count(), 2);
  EXPECT_EQ(row(0), "jazz.MCS\nMusic Collection, 1 album, in " + folder_.path());
  EXPECT_EQ(row(1), "shelf.BCS\nBook Collection, 3 books, in " + folder_.path());
  EXPECT_FALSE(list().item(0)->icon().isNull());
}

TEST_F(FullStartScreen, TellsAssistiveTechnologyWhatIsListed) {
  keepTwo();
  start();
  auto* spoken = QAccessible::queryAccessibleInterface(&list());
  EXPECT_EQ(spoken->text(QAccessible::Name), "Recent collections:");
  EXPECT_EQ(spoken->child(0)->text(QAccessible::Name).toStdString(),
            "jazz.MCS, Music Collection, 1 album, in " + folder_.path());
}

TEST_F(FullStartScreen, OpensACollectionWithOneClick) {
  keepTwo();
  start();
  click(1);
  EXPECT_EQ(formName(), "frmBooks");
  EXPECT_EQ(state_->currentPath, path("shelf.BCS"));
  EXPECT_EQ(state_->kindCode, 5);
}

TEST_F(FullStartScreen, OpensACollectionWithArrowsAndEnter) {
  keepTwo();
  start();
  EXPECT_EQ(form().focusWidget(), &list());
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  EXPECT_EQ(formName(), "frmBooks");
  close();
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(list().currentPath(), path("shelf.BCS")) << "now the first";
  key(Qt::Key_Enter);
  EXPECT_EQ(formName(), "frmBooks");
}

TEST_F(FullStartScreen, OpensNothingByAKeyThatIsHeldDown) {
  keepTwo();
  start();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&list(), &held);
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(FullStartScreen, NotesWhatAnEditorHasOpened) {
  keepTwo();
  writeFile(path("tapes.VCS"), familyFile(kVideo, {"A", "B"}));
  start({path("tapes.VCS")});
  close();
  EXPECT_EQ(row(0), "tapes.VCS\nVideo Collection, 2 tapes, in " + folder_.path());
  EXPECT_EQ(row(1).substr(0, 8), "jazz.MCS");
}

TEST_F(FullStartScreen, NotesTheCountThatACollectionIsLeftWith) {
  keepTwo();
  start();
  click(0);
  press("cmdClearData");
  type("txtArtist", "Monk");
  press("cmdWriteData");
  choose("ExitCollection");
  EXPECT_EQ(row(0), "jazz.MCS\nMusic Collection, 2 albums, in " + folder_.path());
}

TEST_F(FullStartScreen, NotesACollectionThatWasJustMade) {
  start();
  choose("N");
  type("txtColName", "Mine");
  control<QRadioButton>("optQBX_4").click();
  press("cmdNew");
  close();
  EXPECT_EQ(row(0), "Mine.SCS\nSoftware Collection, 0 disks, in " + folder_.path());
}

TEST_F(FullStartScreen, NotesNothingThatCouldNotBeOpened) {
  start();
  std::filesystem::create_directory(path("folder.MCS"));
  desktop_.tolerateOpen = path("folder.MCS");
  desktop_.expectMessage("Quillbox",
                         "Run-time error '75':\n\nPath/File access error\n" + path("folder.MCS"));
  choose("O");
  EXPECT_FALSE(isListShown());
}

TEST_F(FullStartScreen, ShowsWhatIsGoneAsGoneAndDoesNotOpenIt) {
  keepTwo();
  std::filesystem::remove(path("jazz.MCS"));
  start();
  EXPECT_EQ(row(0), "jazz.MCS\nMusic Collection, 1 album, gone from " + folder_.path());
  EXPECT_EQ(list().currentRow(), 1) << "the first that is there";
  click(0);
  EXPECT_EQ(formName(), "frmBegin2");
  key(Qt::Key_Return);
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(std::filesystem::exists(path("jazz.MCS"))) << "opening would have made it";
}

TEST_F(FullStartScreen, DrawsWhatIsGoneInTheColourOfWhatIsDisabled) {
  keepTwo();
  std::filesystem::remove(path("jazz.MCS"));
  start();
  list().setCurrentRow(1);
  const auto darkest = [this](int number) {
    const QImage drawn =
        list().viewport()->grab(list().visualItemRect(list().item(number))).toImage();
    int least = 255;
    const int beyondTheIcon = list().iconSize().width() + 10;
    for (int y = 0; y < drawn.height(); ++y)
      for (int x = beyondTheIcon; x < drawn.width(); ++x)
        least = std::min(least, qGray(drawn.pixel(x, y)));
    return least;
  };
  const int gone = darkest(0);
  writeFile(path("jazz.MCS"), musicFile({album("Miles Davis")}));
  form().show();
  EXPECT_GT(gone, darkest(0) + 60);
}

TEST_F(FullStartScreen, DoesNotMakeACollectionThatIsGoneSinceItWasListed) {
  keepTwo();
  start();
  std::filesystem::remove(path("jazz.MCS"));
  click(0);
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(std::filesystem::exists(path("jazz.MCS")));
  EXPECT_NE(row(0).find("gone from"), std::string::npos);
}

TEST_F(FullStartScreen, TakesACollectionOffItsListWithTheDeleteKey) {
  keepTwo();
  start();
  key(Qt::Key_Delete);
  ASSERT_EQ(list().count(), 1);
  EXPECT_EQ(list().currentPath(), path("shelf.BCS"));
  EXPECT_TRUE(std::filesystem::exists(path("jazz.MCS"))) << "the file stays";
  key(Qt::Key_Delete);
  EXPECT_FALSE(isListShown());
  start();
  EXPECT_FALSE(isListShown()) << "for good";
}

TEST_F(FullStartScreen, TakesACollectionThatIsGoneOffItsListWithTheMouse) {
  keepTwo();
  std::filesystem::remove(path("jazz.MCS"));
  start();
  click(0);
  press("cmdTakeOff");
  ASSERT_EQ(list().count(), 1);
  EXPECT_EQ(list().currentPath(), path("shelf.BCS"));
}

TEST_F(FullStartScreen, StaysAsItIsWhenARecentCollectionCannotBeOpened) {
  keepTwo();
  start();
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  desktop_.expectMessage("Quillbox", "Run-time error '57':\n\nDevice I/O error\n" + path());
  click(0);
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(state_->currentPath, "");
}

TEST_F(FullStartScreen, ReadsNoCollectionWhenItStarts) {
  keepTwo();
  files_.forget();
  start();
  EXPECT_GT(files_.countOf(FileOperation::exists), 0);
  for (const OperationRecord& looked : files_.operations())
    EXPECT_EQ(looked.operation, FileOperation::exists);
}

TEST_F(FullStartScreen, ShowsNamesAsTheyAre) {
  const std::string name = path("<b>j\xc3\xa4zz & more.MCS");
  writeFile(name, musicFile({}));
  recents_->opened(name, 0);
  start();
  EXPECT_EQ(row(0).substr(0, row(0).find('\n')), "<b>j\xc3\xa4zz & more.MCS");
  EXPECT_TRUE(list().item(0)->toolTip().contains("&lt;b&gt;"));
}

// ---- Put back

TEST_F(FullStartScreen, PutsTheBooksBackThatASortHasLeft) {
  const std::string before = familyFile(kBooks, {"B", "A", "C"});
  writeFile(path("shelf.BCS"), before);
  start({path("shelf.BCS")});
  sortBooks();
  EXPECT_FALSE(std::filesystem::exists(path("shelf.BCS")));
  start();
  EXPECT_EQ(notices(), Texts{"shelf.BCS lies in shelf.bak: 3 books [&Put Back]"});
  EXPECT_NE(row(0).find("gone from"), std::string::npos);
  press("cmdNotice_0");
  EXPECT_TRUE(file("shelf.BCS") == before);
  EXPECT_FALSE(std::filesystem::exists(path("shelf.bak")));
  EXPECT_EQ(notices(), Texts{"shelf.BCS is back: 3 books [&Open]"});
  EXPECT_EQ(row(0), "shelf.BCS\nBook Collection, 3 books, in " + folder_.path());
  press("cmdNotice_0");
  EXPECT_EQ(formName(), "frmBooks");
  EXPECT_EQ(shown("txtBooks_0"), "B");
  close();
  EXPECT_EQ(notices(), Texts());
}

TEST_F(FullStartScreen, SaysByTheKeyboardAndToAssistiveTechnologyWhatItPutsBack) {
  writeFile(path("shelf.bak"), familyFile(kBooks, {"B"}));
  recents_->opened(path("shelf.BCS"), 1);
  start();
  EXPECT_EQ(button("cmdNotice_0").accessibleName(), "Put Back");
  EXPECT_EQ(button("cmdNotice_0").accessibleDescription(), "shelf.BCS lies in shelf.bak: 1 book");
  auto* line = QAccessible::queryAccessibleInterface(button("cmdNotice_0").parentWidget());
  EXPECT_EQ(line->role(), QAccessible::Grouping);
  EXPECT_EQ(control<ElidedLabel>("lblNotice_0").accessibleName(),
            "shelf.BCS lies in shelf.bak: 1 book");
  form().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
  QTest::keyClick(form().focusWidget(), Qt::Key_P, Qt::AltModifier);
  EXPECT_TRUE(waitFor([&] { return std::filesystem::exists(path("shelf.BCS")); }));
}

TEST_F(FullStartScreen, PutsNothingOverACollectionThatHasComeMeanwhile) {
  writeFile(path("shelf.bak"), familyFile(kBooks, {"B"}));
  recents_->opened(path("shelf.BCS"), 1);
  start();
  writeFile(path("shelf.BCS"), "new");
  desktop_.expectMessage("Quillbox",
                         "Run-time error '58':\n\nFile already exists\n" + path("shelf.BCS"));
  press("cmdNotice_0");
  EXPECT_EQ(file("shelf.BCS"), "new");
  EXPECT_TRUE(file("shelf.bak") == familyFile(kBooks, {"B"}));
  EXPECT_EQ(notices(), Texts()) << "there is nothing to put back any more";
}

TEST_F(FullStartScreen, OffersABackupToTheOneOfItsNameThatWasOpenedLast) {
  writeFile(path("jazz.bak"), familyFile(kWaves, {"a.mp3", "b.mp3"}));
  recents_->opened(path("jazz.WCS"), 9);
  recents_->opened(path("jazz.MPS"), 2);
  recents_->opened(path("jazz.BCS"), 1);
  start();
  EXPECT_EQ(notices(), Texts{"jazz.MPS lies in jazz.bak: 2 files [&Put Back]"});
}

TEST_F(FullStartScreen, NamesTheFolderOfABackupThatLiesElsewhere) {
  std::filesystem::create_directory(path("my.lists"));
  writeFile(path("my.bak"), familyFile(kBooks, {"B"}));
  recents_->opened(path("my.lists/shelf.BCS"), 1);
  start();
  EXPECT_EQ(notices(), Texts{"shelf.BCS lies in " + path("my.bak") + ": 1 book [&Put Back]"});
}

TEST_F(FullStartScreen, OffersNoBackupThatIsNoWholeCollection) {
  writeFile(path("shelf.bak"), familyFile(kBooks, {"B", "A", "C"}).substr(0, 500));
  recents_->opened(path("shelf.BCS"), 3);
  start();
  EXPECT_EQ(notices(), Texts());
}

TEST_F(FullStartScreen, OffersNothingOfACollectionThatWasTakenOffTheList) {
  writeFile(path("shelf.bak"), familyFile(kBooks, {"B"}));
  recents_->opened(path("shelf.BCS"), 1);
  start();
  key(Qt::Key_Delete);
  EXPECT_EQ(notices(), Texts());
}

TEST_F(FullStartScreen, OffersACollectionThatWasAskedForInVain) {
  recents_ = nullptr;  // nothing is kept
  writeFile(path("shelf.bak"), familyFile(kBooks, {"B", "A"}));
  start();
  EXPECT_EQ(notices(), Texts());
  desktop_.expectOpen("Open Collection", kOpenFilter, path("shelf.BCS"));
  desktop_.expectMessage("Quillbox", "File not found?!");
  desktop_.expectOpen("Open Collection", kOpenFilter, std::nullopt);
  choose("O");
  EXPECT_EQ(notices(), Texts{"shelf.BCS lies in shelf.bak: 2 books [&Put Back]"});
  press("cmdNotice_0");
  press("cmdNotice_0");
  EXPECT_EQ(formName(), "frmBooks");
}

TEST_F(FullStartScreen, OffersItWhenTheUserComesBackFromAnotherProgram) {
  keepTwo();
  start();
  std::filesystem::rename(path("shelf.BCS"), path("shelf.bak"));
  QEvent activation(QEvent::ActivationChange);
  form().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
  QApplication::sendEvent(&form(), &activation);
  EXPECT_EQ(notices(), Texts{"shelf.BCS lies in shelf.bak: 3 books [&Put Back]"});
}

// ---- The file that the command line names

TEST_F(FullStartScreen, OffersToOpenTheCatalogueThatTheCommandLineNames) {
  writeFile(path("pictures.GCS"), readFile(dataFile("pictures.GCS")));
  start({path("pictures.GCS")});
  EXPECT_EQ(notices(), Texts{"pictures.GCS was not opened: choose Open [&Open]"});
  press("cmdNotice_0");
  EXPECT_EQ(formName(), "frmWave");
  EXPECT_EQ(state_->currentPath, path("pictures.GCS"));
  EXPECT_EQ(state_->kindCode, 8);
  EXPECT_EQ(state_->dataFolder, folder_.path());
  close();
  EXPECT_EQ(notices(), Texts()) << "it was opened";
}

TEST_F(FullStartScreen, NamesTheCatalogueInTheCurrentFolderByItsFullPath) {
  writeFile(path("pictures.GCS"), readFile(dataFile("pictures.GCS")));
  start({"pictures.GCS"});
  std::filesystem::create_directory("elsewhere");
  std::filesystem::current_path("elsewhere");
  press("cmdNotice_0");
  EXPECT_EQ(state_->currentPath, path("pictures.GCS"));
}

TEST_F(FullStartScreen, SaysWhyOtherFilesWereNotOpened) {
  start({path("letter.txt")});
  EXPECT_EQ(notices(), Texts{"letter.txt was not opened: it is no collection"});
  start({path("gone.GCS")});
  EXPECT_EQ(notices(), Texts{"gone.GCS was not opened: it is not there"});
  EXPECT_FALSE(std::filesystem::exists(path("gone.GCS")));
}

TEST_F(FullStartScreen, OffersToPutBackWhatTheCommandLineNamesInVain) {
  writeFile(path("pictures.bak"), readFile(dataFile("pictures.GCS")));
  start({path("pictures.GCS")});
  EXPECT_EQ(notices().size(), 2U);
  EXPECT_EQ(notices().back().substr(0, 38), "pictures.GCS lies in pictures.bak: 3 f");
  press("cmdNotice_1");
  EXPECT_TRUE(std::filesystem::exists(path("pictures.GCS")));
}

TEST_F(FullStartScreen, SaysNothingWithoutACommandLine) {
  start();
  EXPECT_EQ(notices(), Texts());
}

// ---- The window

TEST_F(FullStartScreen, KeepsItsPageInTheMiddleOfAWideWindow) {
  keepTwo();
  start();
  form().resize(1800, 1000);
  QApplication::processEvents();
  const QRect place(list().mapTo(&form(), QPoint(0, 0)), list().size());
  EXPECT_LT(place.width(), 1200);
  EXPECT_NEAR(place.center().x(), form().width() / 2, 2);
  EXPECT_LE(place.height(), list().sizeHint().height()) << "no empty rows";
}

}  // namespace
}  // namespace quillbox::test
