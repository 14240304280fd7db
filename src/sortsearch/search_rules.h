#pragma once

#include <span>
#include <string_view>

#include "records/kinds.h"

namespace quillbox {

/// How the texts of a kind are compared with what was typed.
enum class TextMatch {
  trimmed,     ///< exactly, but for the blanks at the end
  full,        ///< exactly, padding included
  ignoresCase  ///< the record's without the blanks at its end, both in capitals
};

/// How the collections of an editor are searched.
struct SearchRules {
  EditorForm editor;
  TextMatch texts = TextMatch::trimmed;

  /// Texts that are dates. One that does not begin with a digit from 1 to 9 is looked for as
  /// blanks.
  std::span<const Field* const> dates = {};

  bool showsProgress = true;  ///< the board shows each record
  bool setsListPos = true;    ///< a hit moves both positions, not only the first
  std::string_view notFound = "Data Not Found...";

  /// What the form says of all this: how texts are compared, and that a box always counts where it
  /// has one.
  std::string_view hint;
};

/// The rules of a kind; the four media-file kinds share theirs.
const SearchRules& searchRulesOf(const CollectionKind& kind);

}  // namespace quillbox
