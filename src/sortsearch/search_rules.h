#pragma once

#include <span>
#include <string_view>

#include "records/kinds.h"

namespace quillbox {

/// How the texts of a kind are compared with what was typed.
enum class TextMatch {
  trimmed,     ///< exactly, except for blanks at the end
  full,        ///< exactly, padding included
  ignoresCase  ///< the record's text without blanks at its end, both in capitals
};

/// How the collections of an editor are searched.
struct SearchRules {
  EditorForm editor;
  TextMatch texts = TextMatch::trimmed;

  /// Texts that are dates. A typed text that does not begin with a digit from 1 to 9 is searched
  /// for as blanks.
  std::span<const Field* const> dates = {};

  bool showsProgress = true;  ///< the board shows each record
  bool setsListPos = true;    ///< a hit moves both positions, not only the first
  std::string_view notFound = "Data Not Found...";

  /// The form's explanation: how texts are compared, and, if it has one, that a box always counts.
  std::string_view hint;
};

/// The rules of a kind; the four media-file kinds share theirs.
const SearchRules& searchRulesOf(const CollectionKind& kind);

}  // namespace quillbox
