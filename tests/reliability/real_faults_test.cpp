#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "editors/media_loader.h"
#include "platform/disk_file_system.h"
#include "printing/export.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "records/music_file.h"
#include "sortsearch/sort_engine.h"
#include "support/collection_path.h"
#include "support/counting_store.h"
#include "support/fake_desktop.h"
#include "support/loading.h"
#include "support/machine.h"
#include "support/music_files.h"

namespace quillbox::test {
namespace {

constexpr int kItems = 20;

#ifndef _WIN32
/// A call's failure, and the resulting count.
struct Outcome {
  Failure failure;
  int count = 0;

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << outcome.failure << " with " << outcome.count;
}
#endif

/// A collection of twenty albums in the current folder's folder "things", on the real disk.
class RealFaults : public testing::Test {
 protected:
  RealFaults() {
    std::filesystem::create_directory("things");
    std::vector<std::string> items;
    for (int n = kItems; n > 0; --n)
      items.push_back(
          plainItem(kind_, std::string(1, static_cast<char>('A' + n)) + std::string(40, 'x')));
    before_ = plainCollection(kind_, items);
    writeFile(path_, before_);
    state_.currentPath = path_;
    state_.Count = kItems;
  }

  void writeNewItem() {
    CountingStore(state_, kind_).writeNewItem(std::vector<std::byte>(kind_.recordLength));
  }
  void writeInPlace() {
    const std::vector<std::byte> item(kind_.recordLength, std::byte{'N'});
    CountingStore(state_, kind_).WriteRecord(2, item, state_.Count);
  }
  void sort() {
    state_.Count = sortCollection(state_.files, state_, kind_, std::vector<bool>(5, true), board_);
  }
  void exportTo(const std::string& target) {
    exportCollection(state_.files, state_, kind_, target);
  }

  /// Chooses the text file and composes the pages for it.
  std::int16_t composeFor(const std::string& target, FakeDesktop& desktop, PrintEngine& engine) {
    desktop.expectPrint(PrintChoice{.toFile = true});
    desktop.expectSave("Print to FileName", "Text File (*.txt)|*.txt", std::nullopt, target);
    std::int16_t mode = print_mode::printer;
    engine.OpenPrinter(mode);
    const Listing listing(kind_, {[](const Field&, int) { return ""; }, ""});
    return composePages(state_.files, state_, kind_, listing, mode, engine, board_);
  }
  void listTo(const std::string& target) {
    FakeDesktop desktop;
    PrintEngine engine(state_, desktop, board_);
    const std::int16_t pages = composeFor(target, desktop, engine);
    engine.PrintOut(print_mode::textFile, pages, "Albums");
  }

  Failure failureOfSort() {
    return failureOf([this] { sort(); });
  }

#ifndef _WIN32
  /// Makes the call in a separate process in which no file may grow beyond this size.
  Outcome withFilesUpTo(rlim_t bytes, const std::function<void()>& call) {
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit = {bytes, bytes};
      ::setrlimit(RLIMIT_FSIZE, &limit);
      const Failure failure = failureOf(call);
      const std::string text = std::to_string(failure.number) + " " +
                               std::to_string(isAnythingOpen() ? -1 : state_.Count) + " " +
                               failure.file;
      const auto put = ::write(ends[1], text.data(), text.size());
      ::_exit(put == static_cast<ssize_t>(text.size()) ? 0 : 1);
    }
    ::close(ends[1]);
    std::string text(4096, '\0');
    const auto got = ::read(ends[0], text.data(), text.size());
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    ::close(ends[0]);
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    Outcome outcome;
    std::istringstream(text) >> outcome.failure.number >> outcome.count >> outcome.failure.file;
    return outcome;
  }
#endif

  bool isAnythingOpen() const {
    for (int number = 1; number <= 255; ++number)
      if (state_.files.isOpen(number)) return true;
    return false;
  }
  void expectNothingOpen() const { EXPECT_FALSE(isAnythingOpen()); }

  std::string collection() const { return bytesAt(path_); }
  void expectUntouched() const {
    EXPECT_TRUE(collection() == before_);
    EXPECT_EQ(state_.Count, kItems);
    expectNothingOpen();
  }

