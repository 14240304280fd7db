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
  create,  ///< reading and writing; made empty when it does not exist
  replace  ///< writing; made empty, whatever was there before
};

/// An open file. Every operation that fails throws a RunTimeError with the file's path.
class File {
 public:
  virtual ~File() = default;

  /// Reads into all of `into` from byte `offset` on; returns the number of bytes that were there,
  /// which is less than asked only at the end of the file.
  virtual std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) = 0;

  /// Writes all of `from`; a gap before `offset` reads as zeros.
  virtual void writeAt(std::uint64_t offset, std::span<const std::byte> from) = 0;

  /// Returns when what was written, and the name of a file just made, will survive a power cut.
  virtual void flush() = 0;

  /// Closes the file; called once, by whoever wants to hear of a failure. Destroying an open file
  /// closes it in silence.
  virtual void close() = 0;
};

/// One name in a folder, without the folder.
struct FolderEntry {
  std::string name;
  bool isPlainFile = false;  ///< not a folder, a pipe or a device
};

/// The file operations that can fail, so that a test can fail each of them. Paths are the
/// platform's own bytes.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual std::unique_ptr<File> open(const std::string& path, OpenMode mode) = 0;

  /// Makes a file for reading and writing. Run-time error 58 when the name is taken, by a link that
  /// leads nowhere, too. Unless `like` is empty, the file gets that file's permissions, and its
  /// owner and extended attributes where the system lets it; at no moment can anybody read it who
  /// cannot read that one.
  virtual std::unique_ptr<File> make(const std::string& path, const std::string& like) = 0;

  /// True when the name leads to something, whatever it is.
  virtual bool exists(const std::string& path) = 0;

  /// Where a symbolic link says that it leads, as a path from where `path` is taken from; nothing
  /// when the name is no link. Nothing need be there.
  virtual std::optional<std::string> linkTarget(const std::string& path) = 0;

  /// True when both names lead to the same file; false when either leads nowhere.
  virtual bool isSameFile(const std::string& a, const std::string& b) = 0;

  /// Deletes a file (never a folder), or a link itself; it must exist.
  virtual void remove(const std::string& path) = 0;

  /// Renames within one file system; a link is renamed itself. Never copies and never overwrites:
  /// a `to` that is taken is run-time error 58 with `to` as its file, a missing folder 76 with
  /// `to`, another file system 74. Where the folder is another one, the new name will survive a
  /// power cut.
  virtual void rename(const std::string& from, const std::string& to) = 0;

  /// Gives each of two files of one folder the other's name; both must exist. Where the system can,
  /// at no moment is either name without a file, and the names will survive a power cut. Elsewhere
  /// it is three renames by way of a spare name, and one that fails is taken back.
  virtual void exchange(const std::string& one, const std::string& other);

  virtual std::string currentFolder() = 0;
  virtual void setCurrentFolder(const std::string& folder) = 0;

  /// The full path of a folder as the system finds it, links and ".." followed one after the other.
  virtual std::string resolvedFolder(const std::string& folder) = 0;

  /// The folder the program itself lies in.
  virtual std::string programFolder() = 0;

  /// What a folder holds, hidden entries included, in the order it gives them.
  virtual std::vector<FolderEntry> list(const std::string& folder) = 0;
};

}  // namespace quillbox
