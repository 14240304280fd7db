#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/app_state.h"
#include "records/field.h"

namespace quillbox {

/// The editor form of a kind; the four media-file kinds share one.
enum class EditorForm { music, video, software, comics, books, wave };
inline constexpr std::size_t kEditorForms = 6;

/// The row for an editor in a table that has one row for each, in their order.
template <const auto& rows>
constexpr const auto& rowOf(EditorForm editor) {
  constexpr auto isComplete = [] {
    for (std::size_t row = 0; row < std::size(rows); ++row)
      if (rows[row].editor != static_cast<EditorForm>(row)) return false;
    return std::size(rows) == kEditorForms;
  };
  static_assert(isComplete(), "one row for each editor, in the order of EditorForm");
  return rows[static_cast<std::size_t>(editor)];
}

// Only forms show the window texts below. They are here so that one row holds everything that
// differs between kinds.

/// The texts of an editor's window, its kind's option in the new-collection dialog, its items.
struct WindowWords {
  std::string_view option;         ///< of the new-collection dialog
  std::string_view captionPrefix;  ///< the caption is this, the file name and ")"
  std::string_view designCaption;  ///< the caption before a collection is open
  std::string_view item;           ///< one item: "book"
  std::string_view items;          ///< several items
};

/// How an editor steps from item to item.
enum class Stepping {
  skipsDeleted,  ///< deleted items are skipped; Previous wraps round below item 1
  plain,         ///< one up, one down
};

/// The parts of a kind's record label: "Record #: 5 Of 12".
struct LabelWords {
  std::string_view before;  ///< before the position
  std::string_view of;      ///< before the count
  std::string_view empty;   ///< the whole label of an empty collection
  std::string_view fresh;   ///< the whole label while a new item is typed
};

/// What Delete writes and shows. Where a title is empty, no message is shown.
struct DeleteRules {
  std::string_view marker;         ///< written to the first text field
  bool keepsTheRest = false;       ///< otherwise all other bytes become zero
  bool readsBack = false;          ///< and ends the program if the marker is missing
  std::string_view questionTitle;  ///< also for "Deletion failure!"
  std::string_view abortedTitle = {};
  std::string_view deletedTitle = {};
};

/// How Go To treats an answer that is no item.
struct GoToRules {
  std::string_view invalidTitle;  ///< for "Invalid input?!"
  bool badTextIsAnError = false;  ///< no 16-bit number: a run-time error, not a message
};

/// How the editor of a kind works; music, the four from video to books, and media files differ.
struct EditingRules {
  std::string_view messageTitle;  ///< for the editor's messages without a title of their own
  std::int16_t fileType = 1;      ///< written to the header with an item
  bool itemWritesRewriteTheHeader = false;  ///< also in place, not only when an item is added
  LabelWords label;
  Stepping stepping = Stepping::plain;
  bool reusesDeletedSlots = false;  ///< a new item goes into the first deleted slot
  DeleteRules deletion;
  GoToRules goTo;
};

/// One kind of collection: a row of the table of the nine kinds.
struct CollectionKind {
  std::int16_t code;           ///< kind code, 1 to 9
  std::int16_t mediaCode = 0;  ///< 1 to 4 for the media-file kinds
  std::string_view extension;  ///< in capitals, without the dot
  EditorForm editor;
  WindowWords words;
  bool opensFromCommandLine = true;
  std::size_t recordLength;       ///< bytes
  std::span<const Field> fields;  ///< the record's fields; the first one has the deleted marker
  std::span<std::byte> (*buffer)(OpenCollection& collection);        ///< its record buffer
  std::int16_t OpenCollection::*position = &OpenCollection::CurRec;  ///< stepped by in the editor
  EditingRules rules;
};

/// The nine kinds, in the order of the new-collection dialog.
std::span<const CollectionKind> collectionKinds();

/// The kind of an extension in capitals, or nullptr.
const CollectionKind* kindOfExtension(std::string_view extension);

/// The kind with that code, or nullptr.
const CollectionKind* kindOfCode(int code);

/// The media code of the kind with that code, 1 to 4; 0 for every other kind, and for none.
int mediaCodeOf(int kindCode);

/// The blank record of a kind.
std::vector<std::byte> blankRecord(const CollectionKind& kind);

/// Whether the first text of a record is its kind's deleted marker, without trailing blanks.
bool isDeleted(const CollectionKind& kind, std::span<const std::byte> record);

/// A number of items of a kind in words: "55 books".
std::string itemsText(const CollectionKind& kind, int count);

/// The record label of an item of a collection.
std::string recordLabel(const CollectionKind& kind, int position, int count);

/// The longest text of that kind's indicator.
std::string widestRecordLabel(const CollectionKind& kind);

}  // namespace quillbox
