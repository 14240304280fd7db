#ifdef _WIN32  // what only the files of Windows have

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "platform/disk_file_system.h"
#include "platform/paths.h"
#include "platform/windows_error.h"
#include "support/failure.h"
#include "support/machine.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr OpenMode kModes[] = {OpenMode::read, OpenMode::update, OpenMode::create,
                               OpenMode::replace};

class WindowsFiles : public testing::Test {
 protected:
  Failure openFailure(const std::string& path, OpenMode mode) {
    return failureOf([&] { files_.open(path, mode); });
  }

  TestFolder folder_;
  DiskFileSystem files_;
};

TEST_F(WindowsFiles, EitherSeparatorLeadsToAFile) {
  std::filesystem::create_directory("below");
  writeFile("below/jazz.MCS", "found");
  const std::string folder = files_.currentFolder();
  for (const std::string& path :
       {std::string("below/jazz.MCS"), std::string("below\\jazz.MCS"),
        fullPath("below/.\\jazz.MCS", folder), joinPath(joinPath(folder, "below"), "jazz.MCS"),
        folder.substr(2) + "/below\\jazz.MCS", folder.substr(0, 2) + "below\\jazz.MCS"}) {
    EXPECT_TRUE(files_.exists(path)) << path;
    EXPECT_TRUE(files_.isSameFile(path, "below/jazz.MCS")) << path;
    EXPECT_EQ(openFailure(path, OpenMode::update), Failure{}) << path;
  }
  EXPECT_EQ(files_.list(".\\below").size(), 1U);
  EXPECT_EQ(files_.list("below\\").size(), 1U);
}

TEST_F(WindowsFiles, CapitalsAndSmallLettersNameTheSameFile) {
  writeFile("jazz.MCS", "the collection");
  EXPECT_TRUE(files_.exists("JAZZ.mcs"));
  EXPECT_TRUE(files_.isSameFile("jazz.MCS", "Jazz.mcs"));
  writeFile("blues.MCS", "the other");
  EXPECT_EQ(failureOf([&] { files_.rename("blues.MCS", "JAZZ.MCS"); }), (Failure{58, "JAZZ.MCS"}));
  EXPECT_EQ(readFile("jazz.MCS"), "the collection");
  EXPECT_EQ(readFile("blues.MCS"), "the other");
}

TEST_F(WindowsFiles, BytesThatAreNoTextNameNoFile) {
  const std::string name = "d\xE9j\xE0.MCS";
  for (const OpenMode mode : kModes) EXPECT_EQ(openFailure(name, mode), (Failure{75, name}));
  EXPECT_FALSE(files_.exists(name));
  EXPECT_FALSE(files_.isSameFile(name, name));
  writeFile("jazz.MCS", "kept");
  EXPECT_EQ(failureOf([&] { files_.rename("jazz.MCS", name); }), (Failure{75, name}));
  EXPECT_EQ(failureOf([&] { files_.rename(name, "blues.MCS"); }), (Failure{75, name}));
  EXPECT_EQ(failureOf([&] { files_.remove(name); }), (Failure{75, name}));
  EXPECT_EQ(failureOf([&] { files_.setCurrentFolder(name); }), (Failure{76, name}));
  EXPECT_EQ(failureOf([&] { files_.list(name); }), (Failure{76, name}));
  ASSERT_EQ(files_.list(".").size(), 1U);
  EXPECT_EQ(readFile("jazz.MCS"), "kept");
}

TEST_F(WindowsFiles, ADeviceUnderTheNameIsAnErrorAndNotAWaitForEver) {
  for (const OpenMode mode : kModes) EXPECT_EQ(openFailure("NUL", mode), (Failure{75, "NUL"}));
}

TEST_F(WindowsFiles, AFileThatAnotherProgramHasToItselfIsRefused) {
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "kept");
  const HANDLE other = ::CreateFileW(std::filesystem::path(path).c_str(), GENERIC_READ, 0, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  const Failure refused = {70, path};
  for (const OpenMode mode : kModes) EXPECT_EQ(openFailure(path, mode), refused);
  EXPECT_EQ(failureOf([&] { files_.rename(path, "jazz.BAK"); }), refused);
  EXPECT_EQ(failureOf([&] { files_.remove(path); }), refused);
  EXPECT_TRUE(files_.exists(path));
  ::CloseHandle(other);
  EXPECT_EQ(readFile(path), "kept");
  EXPECT_EQ(openFailure(path, OpenMode::update), Failure{});
}

TEST_F(WindowsFiles, AnOpenFileCanBeRenamedAndDeleted) {
  writeFile("jazz.MCS", "kept");
  const auto file = files_.open("jazz.MCS", OpenMode::update);
  files_.rename("jazz.MCS", "jazz.BAK");
  file->writeAt(0, std::as_bytes(std::span<const char>("KE", 2)));
  EXPECT_EQ(readFile("jazz.BAK"), "KEpt");
  files_.remove("jazz.BAK");
  file->close();
  EXPECT_FALSE(files_.exists("jazz.BAK"));
}

TEST_F(WindowsFiles, AHiddenFileIsReplacedAsAnyOther) {
  writeFile("list.txt", "what was there before");
  ASSERT_NE(::SetFileAttributesW(L"list.txt", FILE_ATTRIBUTE_HIDDEN), 0);
  files_.open("list.txt", OpenMode::replace)->close();
  EXPECT_EQ(readFile("list.txt"), "");
  ASSERT_EQ(files_.list(".").size(), 1U);
  EXPECT_TRUE(files_.list(".").front().isPlainFile);
}

