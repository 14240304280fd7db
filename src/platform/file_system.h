#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillbox {

/// How a file is opened.
enum class OpenMode {
  read,    ///< reading only; the file must exist
  update,  ///< reading and writing; the file must exist
  create,  ///< reading and writing; created empty when it does not exist
  replace  ///< writing; emptied, whatever it held before
};

/// An open file. Every operation that fails throws a RunTimeError with the file's path.
class File {
 public:
  virtual ~File() = default;

  /// Reads into all of `into`, from byte `offset` on; returns the number of bytes read, which is
  /// less than `into` holds only at the end of the file.
  virtual std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) = 0;

  /// Writes all of `from`; a gap before `offset` reads as zeros.
  virtual void writeAt(std::uint64_t offset, std::span<const std::byte> from) = 0;

  /// Returns once what was written, and the name of a new file, will survive a power cut.
  virtual void flush() = 0;

  /// Closes the file and reports a failure; called at most once. The destructor closes an open file
  /// and ignores failures.
  virtual void close() = 0;
};

/// One name in a folder, without the folder.
struct FolderEntry {
  std::string name;
  bool isPlainFile = false;  ///< not a folder, a pipe or a device
};

/// The file operations that can fail, so that a test can make each of them fail. Paths are the
/// platform's own bytes.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual std::unique_ptr<File> open(const std::string& path, OpenMode mode) = 0;

  /// Creates a file for reading and writing. Run-time error 58 when the name is taken, even by a
  /// link that leads nowhere. Unless `like` is empty, the file gets that file's permissions, and
  /// its owner and extended attributes where the system permits it; at no time can anybody read it
  /// who cannot read that file.
  virtual std::unique_ptr<File> make(const std::string& path, const std::string& like) = 0;

  /// True when the name leads to anything at all.
  virtual bool exists(const std::string& path) = 0;

  /// The target of a symbolic link as it is written, relative to where `path` is; nothing when the
  /// name is no link. There need be nothing at the target.
  virtual std::optional<std::string> linkTarget(const std::string& path) = 0;

  /// True when both names lead to the same file; false when either leads nowhere.
  virtual bool isSameFile(const std::string& a, const std::string& b) = 0;

  /// Deletes a file (never a folder), or a link itself; it must exist.
  virtual void remove(const std::string& path) = 0;

  /// Renames within one file system; a link itself is renamed. Never copies and never overwrites:
  /// run-time error 58 with `to` as its file when `to` exists, 76 with `to` for a missing folder,
  /// 74 for another file system. When the folder changes, the new name will survive a power cut.
  virtual void rename(const std::string& from, const std::string& to) = 0;

  /// Exchanges the names of two files in one folder; both must exist. Where the system can, neither
  /// name is ever without a file, and the names will survive a power cut. Elsewhere it takes three
  /// renames through a spare name, and undoes them when one fails.
  virtual void exchange(const std::string& one, const std::string& other);

  virtual std::string currentFolder() = 0;
  virtual void setCurrentFolder(const std::string& folder) = 0;

  /// The full path of a folder as the system resolves it: links and ".." in their order.
  virtual std::string resolvedFolder(const std::string& folder) = 0;

  /// The folder the program is in.
  virtual std::string programFolder() = 0;

  /// The entries of a folder, hidden ones included, in the order the system lists them.
  virtual std::vector<FolderEntry> list(const std::string& folder) = 0;
};

}  // namespace quillbox
