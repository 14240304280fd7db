#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/checked16.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "records/field.h"
#include "records/field_types.h"
#include "records/kinds.h"

namespace quillbox::test {

using Lines = std::vector<std::string>;

inline const std::string kSeparator = "     " + std::string(70, '-');
inline const std::string kSongList = std::string(35, ' ') + "Song List";
inline const std::string kLoaned = std::string(31, ' ') + "Currently Loaned!";

/// The entry of the built-in list.
inline std::string choiceOf(const Field& field, int index) {
  const bool isEntry = index >= 0 && index < static_cast<int>(field.choices.size());
  return isEntry ? std::string(field.choices[static_cast<std::size_t>(index)]) : std::string();
}

/// A blank item of a kind, whose fields are set by name, and its listing.
class ListedItem {
 public:
  explicit ListedItem(std::string_view extension)
      : kind_(*kindOfExtension(extension)), bytes_(kind_.recordLength) {
    fillBlank(kind_.fields, bytes_);
  }

  ListedItem& text(std::string_view name, std::string_view value, std::size_t slot = 1) {
    setText(field(name), bytes_, value, slot - 1);
    return *this;
  }
  ListedItem& first(std::string_view value) { return text(kind_.fields.front().name, value); }
  ListedItem& whole(std::string_view name, int value) {
    setWhole(field(name), bytes_, checked16(value));
    return *this;
  }
  ListedItem& money(std::string_view name, std::int64_t tenThousandths) {
    setMoney(field(name), bytes_, tenThousandths);
    return *this;
  }
  ListedItem& real(std::string_view name, double value) {
    setReal(field(name), bytes_, value);
    return *this;
  }

  /// The lines of its block as item `item` of `count`.
  Lines block(int item = 1, int count = 1, const ListingTexts& texts = {choiceOf, "M/d/yy"}) const {
    PrintLines lines;
    const std::int16_t made = Listing(kind_, texts).block(bytes_, item, count, lines);
    return {lines.begin() + 1, lines.begin() + 1 + made};
  }

  /// The text after a label, of which there must be one.
  std::string value(std::string_view label,
                    const ListingTexts& texts = {choiceOf, "M/d/yy"}) const {
    std::string start(label);
    start.resize(18, ' ');
    start += ": ";
    const Lines lines = block(1, 1, texts);
    EXPECT_EQ(std::ranges::count_if(lines, [&](auto& line) { return line.starts_with(start); }), 1)
        << label;
    const auto line = std::ranges::find_if(lines, [&](auto& l) { return l.starts_with(start); });
    return line == lines.end() ? "none" : line->substr(start.size());
  }

 private:
  const Field& field(std::string_view name) const {
    for (const Field& field : kind_.fields)
      if (field.name == name) return field;
    throw std::out_of_range("no field " + std::string(name));
  }

  const CollectionKind& kind_;
  std::vector<std::byte> bytes_;
};

}  // namespace quillbox::test
