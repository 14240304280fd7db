#pragma once

#include <span>
#include <string_view>

#include "records/kinds.h"

namespace quillbox {

/// A line of a block: a label and the value of a field, or none.
struct ListingLine {
  std::string_view label;
  const Field* field;
};

/// The entries of a list field that are filled, each a line of its own.
struct ListingGroup {
  std::string_view heading;  ///< a line above them, where there is one and any entry is filled
  std::string_view label;    ///< of an entry, before its number
  const Field* field = nullptr;
};

/// How the collections of an editor are listed.
struct ListingRules {
  EditorForm editor;
  std::string_view deletedMarker;  ///< the one that is looked for, not always the editor's own
  std::string_view pageHeading;
  std::span<const std::string_view> fileHeadings;  ///< of the media-file codes from 1, or the only
  std::span<const ListingLine> lines;
  ListingGroup group = {};
  bool showsLoan = false;
};

/// The rules of a kind; the four media-file kinds share theirs.
const ListingRules& listingRulesOf(const CollectionKind& kind);

}  // namespace quillbox
