#include "overview/item_index.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/overview_model.h"

namespace quillbox::test {
namespace {

class ItemIndexTest : public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }

  /// The folded texts of an item in any order, split at blanks.
  static std::vector<std::string> wordsOf(const std::string& folded) {
    auto words = modelWords(folded);
    std::ranges::sort(words);
    return words;
  }

  void expectItem(const ItemIndex& index, int item, const std::string& bytes) {
    std::string all;
    for (const std::string& text : modelTexts(kind(), bytes)) all += modelFolded(text) + " ";
    ASSERT_EQ(wordsOf(std::string(index.foldedText(item))), wordsOf(all)) << item;
    ASSERT_EQ(index.isDeleted(item), modelDeleted(kind(), bytes)) << item;
  }

  void expectItems(const ItemIndex& index, const std::vector<std::string>& items) {
    ASSERT_EQ(index.readItems(), static_cast<int>(items.size()));
    int deleted = 0;
    for (std::size_t at = 0; at < items.size(); ++at) {
      expectItem(index, static_cast<int>(at) + 1, items[at]);
      if (modelDeleted(kind(), items[at])) ++deleted;
    }
    EXPECT_EQ(index.deletedItems(), deleted);
  }
};
INSTANTIATE_TEST_SUITE_P(AllKinds, ItemIndexTest, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(ItemIndexTest, HoldsTheFoldedTextsOfEveryItem) {
  const auto items = OverviewItems(kind()).items(400);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(400);
  int asked = 0;
  while (index.readOn([&] { return ++asked % 7 == 0; }) == ReadState::unfinished) {
  }
  EXPECT_EQ(index.state(), ReadState::done);
  expectItems(index, items);
}

TEST_P(ItemIndexTest, TakesOneItemThatWasWritten) {
  OverviewItems random(kind());
  auto items = random.items(40);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(40);
  index.readOn(neverStop);
  for (int round = 0; round < 300; ++round) {
    const std::size_t at = random.below(items.size());
    items[at] = random.item();
    index.take(static_cast<int>(at) + 1, recordOf(items[at]));
  }
  expectItems(index, items);
}

TEST_P(ItemIndexTest, TakesAnItemBehindTheLast) {
  OverviewItems random(kind());
  auto items = random.items(5);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(5);
  index.readOn(neverStop);
  items.push_back(random.item());
  index.take(6, recordOf(items.back()));
  EXPECT_EQ(index.count(), 6);
  EXPECT_EQ(index.state(), ReadState::done);
  expectItems(index, items);
}

TEST_P(ItemIndexTest, AnItemThatWasNotReadYetIsReadInItsTurn) {
  OverviewItems random(kind());
  auto items = random.items(5);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(5);
  index.readOn(stopAtOnce);
  items[3] = random.item();
  all.files.put("all", collectionOf(kind(), items));
  index.take(4, recordOf(items[3]));
  EXPECT_EQ(index.readItems(), 1);
  index.readOn(neverStop);
  expectItems(index, items);
}

TEST_P(ItemIndexTest, ItemsThatWereLoadedAreReadWithoutTheOthers) {
  OverviewItems random(kind());
  auto items = random.items(3);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(3);
  index.readOn(neverStop);
  for (int more = 0; more < 4; ++more) items.push_back(random.item());
  auto inFile = items;
  inFile[0] = random.item();  // which was not reported
  all.files.put("all", collectionOf(kind(), inFile));
  EXPECT_EQ(index.countInFile(), 3);
  index.setCount(7);
  index.readOn(neverStop);
  EXPECT_EQ(index.countInFile(), 7);
  EXPECT_EQ(&index.kind(), &kind().row());
  expectItems(index, items);
}

TEST_P(ItemIndexTest, FewerItemsAreForgotten) {
  auto items = OverviewItems(kind()).items(30);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(30);
  index.readOn(neverStop);
  items.resize(11);
  index.setCount(11);
  expectItems(index, items);
}

TEST_P(ItemIndexTest, StartsAnew) {
  auto items = OverviewItems(kind()).items(30);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(30);
  index.readOn(neverStop);
  std::ranges::reverse(items);
  all.files.put("all", collectionOf(kind(), items));
  index.start(30);
  EXPECT_EQ(index.readItems(), 0);
  EXPECT_EQ(index.deletedItems(), 0);
  EXPECT_EQ(index.textBytes(), 0U);
  index.readOn(neverStop);
  expectItems(index, items);
}

TEST_P(ItemIndexTest, AFileThatVanishesKeepsWhatWasRead) {
  const auto items = OverviewItems(kind()).items(4);
  OverviewCollection all(kind(), items);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(4);
  index.readOn(stopAtOnce);
  all.files.remove("all");
  EXPECT_EQ(index.readOn(neverStop), ReadState::failed);
  EXPECT_EQ(index.failure()->number(), ErrorNumber::fileNotFound);
  expectItems(index, {items[0]});
}

TEST_P(ItemIndexTest, TextsThatFillManyBlocksStayWhole) {
  OverviewItems random(kind());
  std::vector<std::string> items = random.items(4);
  std::string longest(kind().recordLength, '\xDF');
  items.push_back(longest);
  const std::size_t count = 3 * 1'048'576 / kind().recordLength;
  std::vector<std::string> many;
  for (std::size_t at = 0; at < count; ++at) many.push_back(items[at % items.size()]);
  OverviewCollection all(kind(), many);
  ItemIndex index(all.open, all.collection, kind().row(), overviewTexts());
  index.start(static_cast<int>(count));
  index.readOn(neverStop);
  for (std::size_t at = 0; at < count; at += 97)
    expectItem(index, static_cast<int>(at) + 1, many[at]);
}

TEST(ItemIndex, AWordOfTheUsersOwnListIsFoundByAndCutWhereItIsEndless) {
  const std::string item = withNumber(kMusic, familyItem(kMusic, "Abba"), "cmbGenre", 3);
  OverviewCollection all(kMusic, {item});
  const RecordTexts texts = {[](const Field& field, int) {
                               return field.name == "Genre" ? std::string(100'000, 'Q')
                                                            : std::string();
                             },
                             "M/d/yy"};
  ItemIndex index(all.open, all.collection, kMusic.row(), texts);
  index.start(1);
  index.readOn(neverStop);
  EXPECT_TRUE(index.foldedText(1).starts_with("abba "));
  EXPECT_TRUE(index.foldedText(1).ends_with("qqq"));
  EXPECT_EQ(index.foldedText(1).size(), 65'535U);
}

TEST(ItemIndex, KnowsHowOftenACharacterOccurs) {
  OverviewCollection all(kBooks, {familyItem(kBooks, "zzz e", "e")});
  ItemIndex index(all.open, all.collection, kBooks.row(), overviewTexts());
  index.start(1);
  index.readOn(neverStop);
  EXPECT_EQ(index.frequency('z'), 3U);
  EXPECT_EQ(index.frequency('q'), 0U);
}

}  // namespace
}  // namespace quillbox::test
