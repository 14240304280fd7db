// A process that works on a collection is killed at a random moment, again and again. The
// collection must be complete afterwards, under its own name or its backup's, and must open again.
//
// An ordinary run does this a few times; QUILLBOX_CRASHES in the environment sets the number.

#ifndef _WIN32  // processes are created and killed as on Unix

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "opendata/restore.h"
#include "opendata/undelete.h"
#include "platform/disk_file_system.h"
#include "platform/run_time_error.h"
#include "records/music_file.h"
#include "records/rescue.h"
#include "sortsearch/sort_engine.h"
#include "sortsearch/sort_rules.h"
#include "support/counting_store.h"
#include "support/opendata_support.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::microseconds;

constexpr int kManyItems = 5000;

int crashes() {
  constexpr int inAnOrdinaryRun = 6;
  const char* asked = std::getenv("QUILLBOX_CRASHES");
  return asked == nullptr ? inAnOrdinaryRun : std::atoi(asked);
}

/// Does the work in a separate process, which is killed after `patience`. True when it was killed.
bool killedWithin(Microseconds patience, const std::function<void()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      work();
    } catch (const ProgramEnd&) {
      // Sorting books ends the program.
    }
    ::_exit(0);
  }
  std::this_thread::sleep_for(patience);
  ::kill(child, SIGKILL);
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

Microseconds durationOf(const std::function<void()>& work) {
  const auto begin = Clock::now();
  killedWithin(Microseconds::zero(), [] {});  // the time to start a process
  const auto ready = Clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      work();
    } catch (const ProgramEnd&) {
      // As above.
    }
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return std::chrono::duration_cast<Microseconds>(Clock::now() - ready + (ready - begin));
}

/// A collection whose records are all different and in no order.
std::string collectionBytes(const CollectionKind& kind, int count, int fileType,
                            std::size_t recordLength, unsigned seed) {
  std::string bytes(recordLength, '\0');
  bytes[0] = static_cast<char>(count & 0xFF);
  bytes[1] = static_cast<char>(count >> 8);
  bytes[2] = static_cast<char>(fileType);
  bytes.replace(4, 8, "1.71    ");
  std::mt19937 random(seed);
  std::vector<std::byte> record(kind.recordLength);
  for (int item = 1; item <= count; ++item) {
    fillBlank(kind.fields, record);
    setText(kind.fields.front(), record,
            std::to_string(random() % 1000) + " item " + std::to_string(item));
    bytes.append(reinterpret_cast<const char*>(record.data()), recordLength);
  }
  return bytes;
}

class CrashTest : public testing::TestWithParam<int> {
 protected:
  const CollectionKind& kind() const { return *kindOfCode(GetParam()); }

  Microseconds anyMomentOf(Microseconds whole) {
    // A little longer than the work, so that its end is included.
    std::uniform_int_distribution<Microseconds::rep> moment(0, whole.count() * 5 / 4);
    return Microseconds(moment(random_));
  }

  /// What a program started afterwards finds: a collection with that `Count`, and the item.
  void expectOpens(const std::string& path, const CollectionKind& opened, int count, int item) {
    DiskFileSystem files;
    AppState state(files);
    state.currentPath = path;
    CountingStore store(state, opened);
    EXPECT_EQ(store.ReadHeader().Count, count);
    store.ReadRecord(item, opened.buffer(state));
    EXPECT_NE(textOf(opened.fields.front(), opened.buffer(state)).front(), ' ');
  }

  static constexpr unsigned kSeed = 20261121;
  std::mt19937 random_{kSeed};
  TestFolder folder_;
};

class SortCrashTest : public CrashTest {
 protected:
  /// Kills the sort of the collection at `path`, whose bytes are in `file`.
  void expectSafe(const std::string& path, const std::string& file, const SortRules& rules);

  /// What the start screen does for a collection that is under its backup's name only.
  void expectPutBack(const std::string& path, const std::string& before) {
    DiskFileSystem files;
    const auto lost = findLost(files, kind(), path);
    ASSERT_TRUE(lost);
    EXPECT_EQ(lost->count, kManyItems);
    putBack(files, *lost);
    EXPECT_TRUE(readFile(path) == before);
  }
};

