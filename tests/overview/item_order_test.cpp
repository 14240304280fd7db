#include "overview/item_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "overview/item_reading.h"
#include "support/overview_model.h"

namespace quillbox::test {
namespace {

using Items = std::vector<int>;

Items ordered(const ModelKind& kind, const Column& column, const std::vector<std::string>& items,
              Direction direction) {
  OverviewCollection all(kind, items);
  ItemOrder order(column, overviewTexts());
  readAllItems(all.open, all.collection, kind.row(), static_cast<int>(items.size()),
               [&](int item, std::span<const std::byte> record) { order.take(item, record); });
  return order.order(direction);
}

/// The sort key of an item: a number, or a text, which follows all numbers.
struct ModelKey {
  bool isNothing = false;
  bool isText = false;
  long double number = 0;
  std::string text = {};
};

int compared(const ModelKey& a, const ModelKey& b) {
  if (a.isText != b.isText) return a.isText ? 1 : -1;
  if (a.isText) return modelCompared(a.text, b.text);
  return a.number < b.number ? -1 : a.number > b.number ? 1 : 0;
}

/// Exchanges neighbours in the wrong order, as often as needed.
Items modelOrder(const std::vector<ModelKey>& keys, Direction direction) {
  Items items(keys.size());
  std::iota(items.begin(), items.end(), 1);
  const auto standWrong = [&](int one, int next) {
    const ModelKey& a = keys[static_cast<std::size_t>(one - 1)];
    const ModelKey& b = keys[static_cast<std::size_t>(next - 1)];
    if (a.isNothing || b.isNothing) return a.isNothing && !b.isNothing;
    return direction == Direction::up ? compared(a, b) > 0 : compared(a, b) < 0;
  };
  for (bool exchanged = true; exchanged;) {
    exchanged = false;
    for (std::size_t at = 0; at + 1 < items.size(); ++at)
      if (standWrong(items[at], items[at + 1])) {
        std::swap(items[at], items[at + 1]);
        exchanged = true;
      }
  }
  return items;
}

class ItemOrderTest : public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }

  static ModelKey ofText(const std::string& text) { return {text.empty(), true, 0, text}; }

  ModelKey keyOf(const ModelInput& input, const std::string& item) const {
    const std::string shown = modelShown(kind(), input, item);
    const std::int64_t number = input.isText() ? 0 : numberAt(item, input.offset, input.width);
    if (input.searchedAsDate) {
      const auto date = dateIn(shown, kOverviewDates);
      return date ? ModelKey{.number = *date} : ofText(shown);
    }
    if (input.isText() || input.is == Is::choice) return ofText(shown);
    if (input.is == Is::date) {
      const double date = std::bit_cast<double>(number);
      return {.isNothing = shown.empty(), .number = shown.empty() ? 0 : date};
    }
    return {.number = input.is == Is::flag ? number != 0 : static_cast<long double>(number)};
  }
};
INSTANTIATE_TEST_SUITE_P(AllKinds, ItemOrderTest, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(ItemOrderTest, IsTheModelsByEveryInputUpAndDown) {
  const auto items = OverviewItems(kind()).items(40);
  for (const ModelInput& input : kind().inputs) {
    const auto columns = columnsOf(kind().row());
    const auto column = std::ranges::find_if(
        columns, [&](const Column& any) { return any.field->offset == input.offset; });
    std::vector<ModelKey> keys;
    for (const std::string& item : items) keys.push_back(keyOf(input, item));
    for (const Direction direction : {Direction::up, Direction::down})
      EXPECT_EQ(ordered(kind(), *column, items, direction), modelOrder(keys, direction))
          << input.name;
  }
}

TEST_P(ItemOrderTest, AListIsOrderedByItsFilledEntries) {
  if (kind().list.entries == 0) return;
  std::vector<std::string> items;
  for (const std::size_t filled : {3U, 0U, 5U, 3U, 1U}) {
    std::string item = familyItem(kind(), "");
    for (std::size_t entry = 0; entry < filled; ++entry)
      item[kind().list.offset + entry * 50] = 'x';
    items.push_back(item);
  }
  const Column& list = columnsOf(kind().row()).back();
  EXPECT_EQ(ordered(kind(), list, items, Direction::up), (Items{2, 5, 1, 4, 3}));
  EXPECT_EQ(ordered(kind(), list, items, Direction::down), (Items{3, 1, 4, 5, 2}));
}

TEST_P(ItemOrderTest, TakesAnItemAgainAndForgetsTheLast) {
  const Column& first = columnsOf(kind().row()).front();
  ItemOrder order(first, overviewTexts());
  order.take(2, recordOf(familyItem(kind(), "b")));
  order.take(1, recordOf(familyItem(kind(), "c")));
  order.take(3, recordOf(familyItem(kind(), "a")));
  EXPECT_EQ(order.order(Direction::up), (Items{3, 2, 1}));
  order.take(2, recordOf(familyItem(kind(), "d")));
  EXPECT_EQ(order.order(Direction::up), (Items{3, 1, 2}));
  order.cutTo(2);
  EXPECT_EQ(order.order(Direction::up), (Items{1, 2}));
  order.cutTo(0);
  EXPECT_EQ(order.order(Direction::up), Items());
  EXPECT_EQ(&order.column(), &first);
}

TEST(ItemOrder, SizesGoByTheirValueAndWhatIsNoNumberIsLast) {
  const Column& size = *columnOf(kMp3.row(), *mediaFileField("FileSize"));
  ItemOrder order(size, overviewTexts());
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  int item = 0;
  for (const double bytes : {3e9, 0.0, std::nan(""), -5.0, -0.0, 20.0, -kInfinite, kInfinite}) {
    MediaFileRecord record{};
    record.FileSize = bytes;
    order.take(++item, bytesOf(record));
  }
  EXPECT_EQ(order.order(Direction::up), (Items{7, 4, 2, 5, 6, 1, 8, 3}));
  EXPECT_EQ(order.order(Direction::down), (Items{8, 1, 6, 2, 5, 4, 7, 3}));
}

}  // namespace
}  // namespace quillbox::test
