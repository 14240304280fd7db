#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "support/sort_model.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;
using Told = std::vector<std::string>;

std::string comic(const std::string& book, const std::string& title, const std::string& artists) {
  return sortItem(kComics, {book, title, artists});
}

std::string book(const std::string& author, const std::string& publisher,
                 const std::string& mediaType, const std::string& genre) {
  return sortItem(kBooks, {author, publisher, mediaType, genre});
}

class SortBoard : public SortFixture, public testing::Test {};

TEST_F(SortBoard, ComicsShowEachRecordReadAndEachRepetition) {
  put(kComics, {comic("B", "x", "m"), comic("A", "y", "n")});
  sort(kComics.ticks({0, 2}));
  EXPECT_EQ(board_.told, (Told{
                             "open: Reading File...",
                             "line: Reading 1 of 2...",
                             "line: Reading 2 of 2...",
                             "caption: Sorting by Artists",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Artists",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Artists",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Book Title",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Book Title",
                             "line: Sorting 2. Please wait...",
                             "caption: Writing File...",
                             "close",
                         }));
}

TEST_F(SortBoard, TheSecondComicKeyHasACaptionOfItsOwn) {
  put(kComics, {comic("A", "x", "m")});
  sort(kComics.ticks({1}));
  EXPECT_EQ(board_.told, (Told{
                             "open: Reading File...",
                             "line: Reading 1 of 1...",
                             "caption: Sorting by Comic Title",
                             "line: Sorting 1. Please wait...",
                             "caption: Sorting by Comic Title",
                             "line: Sorting 1. Please wait...",
                             "caption: Writing File...",
                             "close",
                         }));
}

TEST_F(SortBoard, WhatIsNotTickedIsNotShown) {
  put(kComics, {comic("B", "x", "m"), comic("A", "y", "n")});
  sort(kComics.ticks({}));
  EXPECT_EQ(board_.told, (Told{"open: Reading File...", "line: Reading 1 of 2...",
                               "line: Reading 2 of 2...", "caption: Writing File...", "close"}));
}

TEST_F(SortBoard, NoItemsAreSortedInOneRepetition) {
  put(kComics, {});
  sort(kComics.ticks({0}));
  EXPECT_EQ(board_.told,
            (Told{"open: Reading File...", "caption: Sorting by Book Title",
                  "line: Sorting 0. Please wait...", "caption: Writing File...", "close"}));
}

TEST_F(SortBoard, BlankItemsAreReadButNotSorted) {
  put(kComics, {comic("A", "x", "m"), comic("\0"s, "y", "n"), comic("\0"s, "z", "o")});
  sort(kComics.ticks({0}));
  EXPECT_EQ(board_.told, (Told{
                             "open: Reading File...",
                             "line: Reading 1 of 3...",
                             "line: Reading 2 of 3...",
                             "line: Reading 3 of 3...",
                             "caption: Sorting by Book Title",
                             "line: Sorting 1. Please wait...",
                             "caption: Sorting by Book Title",
                             "line: Sorting 1. Please wait...",
                             "caption: Writing File...",
                             "close",
                         }));
}

TEST_F(SortBoard, ProgressIsKnownWhileReadingOnly) {
  put(kComics, {comic("A", "x", "m"), comic("B", "y", "n"), comic("C", "z", "o")});
  sort(kComics.ticks({}));
  using Steps = std::vector<std::pair<int, int>>;
  EXPECT_EQ(board_.steps, (Steps{{1, 3}, {2, 3}, {3, 3}}));
  board_.steps.clear();
  sort(kComics.ticks({0}));
  EXPECT_EQ(board_.steps, (Steps{{1, 3}, {2, 3}, {3, 3}, {0, 0}, {0, 0}, {0, 0}, {0, 0}}));
}

TEST_F(SortBoard, ARecordThatIsMissingIsTheLastOneShown) {
  put(kComics, {comic("A", "x", "m"), comic("B", "y", "n")});
  state_.Count = 5;
  EXPECT_NE(messageOf(kComics.ticks({0})), "");
  EXPECT_EQ(board_.told, (Told{"open: Reading File...", "line: Reading 1 of 5...",
                               "line: Reading 2 of 5...", "line: Reading 3 of 5...", "close"}));
}

