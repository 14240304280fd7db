#include "platform/disk_file_system.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/run_time_error.h"
#include "support/failure.h"
#include "support/file_size_limit.h"
#include "support/machine.h"
#include "support/memory_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;

/// Names of the platform's own: any bytes, or UTF-8.
#ifdef _WIN32
constexpr const char* kOwnName = "d\xC3\xA9j\xC3\xA0 vu [\xE2\x82\xAC].wav";
#else
constexpr const char* kOwnName = "d\xE9j\xE0 \"vu\" \\ [*].wav";
#endif

constexpr OpenMode kModes[] = {OpenMode::read, OpenMode::update, OpenMode::create};

std::string read(File& file, std::uint64_t offset, std::size_t length) {
  std::string bytes(length, '#');
  bytes.resize(file.readAt(offset, std::as_writable_bytes(std::span(bytes))));
  return bytes;
}

void write(File& file, std::uint64_t offset, std::string_view bytes) {
  file.writeAt(offset, std::as_bytes(std::span(bytes)));
}

class DiskFileSystemTest : public testing::Test {
 protected:
  Failure openFailure(const std::string& path, OpenMode mode) {
    return failureOf([&] { files_.open(path, mode); });
  }

  TestFolder folder_;
  DiskFileSystem files_;
};

TEST_F(DiskFileSystemTest, AMissingFileIsNotFoundUnlessItIsToBeMade) {
  const std::string path = folder_.path("jazz.MCS");
  for (const OpenMode mode : {OpenMode::read, OpenMode::update}) {
    const Failure failure = openFailure(path, mode);
    EXPECT_EQ(failure.number, 53);
    EXPECT_EQ(failure.file, path);
    EXPECT_FALSE(std::filesystem::exists(path));
  }
  files_.open(path, OpenMode::create)->close();
  EXPECT_EQ(readFile(path), "");
}

TEST_F(DiskFileSystemTest, AMissingFileInTheCurrentFolderIsNotFound) {
  EXPECT_EQ(openFailure("jazz.MCS", OpenMode::read).number, 53);
  EXPECT_EQ(openFailure("jazz.MCS", OpenMode::update).number, 53);
}

TEST_F(DiskFileSystemTest, AMissingFolderIsAnotherErrorThanAMissingFile) {
  const std::string path = folder_.path("missing/jazz.MCS");
  for (const OpenMode mode : kModes) {
    const Failure failure = openFailure(path, mode);
    EXPECT_EQ(failure.number, 76);
    EXPECT_EQ(failure.file, path);
    EXPECT_EQ(openFailure("missing/jazz.MCS", mode).number, 76);
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.path("missing")));
}

TEST_F(DiskFileSystemTest, AFileInTheMiddleOfAPathIsNoFolder) {
  writeFile(folder_.path("file"), "kept");
  const std::string path = folder_.path("file/jazz.MCS");
  for (const OpenMode mode : kModes) {
    const Failure failure = openFailure(path, mode);
    EXPECT_EQ(failure.number, 76);
    EXPECT_EQ(failure.file, path);
  }
  EXPECT_EQ(readFile(folder_.path("file")), "kept");
}

TEST_F(DiskFileSystemTest, AFolderIsNoFile) {
  const std::string path = folder_.path("jazz.MCS");
  std::filesystem::create_directory(path);
  for (const OpenMode mode : kModes) {
    const Failure failure = failureOf([&] { read(*files_.open(path, mode), 0, 12); });
    EXPECT_EQ(failure.number, 75);
    EXPECT_EQ(failure.file, path);
  }
  EXPECT_EQ(openFailure(path, OpenMode::update).number, 75);
  EXPECT_EQ(openFailure(path, OpenMode::create).number, 75);
}

#ifndef _WIN32
TEST_F(DiskFileSystemTest, APipeUnderTheNameIsAnErrorAndNotAWaitForEver) {
  const std::string path = folder_.path("jazz.MCS");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  ::alarm(20);
  for (const OpenMode mode : kModes) {
    const Failure reading = failureOf([&] { read(*files_.open(path, mode), 0, 12); });
    EXPECT_NE(reading.number, 0);
    EXPECT_EQ(reading.file, path);
    const Failure writing = failureOf([&] { write(*files_.open(path, mode), 0, "header"); });
    EXPECT_NE(writing.number, 0);
    EXPECT_EQ(writing.file, path);
  }
  ::alarm(0);
}
#endif

