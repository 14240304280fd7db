#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "collections.h"
#include "steps.h"

namespace quillbox::bench {

struct ListingFigures {
  Pair listing;          ///< milliseconds, to a text file
  Pair exporting;        ///< milliseconds
  double listedMib = 0;  ///< MiB of text
  double exportedMib = 0;
  double listingMemory = 0;  ///< MiB at the peak, on top of the process itself
  double exportMemory = 0;
};

/// The milliseconds of work that creates the file `path`, and of writing the same bytes directly
/// after `before`.
Pair timeBesideWriting(
    const std::function<void()>& work, const std::string& path,
    const std::function<void()>& before = [] {});

inline constexpr int kItemsOnPaper = 2'000;

/// The milliseconds of printing kItemsOnPaper items of a music collection as a PDF document, and of
/// drawing the same lines directly, by the program bench_print_pdf in the folder `programs`.
Pair timePdf(const std::filesystem::path& programs, const std::filesystem::path& workFolder,
             const std::string& collection);

/// Lists a full music collection to a text file, and exports it. Each peer writes the same bytes
/// directly to a file.
ListingFigures timeListings(const std::filesystem::path& workFolder, const Sized& collection);

/// The times of these alone.
Pair timeListing(const std::filesystem::path& workFolder, const Sized& collection);
Pair timeExport(const std::filesystem::path& workFolder, const Sized& collection);

}  // namespace quillbox::bench
