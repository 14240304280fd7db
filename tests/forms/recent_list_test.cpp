#include "forms/recent_list.h"

#include <gtest/gtest.h>

namespace quillbox::test {
namespace {

TEST(RecentListRows, AreMadeAgainOnlyWhenTheyChange) {
  const RecentList::Row jazz{{"/lists/jazz.MCS", 1}, true};
  RecentList list;
  EXPECT_FALSE(list.show({}));
  EXPECT_TRUE(list.show({jazz}));
  const QListWidgetItem* item = list.item(0);
  EXPECT_FALSE(list.show({jazz}));
  EXPECT_EQ(list.item(0), item);
  EXPECT_TRUE(list.show({{jazz.collection, false}}));
  EXPECT_TRUE(list.show({}));
  EXPECT_EQ(list.count(), 0);
}

/// Its measures follow the letters.
class RecentListMeasures : public testing::Test {
 protected:
  RecentListMeasures() {
    list_.show({{{"/lists/jazz.MCS", 1}, true}, {{"/lists/shelf.BCS", 3}, true}});
  }

  void enlargeLetters() {
    QFont larger = list_.font();
    larger.setPointSizeF(2 * larger.pointSizeF());
    list_.setFont(larger);
  }
  int line() const { return list_.fontMetrics().height(); }
  int row() { return list_.visualItemRect(list_.item(0)).height(); }

  RecentList list_;
};

TEST_F(RecentListMeasures, IconsAreAsHighAsTwoLines) {
  EXPECT_EQ(list_.iconSize(), QSize(2 * line(), 2 * line()));
  enlargeLetters();
  EXPECT_EQ(list_.iconSize(), QSize(2 * line(), 2 * line()));
}

TEST_F(RecentListMeasures, TheListIsNoHigherThanItsRows) {
  for (const bool isLarge : {false, true}) {
    if (isLarge) enlargeLetters();
    EXPECT_EQ(list_.maximumHeight(), 2 * row() + 2 * list_.frameWidth());
    EXPECT_EQ(list_.sizeHint().height(), list_.maximumHeight());
    EXPECT_EQ(list_.minimumSizeHint().height(), row() + 2 * list_.frameWidth()) << "one row";
  }
}

}  // namespace
}  // namespace quillbox::test
