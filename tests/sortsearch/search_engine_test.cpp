#include "sortsearch/search_engine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/checked16.h"
#include "records/entered.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/family_files.h"
#include "support/machine.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using Events = std::vector<std::string>;
using Steps = std::vector<std::pair<int, int>>;

/// A board that records its calls.
class BoardLog : public Board {
 public:
  Events events;
  Steps steps;

  void open(const std::string& caption) override { events.push_back("open " + caption); }
  void setBoardCaption(const std::string& caption) override {
    events.push_back("caption " + caption);
  }
  void clear() override { events.emplace_back("clear"); }
  void print(const std::string& line) override { events.push_back(line); }
  void progress(int done, int total) override { steps.emplace_back(done, total); }
  void close() override { events.emplace_back("close"); }
};

/// A collection of each kind in turn. Items differ in their first text.
class SearchEngine : public testing::TestWithParam<std::string_view> {
 protected:
  static constexpr int kCurRec = 7;
  static constexpr int kListPos = 9;

  SearchEngine() { state_.currentPath = path_; }

  bool ofBooks() const { return GetParam() == "BCS"; }

  std::string item(std::string_view first) const {
    std::string bytes(kind_.recordLength, '\0');
    const auto record = std::as_writable_bytes(std::span(bytes));
    fillBlank(kind_.fields, record);
    setText(kind_.fields.front(), record, first);
    return bytes;
  }

  /// Opens a collection of these items; both positions are outside it.
  void open(const std::vector<std::string>& firsts) {
    const int count = static_cast<int>(firsts.size());
    std::string bytes = familyHeader(count);
    bytes.resize(kind_.recordLength);
    for (const std::string& first : firsts) bytes += item(first);
    openBytes(count, bytes);
  }
  void openBytes(int count, std::string_view bytes) {
    writeFile(path_, bytes);
    state_.Count = checked16(count);
    state_.CurRec = kCurRec;
    state_.ListPos = kListPos;
    files_.forget();
    board_ = {};
  }

  std::optional<int> find(std::string_view first) {
    const Entered entered[] = {{&kind_.fields.front(), std::string(first)}};
    found_ = findItem(state_.files, state_, kind_, Query(kind_, entered, "M/d/yy"), board_);
    return found_ ? std::optional<int>(found_->item) : std::nullopt;
  }
  Failure findFailure(std::string_view first) {
    return failureOf([&] { find(first); });
  }

  /// The record that was found.
  std::string record() const {
    const auto& bytes = found_.value().record;
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }

  /// The file operations of a search that reads this number of items.
  std::vector<OperationRecord> operations(int reads) const {
    std::vector<OperationRecord> all = {{FileOperation::open, path_}};
    for (int n = 0; n < reads; ++n) all.push_back({FileOperation::read, path_});
    all.push_back({FileOperation::close, path_});
    return all;
  }

  /// The board calls of a search that reads this number of items.
  Events events(int reads) const {
    if (ofBooks()) return {};
    Events all = {"open Searching..."};
    for (int n = 1; n <= reads; ++n)
      all.push_back("Searching Record  " + std::to_string(n) + " of  " +
                    std::to_string(state_.Count) + "...");
    all.emplace_back("close");
    return all;
  }

  void expectNotMoved() const {
    EXPECT_EQ(state_.CurRec, kCurRec);
    EXPECT_EQ(state_.ListPos, kListPos);
  }

  std::vector<int> openNumbers() const {
    std::vector<int> numbers;
    for (int number = 1; number <= 255; ++number)
      if (state_.files.isOpen(number)) numbers.push_back(number);
    return numbers;
  }

