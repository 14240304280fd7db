#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Adds a text (UTF-8) as a JSON string. Characters that HTML gives a meaning to stay as they are.
void appendJsonString(std::string& json, std::string_view text);
std::string jsonString(std::string_view text);

/// Writes a stored text, padding and all, as a JSON string, to a place that has room for its width
/// and two quotes. Returns the end of the string; nullptr for a text that asks for more care: for
/// anything beyond ASCII, and what JSON escapes.
char* writePlainJsonString(char* to, std::string_view stored);

}  // namespace quillbox
