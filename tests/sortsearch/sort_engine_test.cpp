#include "sortsearch/sort_engine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "sortsearch/sort_slots.h"
#include "support/sort_model.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;

/// Every kind but books, which are never written.
constexpr ModelKind kWrittenKinds[] = {kMusic, kComics, kVideo,    kSoftware,
                                       kWaves, kMidi,   kGraphics, kMp3};

class SortEngine : public SortFixture, public testing::Test {};

class SortEngineKinds : public SortFixture, public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }
};

TEST_P(SortEngineKinds, TheFirstTickedKeyCountsMostAndTheNextBreaksItsTies) {
  for (std::size_t major = 0; major < kind().keys.size(); ++major) {
    for (std::size_t minor = major + 1; minor < kind().keys.size(); ++minor) {
      SCOPED_TRACE("keys " + std::to_string(major) + " and " + std::to_string(minor));
      const std::string values[][2] = {{"2", "2"}, {"2", "1"}, {"1", "2"}, {"1", "1"}};
      std::vector<std::string> items;
      char filler = 'a';
      for (const auto& value : values) {
        std::vector<std::string> keys(kind().keys.size(), "5");
        keys[major] = value[0];
        keys[minor] = value[1];
        items.push_back(sortItem(kind(), keys, filler++));
      }
      const std::pair<std::vector<bool>, std::string> rows[] = {
          {kind().ticks({}), "abcd"},      {kind().ticks({major}), "cdab"},
          {kind().ticks({minor}), "bdac"}, {kind().ticks({major, minor}), "dcba"},
          {kind().everyTick(), "dcba"},
      };
      for (const auto& [ticked, expected] : rows) {
        put(kind(), items);
        sort(ticked);
        EXPECT_EQ(fillers(), expected) << testing::PrintToString(ticked);
        EXPECT_EQ(state_.Count, 4);
      }
    }
  }
}

TEST_P(SortEngineKinds, TheNewFileIsTheHeaderAndTheItemsAndTheBackupIsGone) {
  putNamed(kind(), {"C", "A", "B"});
  sort(kind().everyTick());
  expectOnlyTheCollection(sortFile(
      kind(), {named(kind(), "A", 'b'), named(kind(), "B", 'c'), named(kind(), "C", 'a')}));
  EXPECT_EQ(state_.Count, 3);
  expectNothingOpen();
}

TEST_P(SortEngineKinds, BlankItemsGoAndTheCountDrops) {
  putNamed(kind(), {"C", "\0"s, "A", "\0"s, "\0"s, "B"});
  sort(kind().everyTick());
  EXPECT_EQ(fillers(), "cfa");
  EXPECT_EQ(state_.Count, 3);
  EXPECT_EQ(file().substr(0, 2), "\x03\x00"s);
}

TEST_P(SortEngineKinds, DeletedItemsAreSortedLikeOthers) {
  const std::string marker(kind().marker());
  putNamed(kind(), {"E", marker, "C", marker});
  sort(kind().everyTick());
  EXPECT_EQ(fillers(), "cbda");
  EXPECT_EQ(state_.Count, 4);
}

TEST_P(SortEngineKinds, DeletedItemsOfZeroBytesAreKept) {
  std::string deleted(kind().recordLength, '\0');
  deleted.replace(0, kind().keys[0].width, sortItem(kind(), {std::string(kind().marker())}), 0,
                  kind().keys[0].width);
  put(kind(), {named(kind(), "A", 'a'), deleted, named(kind(), "Z", 'z')});
  sort(kind().everyTick());
  EXPECT_EQ(fillers(), "a\0z"s);
  EXPECT_EQ(state_.Count, 3);
}

TEST_P(SortEngineKinds, EqualItemsKeepTheirOrder) {
  putNamed(kind(), {"Same", "Same", "Same", "Same"});
  sort(kind().everyTick());
  EXPECT_EQ(fillers(), "abcd");
  putNamed(kind(), {"ABBA", "abba", "Abba", "abbA"});
  sort(kind().everyTick());
  EXPECT_EQ(fillers(), "abcd");
  putNamed(kind(), {"\xE9t\xE9", "\xC9T\xC9", "\xFF", "\x9F"});
  sort(kind().everyTick());
  EXPECT_EQ(fillers(), "cdab");
}

TEST_P(SortEngineKinds, NoItemsAtAllLeaveTheHeader) {
  put(kind(), {});
  sort(kind().everyTick());
  expectOnlyTheCollection(sortFile(kind(), {}));
  EXPECT_EQ(state_.Count, 0);
  putNamed(kind(), {"\0"s, "\0"s});
  sort(kind().everyTick());
  expectOnlyTheCollection(sortFile(kind(), {}));
  EXPECT_EQ(state_.Count, 0);
}

