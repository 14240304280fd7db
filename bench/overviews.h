#pragma once

#include <filesystem>
#include <string>

#include "collections.h"
#include "steps.h"

namespace quillbox::bench {

/// Work on all items of a full music collection, in milliseconds unless noted, compared with a
/// database of the same rows.
struct OverviewFigures {
  Pair open;                ///< reading all items, beside filling a full-text table
  double longestPiece = 0;  ///< ms, of that reading, in pieces as the panel reads them
  double memory = 0;        ///< MiB, of the texts and everything besides
  double texts = 0;         ///< MiB
  Pair firstKey;            ///< a letter, beside words that begin with it
  Pair rareWord;            ///< a word of one album, searched for in all items
  Pair missingWord;         ///< a word of none, made of frequent letters
  Pair order;               ///< by the artist, read from the file
};

OverviewFigures timeOverviews(const std::filesystem::path& workFolder, const Sized& collection);

/// The milliseconds of reading all items, beside reading the file once and no more.
Pair timeReadingAll(const Sized& collection);

}  // namespace quillbox::bench
