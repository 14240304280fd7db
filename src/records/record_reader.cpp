#include "records/record_reader.h"

#include <algorithm>
#include <cassert>

#include "records/header_record.h"

namespace quillbox {
namespace {

/// Large enough that the calls cost nothing, small enough to stay in the processor's cache.
constexpr std::size_t kBlockBytes = 128 * 1024;

}  // namespace

RecordReader::RecordReader(RecordFile& file, int count)
    : file_(file), recordLength_(file.recordLength()), count_(count) {}

std::span<const std::byte> RecordReader::next() {
  assert(item_ < count_);
  ++item_;
  auto at = static_cast<std::size_t>(item_ - firstOfBlock_) * recordLength_;
  if (at >= block_.size()) {
    firstOfBlock_ = item_;
    at = 0;
    readBlock();
  }
  if (at + recordLength_ > there_) file_.failShort();
  return std::span(block_).subspan(at, recordLength_);
}

void RecordReader::readBlock() {
  const auto left = static_cast<std::size_t>(count_ - firstOfBlock_ + 1);
  const std::size_t records = std::min(left, std::max<std::size_t>(kBlockBytes / recordLength_, 1));
  block_.resize(records * recordLength_);
  there_ = 0;  // until the read is done
  there_ = file_.readRecords(recordNumberOf(firstOfBlock_), block_);
}

}  // namespace quillbox
