#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/disk_file_system.h"
#include "platform/run_time_error.h"
#include "support/faults.h"

namespace quillbox::test {

/// One operation as it was requested.
struct OperationRecord {
  FileOperation operation;
  std::string path;  ///< for a rename, the old name

  bool operator==(const OperationRecord&) const = default;
};

/// Whether that operation closes a file that was only read: its failure does not matter.
bool closesWhatWasOnlyRead(const std::vector<OperationRecord>& operations, std::size_t nth);

/// The machine's file system, which records every operation and can make any of them fail.
class FailingFiles : public FileSystem {
 public:
  /// Fails the `nth` operation (from 0, counted from now on) with `error`; later ones work again.
  void failNth(int nth, ErrorNumber error);

  /// Fails the `nth` operation of that kind, counted from now on.
  void failNth(FileOperation operation, int nth, ErrorNumber error);

  /// Clears the record and makes the `nth` of the following operations, or of those of one kind,
  /// fail with that fault.
  void failNth(std::size_t nth, const Fault& fault, std::optional<FileOperation> operation = {});

  /// Nothing fails from now on.
  void heal();

  /// A failing write first writes half of its bytes.
  bool shortWrites = false;

  /// A lasting fault is one of the kind of operation that is to fail: files can still be opened.
  bool otherKindsWork = false;

  /// A byte that the disk cannot read any more: reading it fails, however often it is tried.
  struct Damage {
    std::string path;
    std::uint64_t byte;
  };
  std::optional<Damage> damage;

  /// Called once, before the next read: another program changes the file.
  std::function<void()> beforeRead;

  /// True when the failure asked for has happened.
  bool hasFailed() const { return !failed_.empty(); }

  /// The indexes of the failed ones among the operations since the last call of forget().
  const std::vector<std::size_t>& failed() const { return failed_; }

  /// Every operation since the last call of forget().
  const std::vector<OperationRecord>& operations() const { return operations_; }
  void forget();

  /// The number of operations of a kind since the last call of forget() or failNth().
  int countOf(FileOperation operation) const;

  /// The number of operations since then, except closing a file that was only read.
  int operationsThatMatter() const;

  /// Makes the call once. Returns the number of its operations.
  template <typename Work>
  int operationsOf(Work work) {
    forget();
    work();
    return static_cast<int>(operations_.size());
  }

  std::unique_ptr<File> open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<File> make(const std::string& path, const std::string& like) override;
  bool exists(const std::string& path) override;
  std::optional<std::string> linkTarget(const std::string& path) override;
  bool isSameFile(const std::string& a, const std::string& b) override {
    return disk_.isSameFile(a, b);
  }
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  void exchange(const std::string& one, const std::string& other) override;
  std::string currentFolder() override { return disk_.currentFolder(); }
  void setCurrentFolder(const std::string& folder) override { disk_.setCurrentFolder(folder); }
  std::string resolvedFolder(const std::string& folder) override;
  std::string programFolder() override { return disk_.programFolder(); }
  std::vector<FolderEntry> list(const std::string& folder) override;

  /// Records the operation; returns the error if this is the one to fail.
  std::optional<RunTimeError> next(FileOperation operation, const std::string& path);

 private:
  bool goesOnFailing(FileOperation operation) const;
  bool isDue(FileOperation operation);

  DiskFileSystem disk_;
  std::vector<OperationRecord> operations_;
  std::size_t since_ = 0;
  std::optional<FileOperation> failing_;
  int countdown_ = -1;
  bool lasts_ = false;
  std::vector<std::size_t> failed_;
  ErrorNumber error_ = ErrorNumber::deviceIo;
};

}  // namespace quillbox::test
