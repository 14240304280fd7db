#include "panel/doubles_view.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include "support/panel_views.h"

namespace quillbox::test {
namespace {

std::string album(std::string_view artist, std::string_view title) {
  return itemWith(kMusic, {{"txtArtist", artist}, {"txtAlbum", title}});
}

class DoublesViewTest : public testing::Test {
 protected:
  DoublesViewTest() {
    view_.resize(900, 400);
    showWindow(view_);
  }

  QTreeView& tree() { return treeOf(view_); }
  QPushButton& next() { return *view_.findChild<QPushButton*>("cmdNextDouble"); }
  void pressNext() { QTest::mouseClick(&next(), Qt::LeftButton); }
  void takeTwoGroups() {
    takeAll(view_, {album("Davis", "Blue"), album("Monk", "Solo"), album("Cline", "Solo"),
                    album("The Davis", "BLUE"), album("monk", "Solo!"), album("Davis", "Blue")});
  }

  AskedOwner asked_;
  DoublesView view_{kMusic.row(), overviewTexts(), asked_.owner()};
};

TEST_F(DoublesViewTest, ShowsGroupsWithWhatTells) {
  takeTwoGroups();
  EXPECT_EQ(headersOf(tree()), "No.|Artist|Album|Media Type|Genre");
  const std::string choices = "|" + builtInChoice(*musicField("MediaType"), 0) + "|" +
                              builtInChoice(*musicField("Genre"), 0);
  EXPECT_EQ(shownRows(tree()), "[Davis, Blue (3 items)] 1|Davis|Blue" + choices +
                                   " 4|The Davis|BLUE" + choices + " 6|Davis|Blue" + choices +
                                   " [Monk, Solo (2 items)] 2|Monk|Solo" + choices +
                                   " 5|monk|Solo!" + choices + " ");
  EXPECT_EQ(shownLabel(view_, "lblDoubles"), "5 items in 2 groups");
  EXPECT_EQ(shownLabel(view_, "lblNoDoubles"), "");
}

TEST_F(DoublesViewTest, SaysWhenThereIsNone) {
  takeAll(view_, {album("Davis", "Blue"), album("Monk", "Solo")});
  EXPECT_EQ(shownLabel(view_, "lblNoDoubles"), "No item is there twice");
  EXPECT_FALSE(tree().isVisible());
  EXPECT_FALSE(next().isEnabled());
  QTest::keyClick(&view_, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(asked_.shown.empty());
}

TEST_F(DoublesViewTest, AClickOrEnterShowsTheItem) {
  takeTwoGroups();
  clickRow(tree(), rowAt(tree(), 1, 1, 2));
  QTest::keyClick(&tree(), Qt::Key_Up);
  QTest::keyClick(&tree(), Qt::Key_Return);
  EXPECT_EQ(asked_.shown, (std::vector{5, 2}));
}

TEST_F(DoublesViewTest, TheButtonStepsThroughTheGroupsAndRoundAgain) {
  takeTwoGroups();
  for (int times = 0; times < 6; ++times) pressNext();
  EXPECT_EQ(asked_.shown, (std::vector{1, 4, 6, 2, 5, 1}));
  EXPECT_EQ(markedRow(tree()), "1");
}

TEST_F(DoublesViewTest, TheButtonWaitsForTheFirstGroup) {
  EXPECT_FALSE(next().isEnabled());
  takeTwoGroups();
  EXPECT_TRUE(next().isEnabled());
  EXPECT_FALSE(view_.findChild<QShortcut*>()->autoRepeat()) << "a key held down is one step";
}

TEST_F(DoublesViewTest, ItsKeysDoTheSame) {
  takeTwoGroups();
  EXPECT_EQ(next().text(), "Next Double");
  EXPECT_EQ(next().toolTip(), "Show the next item that is there more than once (Ctrl+Shift+D)");
  for (QWidget* focus : {static_cast<QWidget*>(&tree()), static_cast<QWidget*>(&next())}) {
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
  }
  EXPECT_EQ(asked_.shown, (std::vector{1, 4}));
}

TEST_F(DoublesViewTest, StepsOnFromWhereTheFormIs) {
  takeTwoGroups();
  view_.mark(6);
  pressNext();
  EXPECT_EQ(asked_.shown.back(), 2);
  view_.mark(3);  // no double: continues from the last one
  pressNext();
  EXPECT_EQ(asked_.shown.back(), 5);
}

TEST_F(DoublesViewTest, StepsIntoTheGroupWhoseHeadingTheUserIsOn) {
  takeTwoGroups();
  tree().setCurrentIndex(rowAt(tree(), 1, -1));
  pressNext();
  EXPECT_EQ(asked_.shown, (std::vector{2}));
}

TEST_F(DoublesViewTest, FollowsWhatChanges) {
  takeTwoGroups();
  view_.take(3, recordOf(album("Monk", "Solo")));
  view_.take(1, recordOf(album("Other", "Blue")));
  view_.cutTo(5);
  view_.showTaken();
  EXPECT_EQ(groupsIn(tree()), 1);
  EXPECT_EQ(shownLabel(view_, "lblDoubles"), "3 items in 1 group");
  view_.start();
  EXPECT_EQ(shownRows(tree()), "");
  EXPECT_FALSE(next().isEnabled());
}

TEST_F(DoublesViewTest, TakesTheFocusFromNothingWhileItemsChange) {
  takeTwoGroups();
  next().setFocus();
  view_.showTaken();
  EXPECT_TRUE(next().hasFocus());
}

TEST_F(DoublesViewTest, RowsOfItemsThatAreGoneAreBlankUntilItShowsAnew) {
  takeTwoGroups();
  view_.cutTo(3);
  for (const int row : {1, 2}) EXPECT_EQ(rowAt(tree(), 0, row, 1).data().toString(), "") << row;
  clickRow(tree(), rowAt(tree(), 0, 2));
  EXPECT_EQ(asked_.shown, (std::vector{6}));
}

TEST_F(DoublesViewTest, StepsThroughAsManyAsThereCanBe) {
  constexpr int most = 32'767;
  for (int item = 1; item <= most; ++item)
    view_.take(item, recordOf(album("Artist " + std::to_string(item / 2), "Album")));
  view_.showTaken();
  EXPECT_EQ(shownLabel(view_, "lblDoubles"), "32766 items in 16383 groups");
  view_.mark(most);
  pressNext();
  EXPECT_EQ(asked_.shown, (std::vector{2}));
}

class DoublesOfAKind : public testing::TestWithParam<ModelKind> {};
INSTANTIATE_TEST_SUITE_P(AllKinds, DoublesOfAKind, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(DoublesOfAKind, AreShownWithTheirNumbersAndTwoColumnsMore) {
  const ModelKind& kind = GetParam();
  AskedOwner asked;
  DoublesView view(kind.row(), overviewTexts(), asked.owner());
  showWindow(view);
  const std::string item = familyItem(kind, "Same");
  takeAll(view, {item, familyItem(kind, "Other"), item});
  ASSERT_EQ(groupsIn(treeOf(view)), 1);
  EXPECT_EQ(treeOf(view).model()->columnCount(),
            static_cast<int>(tellingFields(kind.row()).size()) + 3);
  EXPECT_EQ(rowAt(treeOf(view), 0, 1).data().toString(), "3");
  EXPECT_EQ(rowAt(treeOf(view), 0, 1, 1).data().toString(), "Same");
  EXPECT_EQ(rowAt(treeOf(view), 0, -1).data().toString(), "Same (2 items)");
}

}  // namespace
}  // namespace quillbox::test
