#include "support/failing_files.h"

#include <algorithm>
#include <set>
#include <span>
#include <utility>

namespace quillbox::test {
namespace {

class FailingFile : public File {
 public:
  FailingFile(FailingFiles& owner, std::string path, std::unique_ptr<File> file)
      : owner_(owner), path_(std::move(path)), file_(std::move(file)) {}

  std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override {
    if (const auto error = owner_.next(FileOperation::read, path_)) throw RunTimeError(*error);
    if (const auto& damage = owner_.damage;
        damage && damage->path == path_ && damage->byte - offset < into.size())
      throw RunTimeError(ErrorNumber::deviceIo, path_);
    if (const auto interfere = std::exchange(owner_.beforeRead, nullptr)) interfere();
    return file_->readAt(offset, into);
  }

  void writeAt(std::uint64_t offset, std::span<const std::byte> from) override {
    if (const auto error = owner_.next(FileOperation::write, path_)) {
      if (owner_.shortWrites) file_->writeAt(offset, from.first(from.size() / 2));
      throw RunTimeError(*error);
    }
    file_->writeAt(offset, from);
  }

  void flush() override {
    if (const auto error = owner_.next(FileOperation::flush, path_)) throw RunTimeError(*error);
    file_->flush();
  }

  void close() override {
    file_->close();
    if (const auto error = owner_.next(FileOperation::close, path_)) throw RunTimeError(*error);
  }

 private:
  FailingFiles& owner_;
  std::string path_;
  std::unique_ptr<File> file_;
};

}  // namespace

bool closesWhatWasOnlyRead(const std::vector<OperationRecord>& operations, std::size_t nth) {
  const OperationRecord& closing = operations.at(nth);
  if (closing.operation != FileOperation::close) return false;
  while (nth-- > 0) {
    const OperationRecord& earlier = operations.at(nth);
    if (earlier.path != closing.path) continue;
    if (earlier.operation == FileOperation::write) return false;
    if (earlier.operation == FileOperation::open) break;
  }
  return true;
}

void FailingFiles::failNth(int nth, ErrorNumber error) {
  failing_.reset();
  countdown_ = nth;
  error_ = error;
  lasts_ = false;
  failed_.clear();
  since_ = operations_.size();
}

void FailingFiles::failNth(FileOperation operation, int nth, ErrorNumber error) {
  failNth(nth, error);
  failing_ = operation;
}

void FailingFiles::failNth(std::size_t nth, const Fault& fault,
                           std::optional<FileOperation> operation) {
  forget();
  failNth(static_cast<int>(nth), fault.error);
  failing_ = operation;
  shortWrites = fault.isShort;
  lasts_ = fault.lasts;
}

void FailingFiles::heal() {
  countdown_ = -1;
  lasts_ = false;
  shortWrites = false;
}

void FailingFiles::forget() {
  operations_.clear();
  failed_.clear();
  since_ = 0;
}

int FailingFiles::countOf(FileOperation operation) const {
  return static_cast<int>(std::ranges::count(std::span(operations_).subspan(since_), operation,
                                             &OperationRecord::operation));
}

int FailingFiles::operationsThatMatter() const {
  std::set<std::string> written;
  int matter = 0;
  for (const auto& [operation, path] : std::span(operations_).subspan(since_)) {
    if (operation == FileOperation::write || operation == FileOperation::flush)
      written.insert(path);
    if (operation != FileOperation::close || written.erase(path) > 0) ++matter;
  }
  return matter;
}

std::optional<RunTimeError> FailingFiles::next(FileOperation operation, const std::string& path) {
  operations_.push_back({operation, path});
  const bool fails = lasts_ && hasFailed() ? goesOnFailing(operation) : isDue(operation);
  if (!fails) return std::nullopt;
  failed_.push_back(operations_.size() - 1);
  return RunTimeError(error_, path);
}

bool FailingFiles::goesOnFailing(FileOperation operation) const {
  if (otherKindsWork) return operation == failing_;
  return std::ranges::count(errorsOf(operation), error_) > 0;
}

bool FailingFiles::isDue(FileOperation operation) {
  if (countdown_ < 0 || (failing_ && *failing_ != operation)) return false;
  return countdown_-- == 0;
}

std::unique_ptr<File> FailingFiles::open(const std::string& path, OpenMode mode) {
  if (const auto error = next(FileOperation::open, path)) throw RunTimeError(*error);
  return std::make_unique<FailingFile>(*this, path, disk_.open(path, mode));
}

std::unique_ptr<File> FailingFiles::make(const std::string& path, const std::string& like) {
  if (const auto error = next(FileOperation::make, path)) throw RunTimeError(*error);
  return std::make_unique<FailingFile>(*this, path, disk_.make(path, like));
}

std::optional<std::string> FailingFiles::linkTarget(const std::string& path) {
  if (const auto error = next(FileOperation::linkTarget, path)) throw RunTimeError(*error);
  return disk_.linkTarget(path);
}

std::string FailingFiles::resolvedFolder(const std::string& folder) {
  if (const auto error = next(FileOperation::resolve, folder)) throw RunTimeError(*error);
  return disk_.resolvedFolder(folder);
}

std::vector<FolderEntry> FailingFiles::list(const std::string& folder) {
  if (const auto error = next(FileOperation::list, folder)) throw RunTimeError(*error);
  return disk_.list(folder);
}

bool FailingFiles::exists(const std::string& path) {
  if (const auto error = next(FileOperation::exists, path)) throw RunTimeError(*error);
  return disk_.exists(path);
}

void FailingFiles::remove(const std::string& path) {
  if (const auto error = next(FileOperation::remove, path)) throw RunTimeError(*error);
  disk_.remove(path);
}

void FailingFiles::rename(const std::string& from, const std::string& to) {
  if (const auto error = next(FileOperation::rename, from)) throw RunTimeError(*error);
  disk_.rename(from, to);
}

void FailingFiles::exchange(const std::string& one, const std::string& other) {
  if (const auto error = next(FileOperation::rename, one)) throw RunTimeError(*error);
  disk_.exchange(one, other);
}

}  // namespace quillbox::test
