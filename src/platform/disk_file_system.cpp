#include "platform/disk_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "platform/file_access.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

/// A missing file in an existing folder is a different error from a missing folder.
RunTimeError openError(int error, const std::string& path) {
  if (error == ENOENT) {
    std::error_code ignored;
    const auto folder = std::filesystem::path(path).parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, ignored))
      return RunTimeError(ErrorNumber::pathNotFound, path);
  }
  return errorFromErrno(error, path);
}

/// Makes the name of a new file durable. Not every folder can be opened or flushed; where it
/// cannot, the name is as safe as the file system makes it.
void flushFolderOf(const std::string& path) {
  const auto folder = std::filesystem::path(path).parent_path();
  const int descriptor =
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

/// Evaluates what stat or lstat returned.
bool isThere(int answer, const std::string& path) {
  if (answer == 0) return true;
  if (errno == ENOENT || errno == ENOTDIR) return false;
  throw openError(errno, path);
}

RunTimeError folderError(const std::error_code& error, const std::string& folder) {
  if (error.value() == ENOENT) return RunTimeError(ErrorNumber::pathNotFound, folder);
  return errorFromErrno(error.value(), folder);
}

class DiskFile : public File {
 public:
  DiskFile(int descriptor, std::string path, bool mayBeNew)
      : descriptor_(descriptor), path_(std::move(path)), mayBeNew_(mayBeNew) {}
  DiskFile(const DiskFile&) = delete;
  DiskFile& operator=(const DiskFile&) = delete;
  ~DiskFile() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override {
    std::size_t done = 0;
    while (done < into.size()) {
      const auto got = ::pread(descriptor_, into.data() + done, into.size() - done,
                               static_cast<off_t>(offset + done));
      if (got == 0) break;
      if (got > 0)
        done += static_cast<std::size_t>(got);
      else if (errno != EINTR)
        throw errorFromErrno(errno, path_);
    }
    return done;
  }

  void writeAt(std::uint64_t offset, std::span<const std::byte> from) override {
    std::size_t done = 0;
    while (done < from.size()) {
      const auto put = ::pwrite(descriptor_, from.data() + done, from.size() - done,
                                static_cast<off_t>(offset + done));
      if (put > 0)
        done += static_cast<std::size_t>(put);
      else if (put == 0)
        throw RunTimeError(ErrorNumber::diskFull, path_);
      else if (errno != EINTR)
        throw errorFromErrno(errno, path_);
    }
  }

  void flush() override {
    if (::fsync(descriptor_) != 0) throw errorFromErrno(errno, path_);
    if (mayBeNew_) flushFolderOf(path_);
  }

  void close() override {
    const int descriptor = std::exchange(descriptor_, -1);
    if (::close(descriptor) != 0 && errno != EINTR) throw errorFromErrno(errno, path_);
  }

 private:
  int descriptor_;
  std::string path_;
  bool mayBeNew_;
};

// Not blocking, so that a pipe under a collection's name is an error instead of waiting for ever.
constexpr int kCommonFlags = O_CLOEXEC | O_NONBLOCK;

constexpr mode_t kAnybody = 0666;  // less the user's mask
constexpr mode_t kNobodyElse = 0600;

int openFlags(OpenMode mode) {
  switch (mode) {
    case OpenMode::update:
      return kCommonFlags | O_RDWR;
    case OpenMode::create:
      return kCommonFlags | O_RDWR | O_CREAT;
    case OpenMode::replace:
      return kCommonFlags | O_WRONLY | O_CREAT | O_TRUNC;
    case OpenMode::read:
      break;
  }
  return kCommonFlags | O_RDONLY;
}

}  // namespace

std::unique_ptr<File> DiskFileSystem::open(const std::string& path, OpenMode mode) {
  const int descriptor = ::open(path.c_str(), openFlags(mode), kAnybody);
  if (descriptor < 0) throw openError(errno, path);
  return std::make_unique<DiskFile>(descriptor, path,
                                    mode == OpenMode::create || mode == OpenMode::replace);
}

