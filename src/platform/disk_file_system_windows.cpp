#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX  // the standard library's headers may have it, too
#define NOMINMAX
#endif
#include <windows.h>
#include <winioctl.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "platform/disk_file_system.h"
#include "platform/paths.h"
#include "platform/windows_error.h"

namespace quillbox {
namespace {

/// Paths are UTF-8 everywhere else. Nothing for bytes that are not UTF-8: no file has such a name.
std::optional<std::wstring> systemName(const std::string& path) {
  if (path.empty()) return std::wstring();
  const int bytes = static_cast<int>(path.size());
  const int length =
      ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), bytes, nullptr, 0);
  if (length == 0) return std::nullopt;
  std::wstring name(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), bytes, name.data(), length);
  return name;
}

std::wstring neededSystemName(const std::string& path) {
  auto name = systemName(path);
  if (!name) throw errorFromWindows(ERROR_INVALID_NAME, path);
  return *std::move(name);
}

/// A system name that is not valid Unicode gets a replacement character, and then leads nowhere.
std::string fromSystem(std::wstring_view name) {
  if (name.empty()) return {};
  const int length = static_cast<int>(name.size());
  const int bytes =
      ::WideCharToMultiByte(CP_UTF8, 0, name.data(), length, nullptr, 0, nullptr, nullptr);
  std::string path(static_cast<std::size_t>(bytes), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, name.data(), length, path.data(), bytes, nullptr, nullptr);
  return path;
}

/// What the system writes into a buffer, of any length; `call` returns the length written or, when
/// the buffer is too short, at least the buffer's length.
template <typename Call>
std::optional<std::string> textOfSystem(const Call& call) {
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = call(static_cast<DWORD>(text.size()), text.data());
    if (length == 0) return std::nullopt;
    if (length < text.size()) return fromSystem(std::wstring_view(text).substr(0, length));
    text.resize(2 * std::max<std::size_t>(text.size(), length));
  }
}

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&&) = delete;
  ~Handle() {
    if (isOpen()) ::CloseHandle(handle_);
  }

  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }
  HANDLE release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

 private:
  HANDLE handle_;
};

