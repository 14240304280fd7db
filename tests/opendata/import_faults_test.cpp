// Each file operation of import, restore and undelete fails once: the collection is the old one or
// the new one, and everything that existed still exists.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "opendata/restore.h"
#include "opendata/undelete.h"
#include "support/collection_path.h"
#include "support/opendata_support.h"

namespace quillbox::test {
namespace {

class ImportPath : public CollectionPath {
 public:
  explicit ImportPath(const CollectionKind& kind)
      : CollectionPath(kind,
                       {plainItem(kind, "a"), plainItem(kind, "DELETED"), plainItem(kind, "c")}) {
    writeFile(path_ + "~", "an earlier one");
    std::string first = plainItem(kind, "x");
    after_ = plainCollection(kind, {first, plainItem(kind, "DELETED"), plainItem(kind, "c")});
    if (tendsHeader(kind)) after_.replace(0, 12, plainHeader(kind, 3));
  }

  void run() override {
    ToldChanges watcher;
    const std::string column(kind_.fields.front().name);
    importCsv(files_, path_, "Item," + column + "\n1,x\n", {}, watcher);
  }

  void expectDone() const override {
    EXPECT_TRUE(collection() == after_);
    // The attempt before may have failed only in keeping the earlier version.
    EXPECT_FALSE(bytesAt(path_ + "~") == "an earlier one");
    EXPECT_FALSE(std::filesystem::exists(path_ + ".new~") && !wasExchanged_);
  }

  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    const std::string now = collection();
    wasExchanged_ = now == after_;
    EXPECT_TRUE(now == before_ || now == after_);
    const bool isEarlierThere =
        bytesAt(path_ + "~") == before_ || bytesAt(path_ + ".new~") == before_;
    if (wasExchanged_)
      EXPECT_TRUE(isEarlierThere);
    else
      EXPECT_EQ(bytesAt(path_ + "~"), "an earlier one");
  }

  /// Removes what a failure could not remove, and starts again.
  void putInOrder() override {
    std::filesystem::remove(path_ + ".new~");
    writeFile(path_, before_);
    writeFile(path_ + "~", before_);
    wasExchanged_ = false;
  }

 private:
  std::string after_;
  mutable bool wasExchanged_ = false;
};

class RestorePath : public CollectionPath {
 public:
  explicit RestorePath(const CollectionKind& kind)
      : CollectionPath(kind, {plainItem(kind, "now")}),
        backup_(folder_.path("mine.bak")),
        whole_(plainCollection(kind, {plainItem(kind, "b"), plainItem(kind, "a")})) {
    writeFile(backup_, whole_);
  }

  void run() override { restoreCollection(files_, path_); }

  void expectDone() const override {
    EXPECT_TRUE(collection() == whole_);
    EXPECT_FALSE(std::filesystem::exists(backup_));
    EXPECT_TRUE(bytesAt(path_ + "~") == before_);
  }

  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    const bool isBack = collection() == whole_;
    EXPECT_TRUE(isBack || collection() == before_);
    EXPECT_TRUE(isBack ? bytesAt(backup_) == before_ || bytesAt(path_ + "~") == before_
                       : bytesAt(backup_) == whole_);
  }

  void putInOrder() override {
    std::filesystem::remove(path_ + "~");
    writeFile(path_, before_);
    writeFile(backup_, whole_);
  }

 private:
  std::string backup_;
  std::string whole_;
};

class UndeletePath : public CollectionPath {
 public:
  explicit UndeletePath(const CollectionKind& kind)
      : CollectionPath(kind, {plainItem(kind, "a"), plainItem(kind, kind.rules.deletion.marker)}),
        after_(plainCollection(kind, {plainItem(kind, "a"), back(kind)})) {
    if (tendsHeader(kind)) after_.replace(0, 12, plainHeader(kind, 2));
  }

  void run() override {
    const CollectionFile file = readCollectionFile(files_, path_);
    undeleteItem(state_.files, file, Values(file), 2, "back again", {});
  }

  void expectDone() const override { EXPECT_TRUE(collection() == after_); }

  /// The header may already be written; the item is the deleted or the restored one.
  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    std::string now = collection();
    ASSERT_EQ(now.size(), before_.size());
    now.replace(0, 12, before_, 0, 12);
    EXPECT_TRUE(now == before_ || now.substr(12) == after_.substr(12));
  }

  void putInOrder() override { writeFile(path_, before_); }

 private:
  /// The text that replaces the marker, followed by blanks.
  static std::string back(const CollectionKind& kind) { return plainItem(kind, "back again"); }

  std::string after_;
};

class OpenDataFaults : public testing::TestWithParam<FaultPathRow> {};

TEST_P(OpenDataFaults, LeaveTheOldOneOrTheNewOne) { runFaultTable(GetParam().make); }

INSTANTIATE_TEST_SUITE_P(Paths, OpenDataFaults,
                         testing::ValuesIn(joined({rowsOf<ImportPath>("Import"),
                                                   rowsOf<RestorePath>("Restore"),
                                                   rowsOf<UndeletePath>("Undelete")})),
                         nameOfPath);

}  // namespace
}  // namespace quillbox::test
