#pragma once

#include <functional>

namespace quillbox::bench {

/// How long the work takes.
double milliseconds(const std::function<void()>& work);

/// The most memory, in MiB, that a process holds that does the work and nothing else.
double peakMib(const std::function<void()>& work);

}  // namespace quillbox::bench
