#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/field.h"

namespace quillbox {

struct AppState;
struct OpenCollection;

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

/// What Delete writes and says. Nothing is said where a title is empty.
struct DeleteRules {
  std::string_view marker;         ///< goes into the first text field
  bool keepsTheRest;               ///< false: every other byte becomes zero
  bool readsBack;                  ///< and ends the program when the marker is not there
  std::string_view questionTitle;  ///< also of "Deletion failure!"
  std::string_view abortedTitle;
  std::string_view deletedTitle;
};

/// What Go To makes of an answer that is no item.
struct GoToRules {
  std::string_view invalidTitle;  ///< of "Invalid input?!"
  bool badTextIsAnError;          ///< what is no 16-bit number is a run-time error, not a message
};

/// How the editor of a kind works; music, the video-to-book family and media files each have
/// theirs.
struct EditingRules {
  std::string_view messageTitle;    ///< of the editor's messages that have no title of their own
  std::int16_t fileType;            ///< in the headers of item writes
  bool itemWritesRewriteTheHeader;  ///< in place too, not only when an item is added
  LabelWords label;
  Stepping stepping;
  bool reusesDeletedSlots;  ///< a new item goes into the first deleted slot
  DeleteRules deletion;
  GoToRules goTo;
};

/// One kind of collection: a row of the table of the nine kinds.
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
  std::span<std::byte> (*buffer)(AppState& state);  ///< its record buffer
  std::int16_t OpenCollection::*position;           ///< what the editor steps by
  EditingRules rules;
};

/// The nine kinds, in the order of the new-collection dialog.
std::span<const CollectionKind> collectionKinds();

/// The kind of an extension in capitals, or nullptr.
const CollectionKind* kindOfExtension(std::string_view extension);

/// The kind with that code, or nullptr.
const CollectionKind* kindOfCode(int code);

/// The media-file kinds have a code of their own, 1 to 4; it is 0 for every other kind.
int mediaCodeOf(const CollectionKind& kind);

/// The media-file kind of that code, or nullptr.
const CollectionKind* kindOfMediaCode(int mediaCode);

/// The blank record of a kind.
std::vector<std::byte> blankRecord(const CollectionKind& kind);

/// The record label of an item of a collection.
std::string recordLabel(const CollectionKind& kind, int position, int count);

}  // namespace quillbox
