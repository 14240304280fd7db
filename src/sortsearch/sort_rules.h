#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "records/kinds.h"

namespace quillbox {

/// A key that a collection can be sorted by.
struct SortKey {
  const Field* field;                 ///< a text, or a flag or choice taken as a signed number
  std::string_view boxCaption;        ///< of its check box; a key without one is always sorted by
  std::string_view passCaption = {};  ///< of the board during its pass series
};

/// How the collections of an editor are sorted.
struct SortRules {
  EditorForm editor;

  /// In the order of the boxes. The pass series run from the last key to the first, each of them
  /// keeping the order of what it finds equal, so that the first ticked key counts most.
  std::span<const SortKey> keys;

  int fileNumber;  ///< that the collection is read and written under

  /// The board shows each record read and each repetition of a pass series.
  bool showsProgress = false;

  /// The program ends after the pass series of this key, ticked or not (books only): the collection
  /// is left under its backup's name (D68 of docs/decisions.md).
  std::optional<std::size_t> endsProgramAfter = {};

  bool resetsListPos = true;    ///< to 1; all but music
  bool leavesFileOpen = false;  ///< under number 255, with its header written once more
};

/// The rules of a kind; the four media-file kinds share theirs.
const SortRules& sortRulesOf(const CollectionKind& kind);

}  // namespace quillbox
