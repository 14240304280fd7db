#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "records/record_file.h"

namespace quillbox {

/// Consecutive records, collected to be written at once: writing each on its own takes twice as
/// long, and so does reading them later, because the system then stores them in small pieces.
class RecordBlock {
 public:
  explicit RecordBlock(std::size_t recordLength) : recordLength_(recordLength) {}

  bool isEmpty() const { return bytes_.empty(); }

  /// False when the block must be written first.
  bool hasRoomFor(int recordNumber) const;

  /// Adds a whole record. Unless the block is empty, it must follow the last record, or be the same
  /// one, which it replaces.
  void put(int recordNumber, std::span<const std::byte> record);

  /// Writes the records and empties the block; if writing fails, the block is unchanged.
  void writeTo(RecordFile& file);

  void clear() { bytes_.clear(); }

 private:
  std::size_t placeOf(int recordNumber) const;

  std::size_t recordLength_;
  int first_ = 0;
  std::vector<std::byte> bytes_;
};

}  // namespace quillbox
