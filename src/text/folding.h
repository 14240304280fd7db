#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Texts (Windows-1252) as they are looked for and compared when capitals and accents are put
/// aside.
namespace quillbox {

/// `text` in small letters without accents: É gives e, ø o, æ "ae", œ "oe", ß "ss", þ "th", ð d.
/// Typographic quotes, dashes and blanks become the plain ones, "…" three points, control
/// characters blanks. Every other character stays. At most kMostFolded characters for each one.
std::string folded(std::string_view text);
void appendFolded(std::string& folded, std::string_view text);

inline constexpr std::size_t kMostFolded = 3;

/// The same, written to `out`, which must have room; returns its end.
char* foldInto(char* out, std::string_view text);

/// The words of a text: folded, in order, none twice and none that is part of another.
std::vector<std::string> foldedWords(std::string_view text);

/// A piece of a text.
struct TextRange {
  std::size_t start;
  std::size_t length;

  friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// Where any of the words (folded) occurs in `text`: bytes of `text` itself, in order, those that
/// touch or overlap in one.
std::vector<TextRange> wordRanges(std::string_view text, const std::vector<std::string>& words);

/// A key that is compared byte by byte with those of other texts: numbers by their value ("Vol. 2"
/// before "Vol. 10"), capitals aside, accents only where nothing else differs. Texts that are the
/// same but for capitals have the same key.
std::string naturalKey(std::string_view text);

}  // namespace quillbox
