#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/file_system.h"

namespace quillbox {

/// A new version of a file, written beside it under a name of its own, that takes the file's name
/// only when it is whole and on the disk. The earlier version is kept under the file's name with
/// "~" behind it, one of them. Until finish() has succeeded the file is as it was.
///
/// A link stays: the file that it leads to is replaced.
class Replacement {
 public:
  Replacement(FileSystem& files, const std::string& path);
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Deletes the new version unless it has taken the file's place.
  ~Replacement();

  /// Begins with all that the file holds. Run-time error 58 when a new version lies there already.
  void beginWithCopy();

  /// Begins with nothing, where there is no file yet.
  void beginEmpty();

  bool hasBegun() const { return out_ != nullptr; }

  void write(std::uint64_t offset, std::span<const std::byte> bytes) {
    out_->writeAt(offset, bytes);
  }

  /// Puts the new version into the file's place. Returns the name of the earlier version; empty
  /// where there was none. A DataError, and nothing is changed, when the file is no longer the one
  /// that was copied; run-time error 58 when there is a file by now where there was none. When only
  /// keeping the earlier version under its name fails, the error has a note that says so.
  std::string finish();

 private:
  std::uint64_t sumOfFile(File* copy);

  FileSystem& files_;
  std::string file_;  // behind the links
  std::string fresh_;
  std::unique_ptr<File> out_;
  bool replaces_ = false;
  bool isDone_ = false;
  std::uint64_t sum_ = 0;  // of what was copied
};

/// The name that the earlier version of a file is kept under.
std::string earlierName(const std::string& file);

/// The name of a new version that is being written.
std::string unfinishedName(const std::string& file);

}  // namespace quillbox
