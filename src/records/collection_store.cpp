#include "records/collection_store.h"

#include <algorithm>

namespace quillbox {
namespace {

HeaderRecord makeHeader(int count, int fileType) {
  HeaderRecord header;
  header.Count = checked16(count);
  header.FileType = checked16(fileType);
  header.Version = kVersionText;
  return header;
}

}  // namespace

CollectionStore::CollectionStore(AppState& state, const CollectionKind& kind)
    : state_(state), kind_(kind), blank_(blankRecord(kind)), read_(kind.recordLength) {}

HeaderRecord CollectionStore::readHeader() {
  RecordFile file(state_.files, state_.currentPath, kind_.recordLength, OpenMode::read);
  HeaderRecord header;
  file.read(kHeaderRecordNumber, bytesOf(header));
  return header;
}

void CollectionStore::writeHeader(int count, int fileType, OpenMode mode) {
  unfinishedSlot_.reset();
  const HeaderRecord header = makeHeader(count, fileType);
  RecordFile file(state_.files, state_.currentPath, kind_.recordLength, mode);
  file.write(kHeaderRecordNumber, bytesOf(header));
  file.close();
}

void CollectionStore::readItem(int item, std::span<std::byte> into) {
  unfinishedSlot_.reset();
  RecordFile file(state_.files, state_.currentPath, kind_.recordLength, OpenMode::read);
  file.read(recordNumberOf(item), read_, blank_);
  std::ranges::copy(read_, into.begin());
}

void CollectionStore::writeItem(int item, std::span<const std::byte> record, int count) {
  if (item < 1) throw RunTimeError(ErrorNumber::badRecordNumber, state_.currentPath);
  const HeaderRecord header = makeHeader(count, kind_.rules.fileType);
  RecordFile file(state_.files, state_.currentPath, kind_.recordLength, OpenMode::update);
  if (kind_.rules.itemWritesRewriteTheHeader) file.write(kHeaderRecordNumber, bytesOf(header));
  file.write(recordNumberOf(item), record);
  file.close();
}

void CollectionStore::writeNewItem(std::span<const std::byte> record) {
  if (!unfinishedSlot_ && kind_.rules.reusesDeletedSlots) unfinishedSlot_ = firstDeletedSlot();
  if (unfinishedSlot_) {
    writeItem(*unfinishedSlot_, record, state_.Count);
    unfinishedSlot_.reset();
    return;
  }
  const std::int16_t count = checked16(state_.Count + 1);
  writeHeader(count, kind_.rules.fileType);
  writeItem(count, record, count);
  // Only now: a failed write leaves the count, so that trying again fills the same slot.
  state_.Count = count;
}

bool CollectionStore::writeDeleted(int item, std::span<const std::byte> record) {
  writeItem(item, record, state_.Count);
  if (!kind_.rules.deletion.readsBack) return true;
  std::vector<std::byte> readBack(kind_.recordLength);
  readItem(item, readBack);
  return isDeleted(readBack);
}

bool CollectionStore::isDeleted(std::span<const std::byte> record) const {
  return withoutTrailingBlanks(markerField(record)) == kind_.rules.deletion.marker;
}

std::string_view CollectionStore::markerField(std::span<const std::byte> record) const {
  return textOf(kind_.fields.front(), record);
}

std::optional<int> CollectionStore::firstDeletedSlot() {
  RecordFile file(state_.files, state_.currentPath, kind_.recordLength, OpenMode::read);
  for (int item = 1; item <= state_.Count; ++item) {
    file.read(recordNumberOf(item), read_, blank_);
    if (withoutBlanksAround(markerField(read_)) == kind_.rules.deletion.marker) return item;
  }
  return std::nullopt;
}

void refuseToReplaceCollection(AppState& state, const std::string& path) {
  if (state.files.fileSystem().isSameFile(path, state.currentPath))
    throw RunTimeError(ErrorNumber::fileAlreadyOpen, path);
}

}  // namespace quillbox
