#pragma once

#include <filesystem>
#include <string>

#include "collections.h"
#include "steps.h"

namespace quillbox::bench {

/// Looking at all items of a full music collection at once, in milliseconds where nothing else is
/// said, beside a database of the same rows.
struct OverviewFigures {
  Pair open;                ///< reading all items, beside filling a full-text table
  double longestPiece = 0;  ///< of that reading, in pieces that are to take 20 ms
  double memory = 0;        ///< MiB, of the texts and all beside them
  double texts = 0;         ///< MiB
  Pair firstKey;            ///< a letter, beside words that begin with it
  Pair rareWord;            ///< a word of one album, in nothing that was found before
  Pair missingWord;         ///< a word of none, of letters that are everywhere
  Pair order;               ///< by the artist, read from the file
};

OverviewFigures timeOverviews(const std::filesystem::path& workFolder, const Sized& collection);

/// The milliseconds of reading all items, beside reading the file once and no more.
Pair timeReadingAll(const Sized& collection);

}  // namespace quillbox::bench
