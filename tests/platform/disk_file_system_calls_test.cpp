#ifndef _WIN32  // system calls that fail as they do on disks and file systems the tests do not have
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "platform/disk_file_system.h"
#include "platform/run_time_error.h"
#include "support/failing_call.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

void write(File& file, std::uint64_t offset, std::string_view bytes) {
  file.writeAt(offset, std::as_bytes(std::span(bytes)));
}

class FailingCalls : public testing::Test {
 protected:
  /// The result of renaming on a file system that cannot refuse an existing target by itself, and
  /// returns that error.
  Failure plainRenameFailure(int error, const std::string& from, const std::string& to) {
    Failure failure;
    whereCallEndsWith(SYS_renameat2, error,
                      [&] { failure = failureOf([&] { files_.rename(from, to); }); });
    return failure;
  }

  TestFolder folder_;
  DiskFileSystem files_;
};

TEST_F(FailingCalls, AFlushThatFailsIsAnErrorThatNamesTheFile) {
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "");
  const struct {
    int error;
    int number;
  } rows[] = {{EIO, 57}, {ENOSPC, 61}, {EDQUOT, 61}, {EROFS, 70}, {EINVAL, 75}};
  for (const auto& row : rows) {
    for (const OpenMode mode : {OpenMode::update, OpenMode::create, OpenMode::replace}) {
      const auto file = files_.open(path, mode);
      Failure failure;
      whereCallEndsWith(SYS_fsync, row.error, [&] { failure = failureOf([&] { file->flush(); }); });
      EXPECT_EQ(failure, (Failure{row.number, path}));
      EXPECT_EQ(failureOf([&] { file->flush(); }), Failure{});
    }
  }
}

TEST_F(FailingCalls, AFileThatTakesNothingMoreIsAFullDisk) {
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "0123456789");
  const auto file = files_.open(path, OpenMode::update);
  Failure failure;
  whereCallEndsWith(SYS_pwrite64, 0, [&] { failure = failureOf([&] { write(*file, 2, "abc"); }); });
  EXPECT_EQ(failure, (Failure{61, path}));
  EXPECT_EQ(readFile(path), "0123456789");
}

TEST_F(FailingCalls, OnlyTheNameOfAFileThatMayBeNewIsFlushed) {
  const struct {
    OpenMode mode;
    int folders;
  } rows[] = {{OpenMode::update, 0}, {OpenMode::create, 1}, {OpenMode::replace, 1}};
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "");
  for (const auto& row : rows) {
    const auto file = files_.open(path, row.mode);
    EXPECT_EQ(foldersFlushedBy([&] { file->flush(); }), row.folders);
  }
  const auto made = files_.make(path + "~", {});
  EXPECT_EQ(foldersFlushedBy([&] { made->flush(); }), 1);
}

TEST_F(FailingCalls, WhatIsReadAndWrittenInPiecesIsWhole) {
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "0123456789");
  const auto file = files_.open(path, OpenMode::update);
  whereCallsTakeAtMost(3, [&] {
    write(*file, 1, "abcdefgh");
    std::array<std::byte, 20> bytes{};
    EXPECT_EQ(file->readAt(0, bytes), 10U);
    EXPECT_EQ(std::memcmp(bytes.data(), "0abcdefgh9", 10), 0);
  });
  EXPECT_EQ(readFile(path), "0abcdefgh9");
}

TEST_F(FailingCalls, AFailureThatShowsOnlyWhenAFileIsClosedIsAnError) {
  const std::string path = folder_.path("jazz.MCS");
  writeFile(path, "");
  const struct {
    int error;
    Failure failure;
  } rows[] = {{EIO, {57, path}}, {ENOSPC, {61, path}}, {EDQUOT, {61, path}}, {EINTR, {}}};
  for (const auto& row : rows) {
    const auto file = files_.open(path, OpenMode::update);
    Failure failure;
    whereCallEndsWith(SYS_close, row.error, [&] { failure = failureOf([&] { file->close(); }); });
    EXPECT_EQ(failure, row.failure) << row.error;
  }
}

TEST_F(FailingCalls, WhereRenamingCannotRefuseATargetNothingIsOverwrittenEither) {
  const std::string from = folder_.path("jazz.MCS");
  const std::string backup = folder_.path("jazz.BAK");
  const std::string folder = folder_.path("folder");
  writeFile(from, "the collection");
  writeFile(backup, "the old backup");
  std::filesystem::create_directory(folder);
  for (const int error : {EINVAL, ENOSYS}) {
    EXPECT_EQ(plainRenameFailure(error, from, backup), (Failure{58, backup}));
    EXPECT_EQ(plainRenameFailure(error, from, folder), (Failure{58, folder}));
    EXPECT_EQ(plainRenameFailure(error, from, from), (Failure{58, from}));
    EXPECT_EQ(readFile(from), "the collection");
    EXPECT_EQ(readFile(backup), "the old backup");
    EXPECT_TRUE(std::filesystem::is_empty(folder));
  }
}

