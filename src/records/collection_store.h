#pragma once

#include <cstddef>
#include <cstdint>
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

/// The open collection as one kind reads and writes it. Every operation opens the file at
/// `AppState::currentPath`, does its work and closes it again; one that fails throws a
/// RunTimeError and leaves `Count`, the positions and the caller's buffers as they were.
///
/// Items are numbered from 1; 0 is nothing and kNewItem a new item. A record passed in or out has
/// the kind's record length.
class CollectionStore {
 public:
  CollectionStore(AppState& state, const CollectionKind& kind);

  const CollectionKind& kind() const { return kind_; }

  /// Reads the header of the file as it stands.
  HeaderRecord readHeader();

  /// Writes the header: `count`, `fileType` and the running version. The file must exist unless
  /// `mode` is OpenMode::create.
  void writeHeader(int count, int fileType, OpenMode mode = OpenMode::update);

  /// Reads an item; what lies past the end of the file is blank.
  void readItem(int item, std::span<std::byte> into);

  /// Writes the header with `count` and the kind's file type if the kind's item writes do that,
  /// then the item. Run-time error 63 for a position that is no item: the header is never
  /// overwritten by one.
  void writeItem(int item, std::span<const std::byte> record, int count);

  /// Stores `record` as a new item: in the first deleted slot if the kind reuses them, otherwise
  /// after the last item, where `Count` rises (run-time error 6 beyond 16 bits). Called again after
  /// a failure, and nothing in between, it stores the item in the same slot.
  void writeNewItem(std::span<const std::byte> record);

  /// Writes `record`, which carries the deleted marker, over an item, and reads it back if the
  /// kind does that. False when what was read back is not deleted.
  bool writeDeleted(int item, std::span<const std::byte> record);

  /// Whether Next and Previous take the record for deleted.
  bool isDeleted(std::span<const std::byte> record) const;

 private:
  std::string_view markerField(std::span<const std::byte> record) const;
  std::optional<int> firstDeletedSlot();

  AppState& state_;
  const CollectionKind& kind_;
  std::vector<std::byte> blank_;       // what a record past the end of the file reads as
  std::vector<std::byte> read_;        // the record being read
  std::optional<int> unfinishedSlot_;  // no longer deleted, not yet the new item
};

/// Run-time error 55 when `path` leads to the open collection, which must never be written over by
/// what is made from it.
void refuseToReplaceCollection(AppState& state, const std::string& path);

}  // namespace quillbox
