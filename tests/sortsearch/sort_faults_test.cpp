#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/failure.h"
#include "support/sort_model.h"

namespace quillbox::test {
namespace {

constexpr ModelKind kKindsThatAreWritten[] = {kMusic, kComics, kVideo, kSoftware, kWaves};
constexpr ModelKind kKindsLeftOpen[] = {kWaves, kMidi, kGraphics, kMp3};

class SortFaults : public SortFixture, public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }

  /// Four items, one of them blank, so that a sort changes every byte it can.
  void putItems() {
    std::vector<std::string> blank = keys("C");
    blank.front() = std::string(1, '\0');
    put(kind(), {sortItem(kind(), keys("D"), 'd'), sortItem(kind(), blank, '-'),
                 sortItem(kind(), keys("B"), 'b'), sortItem(kind(), keys("A"), 'a')});
  }

  std::string sorted() const {
    return sortFile(kind(), {sortItem(kind(), keys("A"), 'a'), sortItem(kind(), keys("B"), 'b'),
                             sortItem(kind(), keys("D"), 'd')});
  }

  std::vector<std::string> keys(const std::string& text) const {
    std::vector<std::string> keys;
    for (const KeyPlace& key : kind().keys) keys.push_back(key.isNumber() ? "1" : text);
    return keys;
  }

  /// Creates the collection and fails the `nth` operation of its sort; false if there are fewer.
  bool failsAt(int nth) {
    files_.failNth(-1, ErrorNumber::diskFull);  // none, if the last one never came
    putItems();
    if (kind().alwaysSorted)
      state_.files.open(file_number::collection, state_.currentPath, OpenMode::update);
    files_.forget();
    files_.failNth(nth, ErrorNumber::diskFull);
    message_.clear();
    ended_ = false;
    try {
      message_ = messageOf(kind().everyTick());
    } catch (const ProgramEnd&) {
      ended_ = true;
    }
    return files_.hasFailed();
  }

  FileOperation failedOperation(int nth) const {
    return files_.operations().at(static_cast<std::size_t>(nth)).operation;
  }

  bool isUnderItsName() const { return std::filesystem::exists(state_.currentPath); }
  bool isUnderBackup() const { return std::filesystem::exists(backup_); }

  std::string message_;
  bool ended_ = false;
};

TEST_P(SortFaults, AfterAnyFailureACompleteCollectionIsUnderOneOfItsNames) {
  using enum FileOperation;
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    std::set<FileOperation> failed;
    int nth = 0;
    for (; failsAt(nth); ++nth) {
      SCOPED_TRACE("operation " + std::to_string(nth));
      failed.insert(failedOperation(nth));
      expectNothingOpen();
      ASSERT_TRUE(isUnderItsName() || isUnderBackup());
      if (isUnderBackup()) {
        EXPECT_TRUE(readFile(backup_) == old_);
      }
      const bool isSorted = isUnderItsName() && file() == sorted();
      if (isUnderItsName() && !isSorted) {
        EXPECT_TRUE(file() == old_);
        EXPECT_FALSE(isUnderBackup());
      }
      EXPECT_EQ(state_.Count, message_.empty() && isSorted ? 3 : 4);
    }
    EXPECT_FALSE(failsAt(nth));
    EXPECT_EQ(message_, "");
    if (kind().endsProgram) {
      EXPECT_TRUE(ended_);
      expectOnlyTheBackup();
      EXPECT_EQ(failed, (std::set{linkTarget, open, read, close, rename}));
    } else {
      expectOnlyTheCollection(sorted());
      EXPECT_EQ(failed,
                (std::set{linkTarget, open, make, read, write, flush, close, remove, rename}));
    }
  }
}

TEST_P(SortFaults, TheMessageNamesTheBackupExactlyWhenTheCollectionIsOnlyThere) {
  using enum FileOperation;
  std::set<std::pair<FileOperation, std::string>> withNote;
  for (int nth = 0; failsAt(nth); ++nth) {
    SCOPED_TRACE("operation " + std::to_string(nth));
    const std::string path = files_.operations().at(static_cast<std::size_t>(nth)).path;
    const std::string error = "Run-time error '61':\n\nDisk full\n" + path;
    const bool onlyBackup = isUnderBackup() && !isUnderItsName();
    if (message_.empty()) {  // failing to close a file that was only read does not matter
      EXPECT_EQ(failedOperation(nth), FileOperation::close);
      EXPECT_EQ(path, backup_);
      EXPECT_EQ(onlyBackup, ended_);
      continue;
    }
    EXPECT_TRUE(path == state_.currentPath || path == backup_) << path;
    EXPECT_EQ(message_, onlyBackup ? error + noteOf(backup_) : error);
    if (onlyBackup) withNote.emplace(failedOperation(nth), path);
  }
  std::set<std::pair<FileOperation, std::string>> expected = {{open, backup_}, {read, backup_}};
  if (!kind().endsProgram)
    for (const FileOperation operation : {make, write, flush, close})
      expected.emplace(operation, state_.currentPath);
  EXPECT_EQ(withNote, expected);
}

