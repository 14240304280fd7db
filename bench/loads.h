#pragma once

#include <filesystem>

#include "steps.h"

namespace quillbox::bench {

inline constexpr int kFilesToLoad = 20'000;
inline constexpr int kItemsBefore = 10'000;

struct LoadFigures {
  Pair time;          ///< milliseconds
  double memory = 0;  ///< MiB at the peak of loading, on top of the process itself
};

/// Loads a folder of `files` files into a catalogue of `itemsBefore`. The peer lists the folder and
/// appends the same bytes to a file, a record at a time.
LoadFigures timeLoads(const std::filesystem::path& workFolder, int files, int itemsBefore);

}  // namespace quillbox::bench