TEST_F(FailingCalls, WhereRenamingCannotRefuseATargetALinkIsInTheWayToo) {
  writeFile("jazz.MCS", "the collection");
  std::filesystem::create_symlink("missing", "jazz.BAK");
  EXPECT_EQ(plainRenameFailure(EINVAL, "jazz.MCS", "jazz.BAK"), (Failure{58, "jazz.BAK"}));
  EXPECT_TRUE(std::filesystem::is_symlink("jazz.BAK"));
  EXPECT_EQ(readFile("jazz.MCS"), "the collection");
}

TEST_F(FailingCalls, WhereNamesCannotBeExchangedTheSpareNameIsTheFirstOnes) {
  const std::string fresh = folder_.path("jazz.MCS.new~");
  const std::string collection = folder_.path("jazz.MCS");
  writeFile(fresh, "new");
  writeFile(collection, "old");
  writeFile(collection + "~", "earlier");
  Failure failure;
  whereCallEndsWith(SYS_renameat2, EINVAL,
                    [&] { failure = failureOf([&] { files_.exchange(fresh, collection); }); });
  EXPECT_EQ(failure, Failure{});
  EXPECT_EQ(readFile(collection), "new");
  EXPECT_EQ(readFile(fresh), "old");
  EXPECT_EQ(readFile(collection + "~"), "earlier");
}

TEST_F(FailingCalls, AnotherFileSystemIsAnErrorOfItsOwn) {
  writeFile("jazz.MCS", "the collection");
  EXPECT_EQ(plainRenameFailure(EXDEV, "jazz.MCS", "jazz.BAK"), (Failure{74, "jazz.MCS"}));
}

TEST_F(FailingCalls, WhereRenamingCannotRefuseATargetItRenamesAllTheSame) {
  for (const int error : {EINVAL, ENOSYS}) {
    writeFile("jazz.MCS", "the collection");
    EXPECT_EQ(plainRenameFailure(error, "jazz.MCS", "jazz.BAK"), Failure{});
    EXPECT_EQ(readFile("jazz.BAK"), "the collection");
    EXPECT_FALSE(std::filesystem::exists("jazz.MCS"));
    std::filesystem::remove("jazz.BAK");
  }
}

TEST_F(FailingCalls, WhereRenamingCannotRefuseATargetItsErrorsAreTheSame) {
  const std::string from = folder_.path("jazz.MCS");
  const std::string missing = folder_.path("missing.MCS");
  const std::string inMissing = folder_.path("missing/jazz.BAK");
  writeFile(from, "the collection");
  for (const int error : {EINVAL, ENOSYS}) {
    EXPECT_EQ(plainRenameFailure(error, missing, folder_.path("jazz.BAK")), (Failure{53, missing}));
    EXPECT_EQ(plainRenameFailure(error, from, inMissing), (Failure{76, inMissing}));
    EXPECT_EQ(readFile(from), "the collection");
    EXPECT_FALSE(std::filesystem::exists(folder_.path("jazz.BAK")));
    EXPECT_FALSE(std::filesystem::exists(folder_.path("missing")));
  }
}

TEST_F(FailingCalls, AnyOtherFailureOfRenamingIsReported) {
  writeFile("jazz.MCS", "the collection");
  EXPECT_EQ(plainRenameFailure(EIO, "jazz.MCS", "jazz.BAK"), (Failure{57, "jazz.MCS"}));
  EXPECT_EQ(plainRenameFailure(EROFS, "jazz.MCS", "jazz.BAK"), (Failure{70, "jazz.MCS"}));
  EXPECT_EQ(readFile("jazz.MCS"), "the collection");
  EXPECT_FALSE(std::filesystem::exists("jazz.BAK"));
}

TEST_F(FailingCalls, ANameThatCannotBeLookedAtIsAnErrorAndNotMissing) {
  const std::string closed = folder_.path("closed");
  std::filesystem::create_directory(closed);
  writeFile(closed + "/jazz.BAK", "the old backup");
  std::filesystem::permissions(closed, std::filesystem::perms::none);
  const std::string tooLong(300, 'x');
  EXPECT_EQ(failureOf([&] { files_.exists(tooLong); }), (Failure{75, tooLong}));
  const OrdinaryUser user(folder_);
  for (const std::string& path : {closed + "/jazz.BAK", closed + "/missing.BAK"})
    EXPECT_EQ(failureOf([&] { files_.exists(path); }), (Failure{70, path}));
}

}  // namespace
}  // namespace quillbox::test
#endif
