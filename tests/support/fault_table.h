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

/// The bytes of a file; none when there is no such file.
inline std::string bytesAt(const std::string& path) {
  return std::filesystem::exists(path) ? readFile(path) : std::string();
}

/// A piece of a file that is written as a whole.
struct Piece {
  std::size_t offset;
  std::size_t length;
};

/// Each piece is as before or as after, or half of each where a write was cut short; nothing else
/// has changed.
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

/// One way in which files are written, prepared in a folder of its own.
class FaultPath {
 public:
  FaultPath() = default;
  FaultPath(const FaultPath&) = delete;
  FaultPath& operator=(const FaultPath&) = delete;
  virtual ~FaultPath() = default;

  virtual void run() = 0;

  /// The result of a run without a fault.
  virtual void expectDone() const = 0;

  /// What holds after a fault whose result was `failure`.
  virtual void expectSafe(const Fault& fault, const Failure& failure) const = 0;

  /// What the user repairs before the next attempt.
  virtual void putInOrder() {}

  /// The failure of a run without a fault.
  virtual Failure usualFailure() const { return {}; }

  /// Whether the run ends when this operation fails. Failing to close a file that was only read
  /// does not matter.
  virtual bool endsWith(std::size_t operation) const { return !closesWhatWasOnlyRead(operation); }

  /// A run that continues after every failure must still be repeated.
  virtual bool ignoresFailures() const { return false; }

  virtual bool mayStayOpen(int /*number*/) const { return false; }

  FailingFiles& files() { return files_; }

  /// The failure that a run with faults ends in.
  Failure expectedFailure() const {
    for (const std::size_t failed : files_.failed())
      if (!isTriedElsewhere(failed) && endsWith(failed))
        return {static_cast<int>(error_), operationAt(failed).path};
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
    return test::closesWhatWasOnlyRead(files_.operations(), nth);
  }

  TestFolder folder_;
  FailingFiles files_;
  AppState state_{files_};

 private:
  /// A file that cannot be moved to its backup's folder stays in its own: another rename follows.
  bool isTriedElsewhere(std::size_t nth) const {
    const std::span all = files_.operations();
    const auto renames = [&](const std::span<const OperationRecord>& some) {
      return std::ranges::count(some, FileOperation::rename, &OperationRecord::operation);
    };
    return error_ == ErrorNumber::differentDrive && renames(all.subspan(nth + 1)) > 0;
  }

  ErrorNumber error_ = ErrorNumber::deviceIo;
};

using MakeFaultPath = std::function<std::unique_ptr<FaultPath>()>;

/// Runs the path once with this fault in its `nth` operation; false if that operation did not come.
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

/// Every operation of the path with every possible fault, each in a path of its own.
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
