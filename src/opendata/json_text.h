#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Adds a text (UTF-8) as a JSON string. Characters with a meaning in HTML are not escaped.
void appendJsonString(std::string& json, std::string_view text);
std::string jsonString(std::string_view text);

/// Writes a stored, padded text as a JSON string, to a buffer with room for its width and two
/// quotes. Returns the end of the string; nullptr for a text that needs more care: with anything
/// beyond ASCII, or anything that JSON escapes.
char* writePlainJsonString(char* to, std::string_view stored);

}  // namespace quillbox
