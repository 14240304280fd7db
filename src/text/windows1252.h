#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Texts are Windows-1252 bytes everywhere in the core; these two are the only way to and from
/// UTF-8. The five bytes that the code page leaves open (81, 8D, 8F, 90, 9D hexadecimal) stand for
/// the control characters of the same number, so that every byte survives the way there and back.
std::string toUtf8(std::string_view windows1252);

/// A character that Windows-1252 cannot hold becomes "?", as does each byte that is no UTF-8.
std::string fromUtf8(std::string_view utf8);

/// The capital of a letter that has one in Windows-1252 (é gives É, ÿ gives Ÿ, ß stays); every
/// other character as it is.
char capitalOf(char character);

/// `text` with every letter as its capital.
std::string inCapitals(std::string_view text);

/// True when `bytes` is well-formed UTF-8.
bool isUtf8(std::string_view bytes);

}  // namespace quillbox