TEST_P(SortFaults, AFailureLeavesThePositionsAndTheBoardInOrder) {
  state_.CurRec = 2;
  state_.ListPos = 3;
  for (int nth = 0; failsAt(nth); ++nth) {
    SCOPED_TRACE("operation " + std::to_string(nth));
    EXPECT_EQ(state_.CurRec, 2);
    EXPECT_EQ(state_.ListPos, 3);
    EXPECT_TRUE(kind().showsProgress || board_.told.empty());
    if (!board_.told.empty()) {
      EXPECT_EQ(board_.told.front(), "open: Reading File...");
      EXPECT_EQ(board_.told.back(), "close");
      EXPECT_EQ(std::ranges::count(board_.told, "close"), 1);
    }
    board_.told.clear();
  }
}

TEST_P(SortFaults, ARenameThatFailsLeavesTheCollectionAsItWas) {
  putItems();
  files_.failNth(FileOperation::rename, 0, ErrorNumber::permissionDenied);
  EXPECT_EQ(messageOf(kind().everyTick()),
            "Run-time error '70':\n\nPermission denied\n" + state_.currentPath);
  expectOnlyTheCollection(old_);
  EXPECT_EQ(state_.Count, 4);
}

class SortFaultsOfTheNewFile : public SortFaults {};

TEST_P(SortFaultsOfTheNewFile, ABackupThatCannotBeDeletedStaysBesideTheSortedCollection) {
  putItems();
  files_.failNth(FileOperation::remove, 0, ErrorNumber::permissionDenied);
  EXPECT_EQ(messageOf(kind().everyTick()), "Run-time error '70':\n\nPermission denied\n" + backup_);
  EXPECT_TRUE(file() == sorted());
  EXPECT_TRUE(readFile(backup_) == old_);
  expectNothingOpen();
}

TEST_P(SortFaultsOfTheNewFile, ANewFileThatIsNotOnTheDiskIsRemovedAndTheBackupIsNot) {
  for (const FileOperation operation :
       {FileOperation::write, FileOperation::flush, FileOperation::close}) {
    putItems();
    // The first file that is closed is the backup, which was only read.
    const int nth = operation == FileOperation::close ? 1 : 0;
    files_.failNth(operation, nth, ErrorNumber::deviceIo);
    EXPECT_EQ(messageOf(kind().everyTick()),
              "Run-time error '57':\n\nDevice I/O error\n" + state_.currentPath + noteOf(backup_));
    expectOnlyTheBackup();
    expectNothingOpen();
    EXPECT_EQ(state_.Count, 4);
  }
}

TEST_P(SortFaultsOfTheNewFile, AFileThatTheSortDidNotMakeIsNotRemoved) {
  putItems();
  files_.beforeRead = [this] { writeFile(state_.currentPath, "precious"); };
  EXPECT_EQ(messageOf(kind().everyTick()),
            "Run-time error '58':\n\nFile already exists\n" + state_.currentPath + noteOf(backup_));
  EXPECT_EQ(file(), "precious");
  EXPECT_TRUE(readFile(backup_) == old_);
}

class SortFaultsAtTheEnd : public SortFaults {};

TEST_P(SortFaultsAtTheEnd, FailingToLeaveTheCollectionOpenDoesNotHarmIt) {
  files_.shortWrites = true;
  for (int nth = 0;; ++nth) {
    SCOPED_TRACE("operation " + std::to_string(nth));
    putItems();
    sort(kind().everyTick());
    files_.failNth(nth, ErrorNumber::deviceIo);
    const Failure failure = failureOf([&] { finish(); });
    expectOnlyTheCollection(sorted());
    EXPECT_EQ(state_.Count, 3);
    if (!files_.hasFailed()) break;
    EXPECT_EQ(failure, (Failure{57, state_.currentPath}));
    ASSERT_LT(nth, 10);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, SortFaults, testing::ValuesIn(kModelKinds), nameOfKind);
INSTANTIATE_TEST_SUITE_P(Kinds, SortFaultsOfTheNewFile, testing::ValuesIn(kKindsThatAreWritten),
                         nameOfKind);
INSTANTIATE_TEST_SUITE_P(Kinds, SortFaultsAtTheEnd, testing::ValuesIn(kKindsLeftOpen), nameOfKind);

}  // namespace
}  // namespace quillbox::test
