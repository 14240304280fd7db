#include "records/record_block.h"

#include <cassert>

namespace quillbox {

bool RecordBlock::hasRoomFor(int recordNumber) const {
  return isEmpty() || placeOf(recordNumber) + recordLength_ <= kRecordBlockBytes;
}

void RecordBlock::put(int recordNumber, std::span<const std::byte> record) {
  assert(record.size() == recordLength_);
  if (isEmpty()) first_ = recordNumber;
  const std::size_t at = placeOf(recordNumber);
  assert(at == bytes_.size() || at + recordLength_ == bytes_.size());
  bytes_.resize(at);
  bytes_.insert(bytes_.end(), record.begin(), record.end());
}

void RecordBlock::writeTo(RecordFile& file) {
  file.writeRecords(first_, bytes_);
  clear();
}

std::size_t RecordBlock::placeOf(int recordNumber) const {
  return static_cast<std::size_t>(recordNumber - first_) * recordLength_;
}

}  // namespace quillbox
