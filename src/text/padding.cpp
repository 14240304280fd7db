#include "text/padding.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillbox {

std::string_view withoutTrailingBlanks(std::string_view text) {
  // A word at a time, because much of every record and page is padding.
  using Word = std::uint64_t;
  constexpr Word blanks = 0x2020'2020'2020'2020;
  constexpr int bitsOfCharacter = 8;
  constexpr bool lastIsHigh = std::endian::native == std::endian::little;
  while (text.size() >= sizeof(Word)) {
    Word end;
    std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
    const Word others = end ^ blanks;
    if (others != 0) {
      const int bits = lastIsHigh ? std::countl_zero(others) : std::countr_zero(others);
      return text.substr(0, text.size() - static_cast<std::size_t>(bits / bitsOfCharacter));
    }
    text.remove_suffix(sizeof end);
  }
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view withoutBlanksAround(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view()
                                         : withoutTrailingBlanks(text.substr(first));
}

std::string_view upToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace quillbox
