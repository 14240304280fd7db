#include "support/failing_files.h"

#include <utility>

namespace quillbox::test {
namespace {

class FailingFile : public File {
 public:
  FailingFile(FailingFiles& owner, std::string path, std::unique_ptr<File> file)
      : owner_(owner), path_(std::move(path)), file_(std::move(file)) {}

  std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override {
    if (const auto error = owner_.next(FileOperation::read, path_)) throw RunTimeError(*error);
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

void FailingFiles::failNth(int nth, ErrorNumber error) {
  failing_.reset();
  countdown_ = nth;
  error_ = error;
  failed_ = false;
}

void FailingFiles::failNth(FileOperation operation, int nth, ErrorNumber error) {
  failNth(nth, error);
  failing_ = operation;
}

std::optional<RunTimeError> FailingFiles::next(FileOperation operation, const std::string& path) {
  operations_.push_back({operation, path});
  if (countdown_ < 0 || (failing_ && *failing_ != operation)) return std::nullopt;
  if (countdown_-- > 0) return std::nullopt;
  failed_ = true;
  return RunTimeError(error_, path);
}

std::unique_ptr<File> FailingFiles::open(const std::string& path, OpenMode mode) {
  if (const auto error = next(FileOperation::open, path)) throw RunTimeError(*error);
  return std::make_unique<FailingFile>(*this, path, disk_.open(path, mode));
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

}  // namespace quillbox::test
