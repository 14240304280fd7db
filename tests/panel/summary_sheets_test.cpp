#include "panel/summary_sheets.h"

#include <gtest/gtest.h>

#include <QPdfWriter>

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

}  // namespace
}  // namespace quillbox::test
