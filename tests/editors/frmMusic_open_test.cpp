// Opening, making and upgrading music collections, the user's list of media types, and files that
// are not what they should be.

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <random>

#include "support/form_fixture.h"
#include "support/machine.h"
#include "support/odd_names.h"

namespace quillbox::test {
namespace {

const std::string kUpgradeFirst = "Performing file type upgrade.";
const std::string kUpgradeDone = "Updated File Type 4 to File Type 5\r\nBarCode/ID Field Added.";
const std::string kUpgradeLast = "Updating complete.";
const std::string kRefused = "Old File Type Incompatible. Contact us for upgrades.";

class OpeningMusic : public FormTest {
 protected:
  void expectUpgrade() {
    for (const auto& text : {kUpgradeFirst, kUpgradeDone, kUpgradeLast})
      desktop_.expectMessage(kEditorMessages, text);
  }
  void expectError(const std::string& numberAndText, const std::string& path) {
    desktop_.expectMessage("Quillbox", "Run-time error " + numberAndText + "\n" + path);
  }
  std::vector<std::string> mediaTypes() {
    std::vector<std::string> types;
    for (int i = 0; i < list("cmbMediaType").count(); ++i)
      types.push_back(list("cmbMediaType").itemText(i).toStdString());
    return types;
  }

