#pragma once

#include <span>
#include <string_view>

#include "records/kinds.h"

namespace quillbox {

/// A line of a block: a label and the value of a field, or no value.
struct ListingLine {
  std::string_view label;
  const Field* field;
};

/// The filled entries of a list field, each on a line of its own.
struct ListingGroup {
  std::string_view heading;  ///< a line above them, if given and any entry is filled
  std::string_view label;    ///< of an entry, before its number
  const Field* field = nullptr;
};

/// How the collections of an editor are listed.
struct ListingRules {
  EditorForm editor;
  std::string_view deletedMarker;  ///< the marker checked for, not always the editor's own
  std::string_view pageHeading;
  std::span<const std::string_view> fileHeadings;  ///< by media-file code from 1, or the only one
  std::span<const ListingLine> lines;
  ListingGroup group = {};
  bool showsLoan = false;
};

/// The rules of a kind; the four media-file kinds share theirs.
const ListingRules& listingRulesOf(const CollectionKind& kind);

}  // namespace quillbox
