#pragma once

#include <span>
#include <string>
#include <vector>

#include "records/kinds.h"

namespace quillbox {

/// The fields that decide whether two items of a kind are the same thing: artist and album, author
/// and title, the name of a file.
std::span<const Field* const> tellingFields(const CollectionKind& kind);

/// Items that occur more than once: their telling fields are equal without case, accents, blanks,
/// punctuation and articles ("The Wall", "wall", "Wall, The"). Deleted items are ignored, and so
/// are those with empty telling fields.
class Doubles {
 public:
  explicit Doubles(const CollectionKind& kind) : kind_(kind) {}

  /// Adds an item, or replaces it.
  void take(int item, std::span<const std::byte> record);

  /// Keeps only the items up to `count`.
  void cutTo(int count);

  /// Groups of at least two items, ordered by their first items; the items of each in order.
  std::vector<std::vector<int>> groups() const;

 private:
  const CollectionKind& kind_;
  std::vector<std::string> keys_;  // empty: no double of anything
};

/// The text without all of that. A text with nothing else keeps its articles, or its punctuation;
/// an article at the end counts only after a comma ("Vitamin A" has none).
std::string withoutTrimmings(std::string_view text);

}  // namespace quillbox
