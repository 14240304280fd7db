#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "records/record_file.h"

namespace quillbox {

/// Records that follow one another, gathered to be written in one piece: writing each on its own
/// takes twice as long, and so does reading them later, as the system keeps them in small pieces.
class RecordBlock {
 public:
  explicit RecordBlock(std::size_t recordLength) : recordLength_(recordLength) {}

  bool isEmpty() const { return bytes_.empty(); }

  /// False when it is time to write the block.
  bool hasRoomFor(int recordNumber) const;

  /// Takes a whole record. Unless the block is empty, it is the one behind the last, or the last
  /// again, which it replaces.
  void put(int recordNumber, std::span<const std::byte> record);

  /// Writes the records and empties the block; when writing fails the block stays as it is.
  void writeTo(RecordFile& file);

  void clear() { bytes_.clear(); }

 private:
  std::size_t placeOf(int recordNumber) const;

  std::size_t recordLength_;
  int first_ = 0;
  std::vector<std::byte> bytes_;
};

}  // namespace quillbox
