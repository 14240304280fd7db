#include "text/windows1252.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quillbox {
namespace {

/// The characters of bytes 80 to 9F; every other byte is the character of its number.
constexpr std::array<char32_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char32_t kHighFirst = 0x80;
constexpr char32_t kHighLast = 0x9F;
constexpr char32_t kByteLast = 0xFF;

consteval std::array<char, 256> capitals() {
  constexpr unsigned toCapital = 0x20;  // from a small letter to its capital
  constexpr unsigned division = 0xF7;   // a sign among the small letters
  std::array<char, 256> table{};
  for (unsigned code = 0; code < table.size(); ++code) {
    const bool small = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE);
    table[code] = static_cast<char>(small && code != division ? code - toCapital : code);
  }
  table[0x9A] = static_cast<char>(0x8A);  // s with caron
  table[0x9C] = static_cast<char>(0x8C);  // oe
  table[0x9E] = static_cast<char>(0x8E);  // z with caron
  table[0xFF] = static_cast<char>(0x9F);  // y with diaeresis
  return table;
}
constexpr std::array<char, 256> kCapitals = capitals();

char32_t characterOf(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= kHighFirst && code <= kHighLast ? kHigh.at(code - kHighFirst) : code;
}

char byteOf(char32_t character) {
  if (character < kHighFirst || (character > kHighLast && character <= kByteLast))
    return static_cast<char>(character);
  const auto* const found = std::find(kHigh.begin(), kHigh.end(), character);
  if (found == kHigh.end()) return '?';
  return static_cast<char>(static_cast<char32_t>(found - kHigh.begin()) + kHighFirst);
}

void appendUtf8(std::string& text, char32_t c) {
  const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6U));
    put(0x80 | (c & 0x3FU));
  } else {  // no character in the table is outside the first plane
    put(0xE0 | (c >> 12U));
    put(0x80 | ((c >> 6U) & 0x3FU));
    put(0x80 | (c & 0x3FU));
  }
}

/// Takes one character off the front of `text`. Where the front is not well-formed, takes one byte
/// and returns nothing.
std::optional<char32_t> takeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0x80) return first;
  const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  constexpr std::array<char32_t, 4> smallest = {0, 0x80, 0x800, 0x10000};
  if (first < 0xC2 || first > 0xF4 || text.size() < more) return std::nullopt;
  char32_t c = first & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) return std::nullopt;
    c = (c << 6U) | (byte & 0x3FU);
  }
  const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
  if (c < smallest.at(more) || c > 0x10FFFF || surrogate) return std::nullopt;
  text.remove_prefix(more);
  return c;
}

}  // namespace

char capitalOf(char character) { return kCapitals[static_cast<unsigned char>(character)]; }

std::string inCapitals(std::string_view text) {
  std::string capitals(text);
  std::ranges::transform(capitals, capitals.begin(), capitalOf);
  return capitals;
}

std::string toUtf8(std::string_view windows1252) {
  std::string text;
  text.reserve(windows1252.size());
  for (const char byte : windows1252) appendUtf8(text, characterOf(byte));
  return text;
}

std::string fromUtf8(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto character = takeCharacter(utf8);
    text += character ? byteOf(*character) : '?';
  }
  return text;
}

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty())
    if (!takeCharacter(bytes)) return false;
  return true;
}

}  // namespace quillbox
