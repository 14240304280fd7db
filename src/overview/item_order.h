#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "overview/columns.h"

namespace quillbox {

enum class Direction { up, down };

/// The order of all items by a column. It is given the items, by an ItemReading or one by one, and
/// keeps a key for each; it never touches the file.
class ItemOrder {
 public:
  ItemOrder(const Column& column, RecordTexts texts);

  const Column& column() const { return column_; }

  /// Adds an item, or replaces it. Every item must have been added before `order` is called, in any
  /// order.
  void take(int item, std::span<const std::byte> record);

  /// Keeps only the items up to `count`.
  void cutTo(int count);

  /// The items in order: numbers and dates by value, texts in natural order, a text in a date
  /// column after every date. Equal items keep their order in both directions. Items without a
  /// value are last in both directions.
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
