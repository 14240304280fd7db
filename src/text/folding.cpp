#include "text/folding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "platform/ascii.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// What a character is folded to.
struct Folding {
  std::array<char, kMostFolded> characters{};
  std::uint8_t count = 0;
};

/// A run of characters, and the character that each of them is folded to.
struct FoldedRun {
  std::string_view from;
  char to;
};

/// Letters of Windows-1252 with accents, capital and small.
constexpr FoldedRun kRuns[] = {
    {"\xC0\xC1\xC2\xC3\xC4\xC5\xE0\xE1\xE2\xE3\xE4\xE5\xAA", 'a'},
    {"\xC7\xE7", 'c'},
    {"\xD0\xF0", 'd'},
    {"\xC8\xC9\xCA\xCB\xE8\xE9\xEA\xEB", 'e'},
    {"\x83", 'f'},
    {"\xCC\xCD\xCE\xCF\xEC\xED\xEE\xEF", 'i'},
    {"\xD1\xF1", 'n'},
    {"\xD2\xD3\xD4\xD5\xD6\xD8\xF2\xF3\xF4\xF5\xF6\xF8\xBA", 'o'},
    {"\x8A\x9A", 's'},
    {"\xD9\xDA\xDB\xDC\xF9\xFA\xFB\xFC", 'u'},
    {"\x9F\xDD\xFD\xFF", 'y'},
    {"\x8E\x9E", 'z'},
    {"\xB9", '1'},
    {"\xB2", '2'},
    {"\xB3", '3'},
    {"\x82\x91\x92\x8B\x9B\xB4", '\''},
    {"\x84\x93\x94\xAB\xBB", '"'},
    {"\x96\x97\xAD", '-'},
    {"\xA0\x7F", ' '},
};

/// Characters that are folded to more than one.
struct FoldedToSeveral {
  char from;
  std::string_view to;
};
constexpr FoldedToSeveral kSeveral[] = {
    {'\xC6', "ae"}, {'\xE6', "ae"}, {'\x8C', "oe"}, {'\x9C', "oe"},  {'\xDF', "ss"},
    {'\xDE', "th"}, {'\xFE', "th"}, {'\x99', "tm"}, {'\x85', "..."},
};

consteval Folding foldingTo(std::string_view characters) {
  Folding folding;
  std::copy(characters.begin(), characters.end(), folding.characters.begin());
  folding.count = static_cast<std::uint8_t>(characters.size());
  return folding;
}

consteval std::array<Folding, 256> foldings() {
  std::array<Folding, 256> table{};
  for (unsigned code = 0; code < table.size(); ++code) {
    const char c = static_cast<char>(code);
    const bool isCapital = c >= 'A' && c <= 'Z';
    const char plain = code < ' ' ? ' ' : isCapital ? static_cast<char>(c - 'A' + 'a') : c;
    table[code] = foldingTo({&plain, 1});
  }
  for (const FoldedRun& run : kRuns)
    for (const char from : run.from)
      table[static_cast<unsigned char>(from)] = foldingTo({&run.to, 1});
  for (const FoldedToSeveral& several : kSeveral)
    table[static_cast<unsigned char>(several.from)] = foldingTo(several.to);
  return table;
}
constexpr std::array<Folding, 256> kFoldings = foldings();

const Folding& foldingOf(char c) { return kFoldings[static_cast<unsigned char>(c)]; }

/// The folded text and, for each of its characters, the place in `text` that it comes from.
struct PlacedFolding {
  explicit PlacedFolding(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
      appendFolded(folded, text.substr(at, 1));
      places.resize(folded.size(), at);
    }
  }

  std::string folded;
  std::vector<std::size_t> places;
};

/// Sorts ranges and joins those that touch.
std::vector<TextRange> joined(std::vector<TextRange> ranges) {
  std::ranges::sort(ranges, {}, &TextRange::start);
  std::vector<TextRange> all;
  for (const TextRange& range : ranges) {
    if (all.empty() || all.back().start + all.back().length < range.start) {
      all.push_back(range);
      continue;
    }
    TextRange& last = all.back();
    last.length = std::max(last.length, range.start + range.length - last.start);
  }
  return all;
}

/// The key of a number: how many digits it has, then the digits.
void appendNumberKey(std::string& key, std::string_view digits) {
  constexpr std::size_t base = 255;
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  key += '0';  // the place of digits among other characters
  key += static_cast<char>(digits.size() / base + 1);
  key += static_cast<char>(digits.size() % base + 1);
  key += digits;
}

}  // namespace

char* foldInto(char* out, std::string_view text) {
  for (const char c : text) {
    const Folding& folding = foldingOf(c);
    *out++ = folding.characters[0];
    for (std::size_t more = 1; more < folding.count; ++more) *out++ = folding.characters[more];
  }
  return out;
}

void appendFolded(std::string& folded, std::string_view text) {
  const std::size_t before = folded.size();
  folded.resize(before + kMostFolded * text.size());
  const char* const end = foldInto(folded.data() + before, text);
  folded.resize(static_cast<std::size_t>(end - folded.data()));
}

std::string folded(std::string_view text) {
  std::string folded;
  appendFolded(folded, text);
  return folded;
}

std::vector<std::string> foldedWords(std::string_view text) {
  const std::string all = folded(text);
  std::vector<std::string> words;
  for (std::string_view left = all; !left.empty();) {
    const std::size_t length = std::min(left.find(' '), left.size());
    if (length > 0) words.emplace_back(left.substr(0, length));
    left.remove_prefix(std::min(length + 1, left.size()));
  }
  std::vector<std::string> needed;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const auto isSaidBy = [&](std::size_t other) {
      const bool isPart = words[other].find(words[at]) != std::string::npos;
      return other != at && isPart && (words[other] != words[at] || other < at);
    };
    bool isSaid = false;
    for (std::size_t other = 0; other < words.size(); ++other) isSaid = isSaid || isSaidBy(other);
    if (!isSaid) needed.push_back(words[at]);
  }
  return needed;
}

std::vector<TextRange> wordRanges(std::string_view text, const std::vector<std::string>& words) {
  if (words.empty()) return {};
  const PlacedFolding placed(text);
  std::vector<TextRange> ranges;
  for (const std::string& word : words) {
    for (std::size_t at = placed.folded.find(word); at != std::string::npos;
         at = placed.folded.find(word, at + 1)) {
      const std::size_t first = placed.places[at];
      const std::size_t last = placed.places[at + word.size() - 1];
      ranges.push_back({first, last - first + 1});
    }
  }
  return joined(std::move(ranges));
}

std::string naturalKey(std::string_view text) {
  const std::string all = folded(text);
  std::string key;
  for (std::string_view left = all; !left.empty();) {
    std::size_t digits = 0;
    while (digits < left.size() && isDigit(left[digits])) ++digits;
    if (digits > 0)
      appendNumberKey(key, left.substr(0, digits));
    else
      key += left.front();
    left.remove_prefix(std::max<std::size_t>(digits, 1));
  }
  // Less than anything in a key, so that a text precedes those that begin with it.
  key += '\0';
  return key.append(inCapitals(text));
}

}  // namespace quillbox
