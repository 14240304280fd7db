#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Looks for characters of some sort, eight at a time: most texts hold none that needs care, and
/// every one of them is asked.
namespace quillbox::scan {

using Word = std::uint64_t;

inline constexpr Word kOnes = 0x0101'0101'0101'0101;
inline constexpr Word kHighs = 0x8080'8080'8080'8080;

/// Not 0 when any of the eight is that character.
constexpr Word anyIs(Word eight, char character) {
  const Word zeroWhereSame = eight ^ (kOnes * static_cast<unsigned char>(character));
  return (zeroWhereSame - kOnes) & ~zeroWhereSame & kHighs;
}

/// Not 0 when any of the eight is a control character below the blank.
constexpr Word anyIsControl(Word eight) { return (eight - kOnes * ' ') & ~eight & kHighs; }

/// Not 0 when any of the eight is beyond ASCII.
constexpr Word anyIsBeyondAscii(Word eight) { return eight & kHighs; }

/// Calls `look` with the characters of a text, eight at a time; the last ones are filled up with
/// zeros of the digit kind, which nobody looks for.
template <typename Look>
void eachEight(std::string_view text, const Look& look) {
  Word eight = 0;
  while (text.size() >= sizeof eight) {
    std::memcpy(&eight, text.data(), sizeof eight);
    look(eight);
    text.remove_prefix(sizeof eight);
  }
  if (text.empty()) return;
  eight = kOnes * '0';
  std::memcpy(&eight, text.data(), text.size());
  look(eight);
}

}  // namespace quillbox::scan
