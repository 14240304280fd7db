#include "records/collection_store.h"

#include <algorithm>
#include <array>
#include <functional>

#include "platform/checked16.h"
#include "platform/run_time_error.h"
#include "text/padding.h"

namespace quillbox {

HeaderRecord makeHeader(int count, int fileType) {
  HeaderRecord header;
  header.Count = checked16(count);
  header.FileType = checked16(fileType);
  header.Version = kVersionText;
  return header;
}

CollectionStore::CollectionStore(OpenFiles& files, const OpenCollection& collection,
                                 const CollectionKind& kind)
    : files_(files),
      collection_(collection),
      kind_(kind),
      blank_(blankRecord(kind)),
      read_(kind.recordLength) {}

RecordFile CollectionStore::open(OpenMode mode) {
  return RecordFile(files_, collection_.currentPath, kind_.recordLength, mode);
}

HeaderRecord CollectionStore::ReadHeader() {
  RecordFile file = open(OpenMode::read);
  HeaderRecord header;
  file.read(kHeaderRecordNumber, bytesOf(header));
  return header;
}

std::int16_t CollectionStore::readCount() { return std::max<std::int16_t>(ReadHeader().Count, 0); }

void CollectionStore::ReadRecords(
    std::span<const int> items,
    const std::function<void(int item, std::span<const std::byte> record)>& use) {
  RecordFile file = open(OpenMode::read);
  for (const int item : items) {
    file.read(recordNumberOf(item), read_, blank_);
    use(item, read_);
  }
}

int CollectionStore::lastItemInFile(int count) {
  RecordFile file = open(OpenMode::read);
  std::array<std::byte, 1> byte{};
  const auto isMissing = [&](int item) {
    return file.readRecords(recordNumberOf(item), byte) == 0;
  };
  if (count < 1 || !isMissing(count)) return count;
  int there = 0;
  for (int missing = count; missing - there > 1;) {
    const int middle = there + (missing - there) / 2;
    (isMissing(middle) ? missing : there) = middle;
  }
  return there;
}

void CollectionStore::WriteHeader(int count, int fileType, OpenMode mode) {
  const HeaderRecord header = makeHeader(count, fileType);
  RecordFile file = open(mode);
  file.write(kHeaderRecordNumber, bytesOf(header));
  file.close();
}

void CollectionStore::ReadRecord(int item, std::span<std::byte> into) {
  RecordFile file = open(OpenMode::read);
  file.read(recordNumberOf(item), read_, blank_);
  std::ranges::copy(read_, into.begin());
}

std::vector<std::byte> CollectionStore::ReadRecord(int item) {
  std::vector<std::byte> record(kind_.recordLength);
  ReadRecord(item, record);
  return record;
}

void CollectionStore::WriteRecord(int item, std::span<const std::byte> record, int count) {
  if (item < 1) throw RunTimeError(ErrorNumber::badRecordNumber, collection_.currentPath);
  const HeaderRecord header = makeHeader(count, kind_.rules.fileType);
  RecordFile file = open(OpenMode::update);
  if (kind_.rules.itemWritesRewriteTheHeader) file.write(kHeaderRecordNumber, bytesOf(header));
  file.write(recordNumberOf(item), record);
  file.close();
}

std::int16_t CollectionStore::slotForNewItem() {
  if (kind_.rules.reusesDeletedSlots) {
    RecordFile file = open(OpenMode::read);
    for (int item = 1; item <= collection_.Count; ++item) {
      file.read(recordNumberOf(item), read_, blank_);
      if (withoutBlanksAround(markerField(read_)) == kind_.rules.deletion.marker)
        return checked16(item);
    }
  }
  return checked16(collection_.Count + 1);
}

NewItem CollectionStore::writeNewItem(std::optional<std::int16_t>& slot,
                                      std::span<const std::byte> record) {
  if (!slot) slot = slotForNewItem();
  const NewItem written{*slot, std::max(*slot, collection_.Count)};
  if (written.count > collection_.Count) WriteHeader(written.count, kind_.rules.fileType);
  WriteRecord(written.item, record, written.count);
  slot.reset();
  return written;
}

bool CollectionStore::writeDeleted(int item, std::span<const std::byte> record) {
  WriteRecord(item, record, collection_.Count);
  return !kind_.rules.deletion.readsBack || isDeleted(ReadRecord(item));
}

bool CollectionStore::isDeleted(std::span<const std::byte> record) const {
  return quillbox::isDeleted(kind_, record);
}

std::string_view CollectionStore::markerField(std::span<const std::byte> record) const {
  return textOf(kind_.fields.front(), record);
}

void refuseToReplaceCollection(OpenFiles& files, const OpenCollection& collection,
                               const std::string& path) {
  if (files.fileSystem().isSameFile(path, collection.currentPath))
    throw RunTimeError(ErrorNumber::fileAlreadyOpen, path);
}

}  // namespace quillbox
