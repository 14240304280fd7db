#include "records/navigation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

#include "platform/checked16.h"
#include "support/counting_store.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr auto kDeleted = "DETELED";

class NavigationTest : public testing::Test {
 protected:
  NavigationTest() {
    state_.currentPath = path_;
    std::ranges::fill(bytesOf(item_), std::byte{'#'});
  }

  void items(std::initializer_list<MusicRecord> records) { writeFile(path_, musicFile(records)); }

  std::optional<int> next(int position) { return nextItem(store_, checked16(position), into()); }

  std::optional<int> previous(int position, int count) {
    return previousItem(store_, checked16(position), checked16(count), into(), [this] {
      ++laps_;
      return false;
    });
  }

  std::span<std::byte> into() { return bytesOf(item_); }
  std::string artist() const { return text(item_.Artist); }

  bool untouched() const {
    const auto bytes = bytesOf(item_);
    return std::ranges::all_of(bytes, [](std::byte byte) { return byte == std::byte{'#'}; });
  }

  int reads() const { return files_.countOf(FileOperation::read); }

  void expectNothingOpen() {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  TestFolder folder_;
  std::string path_ = folder_.path("jazz.MCS");
  FailingFiles files_;
  AppState state_{files_};
  CountingStore store_{state_, *kindOfCode(1)};
  MusicRecord item_{};
  int laps_ = 0;
};

using Next = NavigationTest;
using Previous = NavigationTest;

TEST_F(Next, LeadsToTheItemAfter) {
  items({album("A"), album("B"), album("C")});
  EXPECT_EQ(next(1), 2);
  EXPECT_EQ(artist(), "B");
  EXPECT_EQ(next(2), 3);
  EXPECT_EQ(artist(), "C");
  expectNothingOpen();
}

TEST_F(Next, StepsOverDeletedItems) {
  items({album("A"), album(kDeleted), album(kDeleted), album("D")});
  EXPECT_EQ(next(1), 4);
  EXPECT_EQ(artist(), "D");
  EXPECT_EQ(reads(), 3);
  EXPECT_EQ(next(2), 4);
}

TEST_F(Next, DoesNotWrapRoundButRunsPastCountIntoBlankRecords) {
  items({album("A"), album("B")});
  EXPECT_EQ(next(2), 3);
  EXPECT_EQ(std::memcmp(&item_, std::string(50, ' ').c_str(), 50), 0);
  const MusicRecord blank = album("");
  EXPECT_EQ(std::memcmp(&item_, &blank, sizeof blank), 0);
  EXPECT_EQ(next(100), 101);
  EXPECT_EQ(artist(), "");
}

TEST_F(Next, RunsPastCountWhenTheLastItemsAreDeleted) {
  items({album("A"), album(kDeleted), album(kDeleted)});
  EXPECT_EQ(next(1), 4);
  EXPECT_EQ(artist(), "");
}

TEST_F(Next, ShowsWhatIsOnDiskBeyondCountAndThenBlankRecords) {
  writeFile(path_, musicFile(1, 5, {album("A"), album("beyond"), album(kDeleted), album("last")}));
  EXPECT_EQ(next(1), 2);
  EXPECT_EQ(artist(), "beyond");
  EXPECT_EQ(next(2), 4);
  EXPECT_EQ(artist(), "last");
  EXPECT_EQ(next(4), 5);
  EXPECT_EQ(artist(), "");
}

TEST_F(Next, ARecordThatTheEndOfTheFileCutsOffHasItsBytesAndThenBlanks) {
  std::string bytes = musicFile({album("A"), album("Betty", "Album")});
  bytes.resize(2 * sizeof(MusicRecord) + 53);
  writeFile(path_, bytes);
  EXPECT_EQ(next(1), 2);
  EXPECT_EQ(artist(), "Betty");
  EXPECT_EQ(text(item_.Album), "Alb");
  EXPECT_EQ(item_.Notes.view(), std::string(50, ' '));
  EXPECT_EQ(item_.Genre, 0);
}

TEST_F(Next, PastTheLastPositionIsAnOverflow) {
  items({album("A")});
  EXPECT_EQ(next(32766), 32767);
  EXPECT_EQ(failureOf([&] { next(32767); }).number, 6);
  expectNothingOpen();
}

TEST_F(Next, IsNowhereWhenNoItemIsShown) {
  items({album("A"), album("B")});
  for (const int position : {0, -1, -2, -32768}) EXPECT_EQ(next(position), std::nullopt);
  EXPECT_TRUE(files_.operations().empty());
  EXPECT_TRUE(untouched());
}

TEST_F(Next, OnlyTheEditorsOwnSpellingIsDeleted) {
  items({album("A"), album("DELETED"), album("deteled"), album(" DETELED"), album("DETELED!"),
         album(kDeleted), album("G")});
  EXPECT_EQ(next(1), 2);
  EXPECT_EQ(next(2), 3);
  EXPECT_EQ(next(3), 4);
  EXPECT_EQ(next(4), 5);
  EXPECT_EQ(next(5), 7);
}

TEST_F(Next, AReadErrorNamesTheFileAndLeavesNothingHalfDone) {
  items({album("A"), album("B")});
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  const Failure failure = failureOf([&] { next(1); });
  EXPECT_EQ(failure.number, 57);
  EXPECT_EQ(failure.file, path_);
  EXPECT_TRUE(untouched());
  expectNothingOpen();
  EXPECT_EQ(next(1), 2);
}

TEST_F(Next, AMissingFileIsAnErrorThatNamesIt) {
  const Failure failure = failureOf([&] { next(1); });
  EXPECT_EQ(failure.number, 53);
  EXPECT_EQ(failure.file, path_);
  EXPECT_TRUE(untouched());
}

TEST_F(Previous, LeadsToTheItemBefore) {
  items({album("A"), album("B"), album("C")});
  EXPECT_EQ(previous(3, 3), 2);
  EXPECT_EQ(artist(), "B");
  EXPECT_EQ(previous(2, 3), 1);
  EXPECT_EQ(artist(), "A");
  EXPECT_EQ(laps_, 0);
  expectNothingOpen();
}

TEST_F(Previous, StepsOverDeletedItems) {
  items({album("A"), album(kDeleted), album(kDeleted), album("D")});
  EXPECT_EQ(previous(4, 4), 1);
  EXPECT_EQ(artist(), "A");
  EXPECT_EQ(reads(), 3);
}

TEST_F(Previous, WrapsRoundToTheLastItemBelowTheFirst) {
  items({album("A"), album("B"), album("C")});
  EXPECT_EQ(previous(1, 3), 3);
  EXPECT_EQ(artist(), "C");
}

TEST_F(Previous, ADeletedFirstItemLeadsToTheLastLiveOne) {
  items({album(kDeleted), album("B"), album("C"), album(kDeleted)});
  EXPECT_EQ(previous(2, 4), 3);
  EXPECT_EQ(artist(), "C");
  EXPECT_EQ(laps_, 0);
}

TEST_F(Previous, TheOnlyLiveItemLeadsBackToItself) {
  items({album(kDeleted), album("B"), album(kDeleted)});
  EXPECT_EQ(previous(2, 3), 2);
  EXPECT_EQ(artist(), "B");
  EXPECT_EQ(laps_, 0);
  items({album("A")});
  EXPECT_EQ(previous(1, 1), 1);
}

TEST_F(Previous, SetsOutFromCountWhenNoItemIsShown) {
  items({album("A"), album("B"), album("C")});
  for (const int position : {-1, 0, -7}) {
    EXPECT_EQ(previous(position, 3), 2) << position;
    EXPECT_EQ(artist(), "B");
  }
  items({album("A"), album("B")});
  EXPECT_EQ(previous(-1, 2), 1);
  items({album("A")});
  EXPECT_EQ(previous(-1, 1), 1);
  EXPECT_EQ(previous(0, 1), 1);
}

TEST_F(Previous, ComesBackFromBeyondCountOneByOne) {
  items({album("A"), album("B")});
  EXPECT_EQ(previous(5, 2), 4);
  EXPECT_EQ(artist(), "");
  EXPECT_EQ(previous(3, 2), 2);
  EXPECT_EQ(artist(), "B");
  EXPECT_EQ(previous(32767, 2), 32766);
}

TEST_F(Previous, ACountBeyondTheFileLeadsToBlankRecords) {
  writeFile(path_, musicFile(500, 5, {album("A")}));
  EXPECT_EQ(previous(1, 500), 500);
  EXPECT_EQ(artist(), "");
}

TEST_F(Previous, GivesUpAfterOneLapWhenEveryItemIsDeletedAndItIsToldTo) {
  items({album(kDeleted), album(kDeleted), album(kDeleted)});
  for (const int position : {1, 2, 3, -1, 0}) {
    laps_ = 0;
    files_.forget();
    EXPECT_EQ(previous(position, 3), std::nullopt) << position;
    EXPECT_EQ(laps_, 1);
    EXPECT_EQ(reads(), 3);
  }
  expectNothingOpen();
}

TEST_F(Previous, AsksOncePerLapAndGoesOnForAsLongAsItIsTold) {
  items({album(kDeleted), album(kDeleted), album(kDeleted), album(kDeleted)});
  std::vector<std::ptrdiff_t> readsAtLap;
  const auto found = previousItem(store_, 2, 4, into(), [&] {
    readsAtLap.push_back(reads());
    return readsAtLap.size() < 5;
  });
  EXPECT_EQ(found, std::nullopt);
  EXPECT_EQ(readsAtLap, (std::vector<std::ptrdiff_t>{4, 8, 12, 16, 20}));
}

TEST_F(Previous, FindsAnItemThatComesToLifeMeanwhile) {
  items({album(kDeleted), album(kDeleted), album(kDeleted)});
  int laps = 0;
  const auto found = previousItem(store_, 1, 3, into(), [&] {
    if (++laps == 2) items({album(kDeleted), album("B"), album(kDeleted)});
    return true;
  });
  EXPECT_EQ(found, 2);
  EXPECT_EQ(artist(), "B");
  EXPECT_EQ(laps, 2);
}

TEST_F(Previous, NoFileIsOpenWhileTheLapIsReported) {
  items({album(kDeleted), album(kDeleted)});
  previousItem(store_, 1, 2, into(), [&] {
    expectNothingOpen();
    return false;
  });
}

TEST_F(Previous, IsNowhereInAnEmptyCollection) {
  items({album("A")});
  for (const int count : {0, -1, -32768}) {
    for (const int position : {-1, 0, 1, 2, 5})
      EXPECT_EQ(previous(position, count), std::nullopt) << position;
  }
  EXPECT_TRUE(files_.operations().empty());
  EXPECT_EQ(laps_, 0);
  EXPECT_TRUE(untouched());
}

TEST_F(Previous, OnlyTheEditorsOwnSpellingIsDeleted) {
  items({album("A"), album("DELETED"), album("C")});
  EXPECT_EQ(previous(3, 3), 2);
  EXPECT_EQ(artist(), "DELETED");
}

TEST_F(Previous, AReadErrorNamesTheFileAndLeavesNothingHalfDone) {
  items({album("A"), album("B")});
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  const Failure failure = failureOf([&] { previous(2, 2); });
  EXPECT_EQ(failure.number, 57);
  EXPECT_EQ(failure.file, path_);
  EXPECT_TRUE(untouched());
  expectNothingOpen();
  EXPECT_EQ(previous(2, 2), 1);
}

class PlainSteppingTest : public NavigationTest {
 protected:
  static CollectionKind plainKind() {
    CollectionKind kind = *kindOfCode(1);
    kind.rules.stepping = Stepping::plain;
    return kind;
  }

