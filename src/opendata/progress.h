#pragma once

#include <functional>

namespace quillbox {

/// Receives the progress of work on items; a total of 0 is work of unknown length. It is called
/// after every item, and shows only what the eye can follow. Empty when nothing is to be shown.
using Progress = std::function<void(int done, int total)>;

}  // namespace quillbox
