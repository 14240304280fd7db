#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "steps.h"

namespace quillbox::bench {

struct ItemFigures {
  Pair open;   ///< microseconds, the header and the first item
  Pair write;  ///< microseconds, an item in place and its header
};

/// Opens a music collection and writes an item, compared with bare system calls that read and write
/// the same bytes.
ItemFigures timeItems(const std::string& collection);

/// A kind's export compared with reading the collection and writing the same text with bare system
/// calls, in milliseconds.
struct ExportFigures {
  std::string kind;
  Pair time;
};

/// Exports full collections of the other kinds that have a list.
std::vector<ExportFigures> timeExports(const std::filesystem::path& workFolder);

}  // namespace quillbox::bench
