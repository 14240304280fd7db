#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/file_system.h"

namespace quillbox {

/// A new version of a file, written beside it under a temporary name. It gets the file's name only
/// once it is complete and on the disk. One earlier version is kept, under the file's name with "~"
/// appended. Until finish() has succeeded, the file is unchanged.
///
/// A link stays: the file that it leads to is replaced.
class Replacement {
 public:
  Replacement(FileSystem& files, const std::string& path);
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Deletes the new version unless it has replaced the file.
  ~Replacement();

  /// Begins with a copy of the file. Run-time error 58 when there is a new version already.
  void beginWithCopy();

  /// Begins empty, where there is no file yet.
  void beginEmpty();

  bool hasBegun() const { return out_ != nullptr; }

  void write(std::uint64_t offset, std::span<const std::byte> bytes) {
    out_->writeAt(offset, bytes);
  }

  /// Replaces the file with the new version. Returns the name of the earlier version, empty if
  /// there was none. A DataError, with nothing changed, when the file is no longer the one that was
  /// copied; run-time error 58 when a file has appeared where there was none. If only keeping the
  /// earlier version under its name fails, the error has a note about it.
  std::string finish();

 private:
  std::uint64_t sumOfFile(File* copy);

  FileSystem& files_;
  std::string file_;  // where the links lead
  std::string fresh_;
  std::unique_ptr<File> out_;
  bool replaces_ = false;
  bool isDone_ = false;
  std::uint64_t sum_ = 0;  // of the copied contents
};

/// The name under which the earlier version of a file is kept.
std::string earlierName(const std::string& file);

/// The name of a new version while it is being written.
std::string unfinishedName(const std::string& file);

}  // namespace quillbox
