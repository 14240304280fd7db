#include "records/music_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ascii.h"
#include "platform/disk_file_system.h"
#include "records/navigation.h"
#include "support/counting_store.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::size_t kLength = sizeof(MusicRecord);
constexpr std::size_t kOldLength = kMusicRecordType4Length;
constexpr std::size_t kMediaTypeAt = offsetof(MusicRecord, MediaType);
constexpr std::size_t kGenreAt = offsetof(MusicRecord, Genre);

/// The bytes of a type-4 record in their current form.
std::string carriedOver(std::string record, int mediaType) {
  record.resize(kOldLength);
  record[kMediaTypeAt] = static_cast<char>(mediaType & 0xFF);
  record[kMediaTypeAt + 1] = static_cast<char>(mediaType >> 8);
  record.replace(kGenreAt, 2, "\xFF\xFF");
  return record + "Bar Code/ID Here..." + std::string(17, ' ');
}

/// The whole upgraded file. `old` has enough records for its count.
std::string upgraded(const std::string& old, int mediaType) {
  const int count = headerOf(old).Count;
  std::string bytes = old.substr(0, 2) + "\x05\x00\x31\x2e\x37\x31\x20\x20\x20\x20"s;
  if (count > 1) bytes.resize(kLength, '\0');
  for (int number = 2; number <= count; ++number) {
    const auto at = static_cast<std::size_t>(number - 1) * kOldLength;
    bytes += carriedOver(old.substr(at, kOldLength), mediaType);
  }
  return bytes;
}

class MusicFileTest : public testing::Test {
 protected:
  MusicFileTest() { state_.currentPath = path_; }

  MusicFileState open() { return openMusicFile(state_.files, state_); }
  std::string file() const { return readFile(path_); }

