#pragma once

#include <array>
#include <memory>
#include <string>

#include "platform/file_system.h"

namespace quillbox {

/// File numbers with a role of their own; fresh numbers are below them.
namespace file_number {
inline constexpr int fresh = 0;  ///< means "the lowest free number"
inline constexpr int exportFile = 253;
inline constexpr int spool = 254;
inline constexpr int collection = 255;
}  // namespace file_number

/// The table of open file numbers, 1 to 255. "Close every open file" closes what is in it.
class OpenFiles {
 public:
  explicit OpenFiles(FileSystem& files) : files_(files) {}

  FileSystem& fileSystem() { return files_; }

  /// Opens `path` under `number`, or under the lowest free number; returns the number. If the
  /// number is open, its old file is closed first.
  int open(int number, const std::string& path, OpenMode mode);

  /// Creates `path` as FileSystem::make does and opens it under `number`, or under the lowest free
  /// number; returns the number.
  int make(int number, const std::string& path, const std::string& like);

  bool isOpen(int number) const { return slot(number) != nullptr; }

  /// The file open under `number`, which must be open.
  File& file(int number) { return *slot(number); }

  /// Closes the number and reports a failure; closing a number that is not open is no error.
  void close(int number);

  /// Closes everything and ignores failures.
  void closeAll();

 private:
  static constexpr int kNumbers = 255;

  int freed(int number);

  const std::unique_ptr<File>& slot(int number) const {
    return table_.at(static_cast<std::size_t>(number));
  }

  FileSystem& files_;
  std::array<std::unique_ptr<File>, kNumbers + 1> table_;
};

}  // namespace quillbox
