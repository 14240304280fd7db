#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/paths.h"
#include "platform/run_time_error.h"
#include "records/app_state.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {

/// The errors that an operation can have.
inline std::vector<ErrorNumber> errorsOf(FileOperation operation) {
  using enum ErrorNumber;
  switch (operation) {
    case FileOperation::open:
      return {deviceIo, diskFull, permissionDenied, pathNotFound};
    case FileOperation::read:
      return {deviceIo};
    case FileOperation::write:
    case FileOperation::flush:
    case FileOperation::close:
      return {deviceIo, diskFull};
    case FileOperation::exists:
    case FileOperation::remove:
    case FileOperation::rename:
      return {deviceIo, permissionDenied};
    case FileOperation::list:
      return {deviceIo, permissionDenied, pathNotFound};
  }
  return {};
}

/// How an operation fails.
struct Fault {
  ErrorNumber error;
  bool isShort = false;  ///< a write puts down half of its bytes
  bool lasts = false;    ///< so does every later operation that can have the error
};

inline std::vector<Fault> faultsOf(FileOperation operation) {
  std::vector<Fault> faults;
  for (const ErrorNumber error : errorsOf(operation))
    for (const bool lasts : {false, true}) {
      faults.push_back({error, false, lasts});
      if (operation == FileOperation::write) faults.push_back({error, true, lasts});
    }
  return faults;
}

/// The machine's file system with a fault, which is gone after one operation or lasts.
class FaultyFiles : public FileSystem {
 public:
  void failNth(std::size_t nth, const Fault& fault) {
    fault_ = fault;
    forget();
    files_.shortWrites = fault.isShort;
    files_.failNth(static_cast<int>(nth), fault.error);
  }
  void heal() {
    fault_ = {};
    files_.shortWrites = false;
    files_.failNth(-1, ErrorNumber::deviceIo);
  }

  const std::vector<OperationRecord>& operations() const { return files_.operations(); }
  void forget() {
    files_.forget();
    failed_.clear();
  }

  /// The places of those that failed, in the operations since the last call of forget().
  const std::vector<std::size_t>& failed() const { return failed_; }

  std::unique_ptr<File> open(const std::string& path, OpenMode mode) override {
    return during(FileOperation::open,
                  [&] { return std::make_unique<FaultyFile>(*this, files_.open(path, mode)); });
  }
  bool exists(const std::string& path) override {
    return during(FileOperation::exists, [&] { return files_.exists(path); });
  }
  bool isSameFile(const std::string& a, const std::string& b) override {
    return files_.isSameFile(a, b);
  }
  void remove(const std::string& path) override {
    during(FileOperation::remove, [&] { files_.remove(path); });
  }
  void rename(const std::string& from, const std::string& to) override {
    during(FileOperation::rename, [&] { files_.rename(from, to); });
  }
  std::string currentFolder() override { return files_.currentFolder(); }
  void setCurrentFolder(const std::string& folder) override { files_.setCurrentFolder(folder); }
  std::string programFolder() override { return files_.programFolder(); }
  std::vector<FolderEntry> list(const std::string& folder) override {
    return during(FileOperation::list, [&] { return files_.list(folder); });
  }

 private:
  class FaultyFile : public File {
   public:
    FaultyFile(FaultyFiles& owner, std::unique_ptr<File> file)
        : owner_(owner), file_(std::move(file)) {}

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override {
      return owner_.during(FileOperation::read, [&] { return file_->readAt(offset, into); });
    }
    void writeAt(std::uint64_t offset, std::span<const std::byte> from) override {
      owner_.during(FileOperation::write, [&] { file_->writeAt(offset, from); });
    }
    void flush() override {
      owner_.during(FileOperation::flush, [&] { file_->flush(); });
    }
    void close() override {
      owner_.during(FileOperation::close, [&] { file_->close(); });
    }

   private:
    FaultyFiles& owner_;
    std::unique_ptr<File> file_;
  };

  template <typename Call>
  std::invoke_result_t<Call> during(FileOperation operation, const Call& call) {
    if (fault_.lasts && !failed_.empty() &&
        std::ranges::count(errorsOf(operation), fault_.error) == 1)
      files_.failNth(0, fault_.error);
    try {
      return call();
    } catch (const RunTimeError&) {
      if (files_.hasFailed()) failed_.push_back(files_.operations().size() - 1);
      throw;
    }
  }

  FailingFiles files_;
  Fault fault_{};
  std::vector<std::size_t> failed_;
};

/// The bytes of a file; none when there is no such file.
inline std::string bytesAt(const std::string& path) {
  return std::filesystem::exists(path) ? readFile(path) : std::string();
}

/// A piece of a file that a write puts down as a whole.
struct Piece {
  std::size_t offset;
  std::size_t length;
};

/// Each of the pieces is as before or as after, or half of each where a write was cut short; and
/// nothing else has changed.
inline void expectOnlyPiecesChanged(std::string now, std::string before, const std::string& after,
                                    const std::vector<Piece>& pieces, bool canBeShort) {
  EXPECT_GE(now.size(), before.size());
  EXPECT_LE(now.size(), after.size());
  now.resize(after.size());
  before.resize(after.size());
  for (const auto& [offset, length] : pieces) {
    const std::string piece = now.substr(offset, length);
    const std::string old = before.substr(offset, length);
    const std::string fresh = after.substr(offset, length);
    const bool isHalf = piece == fresh.substr(0, length / 2) + old.substr(length / 2);
    EXPECT_TRUE(piece == old || piece == fresh || (canBeShort && isHalf)) << "at " << offset;
    now.replace(offset, length, old);
  }
  EXPECT_TRUE(now == before);
}

