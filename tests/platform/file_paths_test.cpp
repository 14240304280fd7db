#include "platform/file_paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/failing_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

class FilePaths : public testing::Test {
 protected:
  TestFolder folder_;
  FailingFiles files_;
};

TEST_F(FilePaths, KnowAFolderFromAFile) {
  writeFile(folder_.path("file"), "");
  std::filesystem::create_directory(folder_.path("empty"));
  EXPECT_TRUE(isFolder(files_, folder_.path()));
  EXPECT_TRUE(isFolder(files_, folder_.path("empty")));
  EXPECT_FALSE(isFolder(files_, folder_.path("file")));
  EXPECT_FALSE(isFolder(files_, folder_.path("missing")));
}

TEST_F(FilePaths, TakeAFolderThatCannotBeLookedIntoForNone) {
  files_.failNth(FileOperation::list, 0, ErrorNumber::permissionDenied);
  EXPECT_FALSE(isFolder(files_, folder_.path()));
}

TEST_F(FilePaths, TellBothNamesThatABackupCanHave) {
  const auto names =
      backupNames(files_, folder_.path("shelf.BCS"), folder_.path("far/real.one.BCS"), "bak");
  EXPECT_EQ(names.ofPath, folder_.path("shelf.bak"));
  EXPECT_EQ(names.ofFile, folder_.path("far/real.bak"));
}

TEST_F(FilePaths, CountTheBackupOfAPathWithoutADotFromTheCurrentFolder) {
  const auto names = backupNames(files_, folder_.path("shelf"), folder_.path("shelf"), "bak");
  EXPECT_EQ(names.ofPath, folder_.path("bak"));
}

}  // namespace
}  // namespace quillbox::test
