#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "records/record_file.h"

namespace quillbox {

/// Reads the items of a collection once, from front to back. The file is read in blocks of whole
/// records, however many items there are; each record is handed out on its own.
class RecordReader {
 public:
  /// Starts before item 1 of `count` items. The file must outlive the reader.
  RecordReader(RecordFile& file, int count);

  /// The next item's record, valid until the next call; run-time error 63 when the file does not
  /// hold all of it. There must be one.
  std::span<const std::byte> next();

 private:
  void readBlock();

  RecordFile& file_;
  std::size_t recordLength_;
  int count_;
  int item_ = 0;          // handed out last
  int firstOfBlock_ = 1;  // item at the start of the block
  std::vector<std::byte> block_;
  std::size_t there_ = 0;  // bytes of the block that the file holds
};

}  // namespace quillbox
