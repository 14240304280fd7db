#include "opendata/collection_file.h"

#include <algorithm>
#include <array>

#include "opendata/data_error.h"
#include "platform/paths.h"
#include "records/record_file.h"
#include "text/padding.h"

namespace quillbox {
namespace {

struct KindName {
  std::string_view extension;
  std::string_view name;
};
constexpr KindName kNames[] = {{"MCS", "music"},    {"VCS", "video"},   {"CCS", "comics"},
                               {"SCS", "software"}, {"BCS", "books"},   {"WCS", "wave"},
                               {"ICS", "midi"},     {"GCS", "graphic"}, {"MPS", "mp3"}};

}  // namespace

std::string_view kindName(const CollectionKind& kind) {
  return std::ranges::find(kNames, kind.extension, &KindName::extension)->name;
}

const CollectionKind& kindOfPath(std::string_view path) {
  const CollectionKind* const kind = kindOfExtension(extensionOf(path));
  if (kind == nullptr) throw DataError("not a collection: no kind has this ending");
  return *kind;
}

int CollectionFile::itemsThere() const {
  if (size <= recordLength) return 0;
  const std::uint64_t items = (size - 1) / recordLength;
  return items < static_cast<std::uint64_t>(count) ? static_cast<int>(items) : count;
}

bool CollectionFile::isWhole() const {
  if (count <= 1) return size <= recordLength || count == 0 || size >= 2 * recordLength;
  return size == static_cast<std::uint64_t>(count) * recordLength ||
         size >= static_cast<std::uint64_t>(count + 1) * recordLength;
}

bool CollectionFile::endsExactly() const {
  const auto records = static_cast<std::uint64_t>(count) + kHeaderRecordNumber;
  return size == records * recordLength || (count > 0 && size == (records - 1) * recordLength) ||
         (count == 0 && size == sizeof header);
}

std::uint64_t sizeOf(File& file, std::span<const std::uint64_t> likely) {
  std::array<std::byte, 1> byte{};
  const auto isThere = [&](std::uint64_t at) { return file.readAt(at, byte) == 1; };
  for (const std::uint64_t size : likely)
    if (size > 0 && !isThere(size) && isThere(size - 1)) return size;
  if (!isThere(0)) return 0;
  std::uint64_t there = 0;
  std::uint64_t beyond = 1;
  constexpr std::uint64_t tooFar = std::uint64_t{1} << 60U;
  while (beyond < tooFar && isThere(beyond)) {
    there = beyond;
    beyond *= 2;
  }
  while (beyond - there > 1) {
    const std::uint64_t middle = there + (beyond - there) / 2;
    (isThere(middle) ? there : beyond) = middle;
  }
  return beyond;
}

CollectionFile readCollectionFile(FileSystem& files, const std::string& path) {
  return readCollectionFile(files, path, kindOfPath(path));
}

CollectionFile readCollectionFile(FileSystem& files, const std::string& path,
                                  const CollectionKind& kind) {
  CollectionFile found{path, &kind, {}, 0, kind.recordLength, kind.fields, 0};
  const auto file = files.open(path, OpenMode::read);
  const auto header = bytesOf(found.header);
  const std::size_t there = file->readAt(0, header);
  std::ranges::fill(header.subspan(there), std::byte{0});
  found.count = std::max<int>(found.header.Count, 0);
  const int fileType = found.header.FileType;
  const bool isMusic = kind.editor == EditorForm::music;
  if (isMusic && fileType < music_file_type::upgradable)
    throw DataError("not a music collection that can be read: it is of file type " +
                    std::to_string(fileType));
  if (isMusic && fileType == music_file_type::upgradable) {
    found.recordLength = kMusicRecordType4Length;
    found.fields = kind.fields.first(kind.fields.size() - 1);
  }
  const std::uint64_t items = static_cast<std::uint64_t>(found.count) * found.recordLength;
  found.size = sizeOf(
      *file, std::array<std::uint64_t, 3>{items + found.recordLength, items, sizeof found.header});
  return found;
}

bool isFreePlace(const CollectionKind& kind, std::span<const std::byte> record) {
  return kind.rules.reusesDeletedSlots &&
         withoutBlanksAround(textOf(kind.fields.front(), record)) == kind.rules.deletion.marker;
}

ItemReader::ItemReader(FileSystem& files, const CollectionFile& collection)
    : file_(files.open(collection.path, OpenMode::read)),
      recordLength_(collection.recordLength),
      last_(collection.count),
      blank_(collection.recordLength),
      full_(blankRecord(*collection.kind)) {
  fillBlank(collection.fields, blank_);
}

std::span<const std::byte> ItemReader::read(int item) {
  if (item < firstOfBlock_ || item >= endOfBlock_) {
    // Many at a time only when they are read in sequence.
    const int most = static_cast<int>(kRecordBlockBytes / recordLength_);
    const int items = item == endOfBlock_ || item == 1 ? std::clamp(last_ - item + 1, 1, most) : 1;
    block_.resize(static_cast<std::size_t>(items) * recordLength_);
    endOfBlock_ = firstOfBlock_ = 0;  // until the read has succeeded
    std::size_t there = file_->readAt(static_cast<std::uint64_t>(item) * recordLength_, block_);
    for (; there < block_.size(); ++there) block_[there] = blank_[there % recordLength_];
    firstOfBlock_ = item;
    endOfBlock_ = item + items;
  }
  const auto at = static_cast<std::size_t>(item - firstOfBlock_) * recordLength_;
  return std::span(block_).subspan(at, recordLength_);
}

std::span<const std::byte> ItemReader::readFull(int item) {
  const auto record = read(item);
  if (record.size() == full_.size()) return record;
  std::ranges::copy(record, full_.begin());
  return full_;
}

}  // namespace quillbox
