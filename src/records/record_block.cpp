#include "records/record_block.h"

#include <algorithm>
#include <cassert>

namespace quillbox {

bool RecordBlock::hasRoomFor(int recordNumber) const {
  return isEmpty() || offsetOf(recordNumber) / kRecordBlockBytes == start_ / kRecordBlockBytes;
}

void RecordBlock::put(int recordNumber, std::span<const std::byte> record) {
  assert(record.size() == recordLength_ && hasRoomFor(recordNumber));
  if (bytes_.size() == 0) bytes_ = TransferBuffer(kRecordBlockBytes + recordLength_);
  if (isEmpty()) start_ = offsetOf(recordNumber);
  const std::size_t at = offsetOf(recordNumber) - start_;
  assert(at == filled_ || at + recordLength_ == filled_);
  std::ranges::copy(record, bytes_.bytes().subspan(at).begin());
  filled_ = at + recordLength_;
}

void RecordBlock::writePieceTo(RecordFile& file) {
  const auto filled = bytes_.bytes().first(filled_);
  const std::size_t length = filled_ - (start_ + filled_) % kRecordBlockBytes;
  file.writeBytes(start_, filled.first(length));
  std::ranges::copy(filled.subspan(length), filled.begin());
  start_ += length;
  filled_ -= length;
}

void RecordBlock::writeTo(RecordFile& file) {
  file.writeBytes(start_, bytes_.bytes().first(filled_));
  clear();
}

std::uint64_t RecordBlock::offsetOf(int recordNumber) const {
  assert(recordNumber >= 1);
  return static_cast<std::uint64_t>(recordNumber - 1) * recordLength_;
}

}  // namespace quillbox