/// As on other platforms, an open file can be opened again, renamed and deleted.
constexpr DWORD kSharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens whatever the name leads to, following links, only to query it.
Handle openToAsk(const std::wstring& name) {
  return Handle(::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, kSharedWithAll, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<BY_HANDLE_FILE_INFORMATION> informationOf(const Handle& file) {
  BY_HANDLE_FILE_INFORMATION information;
  if (!file.isOpen() || ::GetFileInformationByHandle(file.get(), &information) == 0) return {};
  return information;
}

/// True for the errors of a name that leads nowhere.
bool meansNothingThere(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
         error == ERROR_DIRECTORY || error == ERROR_INVALID_NAME;
}

/// The head of a symbolic link's data. Its texts follow; the offsets count from there.
struct LinkHead {
  ULONG tag;
  USHORT length;
  USHORT reserved;
  USHORT systemOffset;  ///< the target as the system writes it
  USHORT systemLength;  ///< in bytes
  USHORT shownOffset;   ///< the target as it is displayed
  USHORT shownLength;
  ULONG flags;
};
static_assert(sizeof(LinkHead) == 20);

/// Who may do what with a file; empty on a file system without permissions.
std::vector<std::byte> accessListOf(const std::string& path) {
  const std::wstring name = neededSystemName(path);
  const auto read = [&](std::vector<std::byte>& list, DWORD& size) {
    return ::GetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, list.data(),
                              static_cast<DWORD>(list.size()), &size) != 0;
  };
  std::vector<std::byte> list;
  DWORD size = 0;
  while (!read(list, size)) {
    const DWORD error = ::GetLastError();
    if (error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION) return {};
    if (error != ERROR_INSUFFICIENT_BUFFER) throw errorFromWindows(error, path);
    list.resize(size);
  }
  return list;
}

/// The attributes of a file that another file takes over.
DWORD attributesLike(const std::string& path) {
  constexpr DWORD kept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                         FILE_ATTRIBUTE_ENCRYPTED;
  const DWORD attributes = ::GetFileAttributesW(neededSystemName(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) throw errorFromWindows(::GetLastError(), path);
  return (attributes & kept) == 0 ? FILE_ATTRIBUTE_NORMAL : attributes & kept;
}

bool isFolder(const std::wstring& name) {
  const DWORD attributes = ::GetFileAttributesW(name.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// For a folder where a file is expected, the system reports that access is denied.
RunTimeError fileError(DWORD error, const std::wstring& name, const std::string& path) {
  if (error == ERROR_ACCESS_DENIED && isFolder(name))
    return RunTimeError(ErrorNumber::pathFileAccess, path);
  return errorFromWindows(error, path);
}

RunTimeError folderError(DWORD error, const std::string& folder) {
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_INVALID_NAME)
    return RunTimeError(ErrorNumber::pathNotFound, folder);
  return errorFromWindows(error, folder);
}

class DiskFile : public File {
 public:
  DiskFile(Handle handle, std::string path, bool mayBeWritten)
      : handle_(std::move(handle)), path_(std::move(path)), mayBeWritten_(mayBeWritten) {}

  std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override {
    std::size_t done = 0;
    while (done < into.size()) {
      OVERLAPPED place = placeOf(offset + done);
      DWORD got = 0;
      if (::ReadFile(handle_.get(), into.data() + done, sizeOf(into.subspan(done)), &got, &place) ==
          0) {
        const DWORD error = ::GetLastError();
        if (error == ERROR_HANDLE_EOF) break;
        throw transferError(error);
      }
      if (got == 0) break;
      done += got;
    }
    return done;
  }

  void writeAt(std::uint64_t offset, std::span<const std::byte> from) override {
    std::size_t done = 0;
    while (done < from.size()) {
      OVERLAPPED place = placeOf(offset + done);
      DWORD put = 0;
      if (::WriteFile(handle_.get(), from.data() + done, sizeOf(from.subspan(done)), &put,
                      &place) == 0)
        throw transferError(::GetLastError());
      if (put == 0) throw RunTimeError(ErrorNumber::diskFull, path_);
      done += put;
    }
  }

  void flush() override {
    // The file system's journal saves the name of a new file with its other metadata.
    if (mayBeWritten_ && ::FlushFileBuffers(handle_.get()) == 0)
      throw errorFromWindows(::GetLastError(), path_);
  }

  void close() override {
    if (::CloseHandle(handle_.release()) == 0) throw errorFromWindows(::GetLastError(), path_);
  }

 private:
  static OVERLAPPED placeOf(std::uint64_t offset) {
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(offset & 0xFFFFFFFFU);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32U);
    return place;
  }

  /// As many bytes as one call accepts.
  template <typename Bytes>
  static DWORD sizeOf(const Bytes& bytes) {
    constexpr std::size_t most = 1U << 30U;
    return static_cast<DWORD>(std::min(bytes.size(), most));
  }

  /// What an open file refuses is not a question of permissions: it was opened for less.
  RunTimeError transferError(DWORD error) const {
    if (error == ERROR_ACCESS_DENIED) return RunTimeError(ErrorNumber::pathFileAccess, path_);
    return errorFromWindows(error, path_);
  }

  Handle handle_;
  std::string path_;
  bool mayBeWritten_;
};

DWORD accessFor(OpenMode mode) {
  switch (mode) {
    case OpenMode::read:
      return GENERIC_READ;
    case OpenMode::update:
    case OpenMode::create:
      return GENERIC_READ | GENERIC_WRITE;
    case OpenMode::replace:
      return GENERIC_WRITE;
  }
  return 0;
}

}  // namespace

std::unique_ptr<File> DiskFileSystem::open(const std::string& path, OpenMode mode) {
  const std::wstring name = neededSystemName(path);
  if (name.empty()) throw RunTimeError(ErrorNumber::fileNotFound, path);
  const bool mayBeNew = mode == OpenMode::create || mode == OpenMode::replace;
  Handle file(::CreateFileW(name.c_str(), accessFor(mode), kSharedWithAll, nullptr,
                            mayBeNew ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                            nullptr));
  if (!file.isOpen()) throw fileError(::GetLastError(), name, path);
  // Reading from a pipe or a console under a collection's name could wait for ever.
  if (::GetFileType(file.get()) != FILE_TYPE_DISK)
    throw RunTimeError(ErrorNumber::pathFileAccess, path);
  // Asking for a new file in its place would be refused for a hidden one.
  if (mode == OpenMode::replace && ::SetEndOfFile(file.get()) == 0)
    throw errorFromWindows(::GetLastError(), path);
  return std::make_unique<DiskFile>(std::move(file), path, mode != OpenMode::read);
}

std::unique_ptr<File> DiskFileSystem::make(const std::string& path, const std::string& like) {
  const std::wstring name = neededSystemName(path);
  std::vector<std::byte> list;
  SECURITY_ATTRIBUTES access = {sizeof access, nullptr, FALSE};
  DWORD attributes = FILE_ATTRIBUTE_NORMAL;
  if (!like.empty()) {
    list = accessListOf(like);
    if (!list.empty()) access.lpSecurityDescriptor = list.data();
    attributes = attributesLike(like);
  }
  // A link of that name is not followed: the name is taken.
  Handle file(::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, kSharedWithAll, &access,
                            CREATE_NEW, attributes | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!file.isOpen()) {
    const DWORD error = ::GetLastError();
    if (error == ERROR_ACCESS_DENIED && isFolder(name))
      throw RunTimeError(ErrorNumber::fileAlreadyExists, path);
    throw errorFromWindows(error, path);
  }
  return std::make_unique<DiskFile>(std::move(file), path, true);
}

bool DiskFileSystem::exists(const std::string& path) {
  const auto name = systemName(path);
  if (!name || name->empty()) return false;
  if (openToAsk(*name).isOpen()) return true;
  const DWORD error = ::GetLastError();
  if (meansNothingThere(error)) return false;
  throw errorFromWindows(error, path);
}

std::optional<std::string> DiskFileSystem::linkTarget(const std::string& path) {
  const auto name = systemName(path);
  if (!name || name->empty()) return {};
  const Handle link(
      ::CreateFileW(name->c_str(), FILE_READ_ATTRIBUTES, kSharedWithAll, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!link.isOpen()) {
    const DWORD error = ::GetLastError();
    if (meansNothingThere(error)) return {};
    throw errorFromWindows(error, path);
  }
  constexpr std::size_t longest = 16'384;
  std::vector<std::byte> bytes(longest);
  DWORD length = 0;
  LinkHead head;
  if (::DeviceIoControl(link.get(), FSCTL_GET_REPARSE_POINT, nullptr, 0, bytes.data(),
                        static_cast<DWORD>(bytes.size()), &length, nullptr) == 0 ||
      length < sizeof head)
    return {};
  std::memcpy(&head, bytes.data(), sizeof head);
  if (head.tag != IO_REPARSE_TAG_SYMLINK) return {};
  // A link made by hand may lack the text that is displayed.
  const bool isShown = head.shownLength > 0;
  const std::size_t at = sizeof head + (isShown ? head.shownOffset : head.systemOffset);
  const std::size_t size = isShown ? head.shownLength : head.systemLength;
  if (at + size > length) return {};
  std::wstring target(size / sizeof(wchar_t), L'\0');
  std::memcpy(target.data(), bytes.data() + at, target.size() * sizeof(wchar_t));
  constexpr ULONG relative = 1;
  if ((head.flags & relative) == 0) return fromSystem(target);
  const auto folder = path.find_last_of(kPlatformPaths.separators);
  return path.substr(0, folder == std::string::npos ? 0 : folder + 1) + fromSystem(target);
}

bool DiskFileSystem::isSameFile(const std::string& a, const std::string& b) {
  const auto nameOfA = systemName(a);
  const auto nameOfB = systemName(b);
  if (!nameOfA || !nameOfB) return false;
  // Both stay open meanwhile: the number of a file that is gone may be given to another.
  const Handle fileA = openToAsk(*nameOfA);
  const Handle fileB = openToAsk(*nameOfB);
  const auto ofA = informationOf(fileA);
  const auto ofB = informationOf(fileB);
  return ofA && ofB && ofA->dwVolumeSerialNumber == ofB->dwVolumeSerialNumber &&
         ofA->nFileIndexHigh == ofB->nFileIndexHigh && ofA->nFileIndexLow == ofB->nFileIndexLow;
}

void DiskFileSystem::remove(const std::string& path) {
  const std::wstring name = neededSystemName(path);
  if (::DeleteFileW(name.c_str()) == 0) throw fileError(::GetLastError(), name, path);
}

void DiskFileSystem::rename(const std::string& from, const std::string& to) {
  const std::wstring before = neededSystemName(from);
  const std::wstring after = neededSystemName(to);
  if (::MoveFileExW(before.c_str(), after.c_str(), MOVEFILE_WRITE_THROUGH) != 0) return;
  const DWORD error = ::GetLastError();
  if (error == ERROR_NOT_SAME_DEVICE) throw RunTimeError(ErrorNumber::differentDrive, from);
  const bool targetIsToBlame = error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS ||
                               (error == ERROR_PATH_NOT_FOUND && exists(from));
  throw errorFromWindows(error, targetIsToBlame ? to : from);
}

void DiskFileSystem::exchange(const std::string& one, const std::string& other) {
  FileSystem::exchange(one, other);
}

std::string DiskFileSystem::currentFolder() {
  const auto folder =
      textOfSystem([](DWORD size, wchar_t* into) { return ::GetCurrentDirectoryW(size, into); });
  if (!folder) throw RunTimeError(ErrorNumber::pathNotFound, ".");
  return *folder;
}

void DiskFileSystem::setCurrentFolder(const std::string& folder) {
  const auto name = systemName(folder);
  if (!name || ::SetCurrentDirectoryW(name->c_str()) == 0)
    throw folderError(name ? ::GetLastError() : ERROR_INVALID_NAME, folder);
}

/// The system, too, resolves ".." in the text before it follows links.
std::string DiskFileSystem::resolvedFolder(const std::string& folder) {
  const auto name = systemName(folder);
  if (!name || !isFolder(*name)) throw RunTimeError(ErrorNumber::pathNotFound, folder);
  auto full = textOfSystem([&](DWORD size, wchar_t* into) {
    return ::GetFullPathNameW(name->c_str(), size, into, nullptr);
  });
  // A separator at the end is kept only after the root of a drive.
  constexpr std::size_t root = 3;
  if (full && full->size() > root && full->back() == '\\') full->pop_back();
  return full ? *full : folder;
}

std::string DiskFileSystem::programFolder() {
  const auto program = textOfSystem(
      [](DWORD size, wchar_t* into) { return ::GetModuleFileNameW(nullptr, into, size); });
  return program ? std::string(folderOf(*program)) : currentFolder();
}

std::vector<FolderEntry> DiskFileSystem::list(const std::string& folder) {
  std::vector<FolderEntry> entries;
  if (folder.empty()) throw RunTimeError(ErrorNumber::pathNotFound, folder);
  const auto pattern = systemName(joinPath(folder, "*"));
  if (!pattern) throw folderError(ERROR_INVALID_NAME, folder);
  WIN32_FIND_DATAW entry;
  const std::unique_ptr<void, decltype(&::FindClose)> search(
      ::FindFirstFileW(pattern->c_str(), &entry), &::FindClose);
  if (search.get() == INVALID_HANDLE_VALUE) {
    const DWORD error = ::GetLastError();
    if (error == ERROR_FILE_NOT_FOUND) return entries;  // the root of an empty drive
    throw folderError(error, folder);
  }
  DWORD error = ERROR_SUCCESS;
  while (error == ERROR_SUCCESS) {
    const std::string name = fromSystem(entry.cFileName);
    DWORD attributes = entry.dwFileAttributes;
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {  // a link: what is its target?
      const auto target = informationOf(openToAsk(neededSystemName(joinPath(folder, name))));
      attributes = target ? target->dwFileAttributes : FILE_ATTRIBUTE_DEVICE;
    }
    const bool isPlainFile = (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
    if (name != "." && name != "..") entries.push_back({name, isPlainFile});
    if (::FindNextFileW(search.get(), &entry) == 0) error = ::GetLastError();
  }
  if (error != ERROR_NO_MORE_FILES) throw folderError(error, folder);
  return entries;
}

}  // namespace quillbox
