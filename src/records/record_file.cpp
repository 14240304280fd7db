#include "records/record_file.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "platform/run_time_error.h"

namespace quillbox {

RecordFile::RecordFile(OpenFiles& files, std::string path, std::size_t recordLength, OpenMode mode,
                       int number)
    : files_(files),
      path_(std::move(path)),
      recordLength_(recordLength),
      number_(files.open(number, path_, mode)) {}

RecordFile::RecordFile(OpenFiles& files, std::string path, std::size_t recordLength,
                       const MadeLike& like, int number)
    : files_(files),
      path_(std::move(path)),
      recordLength_(recordLength),
      number_(files.make(number, path_, like.file)) {}

RecordFile::~RecordFile() {
  // Once closed, the number may belong to another file. Callers that need to know of a failure call
  // close().
  if (!closed_) ignoringErrors([this] { close(); });
}

void RecordFile::close() {
  closed_ = true;
  files_.close(number_);
}

void RecordFile::read(int recordNumber, std::span<std::byte> into,
                      std::span<const std::byte> blank) {
  assert(into.size() <= recordLength_ && (blank.empty() || blank.size() == into.size()));
  const std::size_t there = files_.file(number_).readAt(offsetOf(recordNumber), into);
  if (blank.empty())
    std::ranges::fill(into.subspan(there), std::byte{0});
  else
    std::ranges::copy(blank.subspan(there), into.subspan(there).begin());
}

std::size_t RecordFile::readRecords(int firstRecordNumber, std::span<std::byte> into) {
  return files_.file(number_).readAt(offsetOf(firstRecordNumber), into);
}

void RecordFile::failShort() const { throw RunTimeError(ErrorNumber::badRecordNumber, path_); }

void RecordFile::write(int recordNumber, std::span<const std::byte> from) {
  assert(from.size() <= recordLength_);
  files_.file(number_).writeAt(offsetOf(recordNumber), from);
}

void RecordFile::writeRecords(int firstRecordNumber, std::span<const std::byte> from) {
  assert(from.size() % recordLength_ == 0);
  writeBytes(offsetOf(firstRecordNumber), from);
}

void RecordFile::writeBytes(std::uint64_t at, std::span<const std::byte> from) {
  files_.file(number_).writeAt(at, from);
}

std::uint64_t RecordFile::offsetOf(int recordNumber) const {
  if (recordNumber < 1) throw RunTimeError(ErrorNumber::badRecordNumber, path_);
  return static_cast<std::uint64_t>(recordNumber - 1) * recordLength_;
}

void makeRecordFile(OpenFiles& files, const std::string& path, std::size_t recordLength,
                    const MadeLike& like, int number,
                    const std::function<void(RecordFile& file)>& fill) {
  bool made = false;
  try {
    RecordFile file(files, path, recordLength, like, number);
    made = true;
    fill(file);
    file.close();
  } catch (const RunTimeError&) {
    // The first failure is the one to report.
    if (made) ignoringErrors([&] { files.fileSystem().remove(path); });
    throw;
  }
}

}  // namespace quillbox
