#pragma once

#include <filesystem>
#include <string>

#include "steps.h"

namespace quillbox::bench {

struct ListingFigures {
  Pair listing;          ///< milliseconds, to a text file
  Pair exporting;        ///< milliseconds
  double listedMib = 0;  ///< MiB of text
  double exportedMib = 0;
  double listingMemory = 0;  ///< MiB at the peak, above what the process has anyway
  double exportMemory = 0;
};

/// Lists a full music collection to a text file, and exports it. The peer of each writes the same
/// bytes straight to a file.
ListingFigures timeListings(const std::filesystem::path& workFolder, const std::string& collection);

}  // namespace quillbox::bench
