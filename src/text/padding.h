#pragma once

#include <string_view>

/// The padding of fixed-width texts: blanks at the end, or NULs where nothing was ever written.
namespace quillbox {

/// `text` without the blanks at its end.
std::string_view withoutTrailingBlanks(std::string_view text);

/// `text` without the blanks at either end.
std::string_view withoutBlanksAround(std::string_view text);

/// `text` up to its first NUL: what a control shows.
std::string_view upToNul(std::string_view text);

/// `text` as a list or an export has it: up to its first NUL, without blanks at the end.
inline std::string_view readable(std::string_view text) {
  return withoutTrailingBlanks(upToNul(text));
}

/// True when nothing was ever written into the text: it begins with a NUL.
inline bool isUnwritten(std::string_view text) { return text.starts_with('\0'); }

}  // namespace quillbox