std::unique_ptr<File> DiskFileSystem::make(const std::string& path, const std::string& like) {
  constexpr int flags = kCommonFlags | O_RDWR | O_CREAT | O_EXCL;
  const int descriptor = ::open(path.c_str(), flags, like.empty() ? kAnybody : kNobodyElse);
  if (descriptor < 0) throw openError(errno, path);
  auto file = std::make_unique<DiskFile>(descriptor, path, true);
  if (const int error = like.empty() ? 0 : takeAccessOf(like, descriptor)) {
    ::unlink(path.c_str());
    throw errorFromErrno(error, path);
  }
  return file;
}

bool DiskFileSystem::exists(const std::string& path) {
  struct stat status {};
  return isThere(::stat(path.c_str(), &status), path);
}

std::optional<std::string> DiskFileSystem::linkTarget(const std::string& path) {
  std::error_code error;
  const auto target = std::filesystem::read_symlink(path, error);
  if (!error) return (std::filesystem::path(path).parent_path() / target).string();
  // EINVAL is the error for anything that is not a link.
  if (error.value() == EINVAL || error.value() == ENOENT || error.value() == ENOTDIR) return {};
  throw errorFromErrno(error.value(), path);
}

bool DiskFileSystem::isSameFile(const std::string& a, const std::string& b) {
  std::error_code unknown;
  return std::filesystem::equivalent(a, b, unknown);
}

void DiskFileSystem::remove(const std::string& path) {
  if (::unlink(path.c_str()) != 0) throw openError(errno, path);
}

void DiskFileSystem::rename(const std::string& from, const std::string& to) {
  const auto result = [](int answer) { return answer == 0 ? 0 : errno; };
  int error = result(::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE));
  if (error == EINVAL || error == ENOSYS) {  // a file system that cannot rename this way
    struct stat status {};
    if (isThere(::lstat(to.c_str(), &status), to))
      throw RunTimeError(ErrorNumber::fileAlreadyExists, to);
    error = result(std::rename(from.c_str(), to.c_str()));
  }
  if (error == 0) {
    using std::filesystem::path;
    if (path(from).parent_path() != path(to).parent_path()) flushFolderOf(to);
    return;
  }
  if (error == EXDEV) throw RunTimeError(ErrorNumber::differentDrive, from);
  const bool targetIsToBlame = error == EEXIST || (error == ENOENT && exists(from));
  throw openError(error, targetIsToBlame ? to : from);
}

void DiskFileSystem::exchange(const std::string& one, const std::string& other) {
  if (::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0)
    return flushFolderOf(other);
  const int error = errno;
  if (error != EINVAL && error != ENOSYS) throw openError(error, exists(one) ? other : one);
  FileSystem::exchange(one, other);  // a file system that cannot exchange names
  flushFolderOf(other);
}

std::string DiskFileSystem::currentFolder() {
  std::error_code error;
  const auto folder = std::filesystem::current_path(error);
  if (error) throw RunTimeError(ErrorNumber::pathNotFound, ".");
  return folder.string();
}

void DiskFileSystem::setCurrentFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::current_path(folder, error);
  if (error) throw folderError(error, folder);
}

std::string DiskFileSystem::resolvedFolder(const std::string& folder) {
  std::error_code error;
  auto resolved = std::filesystem::canonical(folder, error);
  if (error) throw folderError(error, folder);
  return resolved.string();
}

std::string DiskFileSystem::programFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? currentFolder() : program.parent_path().string();
}

std::vector<FolderEntry> DiskFileSystem::list(const std::string& folder) {
  std::vector<FolderEntry> entries;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    entries.push_back({entry->path().filename().string(), entry->is_regular_file(unknown)});
  }
  if (error) throw folderError(error, folder);
  return entries;
}

}  // namespace quillbox