  const CollectionKind plain_ = plainKind();
  CountingStore plainStore_{state_, plain_};
};

TEST_F(PlainSteppingTest, NextIsOneUpDeletedOrNot) {
  items({album("A"), album(kDeleted), album("C")});
  EXPECT_EQ(nextItem(plainStore_, 1, into()), 2);
  EXPECT_EQ(artist(), kDeleted);
  EXPECT_EQ(nextItem(plainStore_, 2, into()), 3);
  EXPECT_EQ(artist(), "C");
  EXPECT_EQ(nextItem(plainStore_, 0, into()), std::nullopt);
}

TEST_F(PlainSteppingTest, PreviousIsOneDownDeletedOrNot) {
  items({album("A"), album(kDeleted), album("C")});
  const auto neverAsked = [] {
    ADD_FAILURE() << "no lap was run";
    return false;
  };
  EXPECT_EQ(previousItem(plainStore_, 3, 3, into(), neverAsked), 2);
  EXPECT_EQ(artist(), kDeleted);
  EXPECT_EQ(previousItem(plainStore_, 2, 3, into(), neverAsked), 1);
  EXPECT_EQ(artist(), "A");
  EXPECT_EQ(previousItem(plainStore_, 2, 0, into(), neverAsked), std::nullopt);
}

}  // namespace
}  // namespace quillbox::test
