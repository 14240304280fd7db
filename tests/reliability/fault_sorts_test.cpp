#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "records/header_record.h"
#include "support/fault_table.h"
#include "support/machine.h"
#include "support/music_files.h"
#include "support/sort_model.h"

namespace quillbox::test {
namespace {

/// A collection of four items, one of them blank, so that a sort changes every byte it can.
class CollectionToSort : public FaultPath {
 public:
  explicit CollectionToSort(const ModelKind& kind, bool isBehindALink = false)
      : kind_(kind),
        path_(folder_.path("mine." + std::string(kind.extension))),
        file_(isBehindALink ? folder_.path("elsewhere/real") : path_),
        isBehindALink_(isBehindALink),
        backup_(folder_.path("mine.bak")) {
    std::filesystem::create_directory("elsewhere");
    if (isBehindALink) std::filesystem::create_symlink("elsewhere/real", path_);
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
  bool isUnderBackup() const { return !backup().empty(); }

  /// Beside the link, or beside the file if it could not be moved there.
  std::string backup() const {
    for (const std::string& name : {backup_, folder_.path("elsewhere/bak")})
      if (std::filesystem::exists(name)) return name;
    return {};
  }

  const ModelKind& kind_;
  std::string path_;
  std::string file_;
  bool isBehindALink_;
  std::string backup_;
  std::string before_;
  std::string sorted_;
  NoBoard board_;
};

class SortPath : public CollectionToSort {
 public:
  explicit SortPath(const ModelKind& kind, bool isBehindALink = false)
      : CollectionToSort(kind, isBehindALink) {
    // As the sort before has left it.
    if (kind.alwaysSorted) state_.files.open(file_number::collection, path_, OpenMode::update);
  }

  void run() override {
    ended_ = false;
    try {
      state_.Count = sortCollection(state_.files, state_, kind_.row(), kind_.everyTick(), board_);
    } catch (const ProgramEnd&) {
      ended_ = true;
    }
  }

  void expectDone() const override {
    EXPECT_EQ(ended_, kind_.endsProgram);
    EXPECT_EQ(isUnderItsName(), !ended_);
    EXPECT_EQ(isUnderBackup(), ended_);
    EXPECT_TRUE(ended_ ? bytesAt(backup()) == before_ : collection() == sorted_);
    EXPECT_EQ(state_.Count, ended_ ? 4 : 3);
    EXPECT_EQ(std::filesystem::is_symlink(path_), isBehindALink_);
  }

  void expectSafe(const Fault& /*fault*/, const Failure& failure) const override {
    const bool isSorted = collection() == sorted_;
    EXPECT_EQ(state_.Count, isSorted && failure.number == 0 ? 3 : 4);
    EXPECT_EQ(std::filesystem::is_symlink(path_), isBehindALink_);
    if (isUnderBackup()) {
      EXPECT_TRUE(bytesAt(backup()) == before_);
    } else {
      EXPECT_TRUE(isSorted || collection() == before_);
    }
  }

  /// Restores the collection's name and opens it again.
  void putInOrder() override {
    if (isUnderBackup()) {
      std::filesystem::remove(file_);
      std::filesystem::rename(backup(), file_);
    }
    state_.Count = headerOf(collection()).Count;
  }

  /// The file that was open before may have been written.
  bool endsWith(std::size_t nth) const override {
    return CollectionToSort::endsWith(nth) || (kind_.alwaysSorted && nth == 0);
  }

 private:
  bool ended_ = false;
};

/// Books sorted to the end, as on the command line.
class SortToTheEnd : public CollectionToSort {
 public:
  using CollectionToSort::CollectionToSort;

  void run() override {
    SortRules rules = sortRulesOf(kind_.row());
    rules.endsProgramAfter.reset();
    state_.Count =
        sortCollection(state_.files, state_, kind_.row(), rules, kind_.everyTick(), board_);
  }

  void expectDone() const override {
    EXPECT_TRUE(collection() == sorted_);
    EXPECT_FALSE(isUnderBackup());
  }

  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    if (isUnderBackup())
      EXPECT_TRUE(bytesAt(backup()) == before_);
    else
      EXPECT_TRUE(collection() == sorted_ || collection() == before_);
  }

  void putInOrder() override {
    if (isUnderBackup()) std::filesystem::remove(backup());
    writeFile(path_, before_);
    state_.Count = headerOf(before_).Count;
  }
};

/// After a sort of media files: the collection is left open.
class FinishPath : public CollectionToSort {
 public:
  using CollectionToSort::CollectionToSort;

  void run() override { finishSort(state_.files, state_, kind_.row()); }
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

std::vector<FaultPathRow> everySort() {
  std::vector<FaultPathRow> rows;
  for (const ModelKind& kind : kModelKinds) {
    rows.push_back(
        {std::string("SortOf") + kind.name, [&kind] { return std::make_unique<SortPath>(kind); }});
    if (kMachine.links == nullptr)
      rows.push_back({std::string("SortBehindALinkOf") + kind.name,
                      [&kind] { return std::make_unique<SortPath>(kind, true); }});
    if (kind.endsProgram)
      rows.push_back({std::string("SortToTheEndOf") + kind.name,
                      [&kind] { return std::make_unique<SortToTheEnd>(kind); }});
    if (kind.alwaysSorted)
      rows.push_back({std::string("EndOfTheSortOf") + kind.name,
                      [&kind] { return std::make_unique<FinishPath>(kind); }});
  }
  return rows;
}

class FaultTableOfSorts : public testing::TestWithParam<FaultPathRow> {};

TEST_P(FaultTableOfSorts, NoFaultOfAnyOperationCostsAnItem) { runFaultTable(GetParam().make); }

INSTANTIATE_TEST_SUITE_P(Paths, FaultTableOfSorts, testing::ValuesIn(everySort()), nameOfPath);

}  // namespace
}  // namespace quillbox::test