void SortCrashTest::expectSafe(const std::string& path, const std::string& file,
                               const SortRules& rules) {
  const std::string backup = folder_.path("mine.bak");
  const std::string before =
      collectionBytes(kind(), kManyItems, kind().rules.fileType, kind().recordLength, kSeed);
  const auto sort = [&] {
    DiskFileSystem files;
    AppState state(files);
    state.currentPath = path;
    state.Count = kManyItems;
    NoBoard board;
    state.Count =
        sortCollection(state.files, state, kind(), rules, std::vector<bool>(5, true), board);
  };
  writeFile(file, before);
  const Microseconds whole = durationOf(sort);
  const bool endsProgram = rules.endsProgramAfter.has_value();
  const std::string after = endsProgram ? before : readFile(path);
  ASSERT_EQ(after.size(), before.size());
  for (int crash = 0; crash < crashes(); ++crash) {
    std::filesystem::remove(backup);
    writeFile(file, before);
    killedWithin(anyMomentOf(whole), sort);
    if (std::filesystem::exists(backup)) {
      ASSERT_TRUE(readFile(backup) == before) << "crash " << crash;
      expectOpens(backup, kind(), kManyItems, kManyItems);
      if (!std::filesystem::exists(path)) expectPutBack(path, before);
    } else {
      const std::string found = readFile(path);
      ASSERT_TRUE(found == before || found == after) << "crash " << crash;
      expectOpens(path, kind(), kManyItems, kManyItems);
    }
  }
}

TEST_P(SortCrashTest, LeavesTheCollectionOrItsBackupComplete) {
  const std::string path = folder_.path("mine." + std::string(kind().extension));
  expectSafe(path, path, sortRulesOf(kind()));
}

TEST_P(SortCrashTest, LeavesThemCompleteBehindALink) {
  const std::string path = folder_.path("mine." + std::string(kind().extension));
  std::filesystem::create_directory("elsewhere");
  std::filesystem::create_symlink("elsewhere/real", path);
  expectSafe(path, folder_.path("elsewhere/real"), sortRulesOf(kind()));
  EXPECT_TRUE(std::filesystem::is_symlink(path));
}

/// For a kind whose sort ends the program, but not on the command line.
using SortToTheEndCrashTest = SortCrashTest;

TEST_P(SortToTheEndCrashTest, LeavesTheCollectionOrItsBackupComplete) {
  SortRules rules = sortRulesOf(kind());
  ASSERT_TRUE(rules.endsProgramAfter);
  rules.endsProgramAfter.reset();
  const std::string path = folder_.path("mine." + std::string(kind().extension));
  expectSafe(path, path, rules);
}

using ItemCrashTest = CrashTest;

