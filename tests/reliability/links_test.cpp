#ifndef _WIN32  // where everyone may create links
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "platform/file_paths.h"
#include "records/music_file.h"
#include "sortsearch/sort_engine.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/music_files.h"
#include "support/other_disk.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

/// Code that rewrites a music collection.
struct Rewriting {
  const char* name;
  const char* ending;  ///< of the backup
  bool keepsBackup;
};

constexpr Rewriting kSorting = {"Sort", "bak", false};
constexpr Rewriting kUpgrading = {"Upgrade", "BAK", true};

void PrintTo(const Rewriting& rewriting, std::ostream* out) { *out << rewriting.name; }

class LinkedCollection : public testing::TestWithParam<Rewriting> {
 protected:
  LinkedCollection() {
    std::filesystem::create_directory("elsewhere");
    writeFile(file_, before_);
    state_.currentPath = path_;
    state_.Count = 3;
  }

  bool upgrades() const { return GetParam().keepsBackup; }

  void link(const std::string& target, const std::string& name) {
    std::filesystem::create_symlink(target, name);
  }

  std::string messageOfRun() {
    try {
      if (upgrades())
        upgradeMusicFile(state_.files, state_);
      else
        sortCollection(state_.files, state_, *kindOfCode(1), std::vector<bool>(5, true), board_);
    } catch (const RunTimeError& error) {
      return error.message();
    }
    return {};
  }
  Failure run() {
    return failureOf([this] {
      if (upgrades())
        upgradeMusicFile(state_.files, state_);
      else
        sortCollection(state_.files, state_, *kindOfCode(1), std::vector<bool>(5, true), board_);
    });
  }

  /// Records where everything is while the collection has its backup's name.
  void watch(const std::string& backup) {
    files_.beforeRead = [this, backup] {
      EXPECT_TRUE(readFile(backup) == before_);
      EXPECT_TRUE(std::filesystem::is_symlink(path_));
      watched_ = true;
    };
  }

  /// The collection behind the link is rewritten, and only a backup is left.
  void expectRewritten(const std::string& file, const std::string& backup) {
    EXPECT_EQ(messageOfRun(), "");
    EXPECT_TRUE(watched_);
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
    EXPECT_FALSE(std::filesystem::is_symlink(file));
    const std::string now = readFile(file);
    EXPECT_FALSE(now == before_);
    EXPECT_TRUE(readFile(path_) == now);
    EXPECT_EQ(headerOf(now).FileType, upgrades() ? 5 : 4);
    EXPECT_EQ(std::filesystem::exists(backup), upgrades());
    if (upgrades()) {
      EXPECT_TRUE(readFile(backup) == before_);
    }
  }

  void expectNothingLost(const std::string& file) {
    EXPECT_TRUE(readFile(file) == before_);
    EXPECT_TRUE(readFile(path_) == before_);
  }

  std::string backupIn(const std::string& start) const { return start + "." + GetParam().ending; }

  TestFolder folder_;
  FailingFiles files_;
  AppState state_{files_};
  NoBoard board_;
  std::string path_ = folder_.path("jazz.MCS");
  std::string backup_ = backupIn(folder_.path("jazz"));
  std::string file_ = folder_.path("elsewhere/real.MCS");
  // For a sort as well, which keeps the type.
  std::string before_ = musicFile(3, 4, {album("C"), album("B"), album("A")},
                                  upgrades() ? kMusicRecordType4Length : sizeof(MusicRecord));
  bool watched_ = false;
};

TEST_P(LinkedCollection, TheFileBehindTheLinkIsRewrittenAndItsBackupIsBesideTheLink) {
  link("elsewhere/real.MCS", path_);
  watch(backup_);
  expectRewritten(file_, backup_);
  EXPECT_EQ(files_.list("elsewhere").size(), 1U);
}