TEST_F(SortBoard, OtherKindsDoNotShowIt) {
  for (const ModelKind& kind : kModelKinds) {
    if (kind.showsProgress) continue;
    std::vector<std::string> keys(kind.keys.size(), "2");
    const std::string second = sortItem(kind, keys);
    keys.assign(keys.size(), "1");
    put(kind, {second, sortItem(kind, keys)});
    sort(kind.everyTick());
    EXPECT_EQ(board_.told, Told{}) << kind.name;
    EXPECT_TRUE(board_.steps.empty()) << kind.name;
  }
}

using SortBooks = SortBoard;

TEST_F(SortBooks, TheProgramEndsBehindThePublishersAndBeforeTheAuthors) {
  put(kBooks, {book("B", "y", "0", "1"), book("A", "x", "-1", "1")});
  EXPECT_TRUE(endsProgram(kBooks.everyTick()));
  EXPECT_EQ(board_.told, (Told{
                             "open: Reading File...",
                             "line: Reading 1 of 2...",
                             "line: Reading 2 of 2...",
                             // The sentinel passes both genres.
                             "caption: Sorting by Genre",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Genre",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Genre",
                             "line: Sorting 2. Please wait...",
                             // The sentinel is now 0, 0 and -1.
                             "caption: Sorting by Media Type",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Media Type",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Media Type",
                             "line: Sorting 2. Please wait...",
                             // "x", the sentinel and "y".
                             "caption: Sorting by Publisher",
                             "line: Sorting 2. Please wait...",
                             "caption: Sorting by Publisher",
                             "line: Sorting 2. Please wait...",
                             "close",
                         }));
  expectOnlyTheBackup();
  expectNothingOpen();
  EXPECT_EQ(state_.Count, 2);
}

TEST_F(SortBooks, TheProgramEndsWhateverIsTicked) {
  for (unsigned bits = 0; bits < 16; ++bits) {
    std::vector<bool> ticked(4);
    for (std::size_t key = 0; key < 4; ++key) ticked[key] = (bits >> key & 1U) != 0;
    SCOPED_TRACE(testing::PrintToString(ticked));
    put(kBooks, {book("B", "y", "0", "1"), book("\0"s, "y", "0", "1"), book("A", "x", "-1", "1")});
    board_.told.clear();
    EXPECT_TRUE(endsProgram(ticked));
    expectOnlyTheBackup();
    expectNothingOpen();
    EXPECT_EQ(state_.Count, 3);
    const auto hasCaption = [&](const char* caption) {
      return std::ranges::count(board_.told, "caption: "s + caption) > 0;
    };
    EXPECT_EQ(hasCaption("Sorting by Genre"), ticked[3]);
    EXPECT_EQ(hasCaption("Sorting by Media Type"), ticked[2]);
    EXPECT_EQ(hasCaption("Sorting by Publisher"), ticked[1]);
    EXPECT_FALSE(hasCaption("Sorting by Author"));
    EXPECT_FALSE(hasCaption("Writing File..."));
    EXPECT_EQ(board_.told.back(), "close");
  }
}

TEST_F(SortBooks, TheProgramEndsWithoutItemsToo) {
  put(kBooks, {});
  EXPECT_TRUE(endsProgram(kBooks.ticks({})));
  EXPECT_EQ(board_.told, (Told{"open: Reading File...", "close"}));
  expectOnlyTheBackup();
}

TEST_F(SortBooks, NothingIsWrittenOrRemoved) {
  put(kBooks, {book("B", "y", "0", "1"), book("A", "x", "-1", "1")});
  files_.forget();
  EXPECT_TRUE(endsProgram(kBooks.everyTick()));
  for (const OperationRecord& record : files_.operations()) {
    EXPECT_NE(record.operation, FileOperation::write);
    EXPECT_NE(record.operation, FileOperation::remove);
  }
}

}  // namespace
}  // namespace quillbox::test
