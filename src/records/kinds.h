#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "records/field.h"

namespace quillbox {

/// The editor form of a kind; the four media-file kinds share one.
enum class EditorForm { music, video, software, comics, books, wave };

/// How an editor moves from item to item.
enum class Stepping {
  skipsDeleted,  ///< deleted items are stepped over; Previous wraps round below item 1
  plain,         ///< one up, one down
};

/// The words that a kind's record label is put together from: "Record #: 5 Of 12".
struct LabelWords {
  std::string_view before;  ///< before the position
  std::string_view of;      ///< before the count
  std::string_view empty;   ///< the whole label of an empty collection
  std::string_view fresh;   ///< the whole label while a new item is typed
};

/// What one kind of collection does differently: a row of the table of the nine kinds.
struct CollectionKind {
  std::int16_t code;               ///< kind code, 1 to 9
  std::string_view optionCaption;  ///< in the new-collection dialog
  std::string_view extension;      ///< in capitals, without the dot
  EditorForm editor;
  std::string_view captionPrefix;  ///< the editor's caption is this, the file name and ")"
  std::string_view designCaption;  ///< the editor's caption before a collection is open
  bool opensFromCommandLine;
  std::size_t recordLength;       ///< bytes
  std::span<const Field> fields;  ///< of its record; the first one carries the deleted marker
  std::int16_t fileType;          ///< written by every item write
  LabelWords label;
  std::string_view deletedMarker;  ///< what Delete writes into the first text field
  Stepping stepping;
  bool reusesDeletedSlots;  ///< a new item goes into the first deleted slot
};

/// The nine kinds, in the order of the new-collection dialog.
std::span<const CollectionKind> collectionKinds();

/// The kind of an extension in capitals, or nullptr.
const CollectionKind* kindOfExtension(std::string_view extension);

/// The kind with that code, 1 to 9.
const CollectionKind& kindOfCode(int code);

/// The record label of an item of a collection.
std::string recordLabel(const CollectionKind& kind, int position, int count);

}  // namespace quillbox
