#include "overview/item_reading.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/failing_files.h"
#include "support/failure.h"
#include "support/overview_model.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

class ItemReadingTest : public testing::TestWithParam<ModelKind> {
 protected:
  ItemReadingTest() { collection_.currentPath = path_; }

  const ModelKind& kind() const { return GetParam(); }

  void make(std::size_t count) {
    items_ = OverviewItems(kind()).items(count);
    writeFile(path_, collectionOf(kind(), items_));
    reading_.start(static_cast<int>(count));
  }

  ReadState readOn(const ItemReading::Stop& stop) {
    return reading_.readOn(
        [this](int item, std::span<const std::byte> record) {
          EXPECT_EQ(item, static_cast<int>(found_.size()) + 1);
          found_.emplace_back(reinterpret_cast<const char*>(record.data()), record.size());
        },
        stop);
  }

  /// A piece of a given number of items.
  ReadState readItems(int most) {
    return readOn([&] { return --most == 0; });
  }

  /// Truncates the file after this number of items and bytes.
  void cut(std::size_t items, std::size_t bytes = 0) {
    std::filesystem::resize_file(path_, (items + 1) * kind().recordLength + bytes);
  }

  Failure failure() const {
    if (!reading_.failure()) return {};
    return {static_cast<int>(reading_.failure()->number()), reading_.failure()->file()};
  }

  std::vector<std::string> firstItems(std::size_t count) const {
    return {items_.begin(), items_.begin() + static_cast<std::ptrdiff_t>(count)};
  }

  void expectNothingOpen() {
    for (int number = 1; number <= 255; ++number) EXPECT_FALSE(open_.isOpen(number));
  }

