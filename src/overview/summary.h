#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/kinds.h"
#include "records/record_texts.h"
#include "text/amount_sum.h"

namespace quillbox {

/// What the items of a kind are counted by.
struct Grouping {
  enum class By {
    entry,   ///< the word of a choice
    text,    ///< capitals and accents aside
    year,    ///< of a date, also one that is typed freely
    ending,  ///< of a file's name, in capitals: "JPG"
  };
  std::string_view name;  ///< "Media Type"; of years "Year of Acquisition"
  const Field* field;
  By by;
};

/// The groupings of a kind.
std::span<const Grouping> groupingsOf(const CollectionKind& kind);

/// What a kind's items cost and are worth now; nullptr in kinds that have no prices.
struct PriceFields {
  const Field* cost = nullptr;
  const Field* worth = nullptr;
};
PriceFields priceFieldsOf(const CollectionKind& kind);

/// The price in ten-thousandths, of whole ones too.
std::int64_t priceOf(const Field& field, std::span<const std::byte> record);

/// Items, and what they come to.
struct Totals {
  int items = 0;
  AmountSum cost;
  AmountSum worth;
};

/// Items that have the same value in a grouping.
struct Bar {
  std::string label;  ///< Windows-1252, as it was seen first; "(none)" for no value
  std::string value;  ///< what `valueOf` says of each of them; empty for no value
  Totals totals;
  std::vector<int> items;  ///< in rising order: what ItemFilter::setOnly wants
};

/// One grouping: years in order, all else with most items first and, of as many, in natural order;
/// those without a value last.
struct BarGroup {
  const Grouping* grouping;
  std::vector<Bar> bars;
};

struct SummaryFigures {
  Totals totals;  ///< without the deleted items
  int deleted = 0;
  std::vector<BarGroup> groups;  ///< in the order of `groupingsOf`
};

/// How many, what they cost, what they are worth: of all items and by each grouping. Deleted items
/// are counted apart and no more.
class Summary {
 public:
  Summary(const CollectionKind& kind, RecordTexts texts);

  /// Takes an item, again if it was taken before.
  void take(int item, std::span<const std::byte> record);

  /// There are only so many items now.
  void cutTo(int count);

  SummaryFigures figures() const;

  /// The value of an item in a grouping: a bar's filter is that the item has the bar's.
  std::string valueOf(const Grouping& grouping, std::span<const std::byte> record) const;

 private:
  static constexpr std::size_t kMostGroupings = 4;

  struct Taken {
    bool isThere = false;
    bool isDeleted = false;
    std::int64_t cost = 0;
    std::int64_t worth = 0;
    std::array<std::uint32_t, kMostGroupings> values{};  // in values_
  };

  /// The values of a grouping that were seen, by their number.
  struct Values {
    std::map<std::string, std::uint32_t> numbers;
    std::vector<std::string> labels;  // as they were seen first
  };

  std::string labelOf(const Grouping& grouping, std::span<const std::byte> record) const;
  BarGroup barsOf(std::size_t at) const;

  const CollectionKind& kind_;
  RecordTexts texts_;
  std::vector<Values> values_;  // of each grouping
  std::vector<Taken> taken_;
};

}  // namespace quillbox
