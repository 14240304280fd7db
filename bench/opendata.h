#pragma once

#include <filesystem>
#include <string>

#include "collections.h"
#include "steps.h"

namespace quillbox::bench {

struct OpenDataFigures {
  Pair csv;                 ///< milliseconds, beside writing the same bytes
  Pair json;                ///< milliseconds, in the same way
  Pair sqlite;              ///< milliseconds, beside inserting the same rows
  Pair import;              ///< milliseconds of a dry run, beside reading the text and the items
  double exportMemory = 0;  ///< MiB at the peak of a CSV export, on top of the process itself
  double importMemory = 0;  ///< of that dry run
  double csvMib = 0;        ///< MiB of text
};

/// Takes a full music collection out in each format, and in again.
OpenDataFigures timeOpenData(const std::filesystem::path& workFolder, const Sized& collection);

/// The times of these alone.
Pair timeCsv(const std::filesystem::path& workFolder, const Sized& collection);
Pair timeJson(const std::filesystem::path& workFolder, const Sized& collection);
Pair timeSqlite(const std::filesystem::path& workFolder, const Sized& collection);

/// The milliseconds of a dry run of an import of all fields, beside reading the text once and the
/// collection once.
Pair timeImport(const std::filesystem::path& workFolder, const Sized& collection);

}  // namespace quillbox::bench
