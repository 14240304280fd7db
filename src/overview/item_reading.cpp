#include "overview/item_reading.h"

#include <algorithm>

#include "records/header_record.h"
#include "records/record_file.h"
#include "records/record_reader.h"

namespace quillbox {

ItemReading::ItemReading(OpenFiles& files, const OpenCollection& collection,
                         const CollectionKind& kind)
    : files_(files), collection_(collection), kind_(kind), blank_(blankRecord(kind)) {}

void ItemReading::start(int count) {
  read_ = 0;
  countInFile_ = 0;
  failure_.reset();
  setCount(count);
}

void ItemReading::setCount(int count) {
  count_ = std::max(count, 0);
  read_ = std::min(read_, count_);
  if (read_ == count_) failure_.reset();
}

void ItemReading::skip() {
  ++read_;
  failure_.reset();
}

ReadState ItemReading::state() const {
  if (read_ == count_) return ReadState::done;
  return failure_ ? ReadState::failed : ReadState::unfinished;
}

ReadState ItemReading::readOn(const Use& use, const Stop& stop) {
  failure_.reset();
  try {
    if (read_ < count_) readPiece(use, stop);
  } catch (const RunTimeError& error) {
    failure_ = error;
  }
  return state();
}

void ItemReading::readPiece(const Use& use, const Stop& stop) {
  RecordFile file(files_, collection_.currentPath, kind_.recordLength, OpenMode::read);
  HeaderRecord header{};
  file.read(kHeaderRecordNumber, bytesOf(header));
  countInFile_ = std::max<int>(header.Count, 0);
  RecordReader reader(file, count_ - read_, recordNumberOf(read_ + 1), blank_);
  do {
    const auto record = reader.next();
    ++read_;
    use(read_, record);
  } while (read_ < count_ && !stop());
}

void readAllItems(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
                  int count, const ItemReading::Use& use) {
  ItemReading reading(files, collection, kind);
  reading.start(count);
  reading.readOn(use, [] { return false; });
  if (reading.failure()) throw RunTimeError(*reading.failure());
}

}  // namespace quillbox