  TestFolder folder_;
  DiskFileSystem files_;
  AppState state_{files_};
  NoBoard board_;
  const CollectionKind& kind_ = *kindOfExtension("MCS");
  std::string path_ = folder_.path("things/mine.MCS");
  std::string backup_ = folder_.path("things/mine.bak");
  std::string before_;
};

using ReadOnlyFolder = RealFaults;
using RemovedFolder = RealFaults;
using FolderInsteadOfTheCollection = RealFaults;

#ifndef _WIN32

using FullDisk = RealFaults;

TEST_F(FullDisk, ANewItemThatDoesNotFitLeavesTheOthersAndTheCount) {
  for (const std::size_t room : {std::size_t{0}, std::size_t{1000}}) {
    writeFile(path_, before_);
    EXPECT_EQ(withFilesUpTo(before_.size() + room, [this] { writeNewItem(); }),
              (Outcome{{61, path_}, kItems}));
    const std::string now = collection();
    EXPECT_EQ(now.size(), before_.size() + room);
    EXPECT_TRUE(now.substr(12, before_.size() - 12) == before_.substr(12));
  }
  writeNewItem();
  EXPECT_EQ(state_.Count, kItems + 1);
  EXPECT_EQ(collection().size(), before_.size() + kind_.recordLength);
}

TEST_F(FullDisk, AnItemThatIsWrittenInItsPlaceNeedsNoRoom) {
  EXPECT_EQ(withFilesUpTo(before_.size(), [this] { writeInPlace(); }), (Outcome{{}, kItems}));
  EXPECT_EQ(collection().substr(2 * kind_.recordLength, 4), "NNNN");
}

TEST_F(FullDisk, ASortLeavesTheCollectionUnderItsBackupAlone) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{5}, before_.size() / 2, before_.size() - 1}) {
    std::filesystem::remove(backup_);
    writeFile(path_, before_);
    EXPECT_EQ(withFilesUpTo(size, [this] { sort(); }), (Outcome{{61, path_}, kItems})) << size;
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_TRUE(bytesAt(backup_) == before_);
  }
  std::filesystem::rename(backup_, path_);
  sort();
  EXPECT_EQ(collection().size(), before_.size());
  EXPECT_EQ(collection()[kind_.recordLength], 'B');
  EXPECT_FALSE(std::filesystem::exists(backup_));
}

TEST_F(FullDisk, AnUpgradeLeavesTheOldFileUnderItsBackup) {
  const std::string old = musicFile(3, music_file_type::upgradable,
                                    {album("A"), album("B"), album("C")}, kMusicRecordType4Length);
  writeFile(path_, old);
  EXPECT_EQ(withFilesUpTo(4000, [this] { upgradeMusicFile(state_.files, state_); }),
            (Outcome{{61, path_}, kItems}));
  EXPECT_TRUE(bytesAt(folder_.path("things/mine.BAK")) == old);
}

TEST_F(FullDisk, AnExportStops) {
  const std::string target = folder_.path("out.txt");
  for (const rlim_t size : {0U, 100U, 3000U}) {
    EXPECT_EQ(withFilesUpTo(size, [&] { exportTo(target); }), (Outcome{{61, target}, kItems}));
    expectUntouched();
  }
  exportTo(target);
  EXPECT_GT(std::filesystem::file_size(target), 3000U);
}

TEST_F(FullDisk, AListingStopsAndKeepsItsPages) {
  const std::string target = folder_.path("list.txt");
  listTo(target);
  const std::string whole = readFile(target);
  for (const rlim_t size : {rlim_t{0}, rlim_t{100}, rlim_t{whole.size() - 1}}) {
    FakeDesktop desktop;
    PrintEngine engine(state_, desktop, board_);
    const std::int16_t pages = composeFor(target, desktop, engine);
    const std::string spool = readFile("printer.tmp");
    EXPECT_EQ(withFilesUpTo(size, [&] { engine.PrintOut(print_mode::textFile, pages, "Albums"); }),
              (Outcome{{61, target}, kItems}));
    EXPECT_TRUE(readFile("printer.tmp") == spool);
    expectUntouched();
    engine.PrintOut(print_mode::textFile, pages, "Albums");
    EXPECT_TRUE(readFile(target) == whole);
  }
}

