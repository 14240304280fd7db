#pragma once

#include <functional>

namespace quillbox::bench {

inline constexpr double kBytesPerMib = 1024.0 * 1024.0;

/// The duration of the work.
double milliseconds(const std::function<void()>& work);

/// The peak memory, in MiB, of a process that does only this work.
double peakMib(const std::function<void()>& work);

}  // namespace quillbox::bench