  void expectNothingOpen() {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  /// The index of this operation among those so far; fails the test when it is missing.
  std::ptrdiff_t placeOf(FileOperation operation, const std::string& path) const {
    const auto& all = files_.operations();
    const auto found = std::ranges::find(all, OperationRecord{operation, path});
    EXPECT_NE(found, all.end());
    return found - all.begin();
  }

  TestFolder folder_;
  std::string path_ = folder_.path("jazz.MCS");
  std::string backup_ = folder_.path("jazz.BAK");
  FailingFiles files_;
  AppState state_{files_};
  CountingStore store_{state_, *kindOfCode(1)};
};

using OpenMusicFile = MusicFileTest;
using UpgradeMusicFile = MusicFileTest;

TEST_F(OpenMusicFile, AMissingFileIsMadeWithoutItemsAndOfTheCurrentType) {
  state_.Count = 7;
  EXPECT_EQ(open(), MusicFileState::current);
  EXPECT_EQ(state_.Count, 0);
  EXPECT_EQ(file(), "\x00\x00\x05\x00\x31\x2e\x37\x31\x20\x20\x20\x20"sv);
  expectNothingOpen();
}

TEST_F(OpenMusicFile, AFileOfTheCurrentTypeGivesItsCountAndIsOnlyRead) {
  const std::string before = readFile(dataFile("albums.MCS"));
  writeFile(path_, before);
  EXPECT_EQ(open(), MusicFileState::current);
  EXPECT_EQ(state_.Count, headerOf(before).Count);
  EXPECT_GT(state_.Count, 0);
  EXPECT_TRUE(file() == before);
  expectNothingOpen();
}

TEST_F(OpenMusicFile, TheFileTypeDecides) {
  const struct {
    int fileType;
    MusicFileState found;
  } rows[] = {
      {-32768, MusicFileState::refused}, {-1, MusicFileState::refused},
      {0, MusicFileState::refused},      {1, MusicFileState::refused},
      {2, MusicFileState::refused},      {3, MusicFileState::refused},
      {4, MusicFileState::upgradable},   {5, MusicFileState::current},
      {6, MusicFileState::current},      {32767, MusicFileState::current},
  };
  for (const auto& row : rows) {
    const std::string before = musicFile(2, row.fileType, {album("A"), album("B")});
    writeFile(path_, before);
    EXPECT_EQ(open(), row.found) << row.fileType;
    EXPECT_TRUE(file() == before) << row.fileType;
  }
}

TEST_F(OpenMusicFile, TheFileThatTheDialogMadeIsRefused) {
  const std::string before = readFile(dataFile("type1.MCS"));
  writeFile(path_, before);
  EXPECT_EQ(open(), MusicFileState::refused);
  EXPECT_TRUE(file() == before);
}

TEST_F(OpenMusicFile, AFileOfZeroBytesIsRefusedAndLeftAlone) {
  writeFile(path_, "");
  EXPECT_EQ(open(), MusicFileState::refused);
  EXPECT_EQ(state_.Count, 0);
  EXPECT_EQ(file(), "");
}

TEST_F(OpenMusicFile, AHeaderOfAnyLengthWillDo) {
  writeFile(path_, "\x03\x00\x05\x00"s);
  EXPECT_EQ(open(), MusicFileState::current);
  EXPECT_EQ(state_.Count, 3);
  writeFile(path_, "\x03\x00\x05"s);
  EXPECT_EQ(open(), MusicFileState::current);
  writeFile(path_, "\x03\x00"s);
  EXPECT_EQ(open(), MusicFileState::refused);
  writeFile(path_, readFile(dataFile("empty.MCS")));
  EXPECT_EQ(open(), MusicFileState::current);
  EXPECT_EQ(state_.Count, 0);
}

TEST_F(OpenMusicFile, ANegativeCountReadsAsNone) {
  for (const int count : {-1, -300, -32768}) {
    state_.Count = 7;
    writeFile(path_, musicFile(count, 5, {album("A")}));
    EXPECT_EQ(open(), MusicFileState::current);
    EXPECT_EQ(state_.Count, 0) << count;
  }
}

TEST_F(OpenMusicFile, ACountBeyondTheFileStands) {
  writeFile(path_, musicFile(32767, 5, {album("A")}));
  EXPECT_EQ(open(), MusicFileState::current);
  EXPECT_EQ(state_.Count, 32767);
}

TEST_F(OpenMusicFile, AMissingFolderIsAnError) {
  state_.currentPath = folder_.path("missing/jazz.MCS");
  const Failure failure = failureOf([&] { open(); });
  EXPECT_EQ(failure.number, 76);
  EXPECT_EQ(failure.file, state_.currentPath);
  EXPECT_FALSE(std::filesystem::exists(folder_.path("missing")));
  expectNothingOpen();
}

TEST_F(OpenMusicFile, AFolderOfThatNameIsAnError) {
  std::filesystem::create_directory(path_);
  const Failure failure = failureOf([&] { open(); });
  EXPECT_EQ(failure.number, 75);
  EXPECT_EQ(failure.file, path_);
  EXPECT_TRUE(std::filesystem::is_directory(path_));
  expectNothingOpen();
}

TEST_F(OpenMusicFile, AFailureNamesTheFileAndLeavesCountAsItWas) {
  for (const bool missing : {false, true}) {
    std::ptrdiff_t failures = 0;
    for (int nth = 0;; ++nth) {
      std::filesystem::remove(path_);
      files_.forget();
      if (!missing) writeFile(path_, musicFile({album("A"), album("B")}));
      state_.Count = 7;
      files_.failNth(nth, ErrorNumber::deviceIo);
      const Failure failure = failureOf([&] { open(); });
      if (!files_.hasFailed()) break;
      expectNothingOpen();
      if (failure.number == 0) continue;  // closing a file that was only read may fail
      ++failures;
      EXPECT_EQ(failure.number, 57) << nth;
      EXPECT_EQ(failure.file, path_);
      EXPECT_EQ(state_.Count, 7) << nth;
    }
    EXPECT_EQ(failures, std::ssize(files_.operations()) - 1);
  }
}

TEST_F(OpenMusicFile, RandomBytesAreReadForWhatTheyAre) {
  std::mt19937 random(5);
  for (int round = 0; round < 300; ++round) {
    std::string bytes(random() % (3 * kLength), '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() % 256);
    if (bytes.size() > 3 && round % 2 == 0) bytes.replace(2, 2, "\x05\x00"s);
    writeFile(path_, bytes);
    std::string head = bytes + std::string(12, '\0');
    const HeaderRecord header = headerOf(head);
    const MusicFileState found = open();
    EXPECT_EQ(found == MusicFileState::refused, header.FileType < 4);
    EXPECT_EQ(found == MusicFileState::upgradable, header.FileType == 4);
    EXPECT_EQ(state_.Count, std::max<int>(header.Count, 0));
    MusicRecord record{};
    EXPECT_EQ(nextItem(store_, 1, bytesOf(record)), 2);
    std::string second = bytes.size() > 2 * kLength ? bytes.substr(2 * kLength) : "";
    second += bytesOf(album("")).size() > second.size()
                  ? std::string(reinterpret_cast<const char*>(bytesOf(album("")).data()), kLength)
                        .substr(second.size())
                  : "";
    EXPECT_EQ(std::memcmp(&record, second.data(), kLength), 0);
    EXPECT_TRUE(file() == bytes);
  }
}

TEST_F(UpgradeMusicFile, CarriesTheItemsOverButTheLast) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  writeFile(path_, old);
  ASSERT_EQ(open(), MusicFileState::upgradable);
  upgradeMusicFile(state_.files, state_);
  const std::string now = file();
  EXPECT_EQ(now.size(), 2372U * 3);
  EXPECT_EQ(headerOf(now).Count, 3);
  EXPECT_EQ(headerOf(now).FileType, 5);
  EXPECT_EQ(headerOf(now).Version.view(), "1.71    ");
  for (int item = 1; item <= 2; ++item) {
    MusicRecord before{};
    std::memcpy(&before, old.data() + static_cast<std::size_t>(item) * kOldLength, kOldLength);
    const MusicRecord after = itemOf(now, item);
    EXPECT_EQ(after.Artist.view(), before.Artist.view());
    EXPECT_EQ(after.Album.view(), before.Album.view());
    EXPECT_EQ(after.RecordCo.view(), before.RecordCo.view());
    for (std::size_t song = 0; song < kSongs; ++song)
      EXPECT_EQ(after.Songs[song].view(), before.Songs[song].view());
    EXPECT_EQ(after.AquireDate.view(), before.AquireDate.view());
    EXPECT_EQ(after.AquireCost, before.AquireCost);
    EXPECT_EQ(after.CurrCost, before.CurrCost);
    EXPECT_EQ(after.HasBook, before.HasBook);
    EXPECT_EQ(after.MediaType, 0);
    EXPECT_EQ(after.CurrLoaned, before.CurrLoaned);
    EXPECT_EQ(after.Borrower.view(), before.Borrower.view());
    EXPECT_EQ(after.DateLoaned.view(), before.DateLoaned.view());
    EXPECT_EQ(after.DueDate.view(), before.DueDate.view());
    EXPECT_EQ(after.BookLoaned, before.BookLoaned);
    EXPECT_EQ(after.Notes.view(), before.Notes.view());
    EXPECT_EQ(after.Genre, -1);
    EXPECT_EQ(text(after.BarCode), "Bar Code/ID Here...");
  }
  EXPECT_TRUE(now == upgraded(old, 0));
  EXPECT_TRUE(readFile(backup_) == old);
  EXPECT_EQ(open(), MusicFileState::current);
  EXPECT_EQ(state_.Count, 3);
  expectNothingOpen();
}

TEST_F(UpgradeMusicFile, TheMediaTypeIsWhatTheBufferHeld) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  for (const int mediaType : {0, 6, 300, -1}) {
    std::filesystem::remove(backup_);
    writeFile(path_, old);
    state_.music = album("shown before");
    state_.music.MediaType = static_cast<std::int16_t>(mediaType);
    upgradeMusicFile(state_.files, state_);
    EXPECT_TRUE(file() == upgraded(old, mediaType)) << mediaType;
  }
}