TEST_F(WindowsFiles, AFileThatMayOnlyBeReadIsNotChanged) {
  QUILLBOX_NEEDS(readOnlyFiles);
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "kept");
  ASSERT_NE(::SetFileAttributesW(L"jazz.MCS", FILE_ATTRIBUTE_READONLY), 0);
  for (const OpenMode mode : {OpenMode::update, OpenMode::create, OpenMode::replace})
    EXPECT_EQ(openFailure(path, mode), (Failure{70, path}));
  EXPECT_EQ(readFile(path), "kept");
}

TEST_F(WindowsFiles, APathOfMoreThan260CharactersIsAPathAsAnyOther) {
  // A real Windows takes it only where the program's manifest and the system's settings say so.
  const std::string folder =
      folder_.path(std::string(120, 'a') + "/" + std::string(120, 'b') + "/" + "c");
  std::filesystem::create_directories(folder);
  const std::string path = joinPath(folder, "jazz.MCS");
  files_.open(path, OpenMode::create)->writeAt(0, std::as_bytes(std::span("kept", 4)));
  EXPECT_EQ(readFile(path), "kept");
  EXPECT_EQ(openFailure(path, OpenMode::update), Failure{});
  EXPECT_TRUE(files_.exists(path));
  files_.setCurrentFolder(folder);
  EXPECT_EQ(files_.currentFolder(), folder);
  files_.rename("jazz.MCS", joinPath(folder, "jazz.BAK"));
  ASSERT_EQ(files_.list(folder).size(), 1U);
  EXPECT_EQ(files_.list(folder).front().name, "jazz.BAK");
  EXPECT_EQ(files_.resolvedFolder(folder + "\\."), folder);
  files_.remove(joinPath(folder, "jazz.BAK"));
  EXPECT_TRUE(files_.list(".").empty());
  // The library that clears the test's folder away knows only shorter paths.
  files_.setCurrentFolder(folder_.path());
  for (std::filesystem::path gone = folder; gone != folder_.path(); gone = gone.parent_path())
    std::filesystem::remove(gone);
}

TEST_F(WindowsFiles, ADriveThatIsNotThereIsAMissingFolder) {
  const std::string path = "Q:\\jazz.MCS";
  ASSERT_EQ(::GetDriveTypeW(L"Q:\\"), static_cast<UINT>(DRIVE_NO_ROOT_DIR));
  EXPECT_FALSE(files_.exists(path));
  EXPECT_EQ(failureOf([&] { files_.list("Q:\\"); }), (Failure{76, "Q:\\"}));
  EXPECT_EQ(failureOf([&] { files_.setCurrentFolder("Q:\\"); }), (Failure{76, "Q:\\"}));
}

TEST(WindowsError, EveryFailedCallHasANumber) {
  const struct {
    DWORD error;
    int number;
  } rows[] = {
      {ERROR_FILE_NOT_FOUND, 53},
      {ERROR_PATH_NOT_FOUND, 76},
      {ERROR_DIRECTORY, 76},
      {ERROR_INVALID_DRIVE, 76},
      {ERROR_BAD_NETPATH, 76},
      {ERROR_BAD_NET_NAME, 76},
      {ERROR_BAD_PATHNAME, 76},
      {ERROR_FILE_EXISTS, 58},
      {ERROR_ALREADY_EXISTS, 58},
      {ERROR_ACCESS_DENIED, 70},
      {ERROR_SHARING_VIOLATION, 70},
      {ERROR_LOCK_VIOLATION, 70},
      {ERROR_WRITE_PROTECT, 70},
      {ERROR_NETWORK_ACCESS_DENIED, 70},
      {ERROR_USER_MAPPED_FILE, 70},
      {ERROR_DISK_FULL, 61},
      {ERROR_HANDLE_DISK_FULL, 61},
      {ERROR_FILE_TOO_LARGE, 61},
      {1295, 61},
      {ERROR_IO_DEVICE, 57},
      {ERROR_CRC, 57},
      {ERROR_GEN_FAILURE, 57},
      {ERROR_NOT_READY, 57},
      {ERROR_SEEK, 57},
      {ERROR_SECTOR_NOT_FOUND, 57},
      {ERROR_READ_FAULT, 57},
      {ERROR_WRITE_FAULT, 57},
      {ERROR_DEV_NOT_EXIST, 57},
      {ERROR_NETNAME_DELETED, 57},
      {ERROR_INVALID_NAME, 75},
      {ERROR_NOT_SAME_DEVICE, 75},
      {ERROR_TOO_MANY_OPEN_FILES, 75},
      {ERROR_FILENAME_EXCED_RANGE, 75},
      {ERROR_SUCCESS, 75},
  };
  for (const auto& row : rows) {
    const RunTimeError error = errorFromWindows(row.error, "C:\\jazz.MCS");
    EXPECT_EQ(static_cast<int>(error.number()), row.number) << "error " << row.error;
    EXPECT_EQ(error.file(), "C:\\jazz.MCS") << "error " << row.error;
  }
}

}  // namespace
}  // namespace quillbox::test

#endif