/// One way of writing files, made ready in a folder of its own.
class FaultPath {
 public:
  FaultPath() = default;
  FaultPath(const FaultPath&) = delete;
  FaultPath& operator=(const FaultPath&) = delete;
  virtual ~FaultPath() = default;

  virtual void run() = 0;

  /// What a run without a fault leaves behind.
  virtual void expectDone() const = 0;

  /// What holds after a fault, of which `failure` came out.
  virtual void expectSafe(const Fault& fault, const Failure& failure) const = 0;

  /// What the user puts in order before the next try.
  virtual void putInOrder() {}

  /// The failure of a run without a fault.
  virtual Failure usualFailure() const { return {}; }

  /// Whether the run ends when this operation fails. Failing to close what was only read is no
  /// matter.
  virtual bool endsWith(std::size_t operation) const { return !closesWhatWasOnlyRead(operation); }

  /// A run that goes on after every failure has to be made again all the same.
  virtual bool ignoresFailures() const { return false; }

  virtual bool mayStayOpen(int /*number*/) const { return false; }

  FaultyFiles& files() { return files_; }

  /// The failure that a run with faults comes to.
  Failure expectedFailure() const {
    for (const std::size_t failed : files_.failed())
      if (endsWith(failed)) return {static_cast<int>(error_), operationAt(failed).path};
    return usualFailure();
  }
  void failNth(std::size_t nth, const Fault& fault) {
    error_ = fault.error;
    files_.failNth(nth, fault);
  }

  void expectNothingOpen() const {
    for (int number = 1; number <= 255; ++number)
      if (!mayStayOpen(number)) {
        EXPECT_FALSE(state_.files.isOpen(number)) << number;
      }
  }

 protected:
  const OperationRecord& operationAt(std::size_t nth) const { return files_.operations().at(nth); }

  bool closesWhatWasOnlyRead(std::size_t nth) const {
    const OperationRecord& closing = operationAt(nth);
    if (closing.operation != FileOperation::close) return false;
    while (nth-- > 0) {
      const OperationRecord& earlier = operationAt(nth);
      if (earlier.path != closing.path) continue;
      if (earlier.operation == FileOperation::write) return false;
      if (earlier.operation == FileOperation::open) break;
    }
    return true;
  }

  TestFolder folder_;
  FaultyFiles files_;
  AppState state_{files_};

 private:
  ErrorNumber error_ = ErrorNumber::deviceIo;
};

using MakeFaultPath = std::function<std::unique_ptr<FaultPath>()>;

/// The path once, with this fault in its `nth` operation; false when that did not come.
inline bool runsCell(FaultPath& path, std::size_t nth, const OperationRecord& expected,
                     const Fault& fault) {
  path.failNth(nth, fault);
  const Failure failure = failureOf([&] { path.run(); });
  const auto& failed = path.files().failed();
  if (failed.empty() || failed.front() != nth) return false;
  const OperationRecord& operation = path.files().operations().at(nth);
  if (operation.operation != expected.operation ||
      fileNameOf(operation.path) != fileNameOf(expected.path))
    return false;

  EXPECT_EQ(failure, path.expectedFailure());
  path.expectNothingOpen();
  path.expectSafe(fault, failure);
  path.files().heal();
  if (failure != path.usualFailure() || path.ignoresFailures()) {
    path.putInOrder();
    EXPECT_EQ(failureOf([&] { path.run(); }), path.usualFailure());
    path.expectNothingOpen();
  }
  path.expectDone();
  return true;
}

/// Every operation of the path with every fault that it can have, each in a path of its own.
inline void runFaultTable(const MakeFaultPath& make) {
  std::vector<OperationRecord> operations;
  {
    const auto path = make();
    path->files().forget();
    EXPECT_EQ(failureOf([&] { path->run(); }), path->usualFailure());
    operations = path->files().operations();
    path->expectNothingOpen();
    path->expectDone();
  }
  ASSERT_FALSE(operations.empty());

  std::size_t cells = 0;
  std::size_t cellsRun = 0;
  for (std::size_t nth = 0; nth < operations.size(); ++nth) {
    const auto& [operation, name] = operations[nth];
    for (const Fault& fault : faultsOf(operation)) {
      SCOPED_TRACE("operation " + std::to_string(nth) + " (" +
                   std::to_string(static_cast<int>(operation)) + " on " + name + "), error " +
                   std::to_string(static_cast<int>(fault.error)) +
                   (fault.isShort ? ", short" : "") + (fault.lasts ? ", lasting" : ""));
      ++cells;
      if (runsCell(*make(), nth, operations[nth], fault)) ++cellsRun;
      if (testing::Test::HasFatalFailure()) return;
    }
  }
  EXPECT_EQ(cellsRun, cells);
  testing::Test::RecordProperty("operations", static_cast<int>(operations.size()));
  testing::Test::RecordProperty("cells", static_cast<int>(cellsRun));
}

/// A path by its name, for a test of each.
struct FaultPathRow {
  std::string name;
  MakeFaultPath make;
};

inline void PrintTo(const FaultPathRow& row, std::ostream* out) { *out << row.name; }

inline std::string nameOfPath(const testing::TestParamInfo<FaultPathRow>& row) {
  return row.param.name;
}

}  // namespace quillbox::test
