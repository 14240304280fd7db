#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/disk_file_system.h"
#include "platform/run_time_error.h"

namespace quillbox::test {

enum class FileOperation { open, read, write, flush, close, exists, remove, rename, list };

/// One operation as it was asked for.
struct OperationRecord {
  FileOperation operation;
  std::string path;  ///< for a rename, the name it had

  bool operator==(const OperationRecord&) const = default;
};

/// The machine's file system, with every operation written down and any of them made to fail.
class FailingFiles : public FileSystem {
 public:
  /// Fails the `nth` operation (from 0, counted from now on) with `error`; later ones work again.
  void failNth(int nth, ErrorNumber error);

  /// Fails the `nth` operation of that kind, counted from now on.
  void failNth(FileOperation operation, int nth, ErrorNumber error);

  /// Before the operation fails a write puts down half of its bytes.
  bool shortWrites = false;

  /// Run once, before the next read: what another program does to the file meanwhile.
  std::function<void()> beforeRead;

  /// True when the failure asked for has happened.
  bool hasFailed() const { return failed_; }

  /// Every operation since the last call of forget().
  const std::vector<OperationRecord>& operations() const { return operations_; }
  void forget() { operations_.clear(); }

  std::unique_ptr<File> open(const std::string& path, OpenMode mode) override;
  bool exists(const std::string& path) override;
  bool isSameFile(const std::string& a, const std::string& b) override {
    return disk_.isSameFile(a, b);
  }
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  std::string currentFolder() override { return disk_.currentFolder(); }
  void setCurrentFolder(const std::string& folder) override { disk_.setCurrentFolder(folder); }
  std::string programFolder() override { return disk_.programFolder(); }
  std::vector<FolderEntry> list(const std::string& folder) override;

  /// Writes the operation down; returns the error when this is the one to fail.
  std::optional<RunTimeError> next(FileOperation operation, const std::string& path);

 private:
  DiskFileSystem disk_;
  std::vector<OperationRecord> operations_;
  std::optional<FileOperation> failing_;
  int countdown_ = -1;
  bool failed_ = false;
  ErrorNumber error_ = ErrorNumber::deviceIo;
};

}  // namespace quillbox::test
