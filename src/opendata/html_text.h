#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Adds a text (UTF-8) so that a page shows it unchanged, in an element or in a quoted attribute.
/// Control characters other than line ends, which a page cannot hold, become blanks.
void appendHtml(std::string& html, std::string_view text);

}  // namespace quillbox
