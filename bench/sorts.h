#pragma once

#include <filesystem>
#include <vector>

#include "steps.h"

namespace quillbox::bench {

/// A sort of a music collection by all five keys.
struct SortFigures {
  int items = 0;
  Pair exchange;           ///< milliseconds; the peer exchanges whole records in memory
  bool estimated = false;  ///< the peer ran some passes of each key and was extrapolated
  double database = 0;     ///< milliseconds for the same order from a database table
  double memory = 0;       ///< MiB at the peak, on top of the process itself
  double fileSize = 0;     ///< MiB
};

/// Sorts collections of growing size, from 500 items to the maximum.
std::vector<SortFigures> timeSorts(const std::filesystem::path& workFolder);

}  // namespace quillbox::bench
