#include "overview/item_filter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/overview_model.h"

namespace quillbox::test {
namespace {

using Items = std::vector<int>;
using Ranges = std::vector<TextRange>;

/// An index of items, all of them read, and a filter on it.
struct Filtered {
  Filtered(const ModelKind& kind, const std::vector<std::string>& items) : all(kind, items) {
    index.emplace(all.open, all.collection, kind.row(), overviewTexts());
    index->start(static_cast<int>(items.size()));
    index->readOn(neverStop);
    filter.emplace(*index);
    filter->start();
  }

  Items typed(std::string_view text) {
    filter->setWords(text);
    return filter->items();
  }

  OverviewCollection all;
  std::optional<ItemIndex> index;
  std::optional<ItemFilter> filter;
};

class ItemFilterTest : public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }

  Items expected(const std::vector<std::string>& items, const std::string& typed,
                 bool withDeleted = false) const {
    Items wanted;
    for (std::size_t at = 0; at < items.size(); ++at)
      if ((withDeleted || !modelDeleted(kind(), items[at])) && modelMeets(kind(), items[at], typed))
        wanted.push_back(static_cast<int>(at) + 1);
    return wanted;
  }
};
INSTANTIATE_TEST_SUITE_P(AllKinds, ItemFilterTest, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(ItemFilterTest, FindsWhatTheModelFindsWhateverWasTypedBefore) {
  OverviewItems random(kind());
  const auto items = random.items(60);
  Filtered all(kind(), items);
  for (int round = 0; round < 120; ++round) {
    std::string typed = random.text();
    if (random.below(2) == 0) typed = typed.substr(0, random.below(typed.size() + 1));
    ASSERT_EQ(all.typed(typed), expected(items, typed)) << typed;
  }
}

TEST_P(ItemFilterTest, EachKeyOfAWordFindsWhatTheModelFinds) {
  const auto items = OverviewItems(kind()).items(60);
  Filtered all(kind(), items);
  const std::string typed = "STRASSE caf\xE9 wall";
  for (std::size_t keys = 0; keys <= typed.size(); ++keys)
    ASSERT_EQ(all.typed(typed.substr(0, keys)), expected(items, typed.substr(0, keys)));
  for (std::size_t keys = typed.size(); keys-- > 0;)
    ASSERT_EQ(all.typed(typed.substr(0, keys)), expected(items, typed.substr(0, keys)));
}

TEST_P(ItemFilterTest, DeletedItemsAreShownOnRequest) {
  const auto items = OverviewItems(kind()).items(60);
  Filtered all(kind(), items);
  EXPECT_EQ(all.filter->items(), expected(items, ""));
  all.filter->showDeleted(true);
  EXPECT_EQ(all.filter->items(), expected(items, "", true));
  EXPECT_EQ(all.typed("wall"), expected(items, "wall", true));
  all.filter->showDeleted(false);
  EXPECT_EQ(all.filter->items(), expected(items, "wall"));
  EXPECT_LT(all.filter->items().size(), items.size());
}

TEST_P(ItemFilterTest, OnlyTheItemsOfABarAreLookedThrough) {
  const auto items = OverviewItems(kind()).items(60);
  Filtered all(kind(), items);
  const Items bar = {1, 7, 8, 30, 60};
  const auto within = [&](Items wanted) {
    std::erase_if(wanted, [&](int item) { return std::ranges::find(bar, item) == bar.end(); });
    return wanted;
  };
  all.filter->setOnly(bar);
  EXPECT_TRUE(all.filter->isActive());
  EXPECT_EQ(all.filter->items(), within(expected(items, "")));
  EXPECT_EQ(all.typed("wa"), within(expected(items, "wa")));
  all.filter->setOnly({});
  EXPECT_EQ(all.filter->items(), expected(items, "wa"));
}

TEST_P(ItemFilterTest, WhatIsReadOnIsLookedAt) {
  const auto items = OverviewItems(kind()).items(50);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  ItemFilter filter(index);
  index.start(50);
  filter.start();
  filter.setWords("wa");
  do {
    index.readOn(stopAtOnce);
    filter.readOn();
    const auto read = static_cast<std::ptrdiff_t>(index.readItems());
    ASSERT_EQ(filter.items(), expected({items.begin(), items.begin() + read}, "wa"));
  } while (index.state() == ReadState::unfinished);
}

TEST_P(ItemFilterTest, AnItemThatIsWrittenOrDeletedIsThereOrGoneAtOnce) {
  OverviewItems random(kind());
  auto items = random.items(30);
  Filtered all(kind(), items);
  all.filter->setWords("wall");
  for (int round = 0; round < 80; ++round) {
    const std::size_t at = random.below(items.size() + 1);
    if (at == items.size()) items.emplace_back();
    items[at] = random.item();
    const int item = static_cast<int>(at) + 1;
    all.index->take(item, recordOf(items[at]));
    all.filter->take(item);
    ASSERT_EQ(all.filter->items(), expected(items, "wall"));
    ASSERT_EQ(all.filter->isWanted(item), std::ranges::count(all.filter->items(), item) == 1);
  }
}

TEST_P(ItemFilterTest, AnItemThatIsNoItemIsNotTaken) {
  Filtered all(kind(), OverviewItems(kind()).items(5));
  const Items before = all.filter->items();
  for (const int item : {-1, 0, 6, 32'767}) {
    all.filter->take(item);
    EXPECT_EQ(all.filter->items(), before);
    EXPECT_FALSE(all.filter->isWanted(item));
  }
}

TEST_P(ItemFilterTest, FewerItemsAreLookedAtAgain) {
  auto items = OverviewItems(kind()).items(30);
  Filtered all(kind(), items);
  all.filter->setWords("e");
  all.index->setCount(9);
  all.filter->start();
  items.resize(9);
  EXPECT_EQ(all.filter->items(), expected(items, "e"));
}

TEST(ItemFilter, AWordMayStandAnywhereInTheItemButNotAcrossTwoTexts) {
  std::string item = itemWith(kMusic, {{"txtArtist", "Blue"}, {"txtAlbum", "Train"}});
  putBytes(item, kMusic.list.offset + 39 * 50, fixedText("Last Song", 50));
  Filtered all(kMusic, {item});
  for (const char* typed : {"blue", "rai", "blue train", "train blue", "song LAST", "0", ""})
    EXPECT_EQ(all.typed(typed), Items{1}) << typed;
  for (const char* typed : {"bluetrain", "etr", "blue x", "yes"})
    EXPECT_EQ(all.typed(typed), Items()) << typed;
}

TEST(ItemFilter, ChoicesAmountsAndDatesAreFoundAsTheyAreShown) {
  std::string item = withNumber(kVideo, familyItem(kVideo, "Casablanca"), "cmbMediaType", 1);
  item = withNumber(kVideo, item, "txtPurPrice", 129'500);
  item = withNumber(kVideo, item, "txtAquireDate", std::bit_cast<std::int64_t>(36525.0));
  Filtered all(kVideo, {item});
  for (const char* typed : {"laserdisc", "12.95", "12/31/99"})
    EXPECT_EQ(all.typed(typed), Items{1}) << typed;
  EXPECT_EQ(all.typed("12.96"), Items());
}

TEST(ItemFilter, IsActiveWhileItLeavesAnythingOut) {
  Filtered all(kBooks, {familyItem(kBooks, "Moby Dick")});
  EXPECT_FALSE(all.filter->isActive());
  all.filter->setWords(" ");
  EXPECT_FALSE(all.filter->isActive());
  all.filter->setWords("m");
  EXPECT_TRUE(all.filter->isActive());
}

TEST(ItemFilter, SaysWhereTheWordsAreInAText) {
  Filtered all(kBooks, {familyItem(kBooks, "Moby Dick")});
  EXPECT_EQ(all.filter->matchesIn("Moby Dick"), Ranges());
  all.filter->setWords("DICK mo");
  EXPECT_EQ(all.filter->matchesIn("Moby Dick"), (Ranges{{0, 2}, {5, 4}}));
}

}  // namespace
}  // namespace quillbox::test
