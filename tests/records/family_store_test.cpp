#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/checked16.h"
#include "records/navigation.h"
#include "support/counting_store.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/music_files.h"
#include "support/test_folder.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::string_view kDeleted = "DELETED";
constexpr int kFamilyCodes[] = {2, 3, 4, 5};  // comic, video, software, book
constexpr int kMediaCodes[] = {6, 7, 8, 9};

/// A store of one kind with its own collection; items differ in their first field.
class OneKind {
 public:
  OneKind(const TestFolder& folder, int code)
      : kind(*kindOfCode(code)),
        path(folder.path("things.").append(kind.extension)),
        shown(kind.recordLength) {
    state.currentPath = path;
  }

  /// An item whose bytes all matter: its first field, and a pattern after it.
  std::string item(std::string_view name) const {
    std::string bytes(kind.recordLength, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
      bytes[i] = static_cast<char>('a' + (i + name.size()) % 26);
    bytes.replace(0, width(), std::string(name) + std::string(width() - name.size(), ' '));
    return bytes;
  }

  /// What Delete writes in the family: the marker, and zeros.
  std::string zeroFilled() const {
    std::string bytes(kind.recordLength, '\0');
    bytes.replace(0, width(), std::string(kDeleted) + std::string(width() - kDeleted.size(), ' '));
    return bytes;
  }

  std::string blank() const {
    std::vector<std::byte> bytes(kind.recordLength);
    fillBlank(kind.fields, bytes);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }

  /// Creates the file with a header of an older version, and takes `Count` from it.
  void items(std::initializer_list<std::string_view> names) {
    writeItems(static_cast<int>(names.size()), names);
  }

  void writeItems(int count, std::initializer_list<std::string_view> names) {
    std::string bytes(kind.recordLength, '=');
    bytes.replace(0, 12,
                  std::string{static_cast<char>(count), '\0', '\7', '\0'}.append("0.99    "));
    for (const std::string_view name : names) bytes += item(name);
    writeFile(path, bytes);
    state.Count = checked16(count);
  }

  std::string file() const { return readFile(path); }
  std::string stored(int item) const {
    return file().substr(static_cast<std::size_t>(item) * kind.recordLength, kind.recordLength);
  }
  std::string name(int item) const {
    return std::string(withoutTrailingBlanks(std::string_view(stored(item)).substr(0, width())));
  }

  std::string shownName() const {
    return std::string(withoutTrailingBlanks(textOf(kind.fields.front(), shown)));
  }
  std::string shownBytes() const {
    return {reinterpret_cast<const char*>(shown.data()), shown.size()};
  }

  std::optional<int> next(int position) { return nextItem(store, checked16(position), shown); }

  std::optional<int> previous(int position, int count) {
    return previousItem(store, checked16(position), checked16(count), shown, [this] {
      ++laps;
      return false;
    });
  }

  std::vector<FileOperation> operations() const {
    std::vector<FileOperation> all;
    for (const OperationRecord& record : files.operations()) all.push_back(record.operation);
    return all;
  }

  void expectNothingOpen() const {
    for (int number = 1; number <= 255; ++number) EXPECT_FALSE(state.files.isOpen(number));
  }

  std::size_t width() const { return kind.fields.front().width; }

  const CollectionKind& kind;
  std::string path;
  FailingFiles files;
  AppState state{files};
  CountingStore store{state, kind};
  std::vector<std::byte> shown;
  int laps = 0;
};

std::span<const std::byte> asBytes(const std::string& record) {
  return std::as_bytes(std::span(record));
}

const std::string kCurrentHeader = "\x01\x00"s + "1.71    ";  // after the count

class FamilyStoreTest : public testing::TestWithParam<int> {
 protected:
  TestFolder folder_;
  OneKind on_{folder_, GetParam()};
};

using MediaStoreTest = FamilyStoreTest;

std::string extensionOfParam(const testing::TestParamInfo<int>& info) {
  return std::string(kindOfCode(info.param)->extension);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FamilyStoreTest, testing::ValuesIn(kFamilyCodes), extensionOfParam);
INSTANTIATE_TEST_SUITE_P(Kinds, MediaStoreTest, testing::ValuesIn(kMediaCodes), extensionOfParam);

TEST_P(FamilyStoreTest, WritingAnItemInPlaceTouchesItsOwnBytesOnly) {
  on_.items({"A", "B", "C"});
  std::string expected = on_.file();
  const std::string record = on_.item("changed");
  expected.replace(2 * on_.kind.recordLength, on_.kind.recordLength, record);
  on_.store.WriteRecord(2, asBytes(record), 3);
  EXPECT_TRUE(on_.file() == expected);
  EXPECT_EQ(headerOf(on_.file()).FileType, 7);
  EXPECT_EQ(headerOf(on_.file()).Version.view(), "0.99    ");
  using enum FileOperation;
  EXPECT_EQ(on_.operations(), (std::vector{open, write, close}));
  EXPECT_EQ(on_.state.Count, 3);
  on_.expectNothingOpen();
}

TEST_P(FamilyStoreTest, AppendingWritesTheHeaderAndTheItem) {
  on_.items({"A", "B"});
  const std::string before = on_.file();
  const std::string record = on_.item("third");
  on_.store.writeNewItem(asBytes(record));
  EXPECT_EQ(on_.state.Count, 3);
  EXPECT_TRUE(on_.file() == "\3\0"s + kCurrentHeader + before.substr(12) + record);
  using enum FileOperation;
  EXPECT_EQ(on_.operations(), (std::vector{open, write, close, open, write, close}));
  on_.expectNothingOpen();
}

TEST_P(FamilyStoreTest, TheFirstItemOfANewFile) {
  on_.store.WriteHeader(0, on_.kind.rules.fileType, OpenMode::create);
  EXPECT_EQ(on_.file(), "\0\0"s + kCurrentHeader);
  const std::string record = on_.item("first");
  on_.store.writeNewItem(asBytes(record));
  EXPECT_EQ(on_.state.Count, 1);
  EXPECT_EQ(on_.file(),
            "\1\0"s + kCurrentHeader + std::string(on_.kind.recordLength - 12, '\0') + record);
}

TEST_P(FamilyStoreTest, ADeletedSlotIsNeverReused) {
  on_.items({kDeleted, "B", "C"});
  const std::string deleted = on_.zeroFilled();
  EXPECT_TRUE(on_.store.writeDeleted(2, asBytes(deleted)));
  for (const int count : {4, 5}) {
    const std::string record = on_.item("new " + std::to_string(count));
    on_.store.writeNewItem(asBytes(record));
    EXPECT_EQ(on_.state.Count, count);
    EXPECT_EQ(on_.stored(count), record);
  }
  EXPECT_EQ(on_.stored(1), on_.item(kDeleted));
  EXPECT_EQ(on_.stored(2), deleted);
  EXPECT_EQ(on_.stored(3), on_.item("C"));
  EXPECT_EQ(headerOf(on_.file()).Count, 5);
  const auto all = on_.operations();
  EXPECT_EQ(std::ranges::count(all, FileOperation::read), 0);
}

TEST_P(FamilyStoreTest, NextIsOneUpDeletedOrNot) {
  on_.items({"A", kDeleted, kDeleted, "D"});
  for (const auto& [from, name] : {std::pair(1, kDeleted), {2, kDeleted}, {3, "D"sv}}) {
    EXPECT_EQ(on_.next(from), from + 1);
    EXPECT_EQ(on_.shownName(), name);
    EXPECT_EQ(on_.shownBytes(), on_.stored(from + 1));
  }
  on_.expectNothingOpen();
}

TEST_P(FamilyStoreTest, NextBeyondCountShowsWhatIsOnDiskAndThenBlankRecords) {
  on_.writeItems(1, {"A", "beyond"});
  EXPECT_EQ(on_.next(1), 2);
  EXPECT_EQ(on_.shownName(), "beyond");
  EXPECT_EQ(on_.next(2), 3);
  EXPECT_EQ(on_.shownBytes(), on_.blank());
  EXPECT_EQ(on_.next(49), 50);
  EXPECT_EQ(on_.shownBytes(), on_.blank());
}

TEST_P(FamilyStoreTest, ARecordThatTheEndOfTheFileCutsOffGoesOnBlank) {
  on_.items({"A", "B"});
  writeFile(on_.path, on_.file().substr(0, 3 * on_.kind.recordLength - 60));
  EXPECT_EQ(on_.next(1), 2);
  const std::size_t there = on_.kind.recordLength - 60;
  EXPECT_EQ(on_.shownBytes(), on_.item("B").substr(0, there) + on_.blank().substr(there));
}

TEST_P(FamilyStoreTest, NextIsNowhereWhenNoItemIsShown) {
  on_.items({"A", "B"});
  for (const int position : {0, -1, -2, -32768}) EXPECT_EQ(on_.next(position), std::nullopt);
  EXPECT_TRUE(on_.files.operations().empty());
  EXPECT_EQ(on_.shownBytes(), std::string(on_.kind.recordLength, '\0'));
}

TEST_P(FamilyStoreTest, PastTheLastPositionIsAnOverflow) {
  on_.items({"A"});
  EXPECT_EQ(on_.next(32766), 32767);
  EXPECT_EQ(failureOf([&] { on_.next(32767); }).number, 6);
  on_.expectNothingOpen();
}

TEST_P(FamilyStoreTest, PreviousIsOneDownDeletedOrNot) {
  on_.items({kDeleted, "B", kDeleted, "D"});
  for (const auto& [from, name] : {std::pair(4, kDeleted), {3, "B"sv}, {2, kDeleted}}) {
    EXPECT_EQ(on_.previous(from, 4), from - 1);
    EXPECT_EQ(on_.shownName(), name);
  }
  EXPECT_EQ(on_.laps, 0);
  on_.expectNothingOpen();
}

TEST_P(FamilyStoreTest, PreviousDoesNotWrapRoundAndNeverShowsTheHeader) {
  on_.items({"A", "B", "C"});
  EXPECT_EQ(on_.previous(1, 3), 1);
  EXPECT_EQ(on_.shownBytes(), on_.item("A"));
}

TEST_P(FamilyStoreTest, PreviousSetsOutFromCountWhenNoItemIsShown) {
  on_.items({"A", "B", "C"});
  for (const int position : {0, -1, -7, -32768}) {
    EXPECT_EQ(on_.previous(position, 3), 2) << position;
    EXPECT_EQ(on_.shownBytes(), on_.item("B"));
  }
  on_.items({"A", "B"});
  for (const int position : {0, -1}) {
    EXPECT_EQ(on_.previous(position, 2), 1);
    EXPECT_EQ(on_.shownBytes(), on_.item("A"));
  }
}

TEST_P(FamilyStoreTest, PreviousShowsTheOnlyItemWhenNoneIsShown) {
  for (const std::string_view name : {"A"sv, kDeleted}) {
    on_.items({name});
    for (const int position : {0, -1, 1}) {
      EXPECT_EQ(on_.previous(position, 1), 1) << position;
      EXPECT_EQ(on_.shownBytes(), on_.item(name)) << position;
    }
  }
  EXPECT_EQ(on_.laps, 0);
}

TEST_P(FamilyStoreTest, PreviousComesBackFromBeyondCountOneByOne) {
  on_.items({"A", "B", "C"});
  EXPECT_EQ(on_.previous(50, 3), 49);
  EXPECT_EQ(on_.shownBytes(), on_.blank());
  EXPECT_EQ(on_.previous(4, 3), 3);
  EXPECT_EQ(on_.shownName(), "C");
}

TEST_P(FamilyStoreTest, PreviousIsNowhereInAnEmptyCollection) {
  on_.items({});
  for (const int count : {0, -1, -32768})
    for (const int position : {-1, 0, 1, 2, 5})
      EXPECT_EQ(on_.previous(position, count), std::nullopt) << position;
  EXPECT_TRUE(on_.files.operations().empty());
  EXPECT_EQ(on_.shownBytes(), std::string(on_.kind.recordLength, '\0'));
}

TEST_P(FamilyStoreTest, AReadErrorLeavesTheShownItemAsItWas) {
  on_.items({"A", "B", "C"});
  EXPECT_EQ(on_.next(1), 2);
  for (const bool up : {true, false}) {
    on_.files.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
    const Failure failure = failureOf([&] { up ? on_.next(2) : on_.previous(2, 3); });
    EXPECT_EQ(failure, (Failure{57, on_.path}));
    EXPECT_EQ(on_.shownBytes(), on_.item("B"));
    on_.expectNothingOpen();
  }
}

TEST_P(FamilyStoreTest, DeletingIsWrittenAndNotReadBack) {
  on_.items({"A", "B", "C"});
  std::string expected = on_.file();
  const std::string record = on_.zeroFilled();
  expected.replace(2 * on_.kind.recordLength, on_.kind.recordLength, record);
  EXPECT_TRUE(on_.store.writeDeleted(2, asBytes(record)));
  EXPECT_TRUE(on_.file() == expected);
  EXPECT_EQ(on_.state.Count, 3);
  using enum FileOperation;
  EXPECT_EQ(on_.operations(), (std::vector{open, write, close}));
  EXPECT_TRUE(on_.store.writeDeleted(1, asBytes(on_.item("not deleted"))));
  EXPECT_EQ(on_.name(1), "not deleted");
  on_.expectNothingOpen();
}

TEST_P(FamilyStoreTest, APositionThatIsNoItemIsNeverWritten) {
  on_.items({"A", "B"});
  const std::string before = on_.file();
  const std::string record = on_.item("X");
  const std::string deleted = on_.zeroFilled();
  for (const int item : {0, -1, -2, -32768}) {
    EXPECT_EQ(failureOf([&] { on_.store.WriteRecord(item, asBytes(record), 2); }),
              (Failure{63, on_.path}));
    EXPECT_EQ(failureOf([&] { on_.store.writeDeleted(item, asBytes(deleted)); }),
              (Failure{63, on_.path}));
  }
  EXPECT_TRUE(on_.file() == before);
  on_.expectNothingOpen();
}

TEST_P(FamilyStoreTest, AnItemIsDeletedWhenItsFirstFieldIsTheMarkerAndTrailingBlanks) {
  const struct {
    std::string_view name;
    bool deleted;
  } rows[] = {
      {"DELETED", true}, {" DELETED", false},  {"DETELED", false},     {"deleted", false},
      {"DELETE", false}, {"DELETED 2", false}, {"DELETED\0"sv, false}, {"", false},
  };
  for (const auto& row : rows)
    EXPECT_EQ(on_.store.isDeleted(asBytes(on_.item(row.name))), row.deleted) << row.name;
  EXPECT_TRUE(on_.store.isDeleted(asBytes(on_.zeroFilled())));
  EXPECT_FALSE(on_.store.isDeleted(asBytes(on_.blank())));
}

TEST_P(FamilyStoreTest, AfterAnyFailureANewItemCanBeStoredAgainInTheSameSlot) {
  const std::string record = on_.item("new");
  for (const bool shortWrites : {false, true}) {
    on_.files.shortWrites = shortWrites;
    int failures = 0;
    for (int nth = 0;; ++nth) {
      SCOPED_TRACE((shortWrites ? "short writes, operation " : "operation ") + std::to_string(nth));
      on_.items({"A", kDeleted, "C"});
      const std::string before = on_.file();
      const std::string earlier = before.substr(on_.kind.recordLength);
      on_.files.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = failureOf([&] { on_.store.writeNewItem(asBytes(record)); });
      if (!on_.files.hasFailed()) break;
      ++failures;
      EXPECT_EQ(failure, (Failure{61, on_.path}));
      EXPECT_EQ(on_.state.Count, 3);
      EXPECT_TRUE(on_.file().substr(on_.kind.recordLength, earlier.size()) == earlier);
      on_.expectNothingOpen();
      on_.store.writeNewItem(asBytes(record));
      EXPECT_EQ(on_.state.Count, 4);
      EXPECT_TRUE(on_.file() == "\4\0"s + kCurrentHeader + before.substr(12) + record);
    }
    EXPECT_EQ(failures, on_.files.operationsThatMatter());
  }
}

TEST_P(FamilyStoreTest, AfterAnyFailureAnItemInPlaceCanBeWrittenAgain) {
  const std::string record = on_.item("changed");
  for (const bool shortWrites : {false, true}) {
    on_.files.shortWrites = shortWrites;
    int failures = 0;
    for (int nth = 0;; ++nth) {
      on_.items({"A", "B", "C"});
      std::string expected = on_.file();
      expected.replace(2 * on_.kind.recordLength, on_.kind.recordLength, record);
      on_.files.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = failureOf([&] { on_.store.WriteRecord(2, asBytes(record), 3); });
      if (!on_.files.hasFailed()) break;
      ++failures;
      EXPECT_EQ(failure, (Failure{61, on_.path}));
      EXPECT_EQ(on_.name(1), "A");
      EXPECT_EQ(on_.name(3), "C");
      on_.expectNothingOpen();
      on_.store.WriteRecord(2, asBytes(record), 3);
      EXPECT_TRUE(on_.file() == expected) << nth;
    }
    EXPECT_EQ(failures, on_.files.operationsThatMatter());
  }
}

TEST_P(FamilyStoreTest, CountDoesNotRiseBeyondSixteenBits) {
  on_.store.WriteHeader(32767, 1, OpenMode::create);
  on_.state.Count = 32767;
  const std::string before = on_.file();
  EXPECT_EQ(failureOf([&] { on_.store.writeNewItem(asBytes(on_.item("X"))); }).number, 6);
  EXPECT_EQ(on_.state.Count, 32767);
  EXPECT_EQ(on_.file(), before);
}

TEST_P(MediaStoreTest, WritingAnItemRewritesTheHeaderToo) {
  on_.items({"A", "B", "C"});
  std::string expected = on_.file();
  const std::string record = on_.item("changed");
  expected.replace(2, kCurrentHeader.size(), kCurrentHeader);
  expected.replace(2 * on_.kind.recordLength, on_.kind.recordLength, record);
  on_.store.WriteRecord(2, asBytes(record), 3);
  EXPECT_TRUE(on_.file() == expected);
  EXPECT_EQ(headerOf(on_.file()).FileType, 1);
  using enum FileOperation;
  EXPECT_EQ(on_.operations(), (std::vector{open, write, write, close}));
  on_.expectNothingOpen();
}

TEST_P(MediaStoreTest, ANewItemGoesIntoTheLowestDeletedSlotOrAfterTheLast) {
  on_.items({"A", kDeleted, "C", "  DELETED"});
  std::string expected = on_.file();
  expected.replace(2, kCurrentHeader.size(), kCurrentHeader);
  for (const int slot : {2, 4}) {
    const std::string record = on_.item("new " + std::to_string(slot));
    expected.replace(static_cast<std::size_t>(slot) * on_.kind.recordLength, on_.kind.recordLength,
                     record);
    on_.store.writeNewItem(asBytes(record));
    EXPECT_TRUE(on_.file() == expected) << slot;
    EXPECT_EQ(on_.state.Count, 4);
  }
  const std::string record = on_.item("fifth");
  on_.store.writeNewItem(asBytes(record));
  EXPECT_EQ(on_.state.Count, 5);
  EXPECT_TRUE(on_.file() == "\5\0"s + expected.substr(2) + record);
  on_.expectNothingOpen();
}

TEST_P(MediaStoreTest, TheMusicEditorsMarkerIsNoSlot) {
  on_.items({"DETELED", "deleted", "DELETED 2"});
  on_.store.writeNewItem(asBytes(on_.item("new")));
  EXPECT_EQ(on_.state.Count, 4);
  EXPECT_EQ(on_.name(1), "DETELED");
  EXPECT_EQ(on_.name(4), "new");
}

TEST_P(MediaStoreTest, NextAndPreviousStepOverDeletedItems) {
  on_.items({"A", kDeleted, kDeleted, "D", "DETELED"});
  EXPECT_EQ(on_.next(1), 4);
  EXPECT_EQ(on_.shownName(), "D");
  EXPECT_EQ(on_.next(4), 5);
  EXPECT_EQ(on_.shownName(), "DETELED");
  EXPECT_EQ(on_.previous(4, 5), 1);
  EXPECT_EQ(on_.shownName(), "A");
  on_.expectNothingOpen();
}

TEST_P(MediaStoreTest, NextDoesNotWrapRoundButPreviousDoes) {
  on_.items({kDeleted, "B", "C", kDeleted});
  EXPECT_EQ(on_.previous(2, 4), 3);
  EXPECT_EQ(on_.shownName(), "C");
  EXPECT_EQ(on_.previous(1, 4), 3);
  EXPECT_EQ(on_.laps, 0);
  EXPECT_EQ(on_.next(3), 5);
  EXPECT_EQ(on_.shownBytes(), on_.blank());
  EXPECT_EQ(on_.next(0), std::nullopt);
  EXPECT_EQ(on_.next(-1), std::nullopt);
}

TEST_P(MediaStoreTest, PreviousSetsOutFromCountWhenNoItemIsShown) {
  on_.items({"A", "B", "C"});
  for (const int position : {0, -1}) {
    EXPECT_EQ(on_.previous(position, 3), 2);
    EXPECT_EQ(on_.shownName(), "B");
  }
  on_.items({"A"});
  EXPECT_EQ(on_.previous(-1, 1), 1);
  EXPECT_EQ(on_.previous(-1, 0), std::nullopt);
}

TEST_P(MediaStoreTest, PreviousReportsALapWhenEveryItemIsDeleted) {
  on_.items({kDeleted, kDeleted, kDeleted});
  EXPECT_EQ(on_.previous(2, 3), std::nullopt);
  EXPECT_EQ(on_.laps, 1);
}

TEST_P(MediaStoreTest, DeletingIsWrittenAndReadBack) {
  on_.items({"A", "B", "C"});
  std::string expected = on_.file();
  const std::string record = on_.item(kDeleted);
  expected.replace(2, kCurrentHeader.size(), kCurrentHeader);
  expected.replace(2 * on_.kind.recordLength, on_.kind.recordLength, record);
  EXPECT_TRUE(on_.store.writeDeleted(2, asBytes(record)));
  EXPECT_TRUE(on_.file() == expected);
  using enum FileOperation;
  EXPECT_EQ(on_.operations(), (std::vector{open, write, write, close, open, read, close}));
  EXPECT_FALSE(on_.store.writeDeleted(1, asBytes(on_.item("DETELED"))));
  EXPECT_EQ(on_.state.Count, 3);
}

TEST_P(MediaStoreTest, AfterAnyFailureANewItemCanBeStoredAgainInTheSameSlot) {
  const std::string record = on_.item("new");
  for (const bool reuses : {false, true})
    for (const bool shortWrites : {false, true}) {
      on_.files.shortWrites = shortWrites;
      const int slot = reuses ? 2 : 4;
      int failures = 0;
      for (int nth = 0;; ++nth) {
        SCOPED_TRACE((shortWrites ? "short writes, operation " : "operation ") +
                     std::to_string(nth));
        on_.items({"A", reuses ? kDeleted : "B"sv, "C"});
        on_.files.failNth(nth, ErrorNumber::diskFull);
        const Failure failure = failureOf([&] { on_.store.writeNewItem(asBytes(record)); });
        if (!on_.files.hasFailed()) break;
        EXPECT_EQ(on_.name(1), "A");
        EXPECT_EQ(on_.name(3), "C");
        on_.expectNothingOpen();
        if (failure.number != 0) {  // failing to close a file that was only read does not matter
          ++failures;
          EXPECT_EQ(failure, (Failure{61, on_.path}));
          EXPECT_EQ(on_.state.Count, 3);
          on_.store.writeNewItem(asBytes(record));
        }
        EXPECT_EQ(on_.state.Count, reuses ? 3 : 4);
        EXPECT_EQ(headerOf(on_.file()).Count, reuses ? 3 : 4);
        EXPECT_EQ(headerOf(on_.file()).FileType, 1);
        EXPECT_EQ(on_.stored(slot), record);
        EXPECT_EQ(on_.file().size(),
                  static_cast<std::size_t>(reuses ? 4 : 5) * on_.kind.recordLength);
      }
      EXPECT_EQ(failures, on_.files.operationsThatMatter());
    }
}

}  // namespace
}  // namespace quillbox::test
