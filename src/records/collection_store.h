#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "records/app_state.h"
#include "records/header_record.h"
#include "records/kinds.h"
#include "records/record_file.h"
#include "records/version.h"

namespace quillbox {

/// A header with the program's version. Run-time error 6 for a count beyond 16 bits.
HeaderRecord makeHeader(int count, int fileType);

/// Where a new item was stored, and the new number of items.
struct NewItem {
  std::int16_t item;
  std::int16_t count;
};

/// Reads and writes a collection by the rules of its kind. Every operation opens the file at the
/// collection's `currentPath`, does its work and closes the file; one that fails throws a
/// RunTimeError and leaves the caller's buffers unchanged. Nothing here changes what is open or the
/// user's position.
///
/// Items are numbered from 1; 0 is nothing and kNewItem a new item. A record passed in or out has
/// the kind's record length.
class CollectionStore {
 public:
  /// The collection is read again by each operation and must outlive the store.
  CollectionStore(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind);

  const CollectionKind& kind() const { return kind_; }

  /// Reads the header of the file as it is now.
  HeaderRecord ReadHeader();

  /// The number of items in the header; 0 if that is negative.
  std::int16_t readCount();

  /// Reads these items in the given order and passes each on; valid during the call.
  void ReadRecords(std::span<const int> items,
                   const std::function<void(int item, std::span<const std::byte> record)>& use);

  /// The last of `count` items that is at least partly in the file; 0 when none is.
  int lastItemInFile(int count);

  /// Writes the header: `count`, `fileType` and the program's version. The file must exist unless
  /// `mode` is OpenMode::create.
  void WriteHeader(int count, int fileType, OpenMode mode = OpenMode::update);

  /// Reads an item; what is past the end of the file is blank.
  void ReadRecord(int item, std::span<std::byte> into);
  std::vector<std::byte> ReadRecord(int item);

  /// Writes the item, after a header with `count` and the kind's file type if the kind's item
  /// writes include it. Run-time error 63 for a position that is no item: the header is never
  /// overwritten.
  void WriteRecord(int item, std::span<const std::byte> record, int count);

  /// Stores `record` as a new item: in the first deleted slot if the kind reuses them, otherwise
  /// after the last item (run-time error 6 beyond 16 bits).
  ///
  /// A failure may leave half of the item in its slot, which no scan would take for deleted again:
  /// `slot` keeps it for the next attempt. The caller clears it as soon as anything else may have
  /// happened to the collection; it is empty after success.
  NewItem writeNewItem(std::optional<std::int16_t>& slot, std::span<const std::byte> record);

  /// Writes `record`, which has the deleted marker, over an item, and reads it back if the kind
  /// does. False when what was read back is not deleted.
  bool writeDeleted(int item, std::span<const std::byte> record);

  /// Whether Next and Previous treat the record as deleted.
  bool isDeleted(std::span<const std::byte> record) const;

 private:
  std::string_view markerField(std::span<const std::byte> record) const;
  std::int16_t slotForNewItem();
  RecordFile open(OpenMode mode);

  OpenFiles& files_;
  const OpenCollection& collection_;
  const CollectionKind& kind_;
  std::vector<std::byte> blank_;  // the contents of a record past the end of the file
  std::vector<std::byte> read_;   // the record being read
};

/// Run-time error 55 when `path` leads to the open collection, which must never be overwritten by
/// something made from it.
void refuseToReplaceCollection(OpenFiles& files, const OpenCollection& collection,
                               const std::string& path);

}  // namespace quillbox