TEST_P(LinkedCollection, AChainOfLinksIsFollowedToItsEnd) {
  std::filesystem::create_directory("elsewhere/deeper");
  std::filesystem::create_directory_symlink("elsewhere/deeper", "short");
  link("short/first.MCS", path_);
  link("../second.MCS", "elsewhere/deeper/first.MCS");
  link(file_, "elsewhere/second.MCS");
  watch(backup_);
  expectRewritten(file_, backup_);
  EXPECT_TRUE(std::filesystem::is_symlink("elsewhere/deeper/first.MCS"));
  EXPECT_TRUE(std::filesystem::is_symlink("elsewhere/second.MCS"));
}

TEST_P(LinkedCollection, ALinkedFolderIsNoLinkedFile) {
  std::filesystem::create_directory_symlink("elsewhere", "short");
  state_.currentPath = folder_.path("short/real.MCS");
  EXPECT_EQ(messageOfRun(), "");
  EXPECT_FALSE(std::filesystem::is_symlink(file_));
  EXPECT_FALSE(readFile(file_) == before_);
  EXPECT_EQ(std::filesystem::exists(backupIn("elsewhere/real")), upgrades());
}

TEST_P(LinkedCollection, OnAnotherDiskTheBackupIsBesideTheFile) {
  const OtherDisk disk;
  if (!disk.isThere()) GTEST_SKIP() << "no other file system";
  const std::string far = disk.path("my.real.MCS");
  const std::string backup = backupIn(disk.path("my"));
  writeFile(far, before_);
  link(far, path_);
  watch(backup);
  expectRewritten(far, backup);
  EXPECT_FALSE(std::filesystem::exists(backup_));
}

TEST_P(LinkedCollection, OnAnotherDiskAFailureSaysWhereTheCollectionIs) {
  const OtherDisk disk;
  if (!disk.isThere()) GTEST_SKIP() << "no other file system";
  const std::string far = disk.path("real.MCS");
  const std::string backup = backupIn(disk.path("real"));
  writeFile(far, before_);
  link(far, path_);
  files_.failNth(FileOperation::write, 1, ErrorNumber::diskFull);
  const std::string message = messageOfRun();
  EXPECT_TRUE(message.starts_with("Run-time error '61':\n\nDisk full\n" + far)) << message;
  EXPECT_EQ(message.ends_with("\n" + backup), !upgrades());
  EXPECT_TRUE(readFile(backup) == before_);
}

TEST_P(LinkedCollection, ABackupOnEitherDiskIsNotLost) {
  const OtherDisk disk;
  if (!disk.isThere()) GTEST_SKIP() << "no other file system";
  const std::string far = disk.path("real.MCS");
  const std::string backup = backupIn(disk.path("real"));
  for (const std::string& taken : {backup_, backup}) {
    SCOPED_TRACE(taken);
    std::filesystem::remove(path_);
    std::filesystem::remove(backup_);
    std::filesystem::remove(backup);
    writeFile(far, before_);
    link(far, path_);
    writeFile(taken, "an earlier backup");
    EXPECT_EQ(run(), upgrades() ? Failure{} : (Failure{58, taken}));
    EXPECT_TRUE(readFile(upgrades() ? backup : far) == before_);
    // An upgrade deletes the one whose name it needs.
    if (!upgrades() || taken == backup_) {
      EXPECT_EQ(readFile(taken), "an earlier backup");
    }
  }
}

TEST_P(LinkedCollection, ADanglingLinkIsAnErrorAndStays) {
  link("elsewhere/missing.MCS", path_);
  EXPECT_EQ(run(), (Failure{53, folder_.path("elsewhere/missing.MCS")}));
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_FALSE(std::filesystem::exists(backup_));
}

TEST_P(LinkedCollection, LinksThatLeadRoundAndRoundAreAnError) {
  link("second.MCS", path_);
  link("jazz.MCS", "second.MCS");
  EXPECT_EQ(run(), (Failure{75, path_}));
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_TRUE(std::filesystem::is_symlink("second.MCS"));
  EXPECT_FALSE(std::filesystem::is_symlink(backup_));
}

