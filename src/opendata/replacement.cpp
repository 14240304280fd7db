#include "opendata/replacement.h"

#include <cstring>

#include "opendata/data_error.h"
#include "platform/file_paths.h"
#include "platform/run_time_error.h"
#include "platform/transfer_buffer.h"
#include "records/record_file.h"

namespace quillbox {
namespace {

/// A checksum: it depends on each word of the bytes and on the word's position.
class Sum {
 public:
  void add(std::span<const std::byte> bytes) {
    while (bytes.size() >= sizeof(std::uint64_t)) {
      std::uint64_t word;
      std::memcpy(&word, bytes.data(), sizeof word);
      addWord(word);
      bytes = bytes.subspan(sizeof word);
    }
    for (const std::byte byte : bytes) addWord(std::to_integer<std::uint64_t>(byte) + kMark);
  }
  std::uint64_t value() const { return sum_; }

 private:
  static constexpr std::uint64_t kMark = 0x100;
  void addWord(std::uint64_t word) {
    constexpr std::uint64_t factor = 0x9E37'79B9'7F4A'7C15;
    constexpr unsigned shift = 29;
    sum_ = (sum_ ^ word) * factor;
    sum_ ^= sum_ >> shift;
  }
  std::uint64_t sum_ = 1;
};

}  // namespace

std::string earlierName(const std::string& file) { return file + "~"; }

std::string unfinishedName(const std::string& file) { return file + ".new~"; }

Replacement::Replacement(FileSystem& files, const std::string& path)
    : files_(files), file_(fileBehind(files, path)), fresh_(unfinishedName(file_)) {}

Replacement::~Replacement() {
  if (out_ == nullptr || isDone_) return;
  out_.reset();
  ignoringErrors([this] { files_.remove(fresh_); });
}

void Replacement::beginWithCopy() {
  replaces_ = true;
  try {
    out_ = files_.make(fresh_, file_);
  } catch (RunTimeError& error) {
    if (error.number() == ErrorNumber::fileAlreadyExists)
      error.addNote("Another import is at work, or one was cut off and left this file.");
    throw;
  }
  sum_ = sumOfFile(out_.get());
}

void Replacement::beginEmpty() {
  if (files_.exists(file_)) throw RunTimeError(ErrorNumber::fileAlreadyExists, file_);
  out_ = files_.make(fresh_, {});
}

/// The checksum of the file's present contents, which are also copied if `copy` is given.
std::uint64_t Replacement::sumOfFile(File* copy) {
  const auto in = files_.open(file_, OpenMode::read);
  TransferBuffer block(kRecordBlockBytes);
  Sum sum;
  std::uint64_t at = 0;
  for (;;) {
    const auto read = block.bytes().first(in->readAt(at, block.bytes()));
    sum.add(read);
    if (copy != nullptr && !read.empty()) copy->writeAt(at, read);
    at += read.size();
    if (read.size() < block.size()) return sum.value();
  }
}

std::string Replacement::finish() {
  out_->flush();
  out_->close();
  if (!replaces_) {
    files_.rename(fresh_, file_);
    isDone_ = true;
    return {};
  }
  if (!files_.exists(file_) || sumOfFile(nullptr) != sum_)
    throw DataError("another program has changed the collection meanwhile; it was left alone");
  files_.exchange(fresh_, file_);
  isDone_ = true;
  // From here on, the file is the new version, and the earlier version has the temporary name.
  try {
    if (files_.exists(earlierName(file_))) files_.remove(earlierName(file_));
    files_.rename(fresh_, earlierName(file_));
  } catch (RunTimeError& error) {
    error.addNote("The collection is written; what it was before is kept as " + fresh_);
    throw;
  }
  return earlierName(file_);
}

}  // namespace quillbox
