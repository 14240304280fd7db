#include "overview/missing_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "overview/item_reading.h"
#include "support/failing_files.h"
#include "support/overview_model.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr const ModelKind& kKind = kGraphics;

class MissingFilesTest : public testing::Test {
 protected:
  std::string item(const std::string& name, const std::string& folder) const {
    return itemWith(kKind, {{"txtFileName", fromUtf8(name)}, {"txtPath", fromUtf8(folder)}});
  }
  std::string item(const std::string& name) const { return item(name, folder_.path()); }

  MediaFileIs look(const std::string& bytes) { return lookForMediaFile(files_, recordOf(bytes)); }

  TestFolder folder_;
  FailingFiles files_;
};

TEST_F(MissingFilesTest, OnlyMediaFilesHaveFiles) {
  for (const ModelKind& kind : kModelKinds) {
    EXPECT_EQ(MissingFiles::hasFiles(kind.row()), kind.isMedia()) << kind.name;
    MissingFiles missing(files_, kind.row());
    missing.take(1, recordOf(familyItem(kind, "no such file", folder_.path("none"))));
    EXPECT_EQ(missing.gone(), kind.isMedia() ? std::vector{1} : std::vector<int>()) << kind.name;
  }
}

TEST_F(MissingFilesTest, AFileIsThereOrGone) {
  const std::string name = "two words \xC3\xA9t\xC3\xA9.gif";
  EXPECT_EQ(look(item(name)), MediaFileIs::gone);
  writeFile(folder_.path(name), "");
  EXPECT_EQ(look(item(name)), MediaFileIs::there);
  EXPECT_EQ(look(item(name, folder_.path("none"))), MediaFileIs::gone);
}

TEST_F(MissingFilesTest, ThePathIsThatOfTheFile) {
  EXPECT_EQ(mediaFilePath(recordOf(item("a.gif"))), folder_.path("a.gif"));
  EXPECT_EQ(mediaFilePath(recordOf(item(""))), std::nullopt);
  EXPECT_EQ(mediaFilePath(recordOf(item("a.gif", ""))), std::nullopt);
  EXPECT_EQ(mediaFilePath(recordOf(item("a.gif", "pictures"))), std::nullopt);
}

TEST_F(MissingFilesTest, WhereAnItemDoesNotSayWhereItsFileLiesNothingIsSaid) {
  EXPECT_EQ(look(item("", folder_.path())), MediaFileIs::unknown);
  EXPECT_EQ(look(item("a.gif", "pictures")), MediaFileIs::unknown);
  EXPECT_TRUE(files_.operations().empty());
}

TEST_F(MissingFilesTest, AFolderOfAnotherSystemIsGone) {
  EXPECT_EQ(look(item("a.gif", "Q:\\Pictures")), MediaFileIs::gone);
}

TEST_F(MissingFilesTest, ANameThatMayBeCutOrChangedIsOnlyThereOrUnknown) {
  const std::string full(64, 'x');
  EXPECT_EQ(look(item(full)), MediaFileIs::unknown);
  EXPECT_EQ(look(item(std::string(63, 'x'))), MediaFileIs::gone);
  EXPECT_EQ(look(item("?.gif")), MediaFileIs::unknown);
  EXPECT_EQ(look(item("a.gif", folder_.path("?"))), MediaFileIs::unknown);
  EXPECT_EQ(look(item("a.gif", "/" + std::string(127, 'x'))), MediaFileIs::unknown);
  writeFile(folder_.path(full), "");
  EXPECT_EQ(look(item(full)), MediaFileIs::there);
}

TEST_F(MissingFilesTest, WhatCannotBeAskedIsUnknown) {
  for (const ErrorNumber error : errorsOf(FileOperation::exists)) {
    files_.failNth(FileOperation::exists, 0, error);
    EXPECT_EQ(look(item("a.gif")), MediaFileIs::unknown);
  }
  EXPECT_EQ(look(item("a.gif")), MediaFileIs::gone);
}

TEST_F(MissingFilesTest, ThoseThatAreGoneAreListedInOrder) {
  writeFile(folder_.path("here.gif"), "");
  const std::string deleted = familyItem(kKind, "DELETED", folder_.path());
  OverviewCollection all(kKind, {item("gone.gif"), item("here.gif"), deleted, item("?.gif"),
                                 item("away.gif"), item("")});
  MissingFiles missing(files_, kKind.row());
  readAllItems(
      all.open, all.collection, kKind.row(), 6,
      [&](int number, std::span<const std::byte> record) { missing.take(number, record); });
  EXPECT_EQ(missing.gone(), (std::vector{1, 5}));
  EXPECT_EQ(missing.unknown(), 2);
  writeFile(folder_.path("gone.gif"), "");
  missing.take(1, recordOf(item("gone.gif")));
  EXPECT_EQ(missing.gone(), std::vector{5});
  missing.take(5, recordOf(deleted));
  EXPECT_EQ(missing.gone(), std::vector<int>());
  missing.take(5, recordOf(item("away.gif")));
  missing.cutTo(4);
  EXPECT_EQ(missing.gone(), std::vector<int>());
  EXPECT_EQ(missing.unknown(), 1);
  missing.cutTo(-1);
  EXPECT_EQ(missing.unknown(), 0);
}

TEST_F(MissingFilesTest, AnyBytesInARecordAreHarmless) {
  OverviewItems random(kKind);
  for (const std::string& bytes : random.items(500)) EXPECT_NE(look(bytes), MediaFileIs::there);
}

}  // namespace
}  // namespace quillbox::test
