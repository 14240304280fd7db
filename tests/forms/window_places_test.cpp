#include "forms/window_places.h"

#include <QScreen>
#include <QSettings>
#include <filesystem>

#include "support/form_fixture.h"
#include "support/machine.h"

namespace quillbox::test {
namespace {

class WindowPlacesTest : public FormTest {
 protected:
  /// Starts the program with this settings file.
  void startWith(const std::string& settings) {
    modQBX1_.reset();
    program_.reset();
    places_ = std::make_unique<WindowPlaces>(QString::fromStdString(settings));
    windowPlaces_ = places_.get();
    start();
  }

  /// The start screen, moved and resized by a user.
  void leaveStartScreenAt(const QRect& place) {
    form().setGeometry(place);
    QApplication::processEvents();
    choose("N");
  }

  std::unique_ptr<WindowPlaces> places_;  // before the program, which uses it to its end
};

constexpr QRect kPlace(60, 70, 720, 500);

TEST_F(WindowPlacesTest, OutlastTheProgram) {
  const std::string settings = path("settings/windows.ini");
  startWith(settings);
  EXPECT_NE(form().geometry(), kPlace);
  leaveStartScreenAt(kPlace);
  startWith(settings);
  EXPECT_EQ(form().geometry(), kPlace);
  EXPECT_NE(readFile(settings).find("frmBegin2="), std::string::npos);
}

TEST_F(WindowPlacesTest, AreKeptForEachFormByItself) {
  const std::string settings = path("windows.ini");
  startWith(settings);
  leaveStartScreenAt(kPlace);
  EXPECT_EQ(formName(), "frmNewCollection");
  const QRect dialog = form().geometry();
  EXPECT_NE(dialog.size(), kPlace.size());
  close();
  startWith(settings);
  choose("N");
  EXPECT_EQ(form().size(), dialog.size());
}

TEST_F(WindowPlacesTest, LeaveAWindowAloneThatIsShownAgain) {
  const std::string settings = path("windows.ini");
  startWith(settings);
  leaveStartScreenAt(kPlace);
  close();  // the dialog; the start screen appears again
  EXPECT_EQ(form().geometry(), kPlace);
}

TEST_F(WindowPlacesTest, IgnoreADamagedFile) {
  startWith(path("none.ini"));
  const QRect usual = form().geometry();
  int number = 0;
  for (const char* bytes :
       {"", "frmBegin2", "[[[\n=\n\\x", "[General]\nfrmBegin2=5\n", "[General]\nfrmBegin2=1 2\n",
        "[General]\nfrmBegin2=a b c d\n", "[General]\nfrmBegin2=5 5 0 0\n",
        "[General]\nfrmBegin2=@Rect(60 70 720 500)\n", "\xff\xfe\1binary"}) {
    SCOPED_TRACE(bytes);
    // A different name each time: the toolkit caches settings files by name.
    const std::string settings = path("damaged" + std::to_string(++number) + ".ini");
    writeFile(settings, bytes);
    startWith(settings);
    EXPECT_EQ(form().geometry(), usual);
    // And the next place is kept as usual.
    leaveStartScreenAt(kPlace);
    startWith(settings);
    EXPECT_EQ(form().geometry(), kPlace);
  }
}

TEST_F(WindowPlacesTest, BringEveryPlaceOntoTheScreen) {
  startWith(path("none.ini"));
  const QRect screen = form().screen()->availableGeometry();
  int number = 0;
  for (const char* place :
       {"30000 20000 700 500", "-3000 -4000 700 500", "0 0 1 1", "10 10 32767 32767",
        "2147483647 2147483647 1 1", "-2147483647 0 700 500", "0 0 2147483647 2147483647",
        "99999999999 0 700 500", "10 10 -700 -500"}) {
    SCOPED_TRACE(place);
    const std::string settings = path("place" + std::to_string(++number) + ".ini");
    QSettings(QString::fromStdString(settings), QSettings::IniFormat).setValue("frmBegin2", place);
    startWith(settings);
    EXPECT_TRUE(screen.contains(form().pos()));
    EXPECT_LE(form().width(), screen.width());
    EXPECT_LE(form().height(), screen.height());
    EXPECT_GE(form().width(), form().minimumSizeHint().width());
    EXPECT_GE(form().height(), form().minimumSizeHint().height());
  }
}

TEST_F(WindowPlacesTest, KnowMaximizedWindows) {
  const std::string settings = path("windows.ini");
  startWith(settings);
  form().setGeometry(kPlace);
  form().showMaximized();
  QApplication::processEvents();
  choose("N");
  startWith(settings);
  EXPECT_TRUE(form().isMaximized());
  // And how large it is when it no longer is.
  const QSettings kept(QString::fromStdString(settings), QSettings::IniFormat);
  EXPECT_TRUE(kept.value("frmBegin2").toString().endsWith(" 720 500"));
}

TEST_F(WindowPlacesTest, DoWithoutAFolderToWriteTo) {
  QUILLBOX_NEEDS(permissions);
  std::filesystem::create_directory(path("locked"));
  std::filesystem::permissions(path("locked"), std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  startWith(path("locked/windows.ini"));
  leaveStartScreenAt(kPlace);
  EXPECT_EQ(formName(), "frmNewCollection");
}

#ifdef Q_OS_WIN
TEST_F(WindowPlacesTest, AreBelowTheUsersApplicationData) {
  const QString data = QDir::fromNativeSeparators(qEnvironmentVariable("LOCALAPPDATA"));
  ASSERT_FALSE(data.isEmpty());
  EXPECT_EQ(WindowPlaces::userFile(), data + QStringLiteral("/quillbox/windows.ini"));
}
#else
TEST_F(WindowPlacesTest, AreBelowTheUsersConfigurationFolder) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", "/somewhere/else");
  EXPECT_EQ(WindowPlaces::userFile().toStdString(), "/somewhere/else/quillbox/windows.ini");
  if (before.isNull())
    qunsetenv("XDG_CONFIG_HOME");
  else
    qputenv("XDG_CONFIG_HOME", before);
}
#endif

}  // namespace
}  // namespace quillbox::test