  TestFolder folder_;
  std::string path_ = folder_.path("two words");
  FailingFiles files_;
  OpenFiles open_{files_};
  OpenCollection collection_;
  ItemReading reading_{open_, collection_, kind().row()};
  std::vector<std::string> items_;
  std::vector<std::string> found_;
};
INSTANTIATE_TEST_SUITE_P(AllKinds, ItemReadingTest, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(ItemReadingTest, HandsOutEveryItemInOneGo) {
  make(300);
  EXPECT_EQ(reading_.state(), ReadState::unfinished);
  EXPECT_EQ(readOn(neverStop), ReadState::done);
  EXPECT_TRUE(found_ == items_);
  EXPECT_EQ(reading_.countInFile(), 300);
}

TEST_P(ItemReadingTest, HandsOutAtLeastOneItemAPiece) {
  make(5);
  for (int piece = 1; piece <= 5; ++piece) {
    EXPECT_EQ(readOn(stopAtOnce), piece < 5 ? ReadState::unfinished : ReadState::done);
    EXPECT_EQ(reading_.readItems(), piece);
    expectNothingOpen();
  }
  EXPECT_TRUE(found_ == items_);
}

TEST_P(ItemReadingTest, GoesOnWhereItStopped) {
  make(300);
  for (int piece = 1; readItems(piece) == ReadState::unfinished; ++piece) expectNothingOpen();
  EXPECT_TRUE(found_ == items_);
}

TEST_P(ItemReadingTest, ReadsManyItemsAtOnceAndNothingTwice) {
  make(100);
  files_.forget();
  readOn(neverStop);
  const auto perBlock = 262'144 / kind().recordLength;
  EXPECT_EQ(files_.countOf(FileOperation::open), 1);
  EXPECT_EQ(files_.countOf(FileOperation::read), 1 + static_cast<int>(99 / perBlock + 1));
}

TEST_P(ItemReadingTest, LeavesTheFileOpenToNobodyAndAsItWas) {
  make(20);
  const std::string before = readFile(path_);
  while (readItems(3) == ReadState::unfinished) {
  }
  expectNothingOpen();
  EXPECT_TRUE(readFile(path_) == before);
}

TEST_P(ItemReadingTest, AnEmptyCollectionIsNotEvenOpened) {
  for (const int count : {0, -1, -32'768}) {
    reading_.start(count);
    EXPECT_EQ(reading_.state(), ReadState::done);
    EXPECT_EQ(readOn(neverStop), ReadState::done);
    EXPECT_TRUE(files_.operations().empty());
    EXPECT_EQ(reading_.count(), 0);
  }
}

TEST_P(ItemReadingTest, AFileThatVanishesIsAStateWithItsCause) {
  make(10);
  readItems(4);
  std::filesystem::remove(path_);
  EXPECT_EQ(readOn(neverStop), ReadState::failed);
  EXPECT_EQ(failure(), (Failure{53, path_}));
  EXPECT_TRUE(found_ == firstItems(4));
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_P(ItemReadingTest, AFileThatComesBackIsReadOn) {
  make(10);
  readItems(4);
  std::filesystem::rename(path_, path_ + "2");
  readOn(neverStop);
  std::filesystem::rename(path_ + "2", path_);
  EXPECT_EQ(readOn(neverStop), ReadState::done);
  EXPECT_EQ(failure(), Failure{});
  EXPECT_TRUE(found_ == items_);
}

TEST_P(ItemReadingTest, AFileThatIsCutKeepsWhatWasRead) {
  for (const std::size_t left : {0U, 3U, 4U, 6U}) {
    SCOPED_TRACE(left);
    make(10);
    found_.clear();
    readItems(4);
    cut(left, 1);
    EXPECT_EQ(readOn(neverStop), ReadState::failed);
    EXPECT_EQ(failure(), (Failure{63, path_}));
    EXPECT_TRUE(found_ == firstItems(std::max<std::size_t>(left, 4)));
    expectNothingOpen();
  }
}

TEST_P(ItemReadingTest, ALastItemThatIsMissingIsBlank) {
  make(3);
  cut(2);
  EXPECT_EQ(readOn(neverStop), ReadState::done);
  EXPECT_EQ(found_.back(), familyItem(kind(), ""));
}

TEST_P(ItemReadingTest, AFileThatGrowsSaysSo) {
  make(3);
  readItems(1);
  EXPECT_EQ(reading_.countInFile(), 3);
  writeFile(path_, collectionOf(kind(), OverviewItems(kind()).items(7)));
  EXPECT_EQ(readOn(neverStop), ReadState::done);
  EXPECT_EQ(reading_.countInFile(), 7);
  EXPECT_EQ(reading_.count(), 3);
}

TEST_P(ItemReadingTest, ItemsThatAreAddedAreReadAndNoOthers) {
  make(5);
  reading_.start(3);
  readOn(neverStop);
  reading_.setCount(5);
  EXPECT_EQ(reading_.state(), ReadState::unfinished);
  EXPECT_EQ(readOn(neverStop), ReadState::done);
  EXPECT_TRUE(found_ == items_);
}

TEST_P(ItemReadingTest, FewerItemsEndAFailure) {
  make(5);
  cut(3, 1);
  EXPECT_EQ(readOn(neverStop), ReadState::failed);
  reading_.setCount(3);
  EXPECT_EQ(reading_.state(), ReadState::done);
  EXPECT_EQ(failure(), Failure{});
  reading_.setCount(2);
  EXPECT_EQ(reading_.readItems(), 2);
}

TEST_P(ItemReadingTest, StartingAnewForgetsAFailure) {
  make(5);
  cut(3, 1);
  readOn(neverStop);
  reading_.start(2);
  EXPECT_EQ(reading_.state(), ReadState::unfinished);
  EXPECT_EQ(reading_.readItems(), 0);
  EXPECT_EQ(reading_.countInFile(), 0);
}

TEST_P(ItemReadingTest, AnItemThatIsKnownCanBeSkipped) {
  make(3);
  cut(1, 1);
  EXPECT_EQ(readOn(neverStop), ReadState::failed);
  reading_.skip();
  EXPECT_EQ(reading_.state(), ReadState::unfinished);
  EXPECT_EQ(reading_.readItems(), 2);
}

TEST_P(ItemReadingTest, AFailureOfAnyOperationIsAStateAndTheNextTryGoesOn) {
  int failures = 0;
  for (int nth = 0;; ++nth) {
    SCOPED_TRACE("operation " + std::to_string(nth));
    make(8);
    found_.clear();
    readItems(3);
    files_.failNth(nth, ErrorNumber::deviceIo);
    const ReadState state = readOn(neverStop);
    if (!files_.hasFailed()) break;
    expectNothingOpen();
    if (state == ReadState::failed) {
      ++failures;
      EXPECT_EQ(failure(), (Failure{57, path_}));
      EXPECT_TRUE(found_ == firstItems(3));
      EXPECT_EQ(readOn(neverStop), ReadState::done);
    }
    EXPECT_TRUE(found_ == items_);
  }
  EXPECT_EQ(failures, 3);  // opening and two reads; closing after only reading does not matter
}

TEST_P(ItemReadingTest, InOneGoAFailureIsThrown) {
  make(4);
  int last = 0;
  const auto use = [&](int item, std::span<const std::byte>) { last = item; };
  EXPECT_EQ(failureOf([&] { readAllItems(open_, collection_, kind().row(), 4, use); }), Failure{});
  EXPECT_EQ(last, 4);
  std::filesystem::remove(path_);
  EXPECT_EQ(failureOf([&] { readAllItems(open_, collection_, kind().row(), 4, use); }),
            (Failure{53, path_}));
}

}  // namespace
}  // namespace quillbox::test
