#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "records/kinds.h"

namespace quillbox {

/// A key that a collection can be sorted by.
struct SortKey {
  const Field* field;                 ///< a text, or a flag or choice compared as a signed number
  std::string_view boxCaption;        ///< of its check box; a key without one is always used
  std::string_view passCaption = {};  ///< on the board during its series of passes
};

/// How the collections of an editor are sorted.
struct SortRules {
  EditorForm editor;

  /// In the order of the boxes. The series run from the last key to the first, and each keeps the
  /// order of equal items, so the first ticked key counts most.
  std::span<const SortKey> keys;

  int fileNumber;  ///< for reading and writing the collection

  /// The board shows each record read and each pass of a series.
  bool showsProgress = false;

  /// The program ends after this key's series, ticked or not (books only): the collection is left
  /// under its backup's name (D68 of docs/decisions.md).
  std::optional<std::size_t> endsProgramAfter = {};

  bool resetsListPos = true;    ///< to 1; all except music
  bool leavesFileOpen = false;  ///< as number 255, with its header written once more
};

/// The rules of a kind; the four media-file kinds share theirs.
const SortRules& sortRulesOf(const CollectionKind& kind);

}  // namespace quillbox
