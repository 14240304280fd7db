#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/disk_file_system.h"
#include "platform/run_time_error.h"
#include "support/faults.h"

namespace quillbox::test {

/// One operation as it was asked for.
struct OperationRecord {
  FileOperation operation;
  std::string path;  ///< for a rename, the name it had

  bool operator==(const OperationRecord&) const = default;
};

/// Whether that operation closes a file that was only read: failing to is no matter.
bool closesWhatWasOnlyRead(const std::vector<OperationRecord>& operations, std::size_t nth);

/// The machine's file system, with every operation written down and any of them made to fail.
class FailingFiles : public FileSystem {
 public:
  /// Fails the `nth` operation (from 0, counted from now on) with `error`; later ones work again.
  void failNth(int nth, ErrorNumber error);

  /// Fails the `nth` operation of that kind, counted from now on.
  void failNth(FileOperation operation, int nth, ErrorNumber error);

  /// Forgets the operations and fails the `nth` of those that follow, or of those of one kind among
  /// them, with that fault.
  void failNth(std::size_t nth, const Fault& fault, std::optional<FileOperation> operation = {});

  /// Nothing fails any more.
  void heal();

  /// Before the operation fails a write puts down half of its bytes.
  bool shortWrites = false;

  /// Run once, before the next read: what another program does to the file meanwhile.
  std::function<void()> beforeRead;

  /// True when the failure asked for has happened.
  bool hasFailed() const { return !failed_.empty(); }

  /// The places of those that failed, in the operations since the last call of forget().
  const std::vector<std::size_t>& failed() const { return failed_; }

  /// Every operation since the last call of forget().
  const std::vector<OperationRecord>& operations() const { return operations_; }
  void forget();

  /// How many of a kind there were since the last call of forget() or failNth().
  int countOf(FileOperation operation) const;

  /// How many there were since then that cannot fail unsaid: all but closing what was only read.
  int operationsThatMatter() const;

  /// Does that once. Returns how many operations it takes.
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

  /// Writes the operation down; returns the error when this is the one to fail.
  std::optional<RunTimeError> next(FileOperation operation, const std::string& path);

 private:
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
