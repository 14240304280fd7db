// Collections that a sort has left under their backup's name only.

#include "records/rescue.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/checked16.h"
#include "sortsearch/sort_engine.h"
#include "support/collection_path.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/machine.h"
#include "support/recording_board.h"
#include "support/test_folder.h"

#ifndef _WIN32
#include "support/other_disk.h"
#endif

namespace quillbox::test {
namespace {

const CollectionKind& kind(const char* extension) { return *kindOfExtension(extension); }

class Rescue : public testing::Test {
 protected:
  std::string at(const std::string& name) const { return folder_.path(name); }

  std::optional<LostCollection> find(const char* extension = "BCS") {
    return findLost(files_, kind(extension), at(std::string("shelf.") + extension));
  }

  /// Sorts the books of that path, which ends the program.
  void sortBooks(const std::string& path, int count) {
    AppState state(files_);
    state.currentPath = path;
    state.Count = checked16(count);
    RecordingBoard board;
    EXPECT_THROW(
        sortCollection(state.files, state, kind("BCS"), {true, false, false, false}, board),
        ProgramEnd);
  }

  static std::string books(const std::vector<std::string>& authors) {
    return plainCollection(kind("BCS"), authorsAsItems(authors));
  }

  TestFolder folder_;
  FailingFiles files_;

 private:
  static std::vector<std::string> authorsAsItems(const std::vector<std::string>& authors) {
    std::vector<std::string> items;
    for (const std::string& author : authors) items.push_back(plainItem(kind("BCS"), author));
    return items;
  }
};

TEST_F(Rescue, FindsAndPutsBackTheBooksThatASortHasLeft) {
  const std::string before = books({"B", "A", "C"});
  writeFile(at("shelf.BCS"), before);
  sortBooks(at("shelf.BCS"), 3);
  const auto lost = find();
  ASSERT_TRUE(lost);
  EXPECT_EQ(lost->path, at("shelf.BCS"));
  EXPECT_EQ(lost->backup, at("shelf.bak"));
  EXPECT_EQ(lost->count, 3);
  putBack(files_, *lost);
  EXPECT_TRUE(readFile(at("shelf.BCS")) == before);
  EXPECT_FALSE(std::filesystem::exists(at("shelf.bak")));
  EXPECT_FALSE(find()) << "it is there again";
}

TEST_F(Rescue, FindsACollectionOfEveryKind) {
  for (const CollectionKind& each : collectionKinds()) {
    SCOPED_TRACE(each.extension);
    writeFile(at("shelf.bak"), plainCollection(each, {plainItem(each, "A"), plainItem(each, "B")}));
    const auto lost = findLost(files_, each, at("shelf." + extensionIn(each)));
    ASSERT_TRUE(lost);
    EXPECT_EQ(lost->count, 2);
  }
}

TEST_F(Rescue, FindsNothingBesideACollectionThatIsThere) {
  writeFile(at("shelf.bak"), books({"A"}));
  writeFile(at("shelf.BCS"), "");
  EXPECT_FALSE(find());
}

TEST_F(Rescue, FindsNothingWhereThereIsNoBackup) { EXPECT_FALSE(find()); }

TEST_F(Rescue, TakesNoOtherKindForTheCollection) {
  for (const CollectionKind& each : collectionKinds()) {
    if (each.recordLength == kind("BCS").recordLength) continue;
    SCOPED_TRACE(each.extension);
    writeFile(at("shelf.bak"), plainCollection(each, {plainItem(each, "A"), plainItem(each, "B")}));
    EXPECT_FALSE(find());
  }
}

TEST_F(Rescue, TakesAFileThatEndsElsewhereForNoCollection) {
  const std::string whole = books({"A", "B", "C"});
  const std::size_t record = kind("BCS").recordLength;
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, std::size_t{11}, std::size_t{12}, record,
        whole.size() - record - 1, whole.size() - record + 1, whole.size() - 1}) {
    SCOPED_TRACE(size);
    writeFile(at("shelf.bak"), whole.substr(0, size));
    EXPECT_FALSE(find());
  }
  writeFile(at("shelf.bak"), whole + "more");
  EXPECT_FALSE(find());
}

TEST_F(Rescue, TakesANegativeCountForNoCollection) {
  writeFile(at("shelf.bak"), plainHeader(kind("BCS"), -1));
  EXPECT_FALSE(find());
}

TEST_F(Rescue, FindsACollectionThatLacksNothingButItsLastItem) {
  const std::string whole = books({"A", "B", "C"});
  writeFile(at("shelf.bak"), whole.substr(0, whole.size() - kind("BCS").recordLength));
  ASSERT_TRUE(find());
  EXPECT_EQ(find()->count, 3);
  writeFile(at("shelf.bak"), plainHeader(kind("BCS"), 1));
  ASSERT_TRUE(find()) << "the one item was never written behind the header";
}

TEST_F(Rescue, FindsAnEmptyCollection) {
  writeFile(at("shelf.bak"), plainHeader(kind("BCS"), 0));
  ASSERT_TRUE(find());
  EXPECT_EQ(find()->count, 0);
  writeFile(at("shelf.bak"), books({}));
  EXPECT_TRUE(find()) << "a header record that is full to its end";
}

