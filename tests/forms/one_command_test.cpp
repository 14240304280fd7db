// Events during a command: a screen reader can press buttons then, because only keys and the mouse
// are blocked.

#include <QAccessible>
#include <filesystem>

#include "support/family_files.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class OneCommand : public FormTest {
 protected:
  /// Presses a button, or chooses a menu item's action, on a form that may be hidden, as a screen
  /// reader does.
  void pressFromOutside(const char* formName, const char* button) {
    auto& pressed = *formNamed(formName).findChild<QPushButton*>(QString::fromUtf8(button));
    QAccessible::queryAccessibleInterface(&pressed)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    ++pressed_;
  }
  void chooseFromOutside(const char* formName, const char* action) {
    formNamed(formName).findChild<QAction*>(QString::fromUtf8(action))->trigger();
    ++pressed_;
  }

  static QWidget& formNamed(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == QString::fromUtf8(name)) return *widget;
    throw std::runtime_error("no such form");
  }

  void openAlbums() {
    writeFile(path(), musicFile({album("B"), album("A"), album("C")}));
    start({path()});
  }

  int pressed_ = 0;
};

TEST_F(OneCommand, ASecondBeginDoesNotBeginWhileACollectionIsSorted) {
  openAlbums();
  choose("SortRecords");
  tick("chkMusSort_0");
  files_.beforeRead = [this] { pressFromOutside("frmMusicSort", "cmdBeginSort"); };
  desktop_.expectMessage("Quillbox", "Sorting complete.");
  press("cmdBeginSort");
  EXPECT_EQ(pressed_, 1);
  EXPECT_FALSE(desktop_.endedAtOnce);
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_TRUE(file() == musicFile({album("A"), album("B"), album("C")}));
  EXPECT_FALSE(std::filesystem::exists(path("jazz.bak")));
}

TEST_F(OneCommand, ExitDoesNotShowTheEditorInTheMiddleOfASort) {
  openAlbums();
  choose("SortRecords");
  files_.beforeRead = [this] {
    pressFromOutside("frmMusicSort", "cmdExitSort");
    formNamed("frmMusicSort").close();
    EXPECT_EQ(formName(), "frmMusicSort");
  };
  desktop_.expectMessage("Quillbox", "Sorting complete.");
  press("cmdBeginSort");
  EXPECT_EQ(pressed_, 1);
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(OneCommand, ExitCollectionDoesNotCloseWhatIsBeingRead) {
  writeFile(path("box.CCS"), familyFile(kComics, {"B", "A"}));
  start({path("box.CCS")});
  choose("SortRecords");
  tick("chkSort_0");
  files_.beforeRead = [this] { chooseFromOutside("frmComics", "ExitCollection"); };
  desktop_.expectMessage("Quillbox", "Sorting complete.");
  press("cmdBeginSort");
  EXPECT_EQ(pressed_, 1);
  EXPECT_EQ(formName(), "frmComics");
  EXPECT_TRUE(file("box.CCS") == familyFile(kComics, {"A", "B"}));
}

TEST_F(OneCommand, WriteDataDoesNotWriteWhileAListingIsComposed) {
  openAlbums();
  type("txtArtist", "typed");
  const std::string before = file();
  files_.beforeRead = [this] { pressFromOutside("frmMusic", "cmdWriteData"); };
  desktop_.expectPrint(std::nullopt);
  choose("PrintList");
  EXPECT_EQ(pressed_, 1);
  EXPECT_TRUE(file() == before);
}

TEST_F(OneCommand, NothingBeginsBehindAMessage) {
  openAlbums();
  desktop_.onBox = [this](const std::string&, const std::string&) {
    pressFromOutside("frmMusic", "cmdNext");
  };
  desktop_.expectQuestion("QBX - Music Manager", "Do you really want to delete this?!", Answer::no);
  desktop_.expectMessage("QBX - Music Manager", "Aborted.");
  press("cmdDelete");
  EXPECT_EQ(pressed_, 2) << "once behind each box";
  EXPECT_EQ(label(), "Record #: 1 Of 3");
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 2 Of 3") << "the next press is a command again";
}

}  // namespace
}  // namespace quillbox::test
