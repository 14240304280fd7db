#pragma once

#include <filesystem>
#include <string>

#include "collections.h"
#include "steps.h"

namespace quillbox::bench {

struct SearchFigures {
  Pair miss;  ///< milliseconds
  Pair hit;   ///< milliseconds, for the last item but one
};

/// Searches a full music collection by all of its texts, opening it each time, beside the same
/// condition as a scan of a database table of the same rows.
SearchFigures timeSearches(const std::filesystem::path& workFolder, const Sized& collection);

/// The milliseconds of a search that finds nothing, beside reading the file once and no more.
Pair timeSearchBesideReading(const Sized& collection);

}  // namespace quillbox::bench