TEST_P(LinkedCollection, ALinkToTheBackupsNameIsLeftAlone) {
  std::filesystem::rename(file_, backup_);
  link(backup_, path_);
  EXPECT_EQ(run(), (Failure{58, backup_}));
  expectNothingLost(backup_);
}

TEST_P(LinkedCollection, ABackupsNameThatLeadsToTheCollectionIsLeftAlone) {
  std::filesystem::create_directory_symlink(".", "here");
  link("here/jazz." + std::string(GetParam().ending), path_);
  link(file_, backup_);
  EXPECT_EQ(run(), (Failure{58, backup_}));
  EXPECT_TRUE(std::filesystem::is_symlink(backup_));
  expectNothingLost(file_);
}

TEST_P(LinkedCollection, AnotherNameOfTheFileKeepsWhatTheFileHeld) {
  std::filesystem::rename(file_, path_);
  std::filesystem::create_hard_link(path_, "another");
  EXPECT_EQ(run(), Failure{});
  EXPECT_FALSE(readFile(path_) == before_);
  EXPECT_TRUE(readFile("another") == before_);
}

TEST_P(LinkedCollection, TheNewFileMayBeReadByThoseWhoCouldReadTheOldOne) {
  using std::filesystem::perms;
  for (const perms mode :
       {perms::owner_read | perms::owner_write,
        perms::owner_read | perms::owner_write | perms::group_read,
        perms::owner_read | perms::owner_write | perms::group_read | perms::others_read}) {
    for (const bool isLinked : {false, true}) {
      std::filesystem::remove(path_);
      std::filesystem::remove(backup_);
      writeFile(file_, before_);
      if (isLinked)
        link(file_, path_);
      else
        writeFile(path_, before_);
      std::filesystem::permissions(path_, mode);
      EXPECT_EQ(run(), Failure{});
      EXPECT_FALSE(readFile(path_) == before_);
      EXPECT_EQ(std::filesystem::status(path_).permissions(), mode);
      if (upgrades()) {
        EXPECT_EQ(std::filesystem::status(backup_).permissions(), mode);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Ways, LinkedCollection, testing::Values(kSorting, kUpgrading),
                         [](const auto& row) { return std::string(row.param.name); });

class LinkedMusicFile : public testing::Test {
 protected:
  LinkedMusicFile() { state_.currentPath = path_; }

  MusicFileState open() { return openMusicFile(state_.files, state_); }
  void upgrade() { upgradeMusicFile(state_.files, state_); }

  TestFolder folder_;
  FailingFiles files_;
  AppState state_{files_};
  std::string path_ = folder_.path("jazz.MCS");
  std::string backup_ = folder_.path("jazz.BAK");
  std::string old_ = readFile(dataFile("albums-type4.MCS"));
};

TEST_F(LinkedMusicFile, AnUpgradeDeletesALinkOfTheBackupsNameAndNotItsFile) {
  writeFile("precious", "kept");
  for (const char* target : {"missing", "missing/file", "jazz.BAK", "precious"}) {
    SCOPED_TRACE(target);
    std::filesystem::remove(backup_);
    writeFile(path_, old_);
    std::filesystem::create_symlink(target, backup_);
    EXPECT_EQ(failureOf([this] { upgrade(); }), Failure{});
    EXPECT_FALSE(std::filesystem::is_symlink(backup_));
    EXPECT_TRUE(readFile(backup_) == old_);
    EXPECT_EQ(open(), MusicFileState::current);
    EXPECT_EQ(readFile("precious"), "kept");
    EXPECT_FALSE(std::filesystem::exists("missing"));
  }
}

TEST_F(LinkedMusicFile, AnUpgradeDeletesASecondNameOfTheCollectionThatIsTheBackups) {
  writeFile(path_, old_);
  std::filesystem::create_hard_link(path_, backup_);
  EXPECT_EQ(failureOf([this] { upgrade(); }), Failure{});
  EXPECT_TRUE(readFile(backup_) == old_);
  EXPECT_EQ(open(), MusicFileState::current);
}

TEST_F(LinkedMusicFile, ALinkWhoseFolderIsNotThereStays) {
  const std::string target = folder_.path("not mounted/jazz.MCS");
  std::filesystem::create_symlink(target, path_);
  EXPECT_EQ(failureOf([this] { open(); }), (Failure{76, target}));
  EXPECT_EQ(std::filesystem::read_symlink(path_), target);
  EXPECT_FALSE(std::filesystem::exists("not mounted"));
}

TEST_F(LinkedMusicFile, AMissingFileIsMadeWhereTheLinkLeads) {
  std::filesystem::create_directory("elsewhere");
  std::filesystem::create_symlink("elsewhere/real.MCS", path_);
  EXPECT_EQ(open(), MusicFileState::current);
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_EQ(readFile("elsewhere/real.MCS").size(), 12U);
}

TEST_F(LinkedMusicFile, AFileThatCannotBeWrittenIsTakenAwayAndTheLinkIsNot) {
  std::filesystem::create_directory("elsewhere");
  std::filesystem::create_symlink("elsewhere/real.MCS", path_);
  for (const FileOperation operation : {FileOperation::write, FileOperation::close}) {
    files_.failNth(operation, 0, ErrorNumber::diskFull);
    EXPECT_EQ(failureOf([this] { open(); }), (Failure{61, folder_.path("elsewhere/real.MCS")}));
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
    EXPECT_TRUE(std::filesystem::is_empty("elsewhere"));
  }
}

/// Another program creates the file, just after it was found to be missing.
class MadeMeanwhile : public DiskFileSystem {
 public:
  std::optional<std::string> linkTarget(const std::string& path) override {
    writeFile(path, "theirs");
    return DiskFileSystem::linkTarget(path);
  }
};

TEST_F(LinkedMusicFile, AFileThatWasMadeMeanwhileIsNeitherWrittenNorTakenAway) {
  MadeMeanwhile files;
  AppState state(files);
  state.currentPath = path_;
  EXPECT_EQ(failureOf([&] { openMusicFile(state.files, state); }), (Failure{58, path_}));
  EXPECT_EQ(readFile(path_), "theirs");
}

TEST(FullPathOnDisk, ThePathIsWhereTheSystemLeads) {
  const TestFolder folder;
  FailingFiles files;
  std::filesystem::create_directories("far/away");
  std::filesystem::create_directory_symlink("far/away", "link");
  const auto full = [&](const std::string& path) { return fullPathOnDisk(files, path); };
  EXPECT_EQ(full("link/../jazz.MCS"), folder.path("far/jazz.MCS"));
  EXPECT_EQ(full("far/away/../jazz.MCS"), folder.path("far/jazz.MCS"));
  EXPECT_EQ(full("link/jazz.MCS"), folder.path("link/jazz.MCS"));
  EXPECT_EQ(full("./link/./jazz.MCS"), folder.path("link/jazz.MCS"));
  EXPECT_EQ(full("a..b/..c/jazz..MCS"), folder.path("a..b/..c/jazz..MCS"));
  EXPECT_EQ(full("/link/../jazz.MCS"), "/link/../jazz.MCS");
  EXPECT_EQ(full("missing/../jazz.MCS"), folder.path("missing/../jazz.MCS"));
  EXPECT_EQ(failureOf([&] { files.open(full("missing/../jazz.MCS"), OpenMode::create); }),
            (Failure{76, folder.path("missing/../jazz.MCS")}));
  files.failNth(FileOperation::resolve, 0, ErrorNumber::permissionDenied);
  EXPECT_EQ(full("link/../jazz.MCS"), folder.path("link/../jazz.MCS"));
  std::filesystem::current_path("far/away");
  EXPECT_EQ(full("../jazz.MCS"), folder.path("far/jazz.MCS"));
}

}  // namespace
}  // namespace quillbox::test
#endif