TEST_P(SortEngineKinds, OneItemStaysAsItIs) {
  putNamed(kind(), {"A"});
  sort(kind().everyTick());
  expectOnlyTheCollection(sortFile(kind(), {named(kind(), "A", 'a')}));
  EXPECT_EQ(state_.Count, 1);
}

TEST_P(SortEngineKinds, TheHeaderKeepsItsFileTypeAndItsVersion) {
  for (const SortHeader& header : {SortHeader{4, "0.9     "}, SortHeader{-1, "whatever"}}) {
    const std::vector<std::string> items = {named(kind(), "A", 'a'), named(kind(), "B", 'b')};
    put(kind(), items, header);
    sort(kind().everyTick());
    expectOnlyTheCollection(sortFile(kind(), items, header));
  }
}

TEST_P(SortEngineKinds, AFileOfZeroBytesBecomesAHeaderOfZeros) {
  put(kind(), {});
  putBytes(state_.currentPath, "");
  sort(kind().everyTick());
  expectOnlyTheCollection(std::string(12, '\0'));
}

TEST_P(SortEngineKinds, WhatLiesBehindTheLastItemIsLeftOut) {
  putNamed(kind(), {"B", "A"});
  putBytes(state_.currentPath, old_ + named(kind(), "0", '0') + "garbage");
  sort(kind().everyTick());
  expectOnlyTheCollection(sortFile(kind(), {named(kind(), "A", 'b'), named(kind(), "B", 'a')}));
}

TEST_P(SortEngineKinds, TheNewFileIsOnTheDiskBeforeTheBackupIsDeleted) {
  putNamed(kind(), {"B", "A"});
  files_.forget();
  sort(kind().everyTick());
  using enum FileOperation;
  const auto placeOf = [&](FileOperation operation, const std::string& path) {
    const auto& all = files_.operations();
    const auto found = std::ranges::find(all, OperationRecord{operation, path});
    EXPECT_NE(found, all.end());
    return found - all.begin();
  };
  EXPECT_LT(placeOf(rename, state_.currentPath), placeOf(make, state_.currentPath));
  EXPECT_LT(placeOf(write, state_.currentPath), placeOf(flush, state_.currentPath));
  EXPECT_LT(placeOf(flush, state_.currentPath), placeOf(close, state_.currentPath));
  EXPECT_LT(placeOf(close, state_.currentPath), placeOf(remove, backup_));
  EXPECT_EQ(files_.operations().back(), (OperationRecord{remove, backup_}));
  std::vector<FileOperation> onNewFile;
  for (const OperationRecord& record : files_.operations())
    if (record.path == state_.currentPath) onNewFile.push_back(record.operation);
  EXPECT_EQ(onNewFile[onNewFile.size() - 2], flush);
}

TEST_P(SortEngineKinds, WhatIsOpenChangesOnlyWithTheResult) {
  putNamed(kind(), {"B", std::string(1, '\0'), "A"});
  state_.CurRec = 2;
  state_.ListPos = 7;
  std::ranges::fill(kind().row().buffer(state_), std::byte{'#'});
  const auto buffer = std::string(kind().recordLength, '#');
  EXPECT_EQ(sortCollection(state_.files, state_, kind().row(), kind().everyTick(), board_), 2);
  finish();
  EXPECT_EQ(state_.Count, 3);
  EXPECT_EQ(state_.CurRec, 2);
  EXPECT_EQ(state_.ListPos, 7);
  EXPECT_EQ(std::memcmp(kind().row().buffer(state_).data(), buffer.data(), buffer.size()), 0);
}

TEST_P(SortEngineKinds, OnlyMediaFilesAreLeftOpen) {
  putNamed(kind(), {"B", "A"});
  sort(kind().everyTick());
  const std::string sorted = file();
  files_.forget();
  finish();
  for (int number = 1; number <= 255; ++number)
    EXPECT_EQ(state_.files.isOpen(number), kind().alwaysSorted && number == 255) << number;
  const OperationRecord write = {FileOperation::write, state_.currentPath};
  EXPECT_EQ(std::ranges::count(files_.operations(), write), kind().alwaysSorted ? 1 : 0);
  EXPECT_TRUE(file() == sorted);
}

TEST_P(SortEngineKinds, ASortedCollectionCanBeSortedAgain) {
  putNamed(kind(), {"C", "B", "A"});
  sort(kind().everyTick());
  finish();
  const std::string sorted = file();
  sort(kind().everyTick());
  expectOnlyTheCollection(sorted);
  expectNothingOpen();
  finish();
  if (!kind().alwaysSorted) return;
  // The open file is the new one, not the deleted one.
  state_.files.file(255).writeAt(0, bytesOf(WholeNumber{}));
  EXPECT_EQ(file().substr(0, 2), "\0\0"s);
}

