#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

/// Searches for classes of characters, sixteen at a time: most texts contain none that needs care,
/// but every text must be checked.
namespace quillbox::scan {

/// Sixteen characters, which the compiler handles as one value where the machine can.
using Block = unsigned char __attribute__((vector_size(16)));

/// Not 0 at the places of that character.
inline Block is(const Block& block, char character) {
  return Block(block == static_cast<unsigned char>(character));
}

/// Not 0 at the places of control characters below the blank.
inline Block isControl(const Block& block) { return Block(block < ' '); }

/// Not 0 at the places beyond ASCII.
inline Block isBeyondAscii(const Block& block) { return Block(block > 0x7F); }

/// Whether any place is not 0.
inline bool any(const Block& found) {
  std::uint64_t halves[2];
  std::memcpy(halves, &found, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

/// Calls `look` with the characters of a text, sixteen at a time. Some may be passed twice; a short
/// text is filled up with "0".
template <typename Look>
void eachBlock(std::string_view text, const Look& look) {
  Block block = Block{} + static_cast<unsigned char>('0');
  if (text.size() < sizeof block) {
    std::memcpy(&block, text.data(), text.size());
    return look(block);
  }
  const char* const last = text.data() + text.size() - sizeof block;
  for (const char* at = text.data(); at < last; at += sizeof block) {
    std::memcpy(&block, at, sizeof block);
    look(block);
  }
  std::memcpy(&block, last, sizeof block);
  look(block);
}

/// The same for a text before the padding of its field (`text` is where `padded` begins), copying
/// it to a buffer with room for all of `padded`. Some of the padding may be passed and copied as
/// well.
template <typename Look>
void copyBlocks(char* to, std::string_view text, std::string_view padded, const Look& look) {
  Block block = Block{} + static_cast<unsigned char>('0');
  if (padded.size() < sizeof block) {
    std::memcpy(&block, padded.data(), padded.size());
    std::memcpy(to, padded.data(), padded.size());
    return look(block);
  }
  const std::size_t last = padded.size() - sizeof block;
  for (std::size_t at = 0; at < text.size(); at += sizeof block) {
    const std::size_t place = at < last ? at : last;
    std::memcpy(&block, padded.data() + place, sizeof block);
    std::memcpy(to + place, &block, sizeof block);
    look(block);
  }
}

}  // namespace quillbox::scan
