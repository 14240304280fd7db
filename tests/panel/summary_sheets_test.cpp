#include "panel/summary_sheets.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <string>
#include <vector>

#include "forms/sheets.h"
#include "support/machine.h"
#include "support/overview_model.h"
#include "support/printed_pdf.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

class SummarySheetsTest : public testing::Test {
 protected:
  /// Of these publishers, one book each, drawn with so many bars for each grouping.
  SummarySheets sheets(int publishers, std::size_t mostBars) {
    Summary summary(kBooks.row(), overviewTexts());
    for (int item = 1; item <= publishers; ++item) {
      const std::string company = "Company " + std::to_string(item);
      summary.take(item, recordOf(itemWith(kBooks, {{"txtBooks_2", company}})));
    }
    return {summary.figures(), false, "books", "totals", mostBars};
  }
  QStringList linesOf(SummarySheets sheets) {
    const std::string path = folder_.path("sum.pdf");
    {
      QPdfWriter writer(QString::fromStdString(path));
      EXPECT_TRUE(paintSheets(sheets, writer));
    }
    QStringList lines;
    for (const Page& page : pagesOf(path)) lines << page.lines;
    return lines;
  }

  TestFolder folder_;
};

TEST_F(SummarySheetsTest, SaysHowManyBarsAreLeftOut) {
  QUILLBOX_NEEDS(pdfReader);
  const QStringList lines = linesOf(sheets(5, 3));
  EXPECT_EQ(lines.filter("Company ").size(), 3) << lines.join('|').toStdString();
  EXPECT_EQ(lines.filter("more"), QStringList("and 2 more"));
}

TEST_F(SummarySheetsTest, SaysNothingWhereNoBarIsLeftOut) {
  QUILLBOX_NEEDS(pdfReader);
  const QStringList lines = linesOf(sheets(5, 5));
  EXPECT_EQ(lines.filter("Company ").size(), 5) << lines.join('|').toStdString();
  EXPECT_EQ(lines.filter("more"), QStringList());
}

/// The bars of a picture of the sheets, from top to bottom: a pixel is a point.
std::vector<QRect> barsOf(SummarySheets sheets, double width) {
  QImage picture(QSizeF(width, sheets.wholeHeight()).toSize(), QImage::Format_RGB32);
  picture.fill(Qt::white);
  EXPECT_EQ(sheets.layOut(picture.size()), 1);
  QPainter painter(&picture);
  sheets.draw(painter, 0);
  painter.end();
  std::vector<QRect> bars;
  for (int y = 0; y < picture.height(); ++y) {
    QRect line;
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y) == QColor(0x4a, 0x6f, 0x9c)) line |= QRect(x, y, 1, 1);
    if (line.isNull()) continue;
    const bool goesOn = !bars.empty() && bars.back().bottom() == y - 1;
    goesOn ? bars.back() |= line : bars.emplace_back(line);
  }
  return bars;
}

TEST_F(SummarySheetsTest, BarsBeginBehindTheLabelsAndEndBeforeTheNumbers) {
  constexpr double width = 500;
  Summary summary(kBooks.row(), overviewTexts());
  int item = 0;
  for (const char* company : {"A", "A", "A", "A", "B", "B", "C"})
    summary.take(++item, recordOf(itemWith(kBooks, {{"txtBooks_2", company}})));
  const auto bars = barsOf({summary.figures(), false, "books", "totals", 9}, width);
  ASSERT_GE(bars.size(), 3U);
  const QRect longest = bars.at(bars.size() - 3);  // of A
  EXPECT_NEAR(longest.left(), width / 3, 20);
  EXPECT_GT(longest.right(), width * 3 / 4);
  EXPECT_LT(longest.right(), width - 40);
  EXPECT_NEAR(bars.at(bars.size() - 2).width(), longest.width() / 2, 2);
  EXPECT_NEAR(bars.back().width(), longest.width() / 4, 2);
  for (const QRect& bar : bars) {
    EXPECT_EQ(bar.left(), longest.left());
    EXPECT_EQ(bar.height(), longest.height());
    EXPECT_GE(bar.height(), 6);
  }
  Summary one(kBooks.row(), overviewTexts());
  one.take(1, recordOf(itemWith(kBooks, {{"txtBooks_2", "A"}})));
  EXPECT_EQ(barsOf({one.figures(), false, "books", "totals", 9}, width).front().width(),
            longest.width());
  // There is some white between two bars.
  EXPECT_GT(bars.back().top(), bars.at(bars.size() - 2).bottom() + 3);
}

TEST_F(SummarySheetsTest, LabelsAreCutWhereTheirBarsBegin) {
  QUILLBOX_NEEDS(pdfReader);
  Summary summary(kBooks.row(), overviewTexts());
  summary.take(1, recordOf(itemWith(kBooks, {{"txtBooks_2", std::string(50, 'W')}})));
  SummarySheets cut(summary.figures(), false, "books", "totals", 9);
  const std::string path = folder_.path("sum.pdf");
  QSizeF room;
  {
    QPdfWriter writer(QString::fromStdString(path));
    room = writer.pageLayout().paintRectPoints().size();
    EXPECT_TRUE(paintSheets(cut, writer));
  }
  const int bars = barsOf(cut, room.width()).back().left();
  const std::vector<Word> words = pagesOf(path).at(0).words;
  const auto wordsLike = [&](const char* start) {
    std::vector<QRectF> found;
    for (const Word& word : words)
      if (word.text.startsWith(QLatin1String(start))) found.push_back(word.box);
    return found;
  };
  ASSERT_EQ(wordsLike("WWW").size(), 1U);
  const double left = wordsLike("books").at(0).left();
  const QRectF label = wordsLike("WWW").at(0);
  EXPECT_NEAR(label.left(), left, 0.5);
  EXPECT_LT(label.width(), bars);
  EXPECT_GT(label.width(), bars / 2);
  EXPECT_GT(wordsLike("books").at(0).height(), label.height()) << "the title is larger";
  for (const QRectF& number : wordsLike("1"))
    EXPECT_NEAR(number.right(), wordsLike("Items").at(0).right(), 1);
}

}  // namespace
}  // namespace quillbox::test
