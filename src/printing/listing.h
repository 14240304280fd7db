#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "printing/print_engine.h"
#include "records/kinds.h"
#include "records/record_texts.h"

namespace quillbox {

using ListingTexts = RecordTexts;

struct ListingRules;

/// How the items of a kind are listed: one block of lines for each.
class Listing {
 public:
  Listing(const CollectionKind& kind, ListingTexts texts);

  /// The heading of every page, before the page number.
  std::string pageHeading() const;

  /// The first line of a text file; nothing for a media-file code without one. The code is 0 for
  /// other kinds.
  std::optional<std::string> fileHeading(int mediaCode) const;

  /// Writes the block of item `item` of `count` to lines 1 and following; returns the number of
  /// lines. An item with the deleted marker that the kind's listings know is one line.
  std::int16_t block(std::span<const std::byte> record, int item, int count,
                     PrintLines& lines) const;

 private:
  void addValue(std::string& line, const Field& field, std::span<const std::byte> record) const;

  const ListingRules& rules_;
  const CollectionKind& kind_;
  ListingTexts texts_;
  std::vector<std::string> starts_;       // of the lines, up to their values
  std::vector<std::string> entryStarts_;  // of the lines of a group
};

/// Begins a printout, passes the engine a block for each item of the open collection and returns
/// the number of pages. An item that cannot be read is blank; other failures are ignored.
std::int16_t composePages(OpenFiles& files, const OpenCollection& collection,
                          const CollectionKind& kind, const Listing& listing, std::int16_t mode,
                          PrintEngine& engine, Board& board);

}  // namespace quillbox
