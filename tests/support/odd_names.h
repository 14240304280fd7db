#pragma once

#include <string>
#include <vector>

namespace quillbox::test {

/// File names up to their ending that a caption could take for markup, keys or its own marks.
inline const std::vector<std::string> kOddNames = {
    "R&B.",   "Björk.",
#ifndef _WIN32  // where no name has such characters
    "a[*]b.", "[*][*].", "<b>bold<b>.",
#endif
};

}  // namespace quillbox::test