INSTANTIATE_TEST_SUITE_P(Kinds, SortEngineKinds, testing::ValuesIn(kWrittenKinds), nameOfKind);

TEST_F(SortEngine, AlbumsBySeveralKeys) {
  const std::vector<std::string> items = {
      sortItem(kMusic, {"Queen", "Jazz", "EMI", "2", "1"}, 'a'),
      sortItem(kMusic, {"abba", "Voulez-Vous", "Polar", "-1", "3"}, 'b'),
      sortItem(kMusic, {"ABBA", "Arrival", "Polar", "0", "3"}, 'c'),
      sortItem(kMusic, {"Queen", "Innuendo", "emi", "0", "-1"}, 'd'),
  };
  const std::pair<std::vector<bool>, std::string> rows[] = {
      {kMusic.ticks({}), "abcd"},  {kMusic.ticks({0}), "bcad"}, {kMusic.ticks({0, 1}), "cbda"},
      {kMusic.ticks({1}), "cdab"}, {kMusic.ticks({2}), "adbc"}, {kMusic.ticks({2, 4}), "dabc"},
      {kMusic.ticks({3}), "bcda"}, {kMusic.ticks({4}), "dabc"}, {kMusic.ticks({3, 4}), "bdca"},
  };
  for (const auto& [ticked, expected] : rows) {
    put(kMusic, items);
    sort(ticked);
    EXPECT_EQ(fillers(), expected) << testing::PrintToString(ticked);
  }
}

TEST_F(SortEngine, KeysCountToTheirLastCharacter) {
  for (const ModelKind& kind : kModelKinds)
    for (std::size_t key = 0; key < kind.keys.size(); ++key) {
      const KeyPlace& place = kind.keys[key];
      if (place.isNumber()) continue;
      SCOPED_TRACE(kind.name + (" " + std::to_string(place.offset)));
      SortSlots slots(2, kind.recordLength);
      for (const int slot : {1, 2}) {
        std::string item(kind.recordLength, '.');
        item[place.offset + place.width - 1] = slot == 1 ? 'B' : 'A';
        item.back() = static_cast<char>('0' + slot);
        std::ranges::copy(std::as_bytes(std::span(item)), slots.record(slot).begin());
      }
      slots.exchangeSort(*sortRulesOf(kind.row()).keys[key].field, [] {});
      // The slot after them has moved to the front.
      EXPECT_EQ(static_cast<char>(slots.record(2).back()), '2');
      EXPECT_EQ(static_cast<char>(slots.record(3).back()), '1');
    }
}

TEST_F(SortEngine, ACollectionThatIsOpenIsClosedBeforeItIsRenamed) {
  for (const ModelKind& kind : kWrittenKinds) {
    SCOPED_TRACE(kind.name);
    putNamed(kind, {"B", "A"});
    state_.files.open(file_number::collection, state_.currentPath, OpenMode::update);
    files_.forget();
    sort(kind.everyTick());
    EXPECT_EQ(files_.operations().front(),
              (OperationRecord{FileOperation::close, state_.currentPath}));
    expectNothingOpen();
  }
}

TEST_F(SortEngine, AFlagOfMinusOneComesBeforeOneOfZero) {
  std::vector<std::string> items;
  for (const char* flag : {"1", "0", "-1", "0", "-1", "2"})
    items.push_back(
        sortItem(kVideo, {"Same", "", "0", flag}, static_cast<char>('a' + items.size())));
  put(kVideo, items);
  sort(kVideo.ticks({3}));
  EXPECT_EQ(fillers(), "cebdaf");
}

TEST_F(SortEngine, FourAdjacentBlanksCostItems) {
  const std::vector<std::string> items = {named(kWaves, "A", 'a'),   named(kWaves, "\0"s, '1'),
                                          named(kWaves, "\0"s, '2'), named(kWaves, "\0"s, '3'),
                                          named(kWaves, "\0"s, '4'), named(kWaves, "B", 'b'),
                                          named(kWaves, "C", 'c'),   named(kWaves, "D", 'd')};
  put(kWaves, items);
  sort({});
  // One of the blank items is counted instead of the last but one.
  EXPECT_EQ(fillers(), "4ab");
  EXPECT_EQ(state_.Count, 3);
}

TEST_F(SortEngine, AsManyItemsAsHaveRoomAreSorted) {
  constexpr int count = 32765;
  std::vector<std::string> items(count, sortItem(kSoftware, {"A", "", "0", "-1"}));
  items.front() = sortItem(kSoftware, {"B", "", "0", "0"});
  put(kSoftware, items);
  sort(kSoftware.ticks({3}));
  EXPECT_EQ(state_.Count, count);
  std::rotate(items.begin(), items.begin() + 1, items.end());
  expectOnlyTheCollection(sortFile(kSoftware, items));
}

}  // namespace
}  // namespace quillbox::test
