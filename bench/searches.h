#pragma once

#include <filesystem>
#include <string>

#include "steps.h"

namespace quillbox::bench {

struct SearchFigures {
  Pair miss;  ///< milliseconds
  Pair hit;   ///< milliseconds, for the last item but one
};

/// Searches a full music collection by all of its texts, opening it each time, compared with the
/// same condition on a database table of the same rows.
SearchFigures timeSearches(const std::filesystem::path& workFolder, const std::string& collection);

}  // namespace quillbox::bench