TEST_F(DiskFileSystemTest, AFileThatMayOnlyBeReadIsRefusedForUpdate) {
  QUILLBOX_NEEDS(readOnlyFiles);
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "kept");
  using std::filesystem::perms;
  std::filesystem::permissions(path, perms::owner_read | perms::group_read);
  const OrdinaryUser user(folder_);
  for (const OpenMode mode : {OpenMode::update, OpenMode::create}) {
    const Failure failure = openFailure(path, mode);
    EXPECT_EQ(failure.number, 70);
    EXPECT_EQ(failure.file, path);
  }
  EXPECT_EQ(read(*files_.open(path, OpenMode::read), 0, 4), "kept");
}

TEST_F(DiskFileSystemTest, AFileThatMayNotBeReadIsRefused) {
  QUILLBOX_NEEDS(permissions);
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "kept");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  for (const OpenMode mode : kModes) EXPECT_EQ(openFailure(path, mode).number, 70);
}

TEST_F(DiskFileSystemTest, AFolderThatMayNotBeWrittenTakesNoNewFile) {
  QUILLBOX_NEEDS(permissions);
  const std::string folder = folder_.path("closed");
  std::filesystem::create_directory(folder);
  using std::filesystem::perms;
  std::filesystem::permissions(
      folder, perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec);
  const OrdinaryUser user(folder_);
  const std::string path = folder + "/jazz.MCS";
  EXPECT_EQ(openFailure(path, OpenMode::create), (Failure{70, path}));
  EXPECT_EQ(openFailure(path, OpenMode::replace), (Failure{70, path}));
}

TEST_F(DiskFileSystemTest, OpeningAnExistingFileLeavesItsBytesAlone) {
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "0123456789");
  for (const OpenMode mode : kModes) files_.open(path, mode)->close();
  EXPECT_EQ(readFile(path), "0123456789");
}

TEST_F(DiskFileSystemTest, AFileOpenForReadingIsNotWritten) {
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "0123456789");
  const auto file = files_.open(path, OpenMode::read);
  const Failure failure = failureOf([&] { write(*file, 0, "abc"); });
  EXPECT_EQ(failure.number, 75);
  EXPECT_EQ(failure.file, path);
  EXPECT_EQ(readFile(path), "0123456789");
}

TEST_F(DiskFileSystemTest, ReadingPastTheEndGivesWhatIsThere) {
  writeFile("jazz.MCS", "0123456789");
  for (const OpenMode mode : kModes) {
    const auto file = files_.open("jazz.MCS", mode);
    EXPECT_EQ(read(*file, 0, 10), "0123456789");
    EXPECT_EQ(read(*file, 3, 4), "3456");
    EXPECT_EQ(read(*file, 7, 100), "789");
    EXPECT_EQ(read(*file, 10, 5), "");
    EXPECT_EQ(read(*file, 77'000'000, 5), "");
    EXPECT_EQ(read(*file, 0, 0), "");
  }
  EXPECT_EQ(readFile("jazz.MCS"), "0123456789");
}

TEST_F(DiskFileSystemTest, ReadingTouchesNothingPastWhatWasThere) {
  writeFile("jazz.MCS", "0123456789");
  std::string bytes(6, '#');
  const auto file = files_.open("jazz.MCS", OpenMode::read);
  EXPECT_EQ(file->readAt(8, std::as_writable_bytes(std::span(bytes))), 2U);
  EXPECT_EQ(bytes, "89####");
}

TEST_F(DiskFileSystemTest, WhatIsWrittenReplacesOnlyItsOwnBytes) {
  writeFile("jazz.MCS", "0123456789");
  const auto file = files_.open("jazz.MCS", OpenMode::update);
  write(*file, 2, "abc");
  EXPECT_EQ(read(*file, 0, 20), "01abc56789");
  write(*file, 9, "xyz");
  write(*file, 4, "");
  file->flush();
  file->close();
  EXPECT_EQ(readFile("jazz.MCS"), "01abc5678xyz");
}

TEST_F(DiskFileSystemTest, AGapBeforeWhatIsWrittenReadsAsZeros) {
  writeFile("jazz.MCS", "abc");
  const auto file = files_.open("jazz.MCS", OpenMode::update);
  write(*file, 5000, "xyz");
  file->close();
  EXPECT_EQ(readFile("jazz.MCS"), "abc" + std::string(4997, '\0') + "xyz");
}

