#include "platform/paths.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

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

TEST(Paths, ANameWithAnotherEndingKeepsAllOfTheNameBeforeItsLastDot) {
  EXPECT_EQ(nameWithEnding("/home/ann/jazz.MCS", "csv"), "jazz.csv");
  EXPECT_EQ(nameWithEnding("/my.dir/a. b.c.MCS", "txt"), "a. b.c.txt");
  EXPECT_EQ(nameWithEnding("C:\\Data\\caf\xC3\xA9.VCS", "pdf"), "caf\xC3\xA9.pdf");
  EXPECT_EQ(nameWithEnding("/my.dir/jazz", "csv"), "jazz.csv");
  EXPECT_EQ(nameWithEnding("/data/.MCS", "csv"), "");
  EXPECT_EQ(nameWithEnding("/data/", "csv"), "");
  EXPECT_EQ(nameWithEnding("", "csv"), "");
}

TEST(Paths, BackupNameIsCutAtTheFirstDotWhereverItStands) {
  EXPECT_EQ(backupPath("/data/Jazz.MCS", "BAK"), "/data/Jazz.BAK");
  EXPECT_EQ(backupPath("/my.dir/Jazz.MCS", "bak"), "/my.bak");
  EXPECT_EQ(backupPath("/data/a.b.MCS", "BAK"), "/data/a.BAK");
  EXPECT_EQ(backupPath("/data/JazzMCS", "BAK"), "BAK");
}

TEST(Paths, JoiningAnEmptyFolderGivesTheRootFolder) {
  EXPECT_EQ(joinPath("/data", "Jazz", kUnixPaths), "/data/Jazz");
  EXPECT_EQ(joinPath("/data/", "Jazz", kUnixPaths), "/data/Jazz");
  EXPECT_EQ(joinPath("/data\\", "Jazz", kUnixPaths), "/data\\/Jazz");
  EXPECT_EQ(joinPath("", "Jazz", kUnixPaths), "/Jazz");
  EXPECT_EQ(joinPath("C:\\Data", "Jazz", kWindowsPaths), "C:\\Data\\Jazz");
  EXPECT_EQ(joinPath("C:\\", "Jazz", kWindowsPaths), "C:\\Jazz");
  EXPECT_EQ(joinPath("C:/", "Jazz", kWindowsPaths), "C:/Jazz");
  EXPECT_EQ(joinPath("", "Jazz", kWindowsPaths), "\\Jazz");
}

TEST(Paths, ThePlatformsOwnRulesAreTheOnesThatAreUsed) {
#ifdef _WIN32
  EXPECT_EQ(joinPath("data", "Jazz"), "data\\Jazz");
  EXPECT_EQ(fullPath("Jazz", "C:\\Data"), "C:\\Data\\Jazz");
  EXPECT_FALSE(isFullPath("\\Jazz"));
#else
  EXPECT_EQ(joinPath("data", "Jazz"), "data/Jazz");
  EXPECT_EQ(fullPath("Jazz", "/data"), "/data/Jazz");
  EXPECT_TRUE(isFullPath("/Jazz"));
#endif
}

TEST(Paths, AFullPathStartsAtTheRootOrNamesADrive) {
  for (const char* path : {"/jazz.MCS", "\\jazz.MCS", "C:\\Data\\jazz.mcs", "C:jazz.MCS"})
    EXPECT_TRUE(isFullPath(path, kUnixPaths)) << path;
  for (const char* path : {"jazz.MCS", "./jazz.MCS", "1:jazz.MCS", "C", ""})
    EXPECT_FALSE(isFullPath(path, kUnixPaths)) << path;
}

TEST(Paths, AFullPathOfWindowsNamesADriveOrAShareAndStartsAtItsRoot) {
  for (const char* path :
       {"C:\\Data\\jazz.mcs", "c:/jazz.MCS", "C:\\", "\\\\server\\share\\jazz.MCS",
        "//server/share/jazz.MCS", "\\\\server\\share"})
    EXPECT_TRUE(isFullPath(path, kWindowsPaths)) << path;
  for (const char* path : {"jazz.MCS", "C:jazz.MCS", "C:", "\\jazz.MCS", "/jazz.MCS", "\\\\", "\\",
                           "", "1:\\jazz.MCS", "\\\\\\jazz.MCS"})
    EXPECT_FALSE(isFullPath(path, kWindowsPaths)) << path;
}

struct FullPathRow {
  std::string_view path;
  std::string_view currentFolder;
  std::string_view full;
};

