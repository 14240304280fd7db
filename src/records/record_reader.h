#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "records/header_record.h"
#include "records/record_file.h"

namespace quillbox {

/// Reads records once, from front to back. The file is read in blocks of whole records, however
/// many there are; each record is handed out on its own.
class RecordReader {
 public:
  /// Reads `count` records from record number `first` on. The file must outlive the reader, and so
  /// must `blank`: what the last record is taken to be when the file holds nothing of it.
  RecordReader(RecordFile& file, int count, int first, std::span<const std::byte> blank = {});

  /// The next record, valid until the next call; run-time error 63 when the file does not
  /// hold all of it. There must be one.
  std::span<const std::byte> next();

 private:
  void readBlock();

  RecordFile& file_;
  std::size_t recordLength_;
  int next_;          // to be handed out
  int end_;           // behind the last
  int firstOfBlock_;  // at the start of the block
  std::span<const std::byte> blank_;
  std::vector<std::byte> block_;
  std::size_t there_ = 0;  // bytes of the block that the file holds
};

}  // namespace quillbox