TEST_F(UpgradeMusicFile, WhatTheBufferHeldIsNotCarriedOverOtherwise) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  writeFile(path_, old);
  std::ranges::fill(bytesOf(state_.music), std::byte{'#'});
  upgradeMusicFile(state_.files, state_);
  EXPECT_TRUE(file() == upgraded(old, 0x2323));
}

TEST_F(UpgradeMusicFile, TheFileLeavesNothingOfALongerOneBehind) {
  // Every record of the new file is written again, so data after the items is only in the backup.
  const std::string old = readFile(dataFile("albums-type4.MCS")) + std::string(50'000, '#');
  writeFile(path_, old);
  upgradeMusicFile(state_.files, state_);
  EXPECT_TRUE(file() == upgraded(old, 0));
  EXPECT_TRUE(readFile(backup_) == old);
}

TEST_F(UpgradeMusicFile, AnOldBackupIsReplaced) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  writeFile(path_, old);
  writeFile(backup_, "the old backup" + std::string(100'000, '#'));
  upgradeMusicFile(state_.files, state_);
  EXPECT_TRUE(readFile(backup_) == old);
  EXPECT_TRUE(file() == upgraded(old, 0));
}

TEST_F(UpgradeMusicFile, APathWithoutADotIsBackedUpInTheCurrentFolder) {
  ASSERT_EQ(folder_.path().find('.'), std::string::npos);
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  std::filesystem::create_directory("elsewhere");
  state_.currentPath = folder_.path("elsewhere/jazzMCS");
  writeFile(state_.currentPath, old);
  upgradeMusicFile(state_.files, state_);
  EXPECT_TRUE(readFile(folder_.path("BAK")) == old);
  EXPECT_TRUE(readFile(state_.currentPath) == upgraded(old, 0));
}

TEST_F(UpgradeMusicFile, ADotInAFoldersNameCutsTheBackupsNameThere) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  std::filesystem::create_directory("my.music");
  state_.currentPath = folder_.path("my.music/jazz.MCS");
  writeFile(state_.currentPath, old);
  upgradeMusicFile(state_.files, state_);
  EXPECT_TRUE(readFile(folder_.path("my.BAK")) == old);
  EXPECT_TRUE(readFile(state_.currentPath) == upgraded(old, 0));
  EXPECT_FALSE(std::filesystem::exists("my.music/jazz.BAK"));
}

TEST_F(UpgradeMusicFile, WhatTheEndOfTheFileCutsOffIsBlank) {
  const std::string whole = musicFile(
      4, 4, {album("A", "one"), album("Betty Carter", "two"), album("C"), album("D")}, kOldLength);
  std::string cut = whole;
  cut.resize(2 * kOldLength + 5);
  writeFile(path_, cut);
  state_.music.MediaType = 3;
  upgradeMusicFile(state_.files, state_);
  const std::string expected = upgraded(
      musicFile(4, 4, {album("A", "one"), album("Betty"), album(""), album("")}, kOldLength), 3);
  EXPECT_TRUE(file() == expected);
  EXPECT_TRUE(readFile(backup_) == cut);
}

TEST_F(UpgradeMusicFile, AFileWithNothingToCarryOverBecomesAHeader) {
  for (const int count : {1, 0, -5}) {
    std::filesystem::remove(backup_);
    const std::string old = musicFile(count, 4, {album("A")}, kOldLength);
    writeFile(path_, old);
    upgradeMusicFile(state_.files, state_);
    EXPECT_EQ(file(), old.substr(0, 2) + "\x05\x00\x31\x2e\x37\x31\x20\x20\x20\x20"s) << count;
    EXPECT_TRUE(readFile(backup_) == old);
  }
}

TEST_F(UpgradeMusicFile, TheHeaderGetsTheRunningVersion) {
  std::string old = readFile(dataFile("albums-type4.MCS"));
  old.replace(4, 8, "1.50 old");
  writeFile(path_, old);
  upgradeMusicFile(state_.files, state_);
  EXPECT_EQ(file().substr(4, 8), "1.71    ");
  EXPECT_TRUE(file() == upgraded(old, 0));
}

TEST_F(UpgradeMusicFile, DeletedItemsAreCarriedOverAsTheyAre) {
  const std::string old =
      musicFile(3, 4, {album("DETELED", "one"), album("B"), album("C")}, kOldLength);
  writeFile(path_, old);
  upgradeMusicFile(state_.files, state_);
  EXPECT_EQ(text(itemOf(file(), 1).Artist), "DETELED");
  EXPECT_EQ(text(itemOf(file(), 2).Artist), "B");
}

TEST_F(UpgradeMusicFile, ACurrentFileMarkedAsAnOldOneIsReadWithTheOldLength) {
  MusicRecord first = album("A", "one");
  first.BarCode = "0123456789";
  const std::string old = musicFile(3, 4, {first, album("B", "two"), album("C", "three")});
  writeFile(path_, old);
  ASSERT_EQ(open(), MusicFileState::upgradable);
  upgradeMusicFile(state_.files, state_);
  EXPECT_TRUE(file() == upgraded(old, 0));
  EXPECT_EQ(text(itemOf(file(), 1).Artist), std::string(36, '\0') + "A");
  EXPECT_TRUE(readFile(backup_) == old);
}

TEST_F(UpgradeMusicFile, RandomBytesNeverCostTheOldFile) {
  std::mt19937 random(4);
  for (int round = 0; round < 60; ++round) {
    std::filesystem::remove(backup_);
    std::string old(12 + random() % (4 * kOldLength), '\0');
    for (char& byte : old) byte = static_cast<char>(random() % 256);
    old.replace(0, 2, {static_cast<char>(random() % 20), '\0'});
    old.replace(2, 2, "\x04\x00"s);
    writeFile(path_, old);
    upgradeMusicFile(state_.files, state_);
    EXPECT_TRUE(readFile(backup_) == old);
    EXPECT_EQ(headerOf(file()).Count, headerOf(old).Count);
    EXPECT_EQ(headerOf(file()).FileType, 5);
    const int count = headerOf(old).Count;
    EXPECT_EQ(file().size(), count > 1 ? static_cast<std::size_t>(count) * kLength : 12);
  }
}

TEST_F(UpgradeMusicFile, AfterAnyFailureTheOldFileIsWholeUnderOneOfItsTwoNames) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  for (const bool withOldBackup : {false, true}) {
    for (const bool shortWrites : {false, true}) {
      files_.shortWrites = shortWrites;
      std::ptrdiff_t failures = 0;
      for (int nth = 0;; ++nth) {
        SCOPED_TRACE("operation " + std::to_string(nth));
        std::filesystem::remove(path_);
        std::filesystem::remove(backup_);
        writeFile(path_, old);
        files_.forget();
        if (withOldBackup) writeFile(backup_, "the old backup");
        files_.failNth(nth, ErrorNumber::diskFull);
        const Failure failure = failureOf([&] { upgradeMusicFile(state_.files, state_); });
        if (!files_.hasFailed()) break;
        expectNothingOpen();
        const bool underItsName = std::filesystem::exists(path_) && file() == old;
        const bool underBackup = std::filesystem::exists(backup_) && readFile(backup_) == old;
        EXPECT_TRUE(underItsName || underBackup);
        if (failure.number == 0) {  // closing a file that was only read may fail
          EXPECT_TRUE(file() == upgraded(old, 0));
          continue;
        }
        ++failures;
        EXPECT_EQ(failure.number, 61);
        EXPECT_TRUE(failure.file == path_ || failure.file == backup_ ||
                    failure.file == folder_.path(""))
            << failure.file;
        // Half a file is never taken for a complete one of the current type.
        if (std::filesystem::exists(path_) && file().size() < upgraded(old, 0).size()) {
          EXPECT_NE(open(), MusicFileState::current);
        }
      }
      EXPECT_EQ(failures, std::ssize(files_.operations()));
    }
  }
}