TEST_F(FullDisk, AListingWhosePagesCannotBeWrittenIsAnError) {
  const std::string target = folder_.path("list.txt");
  for (const rlim_t size : {0U, 100U, 6000U}) {
    EXPECT_EQ(withFilesUpTo(size, [&] { listTo(target); }), (Outcome{{61, "printer.tmp"}, kItems}));
    expectUntouched();
  }
}

TEST_F(FullDisk, AFullDeviceIsAnErrorAndIsClosed) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no full device";
  const Failure full = {61, "/dev/full"};
  EXPECT_EQ(failureOf([this] { exportTo("/dev/full"); }), full);
  expectUntouched();
  EXPECT_EQ(failureOf([this] { listTo("/dev/full"); }), full);
  expectUntouched();
}

#endif

/// The folder "things" is read-only, but the collection in it is not.
class ClosedFolder {
 public:
  explicit ClosedFolder(const TestFolder& folder) : user_(folder) {}

  static void closeDown(const std::string& collection) {
    using std::filesystem::perms;
    std::filesystem::permissions(collection, perms::owner_read | perms::owner_write |
                                                 perms::group_read | perms::group_write);
    std::filesystem::permissions(
        "things", perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec);
  }

 private:
  OrdinaryUser user_;
};

TEST_F(ReadOnlyFolder, ItemsAreWrittenButNothingIsMadeOrRenamed) {
  QUILLBOX_NEEDS(permissions);
  ClosedFolder::closeDown(path_);
  const ClosedFolder closed(folder_);
  EXPECT_EQ(failureOfSort(), (Failure{70, path_}));
  expectUntouched();
  EXPECT_EQ(failureOf([this] { upgradeMusicFile(state_.files, state_); }), (Failure{70, path_}));
  expectUntouched();
  const std::string target = folder_.path("things/out.txt");
  EXPECT_EQ(failureOf([&] { exportTo(target); }), (Failure{70, target}));
  expectUntouched();
  writeInPlace();
  EXPECT_EQ(collection().substr(2 * kind_.recordLength, 4), "NNNN");

  state_.currentPath = folder_.path("things/new.MCS");
  EXPECT_EQ(failureOf([&] { openMusicFile(state_.files, state_); }),
            (Failure{70, state_.currentPath}));
  EXPECT_FALSE(std::filesystem::exists(state_.currentPath));
  expectNothingOpen();
}

TEST_F(ReadOnlyFolder, AListingWithoutASpoolIsAnError) {
  QUILLBOX_NEEDS(permissions);
  ClosedFolder::closeDown(path_);
  std::filesystem::current_path("things");
  const ClosedFolder closed(folder_);
  const Failure failure = failureOf([this] { listTo("list.txt"); });
  EXPECT_EQ(failure, (Failure{70, "list.txt"}));
  expectUntouched();
  EXPECT_FALSE(std::filesystem::exists("printer.tmp"));
}

TEST_F(RemovedFolder, WithoutACurrentFolderOnlyWhatNeedsNoneWorks) {
  QUILLBOX_NEEDS(folderIsGone);
  std::filesystem::create_directory("here");
  std::filesystem::current_path("here");
  std::filesystem::remove(folder_.path("here"));
  EXPECT_EQ(failureOf([this] { exportTo("out.txt"); }), (Failure{53, "out.txt"}));
  expectUntouched();
  EXPECT_NE(failureOf([this] { listTo(folder_.path("list.txt")); }), Failure{});
  expectUntouched();
  writeInPlace();
  EXPECT_EQ(collection().substr(2 * kind_.recordLength, 4), "NNNN");
  sort();
  EXPECT_EQ(collection()[kind_.recordLength], 'B');
  EXPECT_FALSE(std::filesystem::exists(backup_));
  expectNothingOpen();

  // This one's backup is "bak" in the current folder.
  state_.currentPath = folder_.path("things/mineMCS");
  writeFile(state_.currentPath, before_);
  EXPECT_EQ(failureOfSort(), (Failure{76, "."}));
  EXPECT_TRUE(readFile(state_.currentPath) == before_);
}

