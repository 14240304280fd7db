#include "overview/item_order.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>
#include <utility>

#include "text/date_text.h"
#include "text/folding.h"

namespace quillbox {
namespace {

/// Maps numbers to whole numbers in the same order.
std::int64_t ordered(double number) {
  const auto bits = std::bit_cast<std::int64_t>(number + 0.0);  // makes 0 unsigned
  return bits < 0 ? bits ^ INT64_MAX : bits;
}

}  // namespace

ItemOrder::ItemOrder(const Column& column, RecordTexts texts)
    : column_(column), texts_(std::move(texts)) {}

void ItemOrder::take(int item, std::span<const std::byte> record) {
  const auto at = static_cast<std::size_t>(item - 1);
  if (at >= keys_.size()) keys_.resize(at + 1);
  keys_[at] = keyOf(record);
}

void ItemOrder::cutTo(int count) {
  keys_.resize(std::min(keys_.size(), static_cast<std::size_t>(std::max(count, 0))));
}

ItemOrder::Key ItemOrder::textKey(std::span<const std::byte> record, Rank rank) const {
  const std::string text = columnText(column_, record, texts_);
  if (text.empty()) return {};
  return {rank, 0, naturalKey(text)};
}

ItemOrder::Key ItemOrder::keyOf(std::span<const std::byte> record) const {
  const Field& field = *column_.field;
  if (column_.kind == ColumnKind::list) return {Rank::value, filledEntries(field, record), {}};
  switch (field.type) {
    case FieldType::text: {
      if (column_.kind != ColumnKind::date) return textKey(record, Rank::value);
      const auto date = dateIn(columnText(column_, record, texts_), texts_.dateForm);
      return date ? Key{Rank::value, ordered(*date), {}} : textKey(record, Rank::text);
    }
    case FieldType::choice:
      return textKey(record, Rank::value);
    case FieldType::flag:
      return {Rank::value, wholeOf(field, record) != 0 ? 1 : 0, {}};
    case FieldType::whole:
      return {Rank::value, wholeOf(field, record), {}};
    case FieldType::money:
      return {Rank::value, moneyOf(field, record), {}};
    case FieldType::date:
    case FieldType::size:
      break;
  }
  const double number = realOf(field, record);
  const bool isNone = std::isnan(number) || columnText(column_, record, texts_).empty();
  return isNone ? Key{} : Key{Rank::value, ordered(number), {}};
}

std::vector<int> ItemOrder::order(Direction direction) const {
  std::vector<int> items(keys_.size());
  std::iota(items.begin(), items.end(), 1);
  const auto keyOfItem = [&](int item) -> const Key& {
    return keys_[static_cast<std::size_t>(item - 1)];
  };
  const auto isBefore = [](const Key& a, const Key& b) {
    if (a.rank != b.rank) return a.rank < b.rank;
    if (a.value != b.value) return a.value < b.value;
    return a.text < b.text;
  };
  const auto nothing = std::stable_partition(
      items.begin(), items.end(), [&](int item) { return keyOfItem(item).rank != Rank::nothing; });
  std::stable_sort(items.begin(), nothing, [&](int a, int b) {
    return direction == Direction::up ? isBefore(keyOfItem(a), keyOfItem(b))
                                      : isBefore(keyOfItem(b), keyOfItem(a));
  });
  return items;
}

}  // namespace quillbox
