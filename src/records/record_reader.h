#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "records/header_record.h"
#include "records/record_file.h"

namespace quillbox {

/// Reads records once, from beginning to end. The file is read in blocks of whole records; each
/// record is returned on its own.
class RecordReader {
 public:
  /// Reads `count` records from record number `first` on. The file and `blank` must outlive the
  /// reader. `blank` stands for the last record if none of it is in the file.
  RecordReader(RecordFile& file, int count, int first, std::span<const std::byte> blank = {});

  /// The next record, valid until the next call; run-time error 63 when it is not completely in the
  /// file. There must be one.
  std::span<const std::byte> next();

 private:
  void readBlock();

  RecordFile& file_;
  std::size_t recordLength_;
  int next_;          // the next to be returned
  int end_;           // one past the last
  int firstOfBlock_;  // at the start of the block
  std::span<const std::byte> blank_;
  std::vector<std::byte> block_;
  std::size_t there_ = 0;  // bytes of the block that are in the file
};

}  // namespace quillbox