  const CollectionKind& kind_ = *kindOfExtension(GetParam());
  TestFolder folder_;
  std::string path_ = folder_.path("mine." + std::string(GetParam()));
  FailingFiles files_;
  AppState state_{files_};
  BoardLog board_;
  std::optional<FoundItem> found_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, SearchEngine,
                         testing::Values("MCS", "VCS", "SCS", "CCS", "BCS", "WCS", "ICS", "GCS",
                                         "MPS"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(SearchEngine, TheFirstMatchIsFoundWithItsRecord) {
  for (const int match : {1, 2, 5}) {
    std::vector<std::string> firsts(5, "other");
    for (int n = match; n <= 5; ++n) firsts[static_cast<std::size_t>(n - 1)] = "wanted";
    open(firsts);
    EXPECT_EQ(find("wanted"), match);
    EXPECT_TRUE(record() == item("wanted"));
  }
}

TEST_P(SearchEngine, NeitherAHitNorAMissMovesAnything) {
  for (const CollectionKind& kind : collectionKinds())
    std::ranges::fill(kind.buffer(state_), std::byte{'#'});
  open({"A", "B", "C"});
  EXPECT_EQ(find("wanted"), std::nullopt);
  EXPECT_EQ(find("B"), 2);
  expectNotMoved();
  for (const CollectionKind& kind : collectionKinds()) {
    const auto buffer = kind.buffer(state_);
    EXPECT_EQ(std::ranges::count(buffer, std::byte{'#'}), std::ssize(buffer)) << kind.extension;
  }
}

TEST_P(SearchEngine, DeletedItemsAreFoundLikeOthers) {
  const std::string marker(kind_.rules.deletion.marker);
  open({"A", marker, "B"});
  EXPECT_EQ(find(marker), 2);
  open({marker, "A"});
  EXPECT_EQ(find(""), 1);
  EXPECT_TRUE(record() == item(marker));
}

TEST_P(SearchEngine, ASearchBeginsAtTheFirstItemWhateverWasFoundBefore) {
  open({"A", "B", "B"});
  for (int round = 0; round < 2; ++round) {
    board_ = {};
    EXPECT_EQ(find("B"), 2);
    EXPECT_EQ(board_.events, events(2));
  }
  EXPECT_EQ(find("A"), 1);
}

TEST_P(SearchEngine, AnEmptyCollectionIsNotEvenOpened) {
  for (const bool missing : {false, true}) {
    for (const int count : {0, -1, -32768}) {
      open({"A"});
      if (missing) std::filesystem::remove(path_);
      state_.Count = checked16(count);
      EXPECT_EQ(find(""), std::nullopt) << count;
      EXPECT_TRUE(files_.operations().empty());
      EXPECT_TRUE(board_.events.empty());
      EXPECT_TRUE(board_.steps.empty());
      expectNotMoved();
    }
  }
}

TEST_P(SearchEngine, WhatLiesBeyondTheCountIsNotLookedAt) {
  open({"A", "B", "C"});
  state_.Count = 2;
  EXPECT_EQ(find("C"), std::nullopt);
  EXPECT_EQ(board_.events, events(2));
}

TEST_P(SearchEngine, TheFileIsOpenedReadAndClosedAndNothingElse) {
  open({"A", "B", "C", "D"});
  const std::string before = readFile(path_);
  for (const char* first : {"A", "C", "D", "wanted"}) {
    files_.forget();
    find(first);
    const auto& done = files_.operations();
    ASSERT_GE(done.size(), 3U);
    EXPECT_EQ(done.front().operation, FileOperation::open);
    EXPECT_EQ(done.back().operation, FileOperation::close);
    EXPECT_EQ(std::ranges::count(done, FileOperation::read, &OperationRecord::operation),
              std::ssize(done) - 2);
    EXPECT_EQ(std::ranges::count(done, path_, &OperationRecord::path), std::ssize(done));
    EXPECT_TRUE(readFile(path_) == before);
  }
}

TEST_P(SearchEngine, AFewItemsAreReadAtOnceAndNothingAfterTheHit) {
  open({"A", "B", "C", "D"});
  for (const char* first : {"A", "D", "wanted"}) {
    files_.forget();
    find(first);
    EXPECT_TRUE(files_.operations() == operations(1)) << first;
  }
}

TEST_P(SearchEngine, TheFileHasTheCollectionsNumberWhileItIsRead) {
  open({"A", "B"});
  std::vector<int> during;
  for (const char* first : {"B", "wanted"}) {
    files_.beforeRead = [&] { during = openNumbers(); };
    find(first);
    EXPECT_EQ(during, std::vector<int>{255}) << first;
    EXPECT_EQ(openNumbers(), std::vector<int>{}) << first;
    during.clear();
  }
}

TEST_P(SearchEngine, AFileLeftOpenUnderThatNumberIsClosedFirst) {
  open({"A"});
  const std::string other = folder_.path("other");
  writeFile(other, "kept");
  state_.files.open(file_number::collection, other, OpenMode::read);
  state_.files.open(1, other, OpenMode::read);
  files_.forget();
  EXPECT_EQ(find("A"), 1);
  std::vector<OperationRecord> expected = operations(1);
  expected.insert(expected.begin(), {FileOperation::close, other});
  EXPECT_EQ(files_.operations(), expected);
  EXPECT_EQ(openNumbers(), std::vector<int>{1});
}

TEST_P(SearchEngine, TheBoardHasALineForEachItemRead) {
  std::vector<std::string> firsts(12, "other");
  firsts[4] = "wanted";
  open(firsts);
  EXPECT_EQ(find("wanted"), 5);
  EXPECT_EQ(board_.events, events(5));
  EXPECT_EQ(board_.steps,
            ofBooks() ? Steps{} : (Steps{{1, 12}, {2, 12}, {3, 12}, {4, 12}, {5, 12}}));
  EXPECT_EQ(std::ranges::count(board_.events, "Searching Record  5 of  12..."), ofBooks() ? 0 : 1);
  board_ = {};
  EXPECT_EQ(find("missing"), std::nullopt);
  EXPECT_EQ(board_.events, events(12));
}

TEST_P(SearchEngine, AFileThatMayOnlyBeReadIsSearchedToo) {
  open({"A", "B"});
  using std::filesystem::perms;
  std::filesystem::permissions(path_, perms::owner_read | perms::group_read);
  const OrdinaryUser user(folder_);
  EXPECT_EQ(failureOf([&] { EXPECT_EQ(find("B"), 2); }), Failure{});
  EXPECT_TRUE(record() == item("B"));
}

TEST_P(SearchEngine, AFileThatMayNotBeReadIsAnErrorThatNamesIt) {
  QUILLBOX_NEEDS(permissions);
  open({"A"});
  std::filesystem::permissions(path_, std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  EXPECT_EQ(findFailure("A"), (Failure{70, path_}));
  EXPECT_EQ(board_.events, events(0));
}

TEST_P(SearchEngine, AFileThatCannotBeOpenedIsAnErrorThatNamesIt) {
  open({"A"});
  std::filesystem::remove(path_);
  EXPECT_EQ(findFailure("A"), (Failure{53, path_}));
  EXPECT_FALSE(std::filesystem::exists(path_));
  std::filesystem::create_directory(path_);
  EXPECT_EQ(findFailure("A"), (Failure{75, path_}));
  EXPECT_EQ(openNumbers(), std::vector<int>{});
  expectNotMoved();
}

TEST_P(SearchEngine, AFileShorterThanItsCountIsAnErrorThatNamesIt) {
  open({"A", "B"});
  const std::string whole = readFile(path_);
  const std::size_t length = kind_.recordLength;
  const struct {
    std::size_t size;
    int wholeItems;
  } rows[] = {{0, 0},
              {12, 0},
              {length, 0},
              {length + 1, 0},
              {2 * length, 1},
              {2 * length + 1, 1},
              {3 * length - 1, 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.size);
    openBytes(3, whole.substr(0, row.size));
    EXPECT_EQ(findFailure("wanted"), (Failure{63, path_}));
    EXPECT_EQ(board_.events, events(row.wholeItems + 1));
    EXPECT_EQ(openNumbers(), std::vector<int>{});
    EXPECT_TRUE(readFile(path_) == whole.substr(0, row.size));
    expectNotMoved();
  }
}

TEST_P(SearchEngine, ALastItemThatIsMissingIsBlank) {
  open({"A", "B"});
  openBytes(3, readFile(path_));
  EXPECT_EQ(find("wanted"), std::nullopt);
  EXPECT_EQ(find("B"), 2);
  EXPECT_EQ(find(""), 1);
}

TEST_P(SearchEngine, AMatchBeforeTheEndOfAShortFileIsFound) {
  open({"A", "B"});
  openBytes(32767, readFile(path_));
  EXPECT_EQ(find("B"), 2);
  EXPECT_EQ(board_.events, events(2));
}

/// The numbers from 1 on, as texts.
std::vector<std::string> numbersUpTo(int last) {
  std::vector<std::string> numbers;
  for (int n = 1; n <= last; ++n) numbers.push_back(std::to_string(n));
  return numbers;
}

TEST_P(SearchEngine, EveryItemOfALongCollectionIsInItsPlace) {
  constexpr int count = 1200;
  open(numbersUpTo(count));
  for (int n = 1; n < count + 37; n += 37) {
    const int wanted = std::min(n, count);
    const std::string first = std::to_string(wanted);
    board_ = {};
    EXPECT_EQ(find(first), wanted);
    EXPECT_TRUE(record() == item(first)) << first;
    EXPECT_TRUE(board_.events == events(wanted)) << first;
  }
}

TEST_P(SearchEngine, ALongFileIsSearchedUpToWhereItIsCutOff) {
  constexpr int items = 1000;
  open(numbersUpTo(items + 1));
  const std::string whole = readFile(path_);
  for (const int more : {0, 1, static_cast<int>(kind_.recordLength) - 1}) {
    openBytes(1200,
              whole.substr(0, (items + 1) * kind_.recordLength + static_cast<std::size_t>(more)));
    EXPECT_EQ(findFailure(std::to_string(items + 1)), (Failure{63, path_})) << more;
    EXPECT_TRUE(board_.events == events(items + 1)) << more;
    expectNotMoved();
    EXPECT_EQ(find(std::to_string(items)), items) << more;
  }
}

TEST_P(SearchEngine, AFailureAnywhereClosesBoardAndFile) {
  for (const bool hit : {true, false}) {
    int failures = 0;
    for (int nth = 0;; ++nth) {
      SCOPED_TRACE("operation " + std::to_string(nth));
      open({"A", "B", "C"});
      const std::string before = readFile(path_);
      std::optional<int> found;
      files_.failNth(nth, ErrorNumber::deviceIo);
      const Failure failure = failureOf([&] { found = find(hit ? "B" : "wanted"); });
      if (!files_.hasFailed()) break;
      EXPECT_EQ(openNumbers(), std::vector<int>{});
      EXPECT_TRUE(readFile(path_) == before);
      EXPECT_EQ(std::ranges::count(board_.events, "open Searching..."), ofBooks() ? 0 : 1);
      EXPECT_EQ(std::ranges::count(board_.events, "close"), ofBooks() ? 0 : 1);
      EXPECT_TRUE(ofBooks() || board_.events.back() == "close");
      if (failure.number == 0) {  // failing to close a file that was only read does not matter
        EXPECT_EQ(found, hit ? std::optional(2) : std::nullopt);
        continue;
      }
      ++failures;
      EXPECT_EQ(failure, (Failure{57, path_}));
      expectNotMoved();
    }
    // The last round had no failure.
    EXPECT_EQ(failures, std::ssize(files_.operations()) - 1);
  }
}

TEST_P(SearchEngine, TheLastItemOfTheLongestCollectionIsFound) {
  constexpr int count = 32767;
  openBytes(count, familyHeader(count));
  std::filesystem::resize_file(path_, std::uintmax_t{count} * kind_.recordLength);
  std::ofstream(path_, std::ios::binary | std::ios::app) << item("wanted");
  EXPECT_EQ(find("wanted"), count);
  EXPECT_TRUE(record() == item("wanted"));
}

}  // namespace
}  // namespace quillbox::test