TEST_F(UpgradeMusicFile, AFailureLeavesWhatIsOpenAsItWas) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  state_.Count = 7;
  state_.CurRec = 2;
  state_.music = album("shown before");
  const std::string buffer(reinterpret_cast<const char*>(&state_.music), kLength);
  std::ptrdiff_t failures = 0;
  for (int nth = 0;; ++nth) {
    std::filesystem::remove(path_);
    std::filesystem::remove(backup_);
    writeFile(path_, old);
    files_.forget();
    files_.failNth(nth, ErrorNumber::deviceIo);
    const Failure failure = failureOf([&] { upgradeMusicFile(state_.files, state_); });
    if (!files_.hasFailed()) break;
    if (failure.number == 0) continue;  // closing a file that was only read may fail
    ++failures;
    EXPECT_EQ(state_.Count, 7);
    EXPECT_EQ(state_.CurRec, 2);
    EXPECT_EQ(std::memcmp(&state_.music, buffer.data(), kLength), 0) << nth;
  }
  EXPECT_EQ(failures, std::ssize(files_.operations()));
}

TEST_F(UpgradeMusicFile, TheOldFileIsOnTheDiskBeforeItsOldBackupIsRemoved) {
  writeFile(path_, readFile(dataFile("albums-type4.MCS")));
  writeFile(backup_, "the old backup");
  upgradeMusicFile(state_.files, state_);
  const auto flushed = placeOf(FileOperation::flush, path_);
  const auto removed = placeOf(FileOperation::remove, backup_);
  EXPECT_LT(flushed, removed);
  EXPECT_EQ(files_.operations().at(static_cast<std::size_t>(removed) + 1),
            (OperationRecord{FileOperation::rename, path_}));
}