TEST_F(DiskFileSystemTest, AFileJustMadeCanBeFlushedWhereverItIs) {
  std::filesystem::create_directory("below");
  const auto before = openDescriptors();
  for (const std::string& path : {folder_.path("jazz.MCS"), folder_.path("below/jazz.MCS"),
                                  "below/blues.MCS"s, "soul.MCS"s}) {
    const auto file = files_.open(path, OpenMode::create);
    write(*file, 0, "header");
    EXPECT_EQ(failureOf([&] { file->flush(); }), Failure{}) << path;
    EXPECT_EQ(openDescriptors(), before + 1) << path;
    write(*file, 6, " and more");
    EXPECT_EQ(failureOf([&] { file->flush(); }), Failure{}) << path;
    file->close();
    EXPECT_EQ(readFile(path), "header and more");
    EXPECT_EQ(openDescriptors(), before) << path;
  }
}

TEST_F(DiskFileSystemTest, AFileJustMadeCanBeFlushedInAFolderThatMayNotBeRead) {
  QUILLBOX_NEEDS(permissions);
  const std::string closed = folder_.path("closed");
  std::filesystem::create_directory(closed);
  using std::filesystem::perms;
  std::filesystem::permissions(
      closed, perms::owner_write | perms::owner_exec | perms::group_write | perms::group_exec);
  std::filesystem::current_path(closed);
  const OrdinaryUser user(folder_);
  EXPECT_EQ(failureOf([&] { files_.list(closed); }).number, 70);
  for (const std::string& path : {closed + "/jazz.MCS", "soul.MCS"s}) {
    const auto file = files_.open(path, OpenMode::create);
    write(*file, 0, "header");
    EXPECT_EQ(failureOf([&] { file->flush(); }), Failure{}) << path;
    file->close();
    EXPECT_EQ(readFile(path), "header");
  }
}

TEST_F(DiskFileSystemTest, ADestroyedFileIsClosed) {
  writeFile("jazz.MCS", "abc");
  const auto before = openDescriptors();
  {
    const auto file = files_.open("jazz.MCS", OpenMode::update);
    EXPECT_EQ(openDescriptors(), before + 1);
  }
  EXPECT_EQ(openDescriptors(), before);
  const auto file = files_.open("jazz.MCS", OpenMode::update);
  file->close();
  EXPECT_EQ(openDescriptors(), before);
}

TEST_F(DiskFileSystemTest, RemovingTakesAFileAway) {
  writeFile("jazz.BAK", "abc");
  writeFile("jazz.MCS", "kept");
  files_.remove("jazz.BAK");
  EXPECT_FALSE(std::filesystem::exists("jazz.BAK"));
  EXPECT_EQ(readFile("jazz.MCS"), "kept");
}

