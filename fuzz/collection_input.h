#pragma once

#include <string>
#include <vector>

#include "fuzz/input.h"
#include "records/kinds.h"

namespace quillbox::fuzz {

/// A collection's file as an input has it.
struct CollectionInput {
  const CollectionKind& kind;
  std::string bytes;
};

/// The first byte of the input is the kind. After an even one the rest is the file, byte by byte;
/// after an odd one each text field is its length and what is in it, so that a few bytes make a
/// file of many items. `Count` is lowered to what is done in a moment, which may still be more than
/// the file holds.
CollectionInput collectionOf(Input input);

/// The items of a collection's file that it holds completely, as many as `count` at most.
std::vector<std::string> wholeItems(const std::string& bytes, std::size_t recordLength, int count);

}  // namespace quillbox::fuzz
