#include "records/record_reader.h"

#include <algorithm>
#include <cassert>

namespace quillbox {

RecordReader::RecordReader(RecordFile& file, int count, int first, std::span<const std::byte> blank)
    : file_(file),
      recordLength_(file.recordLength()),
      next_(first),
      end_(first + count),
      firstOfBlock_(first),
      blank_(blank) {}

std::span<const std::byte> RecordReader::next() {
  assert(next_ < end_);
  auto at = static_cast<std::size_t>(next_ - firstOfBlock_) * recordLength_;
  if (at >= block_.size()) {
    firstOfBlock_ = next_;
    at = 0;
    readBlock();
  }
  ++next_;
  if (at + recordLength_ > there_) {
    const bool isMissing = next_ == end_ && at >= there_;
    if (!isMissing || blank_.empty()) file_.failShort();
    return blank_;
  }
  return std::span(block_).subspan(at, recordLength_);
}

void RecordReader::readBlock() {
  const auto left = static_cast<std::size_t>(end_ - firstOfBlock_);
  const std::size_t records =
      std::min(left, std::max<std::size_t>(kRecordBlockBytes / recordLength_, 1));
  block_.resize(records * recordLength_);
  there_ = 0;  // until the read has succeeded
  there_ = file_.readRecords(firstOfBlock_, block_);
}

}  // namespace quillbox
