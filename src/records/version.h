#pragma once

#include <string>
#include <string_view>

#include "text/padding.h"

namespace quillbox {

/// The program's version as it appears inside a line ("Quillbox V1.71   - Music Collection") and,
/// padded to 8, in every header the program writes.
inline constexpr std::string_view kVersionText = "1.71  ";

/// At the end of a line on screen its blanks are omitted: `text` followed by the version.
inline std::string endingWithVersion(std::string_view text) {
  return std::string(text).append(withoutTrailingBlanks(kVersionText));
}

}  // namespace quillbox
