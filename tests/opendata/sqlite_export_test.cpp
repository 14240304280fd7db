#include "opendata/sqlite_export.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "opendata/export_text.h"
#include "support/collection_path.h"
#include "support/failure.h"

namespace quillbox::test {
namespace {

class SqliteExport : public testing::Test {
 protected:
  SqliteExport() { writeFile(path_, plainCollection(*kind_, {plainItem(*kind_, "a")})); }

  Failure failureOfExport() {
    const CollectionFile collection = readCollectionFile(files_, path_);
    const Values values(collection);
    files_.failNth(FileOperation::rename, 0, ErrorNumber::deviceIo);
    return failureOf([&] { exportSqlite({files_, collection, values}, database_); });
  }

  std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
      found.insert(entry.path().filename().string());
    return found;
  }

  TestFolder folder_;
  FailingFiles files_;
  const CollectionKind* kind_ = kindOfCode(2);
  std::string path_ = folder_.path("mine." + extensionIn(*kind_));
  std::string database_ = folder_.path("mine.sqlite");
};

TEST_F(SqliteExport, OneThatFailsLeavesNothing) {
  const auto before = names();
  EXPECT_EQ(failureOfExport().number, 57);
  EXPECT_EQ(names(), before);
}

TEST_F(SqliteExport, OneThatFailsLeavesTheFileThatWasThere) {
  writeFile(database_, "earlier");
  const auto before = names();
  EXPECT_EQ(failureOfExport().number, 57);
  EXPECT_EQ(names(), before);
  EXPECT_EQ(readFile(database_), "earlier");
}

}  // namespace
}  // namespace quillbox::test
