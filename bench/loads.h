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

/// Loads a folder of kFilesToLoad files into a catalogue of kItemsBefore. The peer lists the folder
/// and appends the same bytes to a file, a record at a time.
LoadFigures timeLoads(const std::filesystem::path& workFolder);

}  // namespace quillbox::bench
