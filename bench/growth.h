#pragma once

#include <array>
#include <filesystem>
#include <vector>

#include "collections.h"
#include "steps.h"

namespace quillbox::bench {

/// Items of a music collection, or files of a folder that is loaded.
inline constexpr std::array kGrowthSizes = {500, 2'000, 8'000, kItems};

/// How the time of a case grows with the collection.
struct Growth {
  const char* name;
  std::vector<Pair> pairs;  ///< milliseconds, for each of kGrowthSizes
};

/// Times every case whose time grows with the collection, but for sorting.
std::vector<Growth> timeGrowth(const std::filesystem::path& workFolder);

}  // namespace quillbox::bench