TEST_P(ItemCrashTest, TouchesNoItemButItsOwn) {
  constexpr int few = 50;
  const std::string path = folder_.path("mine." + std::string(kind().extension));
  const std::string before =
      collectionBytes(kind(), few, kind().rules.fileType, kind().recordLength, kSeed);
  const auto writeItems = [&] {
    DiskFileSystem files;
    AppState state(files);
    state.currentPath = path;
    state.Count = few;
    CountingStore store(state, kind());
    std::vector<std::byte> record(kind().recordLength);
    fillBlank(kind().fields, record);
    setText(kind().fields.front(), record, "written");
    for (int again = 0; again < 100; ++again) {
      store.WriteRecord(7, record, state.Count);
      store.writeNewItem(record);
    }
  };
  writeFile(path, before);
  const Microseconds whole = durationOf(writeItems);
  for (int crash = 0; crash < crashes(); ++crash) {
    writeFile(path, before);
    killedWithin(anyMomentOf(whole), writeItems);
    std::string found = readFile(path);
    ASSERT_GE(found.size(), before.size());
    found.resize(before.size());
    const int count = static_cast<unsigned char>(found[0]) + 256 * found[1];
    ASSERT_GE(count, few);
    // All except the header's 12 bytes and the item being written.
    std::string expected = before;
    expected.replace(0, 12, found, 0, 12);
    const std::size_t length = kind().recordLength;
    expected.replace(7 * length, length, found, 7 * length, length);
    ASSERT_TRUE(found == expected) << "crash " << crash;
    expectOpens(path, kind(), count, few);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, SortCrashTest, testing::Range(1, 10));
INSTANTIATE_TEST_SUITE_P(Books, SortToTheEndCrashTest, testing::Values(5));
INSTANTIATE_TEST_SUITE_P(Kinds, ItemCrashTest, testing::Values(1, 2, 3, 6));

class UpgradeCrashTest : public CrashTest {};

TEST_P(UpgradeCrashTest, LeavesTheOldFileOrTheNewOne) {
  const std::string path = folder_.path("jazz.MCS");
  const std::string backup = folder_.path("jazz.BAK");
  const std::string before = collectionBytes(kind(), kManyItems, music_file_type::upgradable,
                                             kMusicRecordType4Length, kSeed);
  const auto upgrade = [&] {
    DiskFileSystem files;
    AppState state(files);
    state.currentPath = path;
    upgradeMusicFile(state.files, state);
  };
  writeFile(path, before);
  const Microseconds whole = durationOf(upgrade);
  const std::string after = readFile(path);
  for (int crash = 0; crash < crashes(); ++crash) {
    std::filesystem::remove(backup);
    writeFile(path, before);
    killedWithin(anyMomentOf(whole), upgrade);
    if (std::filesystem::exists(backup))
      ASSERT_TRUE(readFile(backup) == before) << "crash " << crash;
    else
      ASSERT_TRUE(readFile(path) == before) << "crash " << crash;
    if (std::filesystem::exists(path) && readFile(path) == after)
      expectOpens(path, kind(), kManyItems, kManyItems - 1);  // the last item is not carried over
  }
}

INSTANTIATE_TEST_SUITE_P(Music, UpgradeCrashTest, testing::Values(1));

class OpenDataCrashTest : public CrashTest {
 protected:
  /// Kills the work on the collection at `path` again and again: it is the old one or the new one,
  /// under its own name, and the old one exists beside it.
  void expectSafe(const std::string& path, const std::vector<std::string>& beside,
                  const std::function<void()>& prepare, const std::function<void()>& work) {
    prepare();
    const std::string before = readFile(path);
    const Microseconds whole = durationOf(work);
    const std::string after = readFile(path);
    ASSERT_TRUE(after != before);
    for (int crash = 0; crash < crashes(); ++crash) {
      for (const std::string& name : beside) std::filesystem::remove(name);
      prepare();
      killedWithin(anyMomentOf(whole), work);
      const std::string found = readFile(path);
      ASSERT_TRUE(found == before || found == after) << "crash " << crash;
      bool isKept = found == before;
      for (const std::string& name : beside)
        isKept = isKept || (std::filesystem::exists(name) && readFile(name) == before);
      ASSERT_TRUE(isKept) << "crash " << crash;
    }
  }

  std::string path() { return folder_.path("mine." + std::string(kind().extension)); }
  std::string bytes(unsigned seed) {
    return collectionBytes(kind(), kManyItems, kind().rules.fileType, kind().recordLength, seed);
  }
};

TEST_P(OpenDataCrashTest, AnImportLeavesTheOldOneOrTheNewOne) {
  std::string csv = "Item," + std::string(kind().fields.front().name) + "\n";
  for (int item = 1; item <= kManyItems; item += 3) csv += std::to_string(item) + ",changed\n";
  const auto bringIn = [&] {
    DiskFileSystem files;
    ToldChanges watcher;
    importCsv(files, path(), csv, {}, watcher);
  };
  expectSafe(
      path(), {path() + "~", path() + ".new~"}, [&] { writeFile(path(), bytes(kSeed)); }, bringIn);
}

TEST_P(OpenDataCrashTest, ARestoreLeavesTheOldOneOrTheNewOne) {
  const std::string backup = folder_.path("mine.bak");
  const auto prepare = [&] {
    writeFile(path(), bytes(kSeed));
    writeFile(backup, bytes(kSeed + 1));
  };
  const auto putBack = [&] {
    DiskFileSystem files;
    restoreCollection(files, path());
  };
  expectSafe(path(), {path() + "~", backup}, prepare, putBack);
}

TEST_P(OpenDataCrashTest, AnUndeleteTouchesNoItemButItsOwn) {
  constexpr std::size_t item = 7;
  const std::size_t length = kind().recordLength;
  std::string before = bytes(kSeed);
  const auto setFirstText = [&](std::string& collection, std::string_view text) {
    setText(kind().fields.front(),
            std::as_writable_bytes(std::span(collection)).subspan(item * length, length), text);
  };
  setFirstText(before, kind().rules.deletion.marker);
  const auto undelete = [&] {
    DiskFileSystem disk;
    OpenFiles files(disk);
    const CollectionFile file = readCollectionFile(disk, path());
    undeleteItem(files, file, Values(file), item, "back again", {});
  };
  writeFile(path(), before);
  const Microseconds whole = durationOf(undelete);
  std::string after = before;
  setFirstText(after, "back again");
  ASSERT_TRUE(readFile(path()) == after);
  for (int crash = 0; crash < crashes(); ++crash) {
    writeFile(path(), before);
    killedWithin(anyMomentOf(whole), undelete);
    const std::string found = readFile(path());
    ASSERT_TRUE(found == before || found == after) << "crash " << crash;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, OpenDataCrashTest, testing::Values(1, 5, 6));

}  // namespace
}  // namespace quillbox::test

#endif
