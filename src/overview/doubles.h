#pragma once

#include <span>
#include <string>
#include <vector>

#include "records/kinds.h"

namespace quillbox {

/// The fields that tell whether two items of a kind are the same thing: artist and album, author
/// and title, the name of a file.
std::span<const Field* const> tellingFields(const CollectionKind& kind);

/// Items that are there more than once: their telling fields are the same when capitals, accents,
/// blanks, punctuation and articles are put aside ("The Wall", "wall", "Wall, The"). Deleted items
/// are not looked at, nor those with nothing in any telling field.
class Doubles {
 public:
  explicit Doubles(const CollectionKind& kind) : kind_(kind) {}

  /// Takes an item, again if it was taken before.
  void take(int item, std::span<const std::byte> record);

  /// There are only so many items now.
  void cutTo(int count);

  /// Groups of two items and more, in the order of their first ones; the items of each in order.
  std::vector<std::vector<int>> groups() const;

 private:
  const CollectionKind& kind_;
  std::vector<std::string> keys_;  // empty: no double of anything
};

/// What is left of a text when all that is put aside. A text of nothing else keeps its articles, or
/// its punctuation; an article at the end without a comma before it is none ("Vitamin A").
std::string withoutTrimmings(std::string_view text);

}  // namespace quillbox