TEST_F(Rescue, FindsABackupThatADotInAFoldersNameHasCut) {
  std::filesystem::create_directory(at("my.lists"));
  writeFile(at("my.lists/shelf.BCS"), books({"A"}));
  sortBooks(at("my.lists/shelf.BCS"), 1);
  const auto lost = findLost(files_, kind("BCS"), at("my.lists/shelf.BCS"));
  ASSERT_TRUE(lost);
  EXPECT_EQ(lost->backup, at("my.bak"));
  putBack(files_, *lost);
  EXPECT_TRUE(readFile(at("my.lists/shelf.BCS")) == books({"A"}));
}

TEST_F(Rescue, IsNotMisledByAFolderOfThatName) {
  std::filesystem::create_directory(at("shelf.bak"));
  EXPECT_FALSE(find());
}

TEST_F(Rescue, PutsNothingOverWhatHasComeMeanwhile) {
  writeFile(at("shelf.bak"), books({"A"}));
  const auto lost = find();
  ASSERT_TRUE(lost);
  writeFile(at("shelf.BCS"), "new");
  EXPECT_EQ(failureOf([&] { putBack(files_, *lost); }), (Failure{58, at("shelf.BCS")}));
  EXPECT_EQ(readFile(at("shelf.BCS")), "new");
  EXPECT_TRUE(readFile(at("shelf.bak")) == books({"A"}));
}

TEST_F(Rescue, PutsNothingOverALinkThatHasComeMeanwhile) {
  QUILLBOX_NEEDS(links);
  writeFile(at("shelf.bak"), books({"A"}));
  const auto lost = find();
  ASSERT_TRUE(lost);
  std::filesystem::create_symlink(at("nowhere"), at("shelf.BCS"));
  EXPECT_EQ(failureOf([&] { putBack(files_, *lost); }), (Failure{58, at("shelf.BCS")}));
  EXPECT_TRUE(std::filesystem::is_symlink(at("shelf.BCS")));
  EXPECT_TRUE(readFile(at("shelf.bak")) == books({"A"}));
}

TEST_F(Rescue, PutsACollectionBackToWhereItsLinkLeads) {
  QUILLBOX_NEEDS(links);
  std::filesystem::create_directory(at("elsewhere"));
  writeFile(at("elsewhere/real.BCS"), books({"A"}));
  std::filesystem::create_symlink("elsewhere/real.BCS", at("shelf.BCS"));
  sortBooks(at("shelf.BCS"), 1);
  const auto lost = find();
  ASSERT_TRUE(lost);
  EXPECT_EQ(lost->backup, at("shelf.bak"));
  putBack(files_, *lost);
  EXPECT_TRUE(std::filesystem::is_symlink(at("shelf.BCS")));
  EXPECT_TRUE(readFile(at("elsewhere/real.BCS")) == books({"A"}));
}

#ifndef _WIN32

TEST_F(Rescue, FindsABackupThatStayedOnTheDiskOfItsFile) {
  const OtherDisk disk;
  if (!disk.isThere()) GTEST_SKIP() << "no other file system";
  writeFile(disk.path("real.BCS"), books({"A"}));
  std::filesystem::create_symlink(disk.path("real.BCS"), at("shelf.BCS"));
  sortBooks(at("shelf.BCS"), 1);
  const auto lost = find();
  ASSERT_TRUE(lost);
  EXPECT_EQ(lost->backup, disk.path("real.bak"));
  putBack(files_, *lost);
  EXPECT_TRUE(readFile(at("shelf.BCS")) == books({"A"}));
}

#endif

TEST_F(Rescue, FindsNothingWhereLinksLeadRound) {
  QUILLBOX_NEEDS(links);
  writeFile(at("shelf.bak"), books({"A"}));
  std::filesystem::create_symlink(at("other.BCS"), at("shelf.BCS"));
  std::filesystem::create_symlink(at("shelf.BCS"), at("other.BCS"));
  EXPECT_FALSE(find());
}

TEST_F(Rescue, FindsNothingWhereSomethingCannotBeRead) {
  writeFile(at("shelf.bak"), books({"A", "B"}));
  const int operations = files_.operationsOf([&] { EXPECT_TRUE(find()); });
  for (int nth = 0; nth < operations; ++nth) {
    SCOPED_TRACE(nth);
    files_.failNth(nth, ErrorNumber::deviceIo);
    EXPECT_FALSE(find());
    EXPECT_TRUE(files_.hasFailed());
  }
}

TEST_F(Rescue, ARenamingThatFailsLeavesTheBackup) {
  writeFile(at("shelf.bak"), books({"A"}));
  const auto lost = find();
  ASSERT_TRUE(lost);
  files_.failNth(FileOperation::rename, 0, ErrorNumber::permissionDenied);
  EXPECT_EQ(failureOf([&] { putBack(files_, *lost); }), (Failure{70, at("shelf.bak")}));
  EXPECT_TRUE(readFile(at("shelf.bak")) == books({"A"}));
  EXPECT_FALSE(std::filesystem::exists(at("shelf.BCS")));
}

}  // namespace
}  // namespace quillbox::test