TEST_F(UpgradeMusicFile, AnOldBackupOutlivesACollectionThatCannotBeFlushed) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  writeFile(path_, old);
  writeFile(backup_, "the old backup");
  files_.failNth(FileOperation::flush, 0, ErrorNumber::deviceIo);
  const Failure failure = failureOf([&] { upgradeMusicFile(state_.files, state_); });
  EXPECT_EQ(failure.number, 57);
  EXPECT_EQ(failure.file, path_);
  EXPECT_TRUE(file() == old);
  EXPECT_EQ(readFile(backup_), "the old backup");
}

/// A disk on which names that differ in capitals are one name.
class OneCaseFiles : public DiskFileSystem {
 public:
  void rename(const std::string& from, const std::string& to) override {
    if (std::filesystem::exists(spelled(to)))
      throw RunTimeError(ErrorNumber::fileAlreadyExists, to);
    DiskFileSystem::rename(spelled(from), to);
  }
  void remove(const std::string& path) override { DiskFileSystem::remove(spelled(path)); }

 private:
  static std::string spelled(const std::string& path) {
    for (const auto& entry : std::filesystem::directory_iterator(parentOf(path)))
      if (std::ranges::equal(entry.path().string(), path, {}, asciiCapital, asciiCapital))
        return entry.path().string();
    return path;
  }
  static std::filesystem::path parentOf(const std::string& path) {
    return std::filesystem::path(path).parent_path();
  }
};

