#pragma once

#include <string>
#include <vector>

#include "fuzz/input.h"
#include "records/kinds.h"

namespace quillbox::fuzz {

/// A collection's file as an input describes it.
struct CollectionInput {
  const CollectionKind& kind;
  std::string bytes;
};

/// The first byte of the input is the kind. If it is even, the rest is the file, byte by byte; if
/// it is odd, each text field is its length and its contents, so that a few bytes make a file of
/// many items. `Count` is reduced to what can be handled quickly, which may still be more than the
/// file holds.
CollectionInput collectionOf(Input input);

/// The complete items in a collection's file, at most `count`.
std::vector<std::string> wholeItems(const std::string& bytes, std::size_t recordLength, int count);

}  // namespace quillbox::fuzz
