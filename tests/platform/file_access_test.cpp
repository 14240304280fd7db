#ifndef _WIN32  // where permissions are a file's mode, its owners and a list
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/disk_file_system.h"
#include "support/failing_call.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kListForNewFiles = "system.posix_acl_default";

/// While the object exists, new files get all permissions.
class NoMask {
 public:
  NoMask() : before_(::umask(0)) {}
  NoMask(const NoMask&) = delete;
  NoMask& operator=(const NoMask&) = delete;
  ~NoMask() { ::umask(before_); }

 private:
  mode_t before_;
};

/// An access list with one more user who may read.
std::string listWithAReader(unsigned user) {
  std::string list("\2\0\0\0", 4);
  const auto add = [&](unsigned tag, unsigned may, unsigned id) {
    for (const unsigned number : {tag, may}) list.append({static_cast<char>(number), '\0'});
    for (int shift = 0; shift < 32; shift += 8) list += static_cast<char>(id >> shift & 0xFFU);
  };
  constexpr unsigned none = 0xFFFFFFFFU;
  add(0x01, 6, none);  // the owner
  add(0x02, 4, user);
  add(0x04, 4, none);  // the group
  add(0x10, 4, none);  // the maximum for all but the owner
  add(0x20, 0, none);  // all others
  return list;
}

bool setAttribute(const std::string& path, const char* name, const std::string& value) {
  return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

std::string attribute(const std::string& path, const char* name) {
  std::string value(1000, '\0');
  const auto length = ::getxattr(path.c_str(), name, value.data(), value.size());
  value.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return value;
}

class FileAccess : public testing::Test {
 protected:
  FileAccess() { writeFile(old_, "the collection"); }

  void setMode(mode_t mode) { ASSERT_EQ(::chmod(old_.c_str(), mode), 0); }

  static struct stat statusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status;
  }
  static unsigned modeOf(const std::string& path) { return statusOf(path).st_mode & 07777U; }

  /// The mode of a file made like the old one, on a machine where a call fails with that error.
  unsigned modeMadeWhere(long call, int error) {
    std::filesystem::remove(new_);
    whereCallEndsWith(call, error, [this] { files_.make(new_, old_)->close(); });
    return modeOf(new_);
  }

  TestFolder folder_;
  std::string old_ = folder_.path("old");
  std::string new_ = folder_.path("new");
  DiskFileSystem files_;
};

TEST_F(FileAccess, ANewFileHasTheOldOnesMode) {
  for (const mode_t mode : {0600U, 0640U, 0644U, 0660U, 0664U, 0666U, 0400U, 0444U, 0755U}) {
    setMode(mode);
    std::filesystem::remove(new_);
    files_.make(new_, old_)->close();
    EXPECT_EQ(modeOf(new_), mode);
  }
}

TEST_F(FileAccess, AnyOtherNewFileHasTheUsualMode) {
  setMode(0600);
  files_.make(new_, "")->close();
  const mode_t mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(modeOf(new_), 0666U & ~mask);
}

TEST_F(FileAccess, NobodyCanReadItBeforeItsModeIsSet) {
  const NoMask noMask;
  setMode(0640);
  EXPECT_EQ(modeMadeWhere(SYS_fchmod, 0), 0600U);
}

TEST_F(FileAccess, AFileSystemWithoutModesIsNoError) {
  setMode(0640);
  for (const int error : {EPERM, ENOTSUP, ENOSYS})
    EXPECT_EQ(modeMadeWhere(SYS_fchmod, error), 0600U) << error;
}

TEST_F(FileAccess, AModeThatCannotBeSetIsAnErrorAndLeavesNoFile) {
  Failure failure;
  whereCallEndsWith(SYS_fchmod, EIO,
                    [&] { failure = failureOf([&] { files_.make(new_, old_); }); });
  EXPECT_EQ(failure, (Failure{57, new_}));
  EXPECT_FALSE(std::filesystem::exists(new_));
}

