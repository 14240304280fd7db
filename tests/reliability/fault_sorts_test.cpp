#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "records/header_record.h"
#include "support/fault_table.h"
#include "support/music_files.h"
#include "support/sort_model.h"

namespace quillbox::test {
namespace {

/// A collection of four items, one of them blank, so that a sort changes every byte that it can.
class CollectionToSort : public FaultPath {
 public:
  explicit CollectionToSort(const SortedKind& kind)
      : kind_(kind),
        path_(folder_.path("mine." + std::string(kind.kind().extension))),
        backup_(folder_.path("mine.bak")) {
    std::string blank = named(kind, "C", '-');
    blank.front() = '\0';
    before_ = sortFile(
        kind, {named(kind, "D", 'd'), blank, named(kind, "B", 'b'), named(kind, "A", 'a')});
    sorted_ = sortFile(kind, {named(kind, "A", 'a'), named(kind, "B", 'b'), named(kind, "D", 'd')});
    writeFile(path_, before_);
    state_.currentPath = path_;
    state_.Count = 4;
  }

 protected:
  std::string collection() const { return bytesAt(path_); }
  bool isUnderItsName() const { return std::filesystem::exists(path_); }
  bool isUnderBackup() const { return std::filesystem::exists(backup_); }

  const SortedKind& kind_;
  std::string path_;
  std::string backup_;
  std::string before_;
  std::string sorted_;
  NoBoard board_;
};

class SortPath : public CollectionToSort {
 public:
  explicit SortPath(const SortedKind& kind) : CollectionToSort(kind) {
    // As the sort before has left it.
    if (kind.alwaysSorted) state_.files.open(file_number::collection, path_, OpenMode::update);
  }

  void run() override {
    ended_ = false;
    try {
      sortCollection(state_, kind_.kind(), kind_.everyTick(), board_);
    } catch (const ProgramEnd&) {
      ended_ = true;
    }
  }

  void expectDone() const override {
    EXPECT_EQ(ended_, kind_.endsProgram);
    EXPECT_EQ(isUnderItsName(), !ended_);
    EXPECT_EQ(isUnderBackup(), ended_);
    EXPECT_TRUE(ended_ ? bytesAt(backup_) == before_ : collection() == sorted_);
    EXPECT_EQ(state_.Count, ended_ ? 4 : 3);
  }

  void expectSafe(const Fault& fault, const Failure& /*failure*/) const override {
    const bool isSorted = collection() == sorted_;
    // A new file that could not be closed, and not be removed either, does not count.
    const bool counts = isSorted && !(fault.lasts && state_.Count == 4);
    EXPECT_EQ(state_.Count, counts ? 3 : 4);
    if (isUnderBackup()) {
      EXPECT_TRUE(bytesAt(backup_) == before_);
    } else {
      EXPECT_TRUE(isSorted || collection() == before_);
    }
  }

  /// Gives the collection its name back and opens it again.
  void putInOrder() override {
    if (isUnderBackup()) {
      std::filesystem::remove(path_);
      std::filesystem::rename(backup_, path_);
    }
    state_.Count = headerOf(collection()).Count;
  }

  /// What was open before may have been written to.
  bool endsWith(std::size_t nth) const override {
    return CollectionToSort::endsWith(nth) || (kind_.alwaysSorted && nth == 0);
  }

 private:
  bool ended_ = false;
};

/// What follows a sort of media files: the collection is left open.
class FinishPath : public CollectionToSort {
 public:
  using CollectionToSort::CollectionToSort;

  void run() override { finishSort(state_, kind_.kind()); }
  void expectDone() const override {
    expectUntouched();
    EXPECT_TRUE(state_.files.isOpen(file_number::collection));
  }
  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    expectUntouched();
  }
  bool mayStayOpen(int number) const override { return number == file_number::collection; }

 private:
  void expectUntouched() const {
    EXPECT_TRUE(collection() == before_);
    EXPECT_EQ(state_.Count, 4);
  }
};

std::vector<FaultPathRow> everyRow() {
  std::vector<FaultPathRow> rows;
  for (const SortedKind& kind : kSortedKinds) {
    rows.push_back(
        {std::string("SortOf") + kind.name, [&kind] { return std::make_unique<SortPath>(kind); }});
    if (kind.alwaysSorted)
      rows.push_back({std::string("EndOfTheSortOf") + kind.name,
                      [&kind] { return std::make_unique<FinishPath>(kind); }});
  }
  return rows;
}

class FaultTableOfSorts : public testing::TestWithParam<FaultPathRow> {};

TEST_P(FaultTableOfSorts, NoFaultOfAnyOperationCostsAnItem) { runFaultTable(GetParam().make); }

INSTANTIATE_TEST_SUITE_P(Paths, FaultTableOfSorts, testing::ValuesIn(everyRow()), nameOfPath);

}  // namespace
}  // namespace quillbox::test
