// The words that were searched for, in bold in the list of all items.

#include <gtest/gtest.h>

#include <QPainter>
#include <algorithm>
#include <utility>

#include "support/panel_fixture.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

class MatchesInList : public PanelTest {
 protected:
  explicit MatchesInList(const ModelKind& kind = kBooks) : PanelTest(kind) {}

  /// What is painted in a cell.
  QImage cellPicture(int row, int column) {
    const QImage all = table().viewport()->grab().toImage();
    const QRect cell = table().visualRect(rows().index(row, column));
    const double ratio = all.devicePixelRatio();
    const QRect place((ratio * QPointF(cell.topLeft())).toPoint(), ratio * cell.size());
    return all.copy(place).convertToFormat(QImage::Format_RGB32);
  }
  static std::vector<QPoint> ink(const QImage& picture) {
    std::vector<QPoint> found;
    const QRgb ground = picture.pixel(0, 1);
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        if (picture.pixel(x, y) != ground) found.emplace_back(x, y);
    return found;
  }
  static QRect around(const std::vector<QPoint>& points) {
    QRect all;
    for (const QPoint& point : points) all |= QRect(point, QSize(1, 1));
    return all;
  }
  /// The uppermost row of a text in the table's font, on a baseline that is always the same.
  int topOf(const QString& text, QFont::Weight weight) {
    const double ratio = table().devicePixelRatioF();
    QImage picture((ratio * QSizeF(400, 100)).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QFont font = table().font();
    font.setWeight(weight);
    QPainter painter(&picture);
    painter.setFont(font);
    painter.drawText(QPoint(10, 60), text);
    painter.end();
    return around(ink(picture)).top();
  }
  static bool hasColor(const QImage& picture, const QColor& color) {
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        if (picture.pixelColor(x, y) == color) return true;
    return false;
  }
};

TEST_F(MatchesInList, AreBoldWhereTheyStood) {
  open({item("Anna Karenina"), item("Anna Karenina")});
  openPanel();
  form().resize(1900, 700);
  // Some fonts draw bold letters taller than others, on the same line.
  const int plainTop = topOf("Anna Karenina", QFont::Normal);
  const int halfTop = std::min(topOf("Anna", QFont::Bold), topOf("Karenina", QFont::Normal));
  const int boldTop = topOf("Anna Karenina", QFont::Bold);
  for (const int row : {0, 1}) {
    SCOPED_TRACE(row == 0 ? "selected" : "not selected");
    findItems("");
    const QImage before = cellPicture(row, 1);
    findItems("anna");
    const QImage half = cellPicture(row, 1);
    findItems("anna karenina");
    const QImage after = cellPicture(row, 1);
    EXPECT_GT(ink(half).size(), ink(before).size());
    EXPECT_GT(ink(after).size(), ink(half).size());
    EXPECT_GT(around(ink(after)).width(), around(ink(half)).width());
    for (const auto& [bold, top] : {std::pair(half, halfTop), std::pair(after, boldTop)}) {
      EXPECT_NEAR(around(ink(bold)).left(), around(ink(before)).left(), 1);
      EXPECT_EQ(around(ink(bold)).top() - around(ink(before)).top(), top - plainTop);
      EXPECT_EQ(around(ink(bold)).bottom(), around(ink(before)).bottom());
      EXPECT_EQ(bold.pixel(0, 1), before.pixel(0, 1)) << "the ground";
    }
  }
}

TEST_F(MatchesInList, HaveTheColourOfTheirRow) {
  open({item("Anna Karenina"), item("Anna Karenina")});
  openPanel();
  form().resize(1900, 700);
  QPalette palette = table().palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::Text, QColor(0x80, 0, 0));
    palette.setColor(group, QPalette::HighlightedText, QColor(0xff, 0xff, 0));
  }
  table().setPalette(palette);
  findItems("anna karenina");
  EXPECT_TRUE(hasColor(cellPicture(0, 1), QColor(0xff, 0xff, 0))) << "selected";
  EXPECT_FALSE(hasColor(cellPicture(0, 1), QColor(0x80, 0, 0))) << "selected";
  EXPECT_TRUE(hasColor(cellPicture(1, 1), QColor(0x80, 0, 0)));
  EXPECT_FALSE(hasColor(cellPicture(1, 1), QColor(0xff, 0xff, 0)));
}

TEST_F(MatchesInList, AreCutWithinTheirCell) {
  std::string wide = item("Author");
  setText(field("Author"), std::as_writable_bytes(std::span(wide)), std::string(40, 'W'));
  open({wide, wide});
  openPanel();
  form().resize(1900, 700);
  table().setColumnWidth(1, 80);
  const QImage beside = cellPicture(1, 2);
  findItems(std::string(20, 'w').c_str());
  const QImage cut = cellPicture(1, 1);
  EXPECT_LT(around(ink(cut)).right(), cut.width() - 1);
  EXPECT_GT(around(ink(cut)).right(), cut.width() / 2);
  EXPECT_EQ(cellPicture(1, 2), beside);
}

class MatchingDates : public MatchesInList {
 protected:
  MatchingDates() : MatchesInList(kVideo) {}
};

TEST_F(MatchingDates, StayAtTheRight) {
  open({item("One"), item("Two")});
  openPanel();
  form().resize(1900, 700);
  int column = 1;
  while (cell(1, column) != "1/1/80") ASSERT_LT(++column, rows().columnCount());
  table().horizontalHeader()->setStretchLastSection(false);
  table().setColumnWidth(column, 200);
  const QImage before = cellPicture(1, column);
  findItems("1/1/80");
  const QImage after = cellPicture(1, column);
  EXPECT_GT(ink(after).size(), ink(before).size());
  EXPECT_NEAR(around(ink(after)).right(), around(ink(before)).right(), 1);
}

}  // namespace
}  // namespace quillbox::test
