#pragma once

#include <functional>

namespace quillbox {

/// Hears how far work on the items of a collection is; a total of 0 is work of unknown length. It
/// is told after every item, and shows only what an eye can follow. Empty where nobody looks.
using Progress = std::function<void(int done, int total)>;

}  // namespace quillbox