TEST(Paths, AFullPathHasNoDotsButTheNamesOwn) {
  const FullPathRow rows[] = {
      {"jazz.MCS", "/data", "/data/jazz.MCS"},
      {"./jazz.MCS", "/data", "/data/jazz.MCS"},
      {"../jazz.MCS", "/data/music", "/data/jazz.MCS"},
      {"../../../jazz.MCS", "/data/music", "/jazz.MCS"},
      {"a/./b//../jazz.MCS", "/data/", "/data/a/jazz.MCS"},
      {"...", "/data", "/data/..."},
      {"jazz.MCS", "/", "/jazz.MCS"},
      {"/music//jazz.MCS", "/data", "/music/jazz.MCS"},
      {"//music/../jazz.MCS", "/data", "/jazz.MCS"},
      {"a\\..\\jazz.MCS", "/data", "/data/a\\..\\jazz.MCS"},
      {"C:\\jazz.MCS", "/data", "/data/C:\\jazz.MCS"},
      {"music/", "/data", "/data/music/"},
      {"music/..", "/data", "/data/"},
      {"", "/data", "/data/"},
      {"..", "/data", "/"},
      {"\xFF\xC3", "/\xE9", "/\xE9/\xFF\xC3"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(fullPath(row.path, row.currentFolder, kUnixPaths), row.full)
        << row.path << " below " << row.currentFolder;
}

TEST(Paths, AFullPathOfWindowsIsOnTheCurrentDriveUnlessItNamesAnother) {
  const FullPathRow rows[] = {
      {"jazz.MCS", "C:\\Data", "C:\\Data\\jazz.MCS"},
      {"./a/../jazz.MCS", "C:\\Data", "C:\\Data\\jazz.MCS"},
      {"..\\..\\..\\jazz.MCS", "C:\\Data\\Music", "C:\\jazz.MCS"},
      {"jazz.MCS", "C:\\", "C:\\jazz.MCS"},
      {"\\jazz.MCS", "C:\\Data", "C:\\jazz.MCS"},
      {"/music/jazz.MCS", "C:\\Data", "C:\\music\\jazz.MCS"},
      {"C:jazz.MCS", "C:\\Data", "C:\\Data\\jazz.MCS"},
      {"c:jazz.MCS", "C:\\Data", "C:\\Data\\jazz.MCS"},
      {"D:\\.\\jazz.MCS", "C:\\Data", "D:\\jazz.MCS"},
      {"D:jazz.MCS", "C:\\Data", "D:jazz.MCS"},
      {"D:..\\jazz.MCS", "C:\\Data", "D:..\\jazz.MCS"},
      {"D:", "C:\\Data", "D:"},
      {"music\\", "C:\\Data", "C:\\Data\\music\\"},
      {"", "C:\\Data", "C:\\Data\\"},
      {"jazz.MCS", "\\\\server\\share\\Data", "\\\\server\\share\\Data\\jazz.MCS"},
      {"\\jazz.MCS", "\\\\server\\share\\Data", "\\\\server\\share\\jazz.MCS"},
      {"..\\..\\..\\jazz.MCS", "\\\\server\\share\\Data", "\\\\server\\share\\jazz.MCS"},
      {"\\\\server\\share\\.\\jazz.MCS", "C:\\Data", "\\\\server\\share\\jazz.MCS"},
      {"\\\\server\\share", "C:\\Data", "\\\\server\\share\\"},
      {"\\\\server", "C:\\Data", "\\\\server\\"},
      {"\xFF\xC3", "C:\\\xE9", "C:\\\xE9\\\xFF\xC3"},
  };
  for (const auto& row : rows) {
    const std::string full = fullPath(row.path, row.currentFolder, kWindowsPaths);
    EXPECT_EQ(full, row.full) << row.path << " below " << row.currentFolder;
    EXPECT_EQ(fullPath(full, "C:\\elsewhere", kWindowsPaths), full);
  }
}

TEST(Paths, FolderIsWhatStandsBeforeTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(folderOf("/home/ann/jazz.MCS"), "/home/ann");
  EXPECT_EQ(folderOf("C:\\Data\\jazz.mcs"), "C:\\Data");
  EXPECT_EQ(folderOf("/a\\b/c"), "/a\\b");
  EXPECT_EQ(folderOf("/a/b\\c"), "/a/b");
  EXPECT_EQ(folderOf("music/jazz.MCS"), "music");
  EXPECT_EQ(folderOf("/home/ann/"), "/home/ann");
  EXPECT_EQ(folderOf("jazz.MCS"), "");
  EXPECT_EQ(folderOf(""), "");
}

TEST(Paths, TheRootFolderKeepsItsSeparator) {
  EXPECT_EQ(folderOf("/jazz.MCS"), "/");
  EXPECT_EQ(folderOf("\\jazz.MCS"), "\\");
  EXPECT_EQ(folderOf("/"), "/");
  EXPECT_EQ(folderOf("C:\\jazz.MCS"), "C:\\");
  EXPECT_EQ(folderOf("c:/jazz.MCS"), "c:/");
  EXPECT_EQ(folderOf("C:jazz.MCS"), "");
}

TEST(Paths, FolderAndFileNameJoinedAreThePathAgain) {
  for (const char* path : {"/home/ann/jazz.MCS", "/jazz.MCS", "music/jazz.MCS"})
    EXPECT_EQ(joinPath(folderOf(path), fileNameOf(path), kUnixPaths), path);
  for (const char* path : {"C:\\Data\\jazz.MCS", "C:\\jazz.MCS", "\\jazz.MCS", "music\\jazz.MCS",
                           "\\\\server\\share\\jazz.MCS"})
    EXPECT_EQ(joinPath(folderOf(path), fileNameOf(path), kWindowsPaths), path);
}

TEST(Paths, APatternStandsForRunsAndCharactersWhateverTheirCapitals) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view name;
    std::string_view pattern;
    bool matches;
  } rows[] = {
      {"a.wav", "*.WAV", true},
      {"A.WAV", "*.wav", true},
      {"a.WaV", "*.wAv", true},
      {".wav", "*.WAV", true},
      {"a.b.wav", "*.WAV", true},
      {"a.wav.wav", "*.WAV", true},
      {"a.wave", "*.WAV", false},
      {"a.wav.txt", "*.WAV", false},
      {"awav", "*.WAV", false},
      {"a.wa", "*.WAV", false},
      {"wav", "*.WAV", false},
      {"", "*.WAV", false},
      {"jazz.MCS", "*.?CS", true},
      {"jazz.vcs", "*.?CS", true},
      {"jazz.CS", "*.?CS", false},
      {"jazz.MMCS", "*.?CS", false},
      {"jazz.MPS", "*.?CS", false},
      {".cs", "*.?CS", false},
      {"abc", "a*b*c", true},
      {"aXbYc", "a*b*c", true},
      {"abbcbc", "a*b*c", true},
      {"acbc", "a*b*c", true},
      {"ac", "a*b*c", false},
      {"abcd", "a*b*c", false},
      {"xabc", "a*b*c", false},
      {"aab", "*ab", true},
      {"ababab", "*abab", true},
      {"mississippi", "m*iss*pi", true},
      {"mississippi", "m*iss*ppx", false},
      {"", "", true},
      {"a", "", false},
      {"", "*", true},
      {"anything at all", "*", true},
      {"", "**", true},
      {"abc", "**", true},
      {"abc", "a**c", true},
      {"abc", "abc*", true},
      {"abc", "abc**", true},
      {"abcd", "abc*", true},
      {"ab", "abc*", false},
      {"abc", "abc?", false},
      {"abc", "ab*bc", false},
      {"abbc", "ab*bc", true},
      {"abc", "ab?", true},
      {"abc", "???", true},
      {"abc", "????", false},
      {"abc", "??", false},
      {"", "?", false},
      {"a", "?", true},
      {"a", "*?", true},
      {"", "*?", false},
      {"a", "?*", true},
      {"a", "?*?", false},
      {"ab", "?*?", true},
      {"abc", "abc", true},
      {"ABC", "abc", true},
      {"abc", "abd", false},
      {"a[1].wav", "a[1].WAV", true},
      {"a1.wav", "a[1].WAV", false},
      {"a*.wav", "a*.wav", true},
      {"\xE9.wav", "\xE9.WAV", true},
      {"\xE9.wav", "\xC9.WAV", false},
      {"\xE9.wav", "?.WAV", true},
      {"@", "`", false},
      {"{", "[", false},
  };
  for (const auto& row : rows)
    EXPECT_EQ(matchesPattern(row.name, row.pattern), row.matches)
        << row.name << " and " << row.pattern;
}

TEST(Paths, APatternEndsWhereItsTextEnds) {
  EXPECT_FALSE(matchesPattern("ab", std::string_view("a*").substr(0, 1)));
  EXPECT_FALSE(matchesPattern("ab", std::string_view("a?").substr(0, 1)));
}

TEST(Paths, ManyStarsAgainstALongNameAreNoWork) {
  const std::string name(5'000, 'a');
  std::string pattern;
  for (int i = 0; i < 50; ++i) pattern += "a*";
  EXPECT_TRUE(matchesPattern(name, pattern));
  EXPECT_FALSE(matchesPattern(name, pattern + "b"));
}

}  // namespace
}  // namespace quillbox
