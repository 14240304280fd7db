#include "panel/loans_view.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QScrollBar>

#include "support/fake_desktop.h"
#include "support/panel_views.h"

namespace quillbox::test {
namespace {

/// A borrowed album.
std::string lent(std::string_view borrower, std::string_view album, std::string_view due = "") {
  const std::string item = itemWith(kMusic, {{"txtArtist", "Artist"},
                                             {"txtAlbum", album},
                                             {"txtBorrower", borrower},
                                             {"txtDateLoaned", "11/1/26"},
                                             {"txtDueDate", due}});
  return withNumber(kMusic, item, "chkCurrLoaned", 1);
}

std::string withBooklet(std::string item) {
  return withNumber(kMusic, withNumber(kMusic, std::move(item), "chkHasBook", 1), "chkBookLoaned",
                    1);
}

class LoansViewTest : public testing::Test {
 protected:
  LoansViewTest() {
    view_.resize(900, 400);
    showWindow(view_);
  }

  QTreeView& tree() { return treeOf(view_); }
  std::string line() { return shownLabel(view_, "lblLoans"); }
  std::string nothing() { return shownLabel(view_, "lblNoLoans"); }

  FakeDesktop desktop_;
  AskedOwner asked_;
  LoansView view_{kMusic.row(), desktop_, asked_.owner()};
};

TEST_F(LoansViewTest, ShowsWhoHasWhat) {
  takeAll(view_, {lent("Bob", "Kind of Blue", "11/22/26"), familyItem(kMusic, "At home"),
                  withBooklet(lent("Ann", "Caf\xE9 <b>&amp;", "next week")), lent("", "Bags"),
                  lent("bob", "Blue Train", "11/20/26")});
  EXPECT_EQ(headersOf(tree()), "Artist|Album|Since|Due|Booklet");
  EXPECT_EQ(shownRows(tree()),
            "[Ann (1 item)] Artist|Café <b>&amp;|11/1/26|next week|Yes "
            "[Bob (2 items)] Artist|Blue Train|11/1/26|11/20/26 overdue|"
            " Artist|Kind of Blue|11/1/26|11/22/26| "
            "[(no name) (1 item)] Artist|Bags|11/1/26|| ");
  EXPECT_EQ(line(), "4 items on loan, 1 overdue");
  EXPECT_EQ(nothing(), "");
  for (int column = 1; column < 5; ++column)
    EXPECT_EQ(rowAt(tree(), 0, -1, column).data().toString(), "") << column;
}

TEST_F(LoansViewTest, SaysWhenNothingIsOnLoan) {
  takeAll(view_, {familyItem(kMusic, "At home")});
  EXPECT_EQ(nothing(), "Nothing is on loan");
  EXPECT_FALSE(tree().isVisible());
  view_.take(1, recordOf(lent("Ann", "Album")));
  view_.showTaken();
  EXPECT_EQ(nothing(), "");
  EXPECT_EQ(line(), "1 item on loan");
  view_.cutTo(0);
  view_.showTaken();
  EXPECT_EQ(nothing(), "Nothing is on loan");
  EXPECT_EQ(line(), "");
}

TEST_F(LoansViewTest, TodayIsAskedForWheneverItShows) {
  takeAll(view_, {lent("Ann", "Album", "11/22/26")});
  EXPECT_EQ(line(), "1 item on loan");
  desktop_.today = "11/23/2026";
  view_.showTaken();
  EXPECT_EQ(line(), "1 item on loan, 1 overdue");
  desktop_.today = "no date";
  view_.showTaken();
  EXPECT_EQ(line(), "1 item on loan");
}

double brightness(const QColor& color) {
  const auto part = [](double value) {
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

TEST_F(LoansViewTest, WhatIsOverdueHasAColourThatCanBeReadOnLightAndDark) {
  constexpr double wanted = 4.5;
  takeAll(view_, {lent("Ann", "Late", "1/1/26"), lent("Ann", "Not late", "1/1/27")});
  for (const QColor ground : {QColor(Qt::white), QColor(0x20, 0x20, 0x20)}) {
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    view_.setPalette(palette);
    const auto color = rowAt(tree(), 0, 0).data(Qt::ForegroundRole).value<QColor>();
    const double lighter = std::max(brightness(color), brightness(ground));
    const double darker = std::min(brightness(color), brightness(ground));
    EXPECT_GE((lighter + 0.05) / (darker + 0.05), wanted) << ground.name().toStdString();
  }
  EXPECT_FALSE(rowAt(tree(), 0, 1).data(Qt::ForegroundRole).isValid());
}

TEST_F(LoansViewTest, AClickOnAnItemShowsItAndOnABorrowerNothing) {
  takeAll(view_, {lent("Ann", "A"), lent("Bob", "B"), lent("Ann", "C")});
  clickRow(tree(), rowAt(tree(), 0, 1, 3));
  EXPECT_EQ(asked_.shown, (std::vector{3}));
  clickRow(tree(), rowAt(tree(), 1, -1));
  EXPECT_EQ(asked_.shown, (std::vector{3}));
}

TEST_F(LoansViewTest, ArrowsOnlyMoveAndEnterShows) {
  takeAll(view_, {lent("Ann", "A"), lent("Bob", "B")});
  tree().setFocus();
  tree().setCurrentIndex(rowAt(tree(), 0, -1));
  QTest::keyClick(&tree(), Qt::Key_Return);
  QTest::keyClick(&tree(), Qt::Key_Down);
  EXPECT_TRUE(asked_.shown.empty());
  QTest::keyClick(&tree(), Qt::Key_Return);
  QTest::keyClick(&tree(), Qt::Key_Down);
  QTest::keyClick(&tree(), Qt::Key_Down);
  QTest::keyClick(&tree(), Qt::Key_Enter);
  EXPECT_EQ(asked_.shown, (std::vector{1, 2}));
}

TEST_F(LoansViewTest, AKeyThatIsHeldDownShowsNothing) {
  takeAll(view_, {lent("Ann", "A")});
  tree().setCurrentIndex(rowAt(tree(), 0, 0));
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&tree(), &held);
  EXPECT_TRUE(asked_.shown.empty());
}

TEST_F(LoansViewTest, MarksTheItemOfTheFormAndShowsNothing) {
  takeAll(view_, {lent("Ann", "A"), lent("Bob", "B"), familyItem(kMusic, "At home")});
  view_.mark(2);
  EXPECT_EQ(tree().currentIndex(), rowAt(tree(), 1, 0));
  EXPECT_EQ(markedRow(tree()), "Artist");
  view_.mark(3);
  EXPECT_EQ(markedRow(tree()), "");
  view_.showTaken();
  EXPECT_EQ(markedRow(tree()), "");
  view_.mark(2);
  EXPECT_EQ(markedRow(tree()), "Artist");
  view_.mark(1);
  EXPECT_EQ(tree().currentIndex(), rowAt(tree(), 0, 0));
  EXPECT_EQ(markedRow(tree()), "Artist");
  EXPECT_TRUE(asked_.shown.empty());
}

TEST_F(LoansViewTest, TheRowTheUserIsOnStaysWhileItemsChange) {
  for (const int group : {0, 1})
    for (const int row : {-1, 0}) {
      takeAll(view_, {lent("Bob", "B"), lent("Cid", "C"), familyItem(kMusic, "At home")});
      tree().setCurrentIndex(rowAt(tree(), group, row));
      view_.take(3, recordOf(lent("Ann", "A")));
      view_.showTaken();
      EXPECT_EQ(tree().currentIndex(), rowAt(tree(), group + 1, row));
    }
}

TEST_F(LoansViewTest, TheRowTheUserMovedToStaysAfterTheFormsItemWasMarked) {
  view_.hide();
  takeAll(view_, {lent("Ann", "A"), lent("Bob", "B"), lent("Cid", "C")});
  view_.mark(2);
  showWindow(view_);
  EXPECT_EQ(tree().currentIndex(), rowAt(tree(), 1, 0));
  for (const int group : {2, 0}) {
    tree().setCurrentIndex(rowAt(tree(), group, 0));
    view_.showTaken();
    EXPECT_EQ(tree().currentIndex(), rowAt(tree(), group, 0));
  }
}

TEST_F(LoansViewTest, ThePlaceScrolledToStaysWhileItemsChange) {
  std::vector<std::string> items;
  for (int nth = 0; nth < 200; ++nth) items.push_back(lent("Ann", std::to_string(nth)));
  takeAll(view_, items);
  QScrollBar& bar = *tree().verticalScrollBar();
  tree().setCurrentIndex(rowAt(tree(), 0, 0));
  tree().scrollTo(rowAt(tree(), 0, 100));
  const int before = bar.value();
  EXPECT_GT(before, 0);
  view_.showTaken();
  QApplication::processEvents();
  EXPECT_EQ(bar.value(), before);
}

TEST_F(LoansViewTest, AHeadingIsBoldAndItsRowsAreNot) {
  takeAll(view_, {lent("Ann", "A")});
  EXPECT_TRUE(rowAt(tree(), 0, -1).data(Qt::FontRole).value<QFont>().bold());
  EXPECT_FALSE(rowAt(tree(), 0, 0).data(Qt::FontRole).value<QFont>().bold());
}

TEST_F(LoansViewTest, AHeadingStaysSelectedWhenTheFormShowsAnItemOfNoRow) {
  takeAll(view_, {lent("Ann", "A"), familyItem(kMusic, "At home")});
  tree().setCurrentIndex(rowAt(tree(), 0, -1));
  view_.mark(2);
  EXPECT_EQ(markedRow(tree()), "Ann (1 item)");
}

TEST_F(LoansViewTest, ItsCellsHaveNoRowsBelow) {
  takeAll(view_, {lent("Ann", "A")});
  EXPECT_EQ(tree().model()->rowCount(rowAt(tree(), 0, -1)), 0);
  EXPECT_EQ(tree().model()->columnCount(rowAt(tree(), 0, -1)), 0);
}

TEST_F(LoansViewTest, TheFocusStaysInItWhileItemsChange) {
  takeAll(view_, {lent("Ann", "A")});
  tree().setFocus();
  view_.showTaken();
  EXPECT_TRUE(tree().hasFocus());
}

TEST_F(LoansViewTest, NothingIsShownOfACollectionThatIsClosed) {
  takeAll(view_, {lent("Ann", "A")});
  view_.start();
  EXPECT_EQ(shownRows(tree()), "");
  EXPECT_EQ(line(), "");
  EXPECT_EQ(nothing(), "");
  view_.showTaken();
  EXPECT_EQ(nothing(), "Nothing is on loan");
}

TEST_F(LoansViewTest, WhileNobodyLooksItWaits) {
  view_.hide();
  takeAll(view_, {lent("Ann", "A"), lent("Bob", "B")});
  view_.mark(2);
  EXPECT_EQ(groupsIn(tree()), 0);
  showWindow(view_);
  EXPECT_EQ(groupsIn(tree()), 2);
  EXPECT_EQ(tree().currentIndex(), rowAt(tree(), 1, 0));
}

TEST_F(LoansViewTest, ShowsAsManyAsThereCanBe) {
  constexpr int most = 32'767;
  const std::string item = lent("Ann", "A", "1/1/26");
  for (int at = 1; at <= most; ++at) view_.take(at, recordOf(item));
  view_.showTaken();
  EXPECT_EQ(line(), "32767 items on loan, 32767 overdue");
  view_.mark(most);
  EXPECT_TRUE(
      tree().viewport()->rect().contains(tree().visualRect(rowAt(tree(), 0, most - 1)).center()));
}

}  // namespace
}  // namespace quillbox::test
