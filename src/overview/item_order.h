#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "overview/columns.h"

namespace quillbox {

enum class Direction { up, down };

/// The order of all items by a column. It is handed the items, by an ItemReading or one by one, and
/// keeps a key of each; the file is never touched.
class ItemOrder {
 public:
  ItemOrder(const Column& column, RecordTexts texts);

  const Column& column() const { return column_; }

  /// Takes an item, again if it was taken before. Every item must be taken before `order` is
  /// called, in whatever order.
  void take(int item, std::span<const std::byte> record);

  /// There are only so many items now.
  void cutTo(int count);

  /// The items in order. Numbers and dates go by value and texts in natural order; a text where
  /// dates are is behind every date. Items that are the same keep their order, up and down. Items
  /// with nothing in the column are last, up and down.
  std::vector<int> order(Direction direction) const;

 private:
  enum class Rank : std::uint8_t { value, text, nothing };
  struct Key {
    Rank rank = Rank::nothing;
    std::int64_t value = 0;
    std::string text;
  };

  Key keyOf(std::span<const std::byte> record) const;
  Key textKey(std::span<const std::byte> record, Rank rank) const;

  const Column& column_;
  RecordTexts texts_;
  std::vector<Key> keys_;
};

}  // namespace quillbox
