#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/transfer_buffer.h"
#include "records/record_file.h"

namespace quillbox {

/// Consecutive records, collected to be written in large pieces: writing each on its own takes
/// twice as long, and so does reading them later, because the system then stores them in small
/// pieces. The pieces end at whole pages of the file, which takes the system a quarter less than
/// ending at records.
class RecordBlock {
 public:
  explicit RecordBlock(std::size_t recordLength) : recordLength_(recordLength) {}

  bool isEmpty() const { return filled_ == 0; }

  /// False when a piece must be written first.
  bool hasRoomFor(int recordNumber) const;

  /// Adds a whole record. Unless the block is empty, it must follow the last record, or be the same
  /// one, which it replaces.
  void put(int recordNumber, std::span<const std::byte> record);

  /// For when the next record has no room. Keeps what a record has after the piece, so the last one
  /// cannot be put again. If writing fails, the block is unchanged.
  void writePieceTo(RecordFile& file);

  /// Writes the records and empties the block; if writing fails, the block is unchanged.
  void writeTo(RecordFile& file);

  void clear() { filled_ = 0; }

 private:
  std::uint64_t offsetOf(int recordNumber) const;

  std::size_t recordLength_;
  std::uint64_t start_ = 0;  // of the block in the file
  std::size_t filled_ = 0;
  TransferBuffer bytes_{0};  // as large as needed from the first record on
};

}  // namespace quillbox
