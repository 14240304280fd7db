#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Adds a text (UTF-8) so that a page shows it as it is, in an element or in a quoted attribute.
/// Control characters, which a page cannot hold, become blanks but for line ends.
void appendHtml(std::string& html, std::string_view text);

}  // namespace quillbox
