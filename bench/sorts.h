#pragma once

#include <filesystem>
#include <vector>

#include "steps.h"

namespace quillbox::bench {

/// A sort of a music collection by all five keys.
struct SortFigures {
  int items = 0;
  Pair exchange;           ///< milliseconds; the peer exchanges whole records, in memory alone
  bool estimated = false;  ///< the peer ran some repetitions of each key and was reckoned up
  double database = 0;     ///< milliseconds of the same order asked from a database table
  double memory = 0;       ///< MiB at the peak, above what the process has anyway
  double fileSize = 0;     ///< MiB
};

/// Sorts collections of growing size, from 500 items to the most there can be.
std::vector<SortFigures> timeSorts(const std::filesystem::path& workFolder);

}  // namespace quillbox::bench
