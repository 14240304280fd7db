#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Adds a text (UTF-8) as a JSON string. Characters that HTML gives a meaning to stay as they are.
void appendJsonString(std::string& json, std::string_view text);

}  // namespace quillbox
