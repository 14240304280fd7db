#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// True of a text that is its own JSON string, but for the quotes: of ASCII, nothing escaped.
bool isPlainJson(std::string_view text);

/// Adds a text (UTF-8) as a JSON string. Characters that HTML gives a meaning to stay as they are.
void appendJsonString(std::string& json, std::string_view text);

}  // namespace quillbox
