#include "panel/summary_view.h"

#include <gtest/gtest.h>

#include "support/summary_fixture.h"

namespace quillbox::test {
namespace {

TEST_F(SummaryViewTest, ShowsTotalsAndBarsWithTheirNumbers) {
  openWithAlbums();
  EXPECT_EQ(line(), "3 albums, 1 deleted, cost 13.5, worth 23");
  EXPECT_EQ(headersOf(tree()), "Label|Bar|Items|Cost|Worth");
  const std::string all = shownRows(tree());
  EXPECT_NE(all.find("[Genre] " + genre(1) + "||2|12.5|21 " + genre(2) + "||1|1|2 "),
            std::string::npos)
      << all;
  EXPECT_NE(all.find("[Record Co] Blue Note||2|12.5|21 Verve||1|1|2 "), std::string::npos) << all;
  EXPECT_NE(all.find("[Year of Acquisition] (none)||3|13.5|23 "), std::string::npos) << all;
}

TEST_F(SummaryViewTest, AClickOrEnterOnABarShowsItsItemsAlone) {
  openWithAlbums();
  clickRow(tree(), bar("Record Co", "Blue Note", 1));
  tree().setCurrentIndex(bar("Genre", genre(2)));
  QTest::keyClick(&tree(), Qt::Key_Return);
  clickRow(tree(), rowAt(tree(), 1, -1));
  ASSERT_EQ(asked_.only.size(), 2U);
  EXPECT_EQ(asked_.only[0], (std::pair{std::vector{1, 4}, std::string("Record Co: Blue Note")}));
  EXPECT_EQ(asked_.only[1], (std::pair{std::vector{2}, "Genre: " + genre(2)}));
  EXPECT_TRUE(asked_.shown.empty());
}

TEST_F(SummaryViewTest, TheBarsOfAGroupingAreAsLongAsTheirItemsAreMany) {
  openWithAlbums();
  const QImage picture = tree().viewport()->grab().toImage();
  const auto filled = [&](const QModelIndex& cell) {
    const QRect place = tree().visualRect(cell);
    const double ratio = picture.devicePixelRatio();
    const QColor wanted = tree().palette().color(QPalette::Highlight);
    int pixels = 0;
    for (int x = place.left(); x < place.right(); ++x)
      if (picture.pixelColor(QPointF(ratio * x, ratio * place.center().y()).toPoint()) == wanted)
        ++pixels;
    return pixels;
  };
  const int longer = filled(bar("Record Co", "Blue Note", 1));
  const int shorter = filled(bar("Record Co", "Verve", 1));
  EXPECT_GT(longer, tree().columnWidth(1) * 3 / 4);
  EXPECT_NEAR(shorter, longer / 2, 2);
}

TEST_F(SummaryViewTest, ABarIsInTheMiddleOfItsCellWithAnEdgeLikeTheText) {
  openWithAlbums();
  QPalette palette = tree().palette();
  palette.setColor(QPalette::Text, QColor(0x80, 0, 0));
  tree().setPalette(palette);
  const QImage picture = tree().viewport()->grab().toImage();
  const double ratio = picture.devicePixelRatio();
  const QRect cell = tree().visualRect(bar("Record Co", "Blue Note", 1));
  const QRect place((ratio * QPointF(cell.topLeft())).toPoint(), ratio * cell.size());
  const QColor edge = tree().palette().color(QPalette::Text);
  QRect drawn;
  for (int y = place.top(); y <= place.bottom(); ++y)
    for (int x = place.left(); x <= place.right(); ++x)
      if (picture.pixelColor(x, y) == edge) drawn |= QRect(x, y, 1, 1);
  const int air = drawn.left() - place.left();
  EXPECT_GE(air, 2);
  EXPECT_NEAR(drawn.top() - place.top(), air, ratio / 2);
  EXPECT_NEAR(place.right() - drawn.right(), air, ratio / 2);
  EXPECT_NEAR(place.bottom() - drawn.bottom(), air, ratio / 2);
}

TEST_F(SummaryViewTest, ABarIsToldInWordsToo) {
  openWithAlbums();
  EXPECT_EQ(bar("Genre", genre(1), 1).data(Qt::AccessibleTextRole).toString(), "67 percent");
  EXPECT_EQ(bar("Genre", genre(2), 1).data(Qt::AccessibleTextRole).toString(), "33 percent");
}

TEST_F(SummaryViewTest, SaysWhenThereIsNothing) {
  open().showTaken();
  EXPECT_EQ(line(), "0 albums, cost 0, worth 0");
  EXPECT_EQ(shownLabel(*view_, "lblNoSummary"), "There is nothing to sum up");
  EXPECT_FALSE(tree().isVisible());
  EXPECT_FALSE(viewButton("cmdPrintSummary").isEnabled());
  EXPECT_FALSE(viewButton("cmdSaveSummary").isEnabled());
}

TEST_F(SummaryViewTest, AnAlbumAloneHasItsBars) {
  open();
  takeAll(*view_, {pricedAlbum("Verve", 2, 1'0000, 2'0000)});
  EXPECT_EQ(line(), "1 album, cost 1, worth 2");
  EXPECT_NE(shownRows(tree()).find("[Record Co] Verve||1|1|2 "), std::string::npos);
  EXPECT_TRUE(viewButton("cmdSaveSummary").isEnabled());
}

TEST_F(SummaryViewTest, ABarStaysSelectedWhateverTheFormShows) {
  openWithAlbums();
  tree().setCurrentIndex(bar("Record Co", "Verve"));
  for (const int item : {1, 2, 0}) {
    view_->mark(item);
    EXPECT_EQ(markedRow(tree()), "Verve") << item;
  }
}

TEST_F(SummaryViewTest, ItsButtonsSayWhatTheyDo) {
  open();
  EXPECT_EQ(viewButton("cmdPrintSummary").text(), "Print Summary");
  EXPECT_EQ(viewButton("cmdPrintSummary").toolTip(), "Print these bars and numbers");
  EXPECT_EQ(viewButton("cmdSaveSummary").text(), "Save Summary");
  EXPECT_EQ(viewButton("cmdSaveSummary").toolTip(), "Save as a PDF document or a PNG picture");
}

TEST_F(SummaryViewTest, WhatHasNoPricesHasNoColumnsForThem) {
  open(kBooks);
  takeAll(*view_, {familyItem(kBooks, "Author")});
  EXPECT_EQ(line(), "1 book");
  EXPECT_EQ(headersOf(tree()), "Label|Bar|Items");
}

TEST_F(SummaryViewTest, MediaFilesAreSummedUpByTheirEndings) {
  open(kMp3);
  takeAll(*view_, {familyItem(kMp3, "a.mp3"), familyItem(kMp3, "b.MP3")});
  EXPECT_EQ(line().substr(0, 2), "2 ");
  ASSERT_EQ(headersOf(tree()), "Label|Bar|Items");
  EXPECT_EQ(tree().model()->index(0, 0).data().toString(), "Type of File");
  EXPECT_EQ(tree().model()->index(1, 0).data().toString(), "MP3");
  EXPECT_EQ(tree().model()->index(1, 2).data().toString(), "2");
}

TEST_F(SummaryViewTest, FollowsWhatChangesAndStaysOnItsBar) {
  openWithAlbums();
  tree().setCurrentIndex(bar("Record Co", "Verve"));
  view_->take(5, recordOf(pricedAlbum("Verve", 2, 0, 0)));
  view_->take(6, recordOf(pricedAlbum("Verve", 2, 0, 0)));
  view_->showTaken();
  EXPECT_EQ(tree().currentIndex(), bar("Record Co", "Verve"));
  EXPECT_EQ(bar("Record Co", "Verve", 2).data().toString(), "3");
  view_->cutTo(1);
  view_->showTaken();
  EXPECT_EQ(line(), "1 album, cost 12.5, worth 20");
  view_->start();
  EXPECT_EQ(shownRows(tree()), "");
  EXPECT_FALSE(viewButton("cmdSaveSummary").isEnabled());
}

TEST_F(SummaryViewTest, NumbersHaveRoom) {
  open();
  for (int item = 1; item <= 100; ++item)
    view_->take(item, recordOf(pricedAlbum("Gold", 1, INT64_MAX, INT64_MAX)));
  view_->showTaken();
  for (int column = 2; column < 5; ++column) {
    const QString text = bar("Record Co", "Gold", column).data().toString();
    EXPECT_GE(tree().columnWidth(column), tree().fontMetrics().horizontalAdvance(text)) << column;
  }
}

}  // namespace
}  // namespace quillbox::test
