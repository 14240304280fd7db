#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Searching and comparing texts (Windows-1252) without regard to case and accents.
namespace quillbox {

/// `text` in small letters without accents: É becomes e, ø o, æ "ae", œ "oe", ß "ss", þ "th", ð d.
/// Typographic quotes, dashes and blanks become plain ones, "…" three points, control characters
/// blanks. Every other character stays. Each becomes at most kMostFolded characters.
std::string folded(std::string_view text);
void appendFolded(std::string& folded, std::string_view text);

inline constexpr std::size_t kMostFolded = 3;

/// The same, written to `out`, which must have room; returns its end.
char* foldInto(char* out, std::string_view text);

/// The words of a text: folded, in order, none repeated and none that is part of another.
std::vector<std::string> foldedWords(std::string_view text);

/// A piece of a text.
struct TextRange {
  std::size_t start;
  std::size_t length;

  friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// Where any of the words (folded) occurs in `text`: bytes of `text` itself, in order; those that
/// touch or overlap are joined.
std::vector<TextRange> wordRanges(std::string_view text, const std::vector<std::string>& words);

/// A sort key, compared byte by byte: numbers by value ("Vol. 2" before "Vol. 10"), case ignored,
/// accents only where nothing else differs. Texts that differ only in case have the same key.
std::string naturalKey(std::string_view text);

}  // namespace quillbox