  /// Opens the file that the test wrote at path() and steps through it; whatever it contains, the
  /// program must survive.
  void useWithoutCrashing() {
    for (const char* button : {"cmdNext", "cmdPrevious"})
      if (formName() == "frmMusic" && this->button(button).isEnabled()) press(button);
    if (formName() == "frmMusic") close();
    EXPECT_EQ(formName(), "frmBegin2");
  }
};

// ---- Making and opening

TEST_F(OpeningMusic, MakesTheCollectionWhenThereIsNone) {
  start({path()});
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(label(), "Record #: 0");
  EXPECT_EQ(state_->CurRec, 0);
  EXPECT_EQ(file(), std::string("\0\0\5\0001.71    ", 12));
  EXPECT_FALSE(button("cmdNext").isEnabled());
  EXPECT_FALSE(button("cmdPrevious").isEnabled());
}

TEST_F(OpeningMusic, ANewCollectionOfTheDialogHasItsOwnFileTypeUntilAnItemIsWritten) {
  start({path("other.MCS")});
  openHere(path(), true);
  EXPECT_EQ(file(), std::string("\0\0\1\0001.71    ", 12));
  EXPECT_FALSE(state_->newCollection) << "cleared once the file is made";
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(caption(), "Music Collection Manager (jazz.MCS)");
  type("txtArtist", "A");
  press("cmdWriteData");
  EXPECT_EQ(headerOf(file()).FileType, 5);
}

TEST_F(OpeningMusic, ANewCollectionThatWasNeverWrittenToIsRefusedLater) {
  writeFile(path(), std::string("\0\0\1\0001.71    ", 12));
  desktop_.expectMessage(kEditorMessages, kRefused);
  start({path()});
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(label(), "Record #: 0");
  EXPECT_EQ(caption(), "Music Collection Manager (jazz.MCS)");
}

TEST_F(OpeningMusic, ANewCollectionOverAnOldOneLeavesItsItemsUncounted) {
  const std::string before = musicFile({album("A"), album("B")});
  writeFile(path(), before);
  start({path("other.MCS")});
  openHere(path(), true);
  EXPECT_EQ(headerOf(file()).Count, 0);
  EXPECT_EQ(file().substr(12), before.substr(12));
}

TEST_F(OpeningMusic, ANewCollectionInAFolderThatIsNotThereEndsOnTheStartScreen) {
  start({path()});
  auto& editor = dynamic_cast<frmMusic&>(form());
  editor.hide();
  expectError("'76':\n\nPath not found", path("gone/new.MCS"));
  OpenCollection opening = *state_;
  opening.currentPath = path("gone/new.MCS");
  opening.newCollection = true;
  program_->run([&] { editor.open(opening); });
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(OpeningMusic, AHeaderOfAnyLengthIsEnoughForAnEmptyCollection) {
  for (const std::size_t length : {12U, 13U, 100U, 2372U}) {
    SCOPED_TRACE(length);
    std::string bytes("\0\0\5\0001.71    ", 12);
    bytes.resize(length);
    writeFile(path(), bytes);
    start({path()});
    EXPECT_EQ(label(), "Record #: 0");
    close();
    EXPECT_EQ(file(), bytes);
  }
}

TEST_F(OpeningMusic, ShowsTheCaptionExactly) {
  for (const std::string& begin : kOddNames) {
    const std::string name = begin + "MCS";
    writeFile(path(name), musicFile({album("A")}));
    start({path(name)});
    EXPECT_EQ(caption(), "Music Collection Manager (" + name + ")");
  }
}

TEST_F(OpeningMusic, LoadsAgainEachTimeItIsOpened) {
  writeFile(path(), musicFile({album("A"), album("B")}));
  start({path()});
  press("cmdNext");
  writeFile(path("QBX Music.ini"), "[MEDIA]\n");
  openHere(path());
  EXPECT_EQ(label(), "Record #: 1 Of 2");
  EXPECT_EQ(mediaTypes().size(), 7U);
}

TEST_F(OpeningMusic, LoadsAFormThatOwesNothingToTheLastCollection) {
  MusicRecord withBooklet = album("A");
  withBooklet.HasBook = 1;
  withBooklet.Genre = 3;
  writeFile(path(), musicFile({withBooklet}));
  writeFile(path("other.MCS"), musicFile({album("B")}));
  start({path()});
  ASSERT_FALSE(check("chkBookLoaned").isEnabled());
  openHere(path("other.MCS"));
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
  EXPECT_EQ(list("cmbGenre").currentIndex(), 0);
}

// ---- The upgrade of type 4

TEST_F(OpeningMusic, UpgradesAnOldFileAndKeepsItAsTheBackup) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  writeFile(path("Jazz.MCS"), old);
  writeFile(path("Jazz.BAK"), "an old backup");
  expectUpgrade();
  start({path("Jazz.MCS")});
  EXPECT_EQ(label(), "Record #: 1 Of 3");
  EXPECT_EQ(shown("txtBarCode"), std::string("Bar Code/ID Here...").append(17, ' '));
  EXPECT_EQ(list("cmbGenre").currentIndex(), -1);
  EXPECT_EQ(list("cmbMediaType").currentIndex(), 0);
  press("cmdNext");
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 3 Of 3");
  EXPECT_EQ(shown("txtArtist"), std::string(50, ' ')) << "the last item is not carried over";
  EXPECT_EQ(file("Jazz.BAK"), old);
  EXPECT_EQ(file("Jazz.MCS").size(), 3 * sizeof(MusicRecord));
  EXPECT_EQ(headerOf(file("Jazz.MCS")).FileType, 5);
  EXPECT_EQ(headerOf(file("Jazz.MCS")).Count, 3);
}

TEST_F(OpeningMusic, AFileMarkedByNewFileIsUpgradedWithTheOldLength) {
  writeFile(path(), musicFile({album("Miles Davis"), album("The Beatles"), album("C")}));
  start({path()});
  choose("NewFile");
  const std::string marked = file();
  expectUpgrade();
  start({path()});
  EXPECT_EQ(file("jazz.BAK"), marked);
  EXPECT_EQ(itemOf(file(), 1).Artist.view(), marked.substr(2336, 50))
      << "the records are read 36 bytes too early";
}

TEST_F(OpeningMusic, AnUpgradeThatFailsLeavesTheBackupComplete) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  for (int nth = 0;; ++nth) {
    SCOPED_TRACE(nth);
    writeFile(path(), old);
    std::filesystem::remove(path("jazz.BAK"));
    FailingFiles& files = files_;
    files.forget();
    files.failNth(nth, ErrorNumber::diskFull);
    desktop_.tolerateMessages = true;
    start({path()});
    const bool failed = files.hasFailed();
    files.failNth(-1, ErrorNumber::diskFull);
    const auto holdsAll = [&](const std::string& candidate) {
      return std::filesystem::exists(candidate) && readFile(candidate) == old;
    };
    EXPECT_TRUE(holdsAll(path()) || holdsAll(path("jazz.BAK")));
    if (!failed) break;
  }
}

TEST_F(OpeningMusic, AFailedUpgradeSaysSoAndShowsTheStartScreen) {
  writeFile(path(), readFile(dataFile("albums-type4.MCS")));
  desktop_.expectMessage(kEditorMessages, kUpgradeFirst);
  expectError("'61':\n\nDisk full", path());
  files_.failNth(FileOperation::write, 1, ErrorNumber::diskFull);
  start({path()});
  EXPECT_EQ(formName(), "frmBegin2");
}

// ---- The user's media types

TEST_F(OpeningMusic, HasEightMediaTypesWithoutAListOfTheUsers) {
  start({path()});
  EXPECT_EQ(mediaTypes(), (std::vector<std::string>{"Compact Disc", "Cassette Tape",
                                                    "Digital Audio Tape", "Record Album", "8-Track",
                                                    "4-Track", "Reel To Reel Tape", "Cart"}));
}

TEST_F(OpeningMusic, TheUsersMediaTypesReplaceTheTail) {
  MusicRecord item = album("A");
  item.MediaType = 7;
  writeFile(path(), musicFile({item}));
  writeFile(path("QBX Music.ini"), "[MEDIA]\r\nMD,Mini Disc\nnothing\nx,\n,a,b");
  start({path()});
  const auto types = mediaTypes();
  ASSERT_EQ(types.size(), 9U);
  EXPECT_EQ(types[6], "Reel To Reel Tape");
  EXPECT_EQ(types[7], "Mini Disc");
  EXPECT_EQ(types[8], "a,b");
  EXPECT_EQ(list("cmbMediaType").currentText(), "Mini Disc") << "what was a Cart";
  EXPECT_TRUE(std::filesystem::exists(path("QBX Music.ini")));
}

TEST_F(OpeningMusic, ACorruptListIsReportedAndDeleted) {
  for (const char* bytes : {"", "\n[MEDIA]", "[media]\n", "[MEDIA] \n", "\xEF\xBB\xBF[MEDIA]\n"}) {
    writeFile(path("QBX Music.ini"), bytes);
    desktop_.expectMessage(kEditorMessages, "ERROR! INI File corrupt!");
    start({path()});
    EXPECT_EQ(mediaTypes().size(), 8U);
    EXPECT_FALSE(std::filesystem::exists(path("QBX Music.ini")));
    close();
  }
}

TEST_F(OpeningMusic, AListThatCannotBeReadDoesNotStandInTheWay) {
  writeFile(path(), musicFile({album("A")}));
  writeFile(path("QBX Music.ini"), "[MEDIA]\nMD,Mini Disc\n");
  files_.failNth(FileOperation::open, 0, ErrorNumber::permissionDenied);
  expectError("'70':\n\nPermission denied", "QBX Music.ini");
  start({path()});
  EXPECT_EQ(label(), "Record #: 1 Of 1");
  EXPECT_EQ(mediaTypes().size(), 8U);
}

TEST_F(OpeningMusic, ACorruptListThatCannotBeDeletedDoesNotStandInTheWay) {
  writeFile(path(), musicFile({album("A")}));
  writeFile(path("QBX Music.ini"), "nonsense");
  files_.failNth(FileOperation::remove, 0, ErrorNumber::permissionDenied);
  desktop_.expectMessage(kEditorMessages, "ERROR! INI File corrupt!");
  expectError("'70':\n\nPermission denied", "QBX Music.ini");
  start({path()});
  EXPECT_EQ(label(), "Record #: 1 Of 1");
  EXPECT_EQ(mediaTypes().size(), 8U);
}

// ---- Files that are not what they should be

TEST_F(OpeningMusic, RefusesWhatIsOlderThanType4) {
  for (const int type : {3, 1, 0, -1, INT16_MIN}) {
    SCOPED_TRACE(type);
    const std::string before = musicFile(1, type, {album("A")});
    writeFile(path(), before);
    desktop_.expectMessage(kEditorMessages, kRefused);
    start({path()});
    EXPECT_EQ(label(), "Record #: 0");
    EXPECT_EQ(state_->CurRec, 0);
    EXPECT_EQ(shown("txtArtist"), "");
    EXPECT_FALSE(button("cmdNext").isEnabled());
    EXPECT_EQ(file(), before);
    close();
  }
}

TEST_F(OpeningMusic, AZeroByteFileIsRefusedAndLeftAlone) {
  writeFile(path(), "");
  desktop_.expectMessage(kEditorMessages, kRefused);
  start({path()});
  EXPECT_EQ(label(), "Record #: 0");
  EXPECT_EQ(file(), "");
}

TEST_F(OpeningMusic, AFolderIsNoCollection) {
  std::filesystem::create_directory(path());
  expectError("'75':\n\nPath/File access error", path());
  start({path()});
  EXPECT_EQ(formName(), "frmBegin2");
}

#ifndef _WIN32  // where pipes are named differently
TEST_F(OpeningMusic, APipeIsNoCollection) {
  ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
  expectError("'75':\n\nPath/File access error", path());
  start({path()});
  EXPECT_EQ(formName(), "frmBegin2");
}
#endif

TEST_F(OpeningMusic, AFileThatMayNotBeReadIsAnError) {
  QUILLBOX_NEEDS(permissions);
  writeFile(path(), musicFile({album("A")}));
  std::filesystem::permissions(path(), std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  expectError("'70':\n\nPermission denied", path());
  start({path()});
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(OpeningMusic, AFileThatMayNotBeWrittenCanBeRead) {
  QUILLBOX_NEEDS(readOnlyFiles);
  const std::string before = musicFile({album("A"), album("B")});
  writeFile(path(), before);
  std::filesystem::permissions(path(), kReadOnly);
  const OrdinaryUser user(folder_);
  start({path()});
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 2 Of 2");
  type("txtArtist", "typed");
  expectError("'70':\n\nPermission denied", path());
  press("cmdWriteData");
  EXPECT_EQ(shown("txtArtist"), "typed");
  EXPECT_EQ(file(), before);
}

TEST_F(OpeningMusic, AFolderThatMayNotBeWrittenTakesNoNewCollection) {
  QUILLBOX_NEEDS(permissions);
  std::filesystem::permissions(folder_.path(), kReadOnly | std::filesystem::perms::owner_exec);
  const OrdinaryUser user(folder_);
  expectError("'70':\n\nPermission denied", path());
  start({path()});
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(std::filesystem::exists(path()));
}

TEST_F(OpeningMusic, ACountLargerThanTheFileShowsBlanksBeyondIt) {
  writeFile(path(), musicFile(1000, 5, {album("A")}));
  start({path()});
  EXPECT_EQ(label(), "Record #: 1 Of 1000");
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 2 Of 1000");
  EXPECT_EQ(shown("txtArtist"), std::string(50, ' '));
  useWithoutCrashing();
}

TEST_F(OpeningMusic, ANegativeCountIsAnEmptyCollection) {
  writeFile(path(), musicFile(-3, 5, {album("A")}));
  start({path()});
  EXPECT_EQ(label(), "Record #: 0");
  EXPECT_EQ(state_->Count, 0);
  press("cmdClearData");
  type("txtArtist", "First");
  press("cmdWriteData");
  EXPECT_EQ(headerOf(file()).Count, 1);
}

TEST_F(OpeningMusic, ATruncatedFileShowsWhatIsThere) {
  const std::string whole = musicFile({album("A", "One"), album("B", "Two")});
  for (std::size_t length = 0; length < whole.size(); length += 97) {
    SCOPED_TRACE(length);
    writeFile(path(), whole.substr(0, length));
    desktop_.tolerateMessages = true;  // refused, or upgraded, while the header is cut short
    start({path()});
    useWithoutCrashing();
  }
}

TEST_F(OpeningMusic, RandomBytesNeverCrashTheProgram) {
  constexpr unsigned seed = 20'261'121;
  std::mt19937 random(seed);
  desktop_.tolerateMessages = true;
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    std::string bytes(std::uniform_int_distribution<std::size_t>(0, 9000)(random), '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    // Low counts and types, so that every path is taken.
    if (bytes.size() > 4 && round % 2 == 0)
      bytes.replace(1, 3, {'\0', static_cast<char>(round % 7), '\0'});
    writeFile(path(), bytes);
    start({path()});
    useWithoutCrashing();
  }
}

}  // namespace
}  // namespace quillbox::test