TEST_F(DiskFileSystemTest, RemovingNeverTakesAFolderAway) {
  const std::string path = folder_.path("jazz.BAK");
  std::filesystem::create_directory(path);
  const Failure failure = failureOf([&] { files_.remove(path); });
  EXPECT_NE(failure.number, 0);
  EXPECT_EQ(failure.file, path);
  EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(DiskFileSystemTest, RemovingAMissingFileIsAnError) {
  const std::string path = folder_.path("jazz.BAK");
  const Failure failure = failureOf([&] { files_.remove(path); });
  EXPECT_EQ(failure.number, 53);
  EXPECT_EQ(failure.file, path);
  EXPECT_EQ(failureOf([&] { files_.remove(folder_.path("missing/jazz.BAK")); }).number, 76);
}

TEST_F(DiskFileSystemTest, RenamingMovesTheBytesToTheNewName) {
  writeFile("jazz.MCS", "the collection");
  files_.rename("jazz.MCS", "jazz.BAK");
  EXPECT_EQ(readFile("jazz.BAK"), "the collection");
  EXPECT_FALSE(std::filesystem::exists("jazz.MCS"));
}

TEST_F(DiskFileSystemTest, RenamingRefusesAnExistingTargetAndNamesIt) {
  const std::string from = folder_.path("jazz.MCS");
  const std::string to = folder_.path("jazz.BAK");
  writeFile(from, "the collection");
  writeFile(to, "the old backup");
  const Failure failure = failureOf([&] { files_.rename(from, to); });
  EXPECT_EQ(failure.number, 58);
  EXPECT_EQ(failure.file, to);
  EXPECT_EQ(readFile(from), "the collection");
  EXPECT_EQ(readFile(to), "the old backup");
}

TEST_F(DiskFileSystemTest, RenamingRefusesAFolderAsItsTarget) {
  const std::string to = folder_.path("jazz.BAK");
  writeFile("jazz.MCS", "the collection");
  std::filesystem::create_directory(to);
  const Failure failure = failureOf([&] { files_.rename("jazz.MCS", to); });
  EXPECT_EQ(failure.number, 58);
  EXPECT_EQ(failure.file, to);
  EXPECT_EQ(readFile("jazz.MCS"), "the collection");
  EXPECT_TRUE(std::filesystem::is_directory(to));
}

TEST_F(DiskFileSystemTest, RenamingAMissingFileIsAnErrorThatNamesIt) {
  const std::string from = folder_.path("jazz.MCS");
  const Failure failure = failureOf([&] { files_.rename(from, folder_.path("jazz.BAK")); });
  EXPECT_EQ(failure.number, 53);
  EXPECT_EQ(failure.file, from);
  EXPECT_FALSE(std::filesystem::exists("jazz.BAK"));
}

TEST_F(DiskFileSystemTest, RenamingIntoAMissingFolderIsAnErrorThatNamesTheTarget) {
  const std::string from = folder_.path("jazz.MCS");
  const std::string to = folder_.path("missing/jazz.BAK");
  writeFile(from, "the collection");
  EXPECT_EQ(failureOf([&] { files_.rename(from, to); }), (Failure{76, to}));
  EXPECT_EQ(readFile(from), "the collection");
  EXPECT_FALSE(std::filesystem::exists(folder_.path("missing")));
}

TEST_F(DiskFileSystemTest, WhateverHasTheNameExists) {
  writeFile("file", "");
  std::filesystem::create_directory("folder");
  EXPECT_TRUE(files_.exists("file"));
  EXPECT_TRUE(files_.exists(folder_.path("file")));
  EXPECT_TRUE(files_.exists("folder"));
#ifndef _WIN32
  ASSERT_EQ(::mkfifo("pipe", 0600), 0);
  EXPECT_TRUE(files_.exists("pipe"));
#endif
  EXPECT_FALSE(files_.exists("missing"));
  EXPECT_FALSE(files_.exists("missing/file"));
  EXPECT_FALSE(files_.exists("file/below"));
  EXPECT_FALSE(files_.exists(""));
}

TEST_F(DiskFileSystemTest, NamesAreTheBytesThatThePlatformHas) {
  const std::string path = folder_.path(kOwnName);
  files_.open(path, OpenMode::create)->close();
  EXPECT_TRUE(files_.exists(path));
  const auto found = std::filesystem::directory_iterator(folder_.path())->path().u8string();
  EXPECT_EQ(std::string(found.begin(), found.end()), path);
  files_.remove(path);
  EXPECT_FALSE(files_.exists(path));
}

TEST_F(DiskFileSystemTest, TheCurrentFolderIsWhereBareNamesLead) {
  EXPECT_EQ(std::filesystem::path(files_.currentFolder()),
            std::filesystem::canonical(folder_.path()));
  std::filesystem::create_directory("below");
  std::filesystem::current_path("below");
  EXPECT_EQ(std::filesystem::path(files_.currentFolder()),
            std::filesystem::canonical(folder_.path()) / "below");
}

TEST_F(DiskFileSystemTest, ACurrentFolderThatIsGoneIsAnError) {
  QUILLBOX_NEEDS(folderIsGone);
  std::filesystem::create_directory("below");
  std::filesystem::current_path("below");
  std::filesystem::remove(folder_.path("below"));
  EXPECT_EQ(failureOf([&] { files_.currentFolder(); }).number, 76);
  EXPECT_NE(openFailure("jazz.MCS", OpenMode::create).number, 0);
}

TEST_F(DiskFileSystemTest, TheCurrentFolderCanBeSet) {
  std::filesystem::create_directories("below/deeper");
  files_.setCurrentFolder("below");
  EXPECT_EQ(std::filesystem::path(files_.currentFolder()),
            std::filesystem::canonical(folder_.path()) / "below");
  files_.setCurrentFolder(folder_.path("below/deeper"));
  writeFile(folder_.path("below/deeper/jazz.MCS"), "found");
  EXPECT_EQ(read(*files_.open("jazz.MCS", OpenMode::read), 0, 5), "found");
}

TEST_F(DiskFileSystemTest, WhatCannotBeTheCurrentFolderIsAnErrorThatNamesIt) {
  const std::string missing = folder_.path("missing");
  const std::string file = folder_.path("file");
  writeFile(file, "");
  const std::string before = files_.currentFolder();
  EXPECT_EQ(failureOf([&] { files_.setCurrentFolder(missing); }), (Failure{76, missing}));
  EXPECT_EQ(failureOf([&] { files_.setCurrentFolder(file); }), (Failure{76, file}));
  EXPECT_EQ(files_.currentFolder(), before);
}

TEST_F(DiskFileSystemTest, AFolderThatMayNotBeEnteredCannotBeTheCurrentOne) {
  QUILLBOX_NEEDS(permissions);
  const std::string closed = folder_.path("closed");
  std::filesystem::create_directory(closed);
  std::filesystem::permissions(closed, std::filesystem::perms::none);
  const std::string before = files_.currentFolder();
  const OrdinaryUser user(folder_);
  EXPECT_EQ(failureOf([&] { files_.setCurrentFolder(closed); }), (Failure{70, closed}));
  EXPECT_EQ(files_.currentFolder(), before);
}

TEST_F(DiskFileSystemTest, TheProgramsFolderIsWhereTheProgramLies) {
#ifdef _WIN32
  const std::filesystem::path program = testing::internal::GetArgvs().front();
#else
  const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe");
  EXPECT_EQ(files_.programFolder(), program.parent_path().string());
#endif
  EXPECT_TRUE(std::filesystem::is_regular_file(files_.programFolder() / program.filename()));
  EXPECT_NE(files_.programFolder(), files_.currentFolder());
}

/// What a folder lists: the names, and whether each is a plain file.
std::map<std::string, bool> listed(DiskFileSystem& files, const std::string& folder) {
  std::map<std::string, bool> entries;
  for (const FolderEntry& entry : files.list(folder)) {
    EXPECT_TRUE(entries.emplace(entry.name, entry.isPlainFile).second) << entry.name;
  }
  return entries;
}

TEST_F(DiskFileSystemTest, AFolderListsAllItHoldsAndWhichArePlainFiles) {
  EXPECT_TRUE(files_.list(folder_.path()).empty());
  writeFile("jazz.MCS", "");
  writeFile(".hidden", "");
  writeFile(kOwnName, "");
  std::filesystem::create_directory("folder");
  std::filesystem::create_directory(".git");
  writeFile("folder/inside", "");
  const std::map<std::string, bool> expected = {
      {"jazz.MCS", true}, {".hidden", true}, {kOwnName, true}, {"folder", false}, {".git", false}};
  EXPECT_EQ(listed(files_, folder_.path()), expected);
  EXPECT_EQ(listed(files_, folder_.path() + "/"), expected);
  EXPECT_EQ(listed(files_, "."), expected);
  EXPECT_EQ(listed(files_, "folder"), (std::map<std::string, bool>{{"inside", true}}));
}

#ifndef _WIN32
TEST_F(DiskFileSystemTest, ALinkIsListedAsWhatItLeadsTo) {
  writeFile("jazz.MCS", "");
  std::filesystem::create_directory("folder");
  writeFile("folder/inside", "");
  ASSERT_EQ(::mkfifo("pipe", 0600), 0);
  std::filesystem::create_symlink("jazz.MCS", "to file");
  std::filesystem::create_directory_symlink("folder", "to folder");
  std::filesystem::create_symlink("missing", "to nothing");
  const std::map<std::string, bool> expected = {
      {"jazz.MCS", true}, {"folder", false},    {"pipe", false},
      {"to file", true},  {"to folder", false}, {"to nothing", false},
  };
  EXPECT_EQ(listed(files_, folder_.path()), expected);
  EXPECT_EQ(listed(files_, "to folder"), (std::map<std::string, bool>{{"inside", true}}));
}
#endif

TEST_F(DiskFileSystemTest, ALongFolderIsListedWhole) {
  for (int n = 0; n < 3'000; ++n) writeFile(std::to_string(n) + ".wav", "");
  EXPECT_EQ(listed(files_, folder_.path()).size(), 3'000U);
}

TEST_F(DiskFileSystemTest, WhatCannotBeListedIsAnErrorThatNamesIt) {
  const std::string missing = folder_.path("missing");
  const std::string file = folder_.path("file");
  writeFile(file, "");
  EXPECT_EQ(failureOf([&] { files_.list(missing); }), (Failure{76, missing}));
  EXPECT_EQ(failureOf([&] { files_.list(file); }), (Failure{76, file}));
  EXPECT_EQ(failureOf([&] { files_.list(""); }), (Failure{76, ""}));
}

TEST_F(DiskFileSystemTest, AFolderThatMayNotBeReadCannotBeListed) {
  QUILLBOX_NEEDS(permissions);
  const std::string closed = folder_.path("closed");
  std::filesystem::create_directory(closed);
  std::filesystem::permissions(closed, std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  EXPECT_EQ(failureOf([&] { files_.list(closed); }), (Failure{70, closed}));
}

TEST_F(DiskFileSystemTest, AFileToBeReplacedIsEmptyFromTheStart) {
  const std::string path = folder_.path("list.txt");
  writeFile(path, "what was there before");
  const auto file = files_.open(path, OpenMode::replace);
  EXPECT_EQ(readFile(path), "");
  write(*file, 0, "new");
  write(*file, 3, " text");
  file->flush();
  file->close();
  EXPECT_EQ(readFile(path), "new text");
}

TEST_F(DiskFileSystemTest, AMissingFileToBeReplacedIsMade) {
  for (const std::string& path : {folder_.path("list.txt"), std::string(kOwnName)}) {
    const auto file = files_.open(path, OpenMode::replace);
    EXPECT_EQ(readFile(path), "");
    write(*file, 0, "text");
    EXPECT_EQ(failureOf([&] { file->flush(); }), Failure{});
    file->close();
    EXPECT_EQ(readFile(path), "text");
  }
}

TEST_F(DiskFileSystemTest, ReplacingFollowsALinkToItsFile) {
  QUILLBOX_NEEDS(links);
  writeFile("list.txt", "what was there before");
  std::filesystem::create_symlink("list.txt", "link");
  write(*files_.open("link", OpenMode::replace), 0, "new");
  EXPECT_EQ(readFile("list.txt"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink("link"));
}

TEST_F(DiskFileSystemTest, WhatCannotBeReplacedIsAnErrorThatNamesIt) {
  std::filesystem::create_directory(folder_.path("folder"));
  writeFile(folder_.path("locked"), "kept");
  using std::filesystem::perms;
  std::filesystem::permissions(folder_.path("locked"), perms::owner_read | perms::group_read);
  const OrdinaryUser user(folder_);
  const std::pair<const char*, int> rows[] = {
      {"folder", 75}, {"missing/list.txt", 76}, {"locked/list.txt", 76}, {"locked", 70}};
  for (const auto& [name, number] : rows) {
    if (kMachine.readOnlyFiles != nullptr && number == 70) continue;
    EXPECT_EQ(openFailure(folder_.path(name), OpenMode::replace),
              (Failure{number, folder_.path(name)}));
  }
  EXPECT_EQ(openFailure("", OpenMode::replace), (Failure{53, ""}));
  EXPECT_EQ(readFile(folder_.path("locked")), "kept");
}

#ifndef _WIN32
TEST_F(DiskFileSystemTest, APipeCannotBeReplaced) {
  const std::string path = folder_.path("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  const Failure pipe = openFailure(path, OpenMode::replace);
  EXPECT_NE(pipe.number, 0);
  EXPECT_EQ(pipe.file, path);
}
#endif

TEST_F(DiskFileSystemTest, TwoNamesOfOneFileAreTheSameFile) {
  writeFile("jazz.MCS", "the collection");
  std::filesystem::create_directory("below");
  std::filesystem::create_hard_link("jazz.MCS", "hard");
  makeLink("jazz.MCS", "link");
  makeLink("link", "link of a link");
  for (const std::string& name : {"jazz.MCS"s, "./jazz.MCS"s, folder_.path("jazz.MCS"),
                                  "below/../jazz.MCS"s, "hard"s, "link"s, "link of a link"s}) {
    EXPECT_TRUE(files_.isSameFile("jazz.MCS", name)) << name;
    EXPECT_TRUE(files_.isSameFile(name, "jazz.MCS")) << name;
  }
}

TEST_F(DiskFileSystemTest, ALinkToItsFolderLeadsToTheSameFile) {
  QUILLBOX_NEEDS(links);
  writeFile("jazz.MCS", "the collection");
  std::filesystem::create_directory_symlink(".", "here");
  EXPECT_TRUE(files_.isSameFile("jazz.MCS", "here/jazz.MCS"));
}

TEST_F(DiskFileSystemTest, FilesThatAreAlikeAreNotTheSame) {
  writeFile("jazz.MCS", "the collection");
  std::filesystem::create_directory("below");
  for (const std::string& name : {"jazz.MCT"s, "below/jazz.MCS"s, folder_.path("jazz.MCS.txt")}) {
    std::filesystem::copy_file("jazz.MCS", name);
    EXPECT_FALSE(files_.isSameFile("jazz.MCS", name)) << name;
    EXPECT_FALSE(files_.isSameFile(name, "jazz.MCS")) << name;
  }
  EXPECT_FALSE(files_.isSameFile("jazz.MCS", "below"));
#ifndef _WIN32
  std::filesystem::copy_file("jazz.MCS", "jazz.mcs");
  EXPECT_FALSE(files_.isSameFile("jazz.MCS", "jazz.mcs"));
#endif
}

TEST_F(DiskFileSystemTest, ANameThatLeadsNowhereIsNoSameFile) {
  writeFile("jazz.MCS", "the collection");
  if (kMachine.links == nullptr) std::filesystem::create_symlink("missing", "to nothing");
  for (const std::string& name :
       {"missing"s, "missing/jazz.MCS"s, "jazz.MCS/below"s, "to nothing"s, ""s}) {
    EXPECT_FALSE(files_.isSameFile("jazz.MCS", name)) << name;
    EXPECT_FALSE(files_.isSameFile(name, "jazz.MCS")) << name;
    EXPECT_FALSE(files_.isSameFile(name, name)) << name;
  }
}

TEST_F(DiskFileSystemTest, AFileIsMadeOnlyWhereTheNameIsFree) {
  const std::string path = folder_.path("jazz.MCS");
  auto file = files_.make(path, "");
  write(*file, 2, "abc");
  EXPECT_EQ(read(*file, 0, 9), "\0\0abc"s);
  file->flush();
  file->close();
  EXPECT_EQ(failureOf([&] { files_.make(path, ""); }), (Failure{58, path}));
  EXPECT_EQ(readFile(path), "\0\0abc"s);
  const std::string folder = folder_.path("folder");
  std::filesystem::create_directory(folder);
  EXPECT_EQ(failureOf([&] { files_.make(folder, ""); }), (Failure{58, folder}));
  const std::string inMissing = folder_.path("missing/jazz.MCS");
  EXPECT_EQ(failureOf([&] { files_.make(inMissing, ""); }), (Failure{76, inMissing}));
  const std::string like = folder_.path("like");
  EXPECT_NE(failureOf([&] { files_.make(folder_.path("new"), like); }).number, 0);
  EXPECT_FALSE(std::filesystem::exists("new"));
}

TEST_F(DiskFileSystemTest, ALinkIsInTheWayOfAFileToBeMade) {
  QUILLBOX_NEEDS(links);
  writeFile("jazz.MCS", "the collection");
  std::filesystem::create_symlink("jazz.MCS", "link");
  std::filesystem::create_symlink("missing", "to nothing");
  for (const char* name : {"link", "to nothing"}) {
    EXPECT_EQ(failureOf([&] { files_.make(name, ""); }), (Failure{58, name}));
    EXPECT_TRUE(std::filesystem::is_symlink(name));
  }
  EXPECT_EQ(readFile("jazz.MCS"), "the collection");
  EXPECT_FALSE(std::filesystem::exists("missing"));
}

TEST_F(DiskFileSystemTest, ALinkTellsWhereItLeadsOneStepOn) {
  QUILLBOX_NEEDS(links);
  std::filesystem::create_directory("below");
  writeFile("jazz.MCS", "");
  std::filesystem::create_symlink("jazz.MCS", "link");
  std::filesystem::create_symlink("../link", "below/link");
  std::filesystem::create_symlink(folder_.path("missing"), "below/to nothing");
  std::filesystem::create_symlink("self", "self");
  std::filesystem::create_directory_symlink("below", "to folder");
  EXPECT_EQ(files_.linkTarget("link"), "jazz.MCS");
  EXPECT_EQ(files_.linkTarget("below/link"), "below/../link");
  EXPECT_EQ(files_.linkTarget("to folder/link"), "to folder/../link");
  EXPECT_EQ(files_.linkTarget("below/to nothing"), folder_.path("missing"));
  EXPECT_EQ(files_.linkTarget("self"), "self");
  EXPECT_EQ(files_.linkTarget("to folder"), "below");
  for (const char* name : {"jazz.MCS", "below", "missing", "missing/jazz.MCS", "jazz.MCS/x", ""})
    EXPECT_EQ(files_.linkTarget(name), std::nullopt) << name;
  const std::string tooLong(300, 'x');
  EXPECT_EQ(failureOf([&] { files_.linkTarget(tooLong); }), (Failure{75, tooLong}));
}

TEST_F(DiskFileSystemTest, LinksAreRemovedAndRenamedThemselves) {
  QUILLBOX_NEEDS(links);
  writeFile("jazz.MCS", "the collection");
  std::filesystem::create_symlink("jazz.MCS", "link");
  std::filesystem::create_symlink("missing", "to nothing");
  EXPECT_EQ(failureOf([&] { files_.rename("jazz.MCS", "to nothing"); }),
            (Failure{58, "to nothing"}));
  files_.rename("to nothing", "still to nothing");
  EXPECT_TRUE(std::filesystem::is_symlink("still to nothing"));
  files_.remove("still to nothing");
  files_.remove("link");
  EXPECT_EQ(readFile("jazz.MCS"), "the collection");
  EXPECT_EQ(files_.list(".").size(), 1U);
}

TEST_F(DiskFileSystemTest, AFoldersPathIsWhereTheSystemFindsIt) {
  const auto full = std::filesystem::canonical(folder_.path());
  std::filesystem::create_directories("far/away");
  EXPECT_EQ(std::filesystem::path(files_.resolvedFolder(".")), full);
  EXPECT_EQ(std::filesystem::path(files_.resolvedFolder("far/away/../")), full / "far");
  EXPECT_EQ(failureOf([&] { files_.resolvedFolder("missing/.."); }).number,
            kMachine.links == nullptr ? 76 : 0);
  QUILLBOX_NEEDS(links);
  std::filesystem::create_directory_symlink("far/away", "link");
  EXPECT_EQ(std::filesystem::path(files_.resolvedFolder("link/..")), full / "far");
}

TEST_F(DiskFileSystemTest, AFullDiskIsAnError) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no full device";
  const auto file = files_.open("/dev/full", OpenMode::update);
  const Failure failure = failureOf([&] { write(*file, 0, "header"); });
  EXPECT_EQ(failure.number, 61);
  EXPECT_EQ(failure.file, "/dev/full");
}

#ifndef _WIN32
TEST_F(DiskFileSystemTest, AFileThatMayNotGrowIsADiskThatIsFull) {
  const std::string path = folder_.path("jazz.MCS");
  const auto file = files_.open(path, OpenMode::create);
  Failure across;
  Failure beyond;
  {
    const FileSizeLimit limit(4096);
    across = failureOf([&] { write(*file, 0, std::string(8192, 'x')); });
    beyond = failureOf([&] { write(*file, 5000, "abc"); });
  }
  EXPECT_EQ(across.number, 61);
  EXPECT_EQ(across.file, path);
  EXPECT_EQ(beyond.number, 61);
  EXPECT_EQ(beyond.file, path);
  EXPECT_EQ(std::filesystem::file_size(path), 4096U);
  write(*file, 0, std::string(8192, 'y'));
  EXPECT_EQ(std::filesystem::file_size(path), 8192U);
}
#endif

TEST(FileExchange, GivesEachOfTwoFilesTheOthersName) {
  const TestFolder folder;
  writeFile(folder.path("one"), "1");
  writeFile(folder.path("other"), "2");
  DiskFileSystem().exchange(folder.path("one"), folder.path("other"));
  EXPECT_EQ(readFile(folder.path("one")), "2");
  EXPECT_EQ(readFile(folder.path("other")), "1");
}

TEST(FileExchange, NeedsBoth) {
  const TestFolder folder;
  writeFile(folder.path("one"), "1");
  const auto exchange = [&](const char* one, const char* other) {
    return failureOf([&] { DiskFileSystem().exchange(folder.path(one), folder.path(other)); });
  };
  EXPECT_EQ(exchange("one", "gone"), (Failure{53, folder.path("gone")}));
  EXPECT_EQ(exchange("gone", "one"), (Failure{53, folder.path("gone")}));
  EXPECT_EQ(readFile(folder.path("one")), "1");
}

/// A system that can only rename; each of the renames can fail.
class OnlyRenames : public MemoryFiles {
 public:
  int failing = -1;
  void rename(const std::string& from, const std::string& to) override {
    if (failing-- == 0) throw RunTimeError(ErrorNumber::deviceIo, from);
    MemoryFiles::rename(from, to);
  }
};

TEST(FileExchange, IsDoneByRenamesWhereThereIsNoOtherWay) {
  OnlyRenames files;
  files.put("/one", "1");
  files.put("/other", "2");
  files.exchange("/one", "/other");
  EXPECT_EQ(files.bytes("/one"), "2");
  EXPECT_EQ(files.bytes("/other"), "1");
  EXPECT_EQ(files.files.size(), 2U);
}

TEST(FileExchange, TakesARenameThatFailsBack) {
  for (int failing = 0; failing < 3; ++failing) {
    OnlyRenames files;
    files.put("/one", "1");
    files.put("/other", "2");
    files.failing = failing;
    EXPECT_THROW(files.exchange("/one", "/other"), RunTimeError);
    EXPECT_EQ(files.bytes("/one"), "1") << failing;
    EXPECT_EQ(files.bytes("/other"), "2") << failing;
  }
}

}  // namespace
}  // namespace quillbox::test