/// "jazz.bak" is all that is left of another collection whose sort failed.
TEST_F(UpgradeMusicFile, DeletesOnlyABackupOfItsOwnSpelling) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  const std::string ofASort = folder_.path("jazz.bak");
  OneCaseFiles files;
  AppState state{files};
  state.currentPath = path_;
  writeFile(path_, old);
  writeFile(ofASort, "books");
  EXPECT_EQ(failureOf([&] { upgradeMusicFile(state.files, state); }), (Failure{58, backup_}));
  EXPECT_TRUE(file() == old);
  EXPECT_EQ(readFile(ofASort), "books");
  std::filesystem::rename(ofASort, folder_.path("moved away"));
  writeFile(backup_, "the old backup");
  EXPECT_EQ(failureOf([&] { upgradeMusicFile(state.files, state); }), Failure{});
  EXPECT_TRUE(readFile(backup_) == old);
}

TEST_F(UpgradeMusicFile, AFolderThatCannotBeListedKeepsAnOldBackup) {
  const std::string old = readFile(dataFile("albums-type4.MCS"));
  writeFile(path_, old);
  writeFile(backup_, "the old backup");
  files_.failNth(FileOperation::list, 0, ErrorNumber::deviceIo);
  EXPECT_EQ(failureOf([&] { upgradeMusicFile(state_.files, state_); }).number, 57);
  EXPECT_TRUE(file() == old);
  EXPECT_EQ(readFile(backup_), "the old backup");
}

TEST_F(UpgradeMusicFile, NothingIsRemovedWhenThereIsNoOldBackup) {
  writeFile(path_, readFile(dataFile("albums-type4.MCS")));
  upgradeMusicFile(state_.files, state_);
  EXPECT_EQ(files_.countOf(FileOperation::remove), 0);
}

TEST_F(UpgradeMusicFile, TheNewFileIsFlushedAfterItsLastWriteAndThenClosed) {
  writeFile(path_, readFile(dataFile("albums-type4.MCS")));
  upgradeMusicFile(state_.files, state_);
  std::vector<FileOperation> onNewFile;
  for (const OperationRecord& record : files_.operations())
    if (record.path == path_ && (!onNewFile.empty() || record.operation == FileOperation::make))
      onNewFile.push_back(record.operation);
  using enum FileOperation;
  const std::vector<FileOperation> expected = {
      FileOperation::make, write, write, write, flush, close};
  EXPECT_EQ(onNewFile, expected);
}

TEST_F(UpgradeMusicFile, AMissingFileIsAnError) {
  const Failure failure = failureOf([&] { upgradeMusicFile(state_.files, state_); });
  EXPECT_EQ(failure.number, 53);
  EXPECT_EQ(failure.file, path_);
  EXPECT_FALSE(std::filesystem::exists(path_));
  writeFile(backup_, "the old backup");
  EXPECT_EQ(failureOf([&] { upgradeMusicFile(state_.files, state_); }).number, 53);
  EXPECT_EQ(readFile(backup_), "the old backup");
}

}  // namespace
}  // namespace quillbox::test
