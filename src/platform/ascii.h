#pragma once

/// The letters and digits of ASCII, whatever the system's language. Paths, patterns and date forms
/// use no others.
namespace quillbox {

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isSmallLetter(char c) { return c >= 'a' && c <= 'z'; }

constexpr char asciiCapital(char c) {
  return isSmallLetter(c) ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool isLetter(char c) { return isSmallLetter(c) || (c >= 'A' && c <= 'Z'); }

}  // namespace quillbox
