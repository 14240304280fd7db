#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "support/counting_store.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr auto kDeleted = "DETELED";
constexpr std::size_t kLength = sizeof(MusicRecord);

std::string bytesIn(const MusicRecord& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

class CollectionStoreTest : public testing::Test {
 protected:
  CollectionStoreTest() { state_.currentPath = path_; }

  /// Creates the file, and sets `Count` from its header.
  void items(std::initializer_list<MusicRecord> records) {
    writeFile(path_, musicFile(records));
    state_.Count = static_cast<std::int16_t>(records.size());
  }

  std::string file() const { return readFile(path_); }
  std::string artist(int item) const { return text(itemOf(file(), item).Artist); }

  void expectNothingOpen() {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  std::vector<FileOperation> operations() const {
    std::vector<FileOperation> all;
    for (const OperationRecord& record : files_.operations()) all.push_back(record.operation);
    return all;
  }

  TestFolder folder_;
  std::string path_ = folder_.path("jazz.MCS");
  FailingFiles files_;
  AppState state_{files_};
  CountingStore store_{state_, *kindOfCode(1)};
};

TEST_F(CollectionStoreTest, ANewFileIsItsTwelveHeaderBytes) {
  store_.WriteHeader(0, 1, OpenMode::create);
  EXPECT_EQ(file(), "\x00\x00\x01\x00\x31\x2e\x37\x31\x20\x20\x20\x20"sv);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, EveryKindsHeaderIsTheSame) {
  for (const CollectionKind& kind : collectionKinds()) {
    CountingStore store(state_, kind);
    state_.currentPath = folder_.path(kind.extension);
    store.WriteHeader(258, kind.rules.fileType, OpenMode::create);
    std::string expected = "\x02\x01\x01\x00\x31\x2e\x37\x31\x20\x20\x20\x20"s;
    expected[2] = static_cast<char>(kind.rules.fileType);
    EXPECT_EQ(readFile(state_.currentPath), expected) << kind.extension;
    EXPECT_EQ(store.ReadHeader().Count, 258);
  }
}

TEST_F(CollectionStoreTest, WritingTheHeaderTouchesTwelveBytesOnly) {
  const std::string before(3 * kLength + 7, '#');
  writeFile(path_, before);
  store_.WriteHeader(2, 5);
  EXPECT_TRUE(file() == "\x02\x00\x05\x00\x31\x2e\x37\x31\x20\x20\x20\x20"s + before.substr(12));
  writeFile(path_, before);
  store_.WriteHeader(0, 1, OpenMode::create);
  EXPECT_TRUE(file() == "\x00\x00\x01\x00\x31\x2e\x37\x31\x20\x20\x20\x20"s + before.substr(12));
}

TEST_F(CollectionStoreTest, TheHeaderIsReadAsItStands) {
  writeFile(path_,
            "\xFE\xFF\x04\x00"
            "0.99\0\0\0\0 and more"s);
  const HeaderRecord header = store_.ReadHeader();
  EXPECT_EQ(header.Count, -2);
  EXPECT_EQ(header.FileType, 4);
  EXPECT_EQ(header.Version.view(), "0.99\0\0\0\0"sv);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, AHeaderThatTheEndOfTheFileCutsOffGoesOnWithZeros) {
  writeFile(path_, "\x07");
  EXPECT_EQ(store_.ReadHeader().Count, 7);
  EXPECT_EQ(store_.ReadHeader().FileType, 0);
  EXPECT_EQ(store_.ReadHeader().Version.view(), std::string(8, '\0'));
}

TEST_F(CollectionStoreTest, AnItemIsReadFromItsOwnRecord) {
  items({album("A", "one"), album("B", "two"), album("C", "three")});
  for (int item = 1; item <= 3; ++item) {
    MusicRecord record;
    store_.ReadRecord(item, bytesOf(record));
    EXPECT_EQ(bytesIn(record), file().substr(static_cast<std::size_t>(item) * kLength, kLength));
  }
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, PastTheEndOfTheFileItemsAreBlank) {
  std::string bytes = musicFile({album("Art Tatum", "Piano Starts Here")});
  bytes.resize(kLength + 55);
  writeFile(path_, bytes);
  MusicRecord record{};
  store_.ReadRecord(1, bytesOf(record));
  EXPECT_EQ(bytesIn(record), bytesIn(album("Art Tatum", "Piano")));
  for (const int item : {2, 3, 32767}) {
    record = MusicRecord{};
    store_.ReadRecord(item, bytesOf(record));
    EXPECT_EQ(bytesIn(record), bytesIn(album(""))) << item;
  }
}

TEST_F(CollectionStoreTest, TheLastItemInTheFileIsTheOneThatItHoldsAnythingOf) {
  const std::string bytes = musicFile({album("A"), album("B"), album("C"), album("D"), album("E")});
  for (std::size_t items = 0; items <= 5; ++items) {
    const auto expected = static_cast<int>(items);
    writeFile(path_, bytes.substr(0, (items + 1) * kLength));
    EXPECT_EQ(store_.lastItemInFile(5), expected);
    EXPECT_EQ(store_.lastItemInFile(32'767), expected);
    writeFile(path_, bytes.substr(0, items * kLength + 1));
    EXPECT_EQ(store_.lastItemInFile(5), expected);
  }
  EXPECT_EQ(store_.lastItemInFile(3), 3);
  EXPECT_EQ(store_.lastItemInFile(0), 0);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, ReadingCreatesNothing) {
  MusicRecord record{};
  const Failure header = failureOf([&] { store_.ReadHeader(); });
  EXPECT_EQ(header.number, 53);
  EXPECT_EQ(header.file, path_);
  const Failure item = failureOf([&] { store_.ReadRecord(1, bytesOf(record)); });
  EXPECT_EQ(item.number, 53);
  EXPECT_EQ(item.file, path_);
  EXPECT_FALSE(std::filesystem::exists(path_));
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, WritingAnItemRewritesTheHeaderAndThatItemOnly) {
  std::string before = musicFile(3, 1, {album("A"), album("B"), album("C")});
  before.replace(4, 8, "1.50    ");
  before.replace(12, 4, "left");
  writeFile(path_, before);
  state_.Count = 3;
  const MusicRecord record = album("Billie Holiday", "Lady in Satin");
  store_.WriteRecord(2, bytesOf(record), 3);
  std::string expected = before;
  expected.replace(2, 10, "\x05\x00\x31\x2e\x37\x31\x20\x20\x20\x20"s);
  expected.replace(2 * kLength, kLength, bytesIn(record));
  EXPECT_TRUE(file() == expected);
  EXPECT_EQ(state_.Count, 3);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, TheHeaderGetsTheCountThatIsGiven) {
  items({album("A")});
  store_.WriteRecord(1, bytesOf(album("B")), 9);
  EXPECT_EQ(headerOf(file()).Count, 9);
  EXPECT_EQ(state_.Count, 1);
}

TEST_F(CollectionStoreTest, AnItemBeyondTheEndLeavesAGapOfZeros) {
  store_.WriteHeader(0, 5, OpenMode::create);
  const MusicRecord record = album("C");
  store_.WriteRecord(3, bytesOf(record), 3);
  const std::string bytes = file();
  ASSERT_EQ(bytes.size(), 4 * kLength);
  EXPECT_TRUE(bytes.substr(12, 3 * kLength - 12) == std::string(3 * kLength - 12, '\0'));
  EXPECT_TRUE(bytes.substr(3 * kLength) == bytesIn(record));
}

TEST_F(CollectionStoreTest, APositionThatIsNoItemIsNeverWritten) {
  items({album("A"), album("B")});
  const std::string before = file();
  for (const int item : {0, -1, -2, -32768}) {
    const Failure failure = failureOf([&] { store_.WriteRecord(item, bytesOf(album("X")), 2); });
    EXPECT_EQ(failure.number, 63) << item;
    EXPECT_EQ(failure.file, path_);
    EXPECT_EQ(failureOf([&] { store_.writeDeleted(item, bytesOf(album(kDeleted))); }).number, 63);
    EXPECT_TRUE(file() == before) << item;
  }
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, AMissingFileIsNotMadeByAnUpdate) {
  const MusicRecord record = album("A");
  for (const Failure& failure : {failureOf([&] { store_.WriteHeader(0, 5); }),
                                 failureOf([&] { store_.WriteRecord(1, bytesOf(record), 1); }),
                                 failureOf([&] { store_.writeNewItem(bytesOf(record)); }),
                                 failureOf([&] { store_.writeDeleted(1, bytesOf(record)); })}) {
    EXPECT_EQ(failure.number, 53);
    EXPECT_EQ(failure.file, path_);
  }
  EXPECT_FALSE(std::filesystem::exists(path_));
  EXPECT_EQ(state_.Count, 0);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, ANewItemGoesAfterTheLastOneAndCountRises) {
  items({album("A"), album("B")});
  const std::string before = file();
  const MusicRecord record = album("Charles Mingus", "Mingus Ah Um");
  store_.writeNewItem(bytesOf(record));
  EXPECT_EQ(state_.Count, 3);
  const std::string after = file();
  EXPECT_EQ(headerOf(after).Count, 3);
  EXPECT_TRUE(after.substr(kLength) == before.substr(kLength) + bytesIn(record));
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, TheFirstItemOfANewFileSetsItsFileType) {
  store_.WriteHeader(0, 1, OpenMode::create);
  store_.writeNewItem(bytesOf(album("A")));
  EXPECT_EQ(state_.Count, 1);
  EXPECT_EQ(headerOf(file()).Count, 1);
  EXPECT_EQ(headerOf(file()).FileType, 5);
  EXPECT_EQ(file().size(), 2 * kLength);
  EXPECT_EQ(artist(1), "A");
}

TEST_F(CollectionStoreTest, WhatWasBeyondCountIsOverwrittenByANewItem) {
  writeFile(path_, musicFile(1, 5, {album("A"), album("beyond"), album("farther")}));
  state_.Count = 1;
  store_.writeNewItem(bytesOf(album("B")));
  EXPECT_EQ(artist(2), "B");
  EXPECT_EQ(artist(3), "farther");
  EXPECT_EQ(state_.Count, 2);
}

TEST_F(CollectionStoreTest, TheHeaderIsWrittenBeforeANewItem) {
  items({album("A")});
  store_.writeNewItem(bytesOf(album("B")));
  using enum FileOperation;
  const std::vector<FileOperation> expected = {open, read,  close,          // looking for a slot
                                               open, write, close,          // the header
                                               open, write, write, close};  // and the item
  EXPECT_EQ(operations(), expected);

  items({album("A")});
  files_.failNth(FileOperation::write, 1, ErrorNumber::diskFull);
  EXPECT_EQ(failureOf([&] { store_.writeNewItem(bytesOf(album("B"))); }).number, 61);
  EXPECT_EQ(headerOf(file()).Count, 2);
  EXPECT_EQ(file().size(), 2 * kLength);
  EXPECT_EQ(state_.Count, 1);
}

TEST_F(CollectionStoreTest, ANewItemGoesIntoTheLowestDeletedSlot) {
  items({album("A"), album(kDeleted), album("C"), album(kDeleted)});
  const std::string before = file();
  const MusicRecord record = album("B", "new");
  store_.writeNewItem(bytesOf(record));
  std::string expected = before;
  expected.replace(2 * kLength, kLength, bytesIn(record));
  EXPECT_TRUE(file() == expected);
  EXPECT_EQ(state_.Count, 4);
  EXPECT_EQ(headerOf(file()).Count, 4);
  store_.writeNewItem(bytesOf(album("D")));
  EXPECT_EQ(artist(4), "D");
  EXPECT_EQ(state_.Count, 4);
  store_.writeNewItem(bytesOf(album("E")));
  EXPECT_EQ(artist(5), "E");
  EXPECT_EQ(state_.Count, 5);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, BlanksAroundTheMarkerDoNotHideASlot) {
  items({album("A"), album("   DETELED"), album("C")});
  store_.writeNewItem(bytesOf(album("B")));
  EXPECT_EQ(artist(2), "B");
  EXPECT_EQ(state_.Count, 3);
}

TEST_F(CollectionStoreTest, WhatIsNotTheMarkerIsNoSlot) {
  MusicRecord withNul = album(kDeleted);
  withNul.Artist = "DETELED\0"sv;
  items({album("DELETED"), album("deteled"), album("DETELED 2"), album(""), withNul});
  const std::string before = file();
  store_.writeNewItem(bytesOf(album("new")));
  EXPECT_EQ(state_.Count, 6);
  EXPECT_TRUE(file().substr(kLength, 5 * kLength) == before.substr(kLength));
  EXPECT_EQ(artist(6), "new");
}

TEST_F(CollectionStoreTest, ASlotBeyondCountIsNotReused) {
  writeFile(path_, musicFile(1, 5, {album("A"), album("B"), album(kDeleted)}));
  state_.Count = 1;
  store_.writeNewItem(bytesOf(album("new")));
  EXPECT_EQ(artist(2), "new");
  EXPECT_EQ(artist(3), kDeleted);
}

TEST_F(CollectionStoreTest, AKindThatReusesNoSlotsAppends) {
  CollectionKind kind = *kindOfCode(1);
  kind.rules.reusesDeletedSlots = false;
  CountingStore store(state_, kind);
  items({album(kDeleted), album("B")});
  store.writeNewItem(bytesOf(album("C")));
  EXPECT_EQ(artist(1), kDeleted);
  EXPECT_EQ(artist(3), "C");
  EXPECT_EQ(state_.Count, 3);
}

TEST_F(CollectionStoreTest, CountDoesNotRiseBeyondSixteenBits) {
  store_.WriteHeader(32767, 5, OpenMode::create);
  state_.Count = 32767;
  const std::string before = file();
  files_.forget();
  EXPECT_EQ(failureOf([&] { store_.writeNewItem(bytesOf(album("A"))); }).number, 6);
  EXPECT_EQ(std::ranges::count(operations(), FileOperation::write), 0);
  EXPECT_EQ(file(), before);
  EXPECT_EQ(state_.Count, 32767);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, TheLastPositionCanStillBeFilled) {
  store_.WriteHeader(32766, 5, OpenMode::create);
  state_.Count = 32766;
  store_.writeNewItem(bytesOf(album("the last")));
  EXPECT_EQ(state_.Count, 32767);
  EXPECT_EQ(std::filesystem::file_size(path_), 32768ULL * kLength);
  MusicRecord record{};
  store_.ReadRecord(32767, bytesOf(record));
  EXPECT_EQ(text(record.Artist), "the last");
}

TEST_F(CollectionStoreTest, AfterAnyFailureANewItemCanBeStoredAgainInTheSameSlot) {
  const MusicRecord record = album("new", "item");
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    int failures = 0;
    for (int nth = 0;; ++nth) {
      items({album("A", "one"), album("B", "two")});
      const std::string earlier = file().substr(kLength);
      files_.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = failureOf([&] { store_.writeNewItem(bytesOf(record)); });
      if (!files_.hasFailed()) break;
      expectNothingOpen();
      EXPECT_TRUE(file().substr(kLength, 2 * kLength) == earlier) << nth;
      if (failure.number != 0) {  // failing to close a file that was only read does not matter
        ++failures;
        EXPECT_EQ(failure.number, 61);
        EXPECT_EQ(failure.file, path_);
        EXPECT_EQ(state_.Count, 2) << nth;
        store_.writeNewItem(bytesOf(record));
      }
      EXPECT_EQ(state_.Count, 3) << nth;
      EXPECT_EQ(headerOf(file()).Count, 3) << nth;
      EXPECT_EQ(headerOf(file()).FileType, 5) << nth;
      EXPECT_TRUE(file().substr(kLength) == earlier + bytesIn(record)) << nth;
    }
    EXPECT_EQ(failures, files_.operationsThatMatter());
  }
}

TEST_F(CollectionStoreTest, AfterAnyFailureADeletedSlotCanStillBeFilled) {
  const MusicRecord record = album("new", "item");
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    int failures = 0;
    for (int nth = 0;; ++nth) {
      SCOPED_TRACE((shortWrites ? "short writes, operation " : "operation ") + std::to_string(nth));
      items({album("A", "one"), album(kDeleted), album("C", "three")});
      std::string expected = file();
      expected.replace(2 * kLength, kLength, bytesIn(record));
      files_.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = failureOf([&] { store_.writeNewItem(bytesOf(record)); });
      if (!files_.hasFailed()) break;
      expectNothingOpen();
      EXPECT_EQ(artist(1), "A");
      EXPECT_EQ(artist(3), "C");
      EXPECT_EQ(state_.Count, 3);
      if (failure.number != 0) {
        ++failures;
        EXPECT_EQ(failure.number, 61);
        EXPECT_EQ(failure.file, path_);
        store_.writeNewItem(bytesOf(record));
      }
      EXPECT_EQ(state_.Count, 3);
      EXPECT_TRUE(file() == expected);
    }
    EXPECT_EQ(failures, files_.operationsThatMatter());
  }
}

TEST_F(CollectionStoreTest, AfterAnyFailureAnExistingItemCanBeWrittenAgain) {
  const MusicRecord record = album("changed");
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    int failures = 0;
    for (int nth = 0;; ++nth) {
      items({album("A"), album("B"), album("C")});
      std::string expected = file();
      expected.replace(2 * kLength, kLength, bytesIn(record));
      files_.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = failureOf([&] { store_.WriteRecord(2, bytesOf(record), 3); });
      if (!files_.hasFailed()) break;
      ++failures;
      EXPECT_EQ(failure.number, 61) << nth;
      EXPECT_EQ(failure.file, path_);
      EXPECT_EQ(state_.Count, 3);
      EXPECT_EQ(artist(1), "A");
      EXPECT_EQ(artist(3), "C");
      expectNothingOpen();
      store_.WriteRecord(2, bytesOf(record), 3);
      EXPECT_TRUE(file() == expected) << nth;
    }
    EXPECT_EQ(failures, 4);  // opening, two writes, closing
  }
}

/// Files whose every read returns some bytes and then fails, as on a bad disk.
class BadDisk : public DiskFileSystem {
 public:
  std::unique_ptr<File> open(const std::string& path, OpenMode) override {
    return std::make_unique<BadFile>(path);
  }

 private:
  class BadFile : public File {
   public:
    explicit BadFile(std::string path) : path_(std::move(path)) {}
    std::size_t readAt(std::uint64_t, std::span<std::byte> into) override {
      std::ranges::fill(into.first(into.size() / 2), std::byte{'!'});
      throw RunTimeError(ErrorNumber::deviceIo, path_);
    }
    void writeAt(std::uint64_t, std::span<const std::byte>) override {}
    void flush() override {}
    void close() override {}

   private:
    std::string path_;
  };
};

TEST_F(CollectionStoreTest, AReadThatFailsHalfWayLeavesTheCallersRecordAsItWas) {
  BadDisk disk;
  AppState state(disk);
  state.currentPath = path_;
  CountingStore store(state, *kindOfCode(1));
  MusicRecord record = album("shown", "before");
  const Failure failure = failureOf([&] { store.ReadRecord(1, bytesOf(record)); });
  EXPECT_EQ(failure.number, 57);
  EXPECT_EQ(failure.file, path_);
  EXPECT_EQ(text(record.Artist), "shown");
  EXPECT_TRUE(bytesIn(record) == bytesIn(album("shown", "before")));
}

TEST_F(CollectionStoreTest, DeletingIsWrittenAndReadBack) {
  items({album("A"), album("B", "kept title"), album("C")});
  std::string expected = file();
  const MusicRecord record = album(kDeleted, "kept title");
  expected.replace(2 * kLength, kLength, bytesIn(record));
  EXPECT_TRUE(store_.writeDeleted(2, bytesOf(record)));
  EXPECT_TRUE(file() == expected);
  EXPECT_EQ(state_.Count, 3);
  EXPECT_EQ(operations().back(), FileOperation::close);
  EXPECT_EQ(std::ranges::count(operations(), FileOperation::read), 1);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, WhatIsReadBackWithoutTheMarkerIsNotDeleted) {
  items({album("A"), album("B")});
  EXPECT_FALSE(store_.writeDeleted(2, bytesOf(album("DELETED"))));
  EXPECT_EQ(artist(2), "DELETED");
}

TEST_F(CollectionStoreTest, AFailureWhileDeletingIsReported) {
  int failures = 0;
  for (int nth = 0;; ++nth) {
    items({album("A"), album("B")});
    files_.failNth(nth, ErrorNumber::deviceIo);
    bool deleted = false;
    const Failure failure =
        failureOf([&] { deleted = store_.writeDeleted(2, bytesOf(album(kDeleted))); });
    if (!files_.hasFailed()) break;
    EXPECT_EQ(failure.number, deleted ? 0 : 57) << nth;
    failures += deleted ? 0 : 1;
    EXPECT_EQ(artist(1), "A");
    EXPECT_EQ(state_.Count, 2);
    expectNothingOpen();
  }
  EXPECT_EQ(failures, files_.operationsThatMatter());
}

TEST_F(CollectionStoreTest, AnItemIsDeletedWhenItsMarkerFieldIsTheMarkerAndTrailingBlanks) {
  const struct {
    std::string_view artist;
    bool deleted;
  } rows[] = {
      {"DETELED", true},  {"DETELED   ", true}, {" DETELED", false},
      {"DELETED", false}, {"deteled", false},   {"DETELED.", false},
      {"DETELE", false},  {"", false},          {"DETELED\0"sv, false},
  };
  for (const auto& row : rows) {
    MusicRecord record = album("");
    record.Artist = row.artist;
    EXPECT_EQ(store_.isDeleted(bytesOf(record)), row.deleted) << row.artist;
  }
  EXPECT_FALSE(store_.isDeleted(bytesOf(MusicRecord{})));
  EXPECT_FALSE(store_.isDeleted(bytesOf(album("A", kDeleted))));
}

TEST_F(CollectionStoreTest, TheOpenCollectionIsRefusedAsATargetUnderAnyName) {
  items({album("A")});
  const std::string before = file();
  makeLink(path_, "symbolic.txt");
  std::filesystem::create_hard_link(path_, "hard.txt");
  for (const std::string& name : {path_, "jazz.MCS"s, "./jazz.MCS"s, "symbolic.txt"s, "hard.txt"s,
                                  folder_.path("symbolic.txt")})
    EXPECT_EQ(failureOf([&] { refuseToReplaceCollection(state_.files, state_, name); }),
              (Failure{55, name}));
  EXPECT_TRUE(file() == before);
  expectNothingOpen();
}

TEST_F(CollectionStoreTest, AnyOtherTargetIsLeftToTheCaller) {
  items({album("A")});
  writeFile("blues.MCS", file());
  makeLink("blues.MCS", "symbolic.txt");
  for (const std::string& name :
       {"blues.MCS"s, "symbolic.txt"s, "missing.txt"s, "missing/jazz.MCS"s, folder_.path(), ""s})
    EXPECT_EQ(failureOf([&] { refuseToReplaceCollection(state_.files, state_, name); }), Failure{})
        << name;
}

TEST_F(CollectionStoreTest, WithoutACollectionNoTargetIsRefused) {
  for (const std::string& open : {path_, ""s}) {  // one that is gone, and none at all
    state_.currentPath = open;
    for (const std::string& name : {path_, "list.txt"s, ""s})
      EXPECT_EQ(failureOf([&] { refuseToReplaceCollection(state_.files, state_, name); }),
                Failure{})
          << name;
  }
}

TEST_F(CollectionStoreTest, TheStoreFollowsTheCurrentPath) {
  writeFile(folder_.path("a.MCS"), musicFile({album("A")}));
  writeFile(folder_.path("b.MCS"), musicFile({album("B"), album("C")}));
  state_.currentPath = folder_.path("a.MCS");
  EXPECT_EQ(store_.ReadHeader().Count, 1);
  state_.currentPath = folder_.path("b.MCS");
  EXPECT_EQ(store_.ReadHeader().Count, 2);
  EXPECT_EQ(&store_.kind(), kindOfCode(1));
}

}  // namespace
}  // namespace quillbox::test
