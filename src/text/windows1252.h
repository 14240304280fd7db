#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Texts are Windows-1252 bytes everywhere in the core; only these two functions convert from and
/// to UTF-8. The five bytes that the code page leaves undefined (81, 8D, 8F, 90, 9D hexadecimal)
/// become the control characters of the same number, so every byte survives both ways.
std::string toUtf8(std::string_view windows1252);

/// A character that Windows-1252 lacks becomes "?", and so does each byte that is not UTF-8.
std::string fromUtf8(std::string_view utf8);

/// The capital of a letter that has one in Windows-1252 (é gives É, ÿ gives Ÿ, ß stays); any other
/// character unchanged.
char capitalOf(char character);

/// `text` in capitals.
std::string inCapitals(std::string_view text);

/// True when `bytes` is well-formed UTF-8.
bool isUtf8(std::string_view bytes);

}  // namespace quillbox