TEST_F(RemovedFolder, ACollectionWithoutItsFolderIsAnErrorAndIsNotMadeAgain) {
  std::filesystem::remove_all("things");
  const Failure gone = {76, path_};
  std::vector<std::byte> record(kind_.recordLength);
  CountingStore store(state_, kind_);
  EXPECT_EQ(failureOf([&] { store.ReadHeader(); }), gone);
  EXPECT_EQ(failureOf([&] { store.ReadRecord(1, record); }), gone);
  EXPECT_EQ(failureOf([this] { writeInPlace(); }), gone);
  EXPECT_EQ(failureOf([this] { writeNewItem(); }), gone);
  EXPECT_EQ(failureOf([&] { store.writeDeleted(1, record); }), gone);
  EXPECT_EQ(failureOf([&] { openMusicFile(state_.files, state_); }), gone);
  EXPECT_EQ(failureOf([this] { upgradeMusicFile(state_.files, state_); }), gone);
  EXPECT_EQ(failureOfSort(), gone);
  EXPECT_EQ(failureOf([this] { exportTo(folder_.path("out.txt")); }), gone);
  EXPECT_EQ(failureOf([this] { loadAndCount(state_, kind_, "/music", {"a.wav"}, board_); }), gone);
  EXPECT_EQ(failureOf([this] { listTo(folder_.path("list.txt")); }), Failure{});
  EXPECT_EQ(state_.Count, kItems);
  EXPECT_FALSE(std::filesystem::exists("things"));
  expectNothingOpen();
}

TEST_F(FolderInsteadOfTheCollection, IsAnAccessError) {
  std::filesystem::remove(path_);
  std::filesystem::create_directory(path_);
  writeFile(path_ + "/inside", "kept");
  const Failure noFile = {75, path_};
  std::vector<std::byte> record(kind_.recordLength);
  CountingStore store(state_, kind_);
  EXPECT_EQ(failureOf([&] { store.ReadHeader(); }), noFile);
  EXPECT_EQ(failureOf([&] { store.ReadRecord(1, record); }), noFile);
  EXPECT_EQ(failureOf([this] { writeInPlace(); }), noFile);
  EXPECT_EQ(failureOf([this] { writeNewItem(); }), noFile);
  EXPECT_EQ(failureOf([&] { store.writeDeleted(1, record); }), noFile);
  EXPECT_EQ(failureOf([&] { openMusicFile(state_.files, state_); }), noFile);
  EXPECT_EQ(failureOf([this] { exportTo(folder_.path("out.txt")); }), noFile);
  EXPECT_EQ(failureOf([this] { loadAndCount(state_, kind_, "/music", {"a.wav"}, board_); }),
            noFile);
  EXPECT_EQ(failureOf([this] { listTo(folder_.path("list.txt")); }), Failure{});
  EXPECT_EQ(state_.Count, kItems);
  EXPECT_EQ(readFile(path_ + "/inside"), "kept");
  expectNothingOpen();
}

TEST_F(FolderInsteadOfTheCollection, IsRenamedByASortAndAnUpgradeAndThenAnError) {
  for (const char* ending : {"bak", "BAK"}) {
    const std::string backup = folder_.path(std::string("things/mine.") + ending);
    std::filesystem::remove_all(path_);
    std::filesystem::create_directory(path_);
    writeFile(path_ + "/inside", "kept");
    const Failure failure = failureOf(
        [&] { ending == std::string("bak") ? sort() : upgradeMusicFile(state_.files, state_); });
    EXPECT_EQ(failure, (Failure{75, backup}));
    EXPECT_EQ(readFile(backup + "/inside"), "kept");
    EXPECT_EQ(state_.Count, kItems);
    expectNothingOpen();
    std::filesystem::remove_all(backup);  // its name may equal that of the next one except for case
  }
}

}  // namespace
}  // namespace quillbox::test
