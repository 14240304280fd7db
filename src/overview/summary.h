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
    text,    ///< ignoring case and accents
    year,    ///< of a date, even one that is typed freely
    ending,  ///< of a file name, in capitals: "JPG"
  };
  std::string_view name;  ///< "Media Type"; for years "Year of Acquisition"
  const Field* field;
  By by;
};

/// The groupings of a kind.
std::span<const Grouping> groupingsOf(const CollectionKind& kind);

/// The fields for what an item cost and what it is worth now; nullptr for kinds without prices.
struct PriceFields {
  const Field* cost = nullptr;
  const Field* worth = nullptr;
};
PriceFields priceFieldsOf(const CollectionKind& kind);

/// The price in ten-thousandths, even when it is stored in whole units.
std::int64_t priceOf(const Field& field, std::span<const std::byte> record);

/// A number of items, and their total prices.
struct Totals {
  int items = 0;
  AmountSum cost;
  AmountSum worth;
};

/// Items that have the same value in a grouping.
struct Bar {
  std::string label;  ///< Windows-1252, in its first spelling; "(none)" for no value
  std::string value;  ///< the result of `valueOf` for each of them; empty for no value
  Totals totals;
  std::vector<int> items;  ///< in rising order, for ItemFilter::setOnly
};

/// One grouping: years in order, everything else by number of items and then in natural order;
/// items without a value last.
struct BarGroup {
  const Grouping* grouping;
  std::vector<Bar> bars;
};

struct SummaryFigures {
  Totals totals;  ///< without the deleted items
  int deleted = 0;
  std::vector<BarGroup> groups;  ///< in the order of `groupingsOf`
};

/// How many items, what they cost and what they are worth: in total and by each grouping. Deleted
/// items are only counted, separately.
class Summary {
 public:
  Summary(const CollectionKind& kind, RecordTexts texts);

  /// Adds an item, or replaces it.
  void take(int item, std::span<const std::byte> record);

  /// Keeps only the items up to `count`.
  void cutTo(int count);

  SummaryFigures figures() const;

  /// The value of an item in a grouping: a bar shows the items with its value.
  std::string valueOf(const Grouping& grouping, std::span<const std::byte> record) const;

 private:
  static constexpr std::size_t kMostGroupings = 4;

  struct Taken {
    bool isThere = false;
    bool isDeleted = false;
    std::int64_t cost = 0;
    std::int64_t worth = 0;
    std::array<std::uint32_t, kMostGroupings> values{};  // indexes into values_
  };

  /// The values found in a grouping, by their number.
  struct Values {
    std::map<std::string, std::uint32_t> numbers;
    std::vector<std::string> labels;  // in their first spelling
  };

  std::string labelOf(const Grouping& grouping, std::span<const std::byte> record) const;
  BarGroup barsOf(std::size_t at) const;

  const CollectionKind& kind_;
  RecordTexts texts_;
  std::vector<Values> values_;  // for each grouping
  std::vector<Taken> taken_;
};

}  // namespace quillbox
