#pragma once

#include <filesystem>
#include <string>

#include "steps.h"

namespace quillbox::bench {

struct OpenDataFigures {
  Pair csv;                 ///< milliseconds, beside writing the same bytes
  Pair json;                ///< milliseconds, in the same way
  Pair sqlite;              ///< milliseconds, beside inserting the same rows
  double rowsASecond = 0;   ///< of a dry run of an import
  double exportMemory = 0;  ///< MiB at the peak of a CSV export, on top of the process itself
  double importMemory = 0;  ///< of that dry run
  double csvMib = 0;        ///< MiB of text
};

/// Exports a full music collection in each format, and imports it again.
OpenDataFigures timeOpenData(const std::filesystem::path& workFolder,
                             const std::string& collection);

}  // namespace quillbox::bench
