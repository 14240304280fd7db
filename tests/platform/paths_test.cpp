#include "platform/paths.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(Paths, FileNameIsWhatFollowsTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(fileNameOf("/home/ann/jazz.MCS"), "jazz.MCS");
  EXPECT_EQ(fileNameOf("C:\\Data\\jazz.mcs"), "jazz.mcs");
  EXPECT_EQ(fileNameOf("/a\\b/c"), "c");
  EXPECT_EQ(fileNameOf("jazz.MCS"), "jazz.MCS");
  EXPECT_EQ(fileNameOf("/home/"), "");
  EXPECT_EQ(fileNameOf(""), "");
}

TEST(Paths, ExtensionIsTheLastThreeCharactersInCapitals) {
  EXPECT_EQ(extensionOf("jazz.mcs"), "MCS");
  EXPECT_EQ(extensionOf("jazzMcs"), "MCS");
  EXPECT_EQ(extensionOf("cs"), "CS");
  EXPECT_EQ(extensionOf(""), "");
  EXPECT_EQ(extensionOf("\xE9t\xE9"), "\xE9T\xE9");
}

TEST(Paths, BackupNameIsCutAtTheFirstDotWhereverItStands) {
  EXPECT_EQ(backupPath("/data/Jazz.MCS", "BAK"), "/data/Jazz.BAK");
  EXPECT_EQ(backupPath("/my.dir/Jazz.MCS", "bak"), "/my.bak");
  EXPECT_EQ(backupPath("/data/a.b.MCS", "BAK"), "/data/a.BAK");
  EXPECT_EQ(backupPath("/data/JazzMCS", "BAK"), "BAK");
}

TEST(Paths, JoiningAnEmptyFolderGivesTheRootFolder) {
  EXPECT_EQ(joinPath("/data", "Jazz"), "/data/Jazz");
  EXPECT_EQ(joinPath("/data/", "Jazz"), "/data/Jazz");
  EXPECT_EQ(joinPath("", "Jazz"), "/Jazz");
}

TEST(Paths, AFullPathStartsAtTheRootOrNamesADrive) {
  EXPECT_TRUE(isFullPath("/jazz.MCS"));
  EXPECT_TRUE(isFullPath("\\jazz.MCS"));
  EXPECT_TRUE(isFullPath("C:\\Data\\jazz.mcs"));
  EXPECT_FALSE(isFullPath("jazz.MCS"));
  EXPECT_FALSE(isFullPath(""));
}

TEST(Paths, AFullPathHasNoDotsButTheNamesOwn) {
  EXPECT_EQ(fullPath("./jazz.MCS", "/data"), "/data/jazz.MCS");
  EXPECT_EQ(fullPath("../jazz.MCS", "/data/music"), "/data/jazz.MCS");
  EXPECT_EQ(fullPath("jazz.MCS", "/data"), "/data/jazz.MCS");
}

}  // namespace
}  // namespace quillbox