TEST_F(FileAccess, WithoutTheOldOwnersNobodyMayDoMoreThanAllCouldBefore) {
  const std::pair<mode_t, unsigned> rows[] = {
      {0644, 0644}, {0640, 0600}, {0664, 0644}, {0666, 0666},
      {0604, 0600}, {0660, 0600}, {0444, 0444}, {0646, 0644},
  };
  for (const auto& [mode, expected] : rows) {
    setMode(mode);
    EXPECT_EQ(modeMadeWhere(SYS_fchown, EPERM), expected) << std::oct << mode;
  }
}

TEST_F(FileAccess, TheOwnersAreTakenOverWhereTheSystemLetsIt) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root gives files away";
  constexpr uid_t owner = 4711;
  constexpr gid_t group = 4712;
  setMode(0640);
  ASSERT_EQ(::chown(old_.c_str(), owner, group), 0);
  files_.make(new_, old_)->close();
  EXPECT_EQ(statusOf(new_).st_uid, owner);
  EXPECT_EQ(statusOf(new_).st_gid, group);
  EXPECT_EQ(modeOf(new_), 0640U);
}

TEST_F(FileAccess, WhereOnlyTheGroupIsTakenOverItMayDoWhatItCould) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root gives files away";
  constexpr uid_t owner = 4711;
  ASSERT_EQ(::chown(old_.c_str(), owner, ::getegid()), 0);
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
  const std::pair<mode_t, unsigned> rows[] = {
      {0640, 0640}, {0664, 0664}, {0460, 0440}, {0604, 0604}, {0264, 0220}};
  for (const auto& [mode, expected] : rows) {
    setMode(mode);
    std::filesystem::remove(new_);
    {
      const OrdinaryUser user(folder_);
      files_.make(new_, old_)->close();
    }
    EXPECT_EQ(statusOf(new_).st_gid, ::getegid());
    EXPECT_EQ(modeOf(new_), expected) << std::oct << mode;
  }
}

TEST_F(FileAccess, ExtendedAttributesAreTakenOver) {
  const std::string longValue(900, 'x');
  if (!setAttribute(old_, "user.note", "from my aunt")) GTEST_SKIP() << "no attributes here";
  ASSERT_TRUE(setAttribute(old_, "user.empty", ""));
  ASSERT_TRUE(setAttribute(old_, "user.long", longValue));
  files_.make(new_, old_)->close();
  EXPECT_EQ(attribute(new_, "user.note"), "from my aunt");
  EXPECT_EQ(attribute(new_, "user.long"), longValue);
  EXPECT_EQ(::getxattr(new_.c_str(), "user.empty", nullptr, 0), 0);
  setMode(0640);
  for (const long call : {SYS_listxattr, SYS_getxattr, SYS_fsetxattr}) {
    modeMadeWhere(call, ENOTSUP);
    EXPECT_EQ(attribute(new_, "user.note"), "");
  }
}

TEST_F(FileAccess, AListOfReadersIsTakenOver) {
  const std::string list = listWithAReader(4711);
  if (!setAttribute(old_, kAccessList, list)) GTEST_SKIP() << "no lists here";
  files_.make(new_, old_)->close();
  EXPECT_TRUE(attribute(new_, kAccessList) == list);
  EXPECT_EQ(modeOf(new_), 0640U);
}

TEST_F(FileAccess, WithoutTheOldListOnlyTheOwnerMayReadIt) {
  if (!setAttribute(old_, kAccessList, listWithAReader(4711))) GTEST_SKIP() << "no lists here";
  EXPECT_EQ(modeMadeWhere(SYS_fsetxattr, EPERM), 0600U);
  EXPECT_EQ(modeMadeWhere(SYS_fchown, EPERM), 0600U);
  EXPECT_EQ(modeMadeWhere(SYS_getxattr, EIO), 0600U);
}

TEST_F(FileAccess, TheFoldersListForNewFilesDoesNotCount) {
  setMode(0640);
  if (!setAttribute(folder_.path(), kListForNewFiles, listWithAReader(4711)))
    GTEST_SKIP() << "no lists here";
  const NoMask noMask;
  files_.make(new_, old_)->close();
  EXPECT_EQ(attribute(new_, kAccessList), "");
  EXPECT_EQ(modeOf(new_), 0640U);
  EXPECT_EQ(modeMadeWhere(SYS_fremovexattr, EPERM), 0600U);
}

}  // namespace
}  // namespace quillbox::test
#endif
