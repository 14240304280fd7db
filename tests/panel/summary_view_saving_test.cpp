// A summary is saved and printed.

#include <QImage>

#include "support/machine.h"
#include "support/printed_pdf.h"
#include "support/summary_fixture.h"

namespace quillbox::test {
namespace {

class SummarySaving : public SummaryViewTest {};

// ---- Saving

TEST_F(SummarySaving, IsSavedAsADocument) {
  QUILLBOX_NEEDS(pdfReader);
  openWithAlbums();
  saveAs(path("sum.pdf"));
  const auto pages = pagesOf(path("sum.pdf"));
  ASSERT_EQ(pages.size(), 1U);
  expectInsideThePage(pages[0]);
  const QStringList& lines = pages[0].lines;
  EXPECT_EQ(lines.value(0), "jazz.MCS");
  EXPECT_EQ(lines.value(1), "3 albums, 1 deleted, cost 13.5, worth 23");
  EXPECT_TRUE(lines.contains("Genre Items Cost Worth"));
  EXPECT_TRUE(lines.contains("Blue Note 2 12.5 21"));
  EXPECT_TRUE(lines.contains("Verve 1 1 2"));
}

/// Where paper is metric, that is also the toolkit's own choice.
TEST_F(SummarySaving, ADocumentHasTheLocalPaper) {
  QUILLBOX_NEEDS(pdfReader);
  openWithAlbums();
  saveAs(path("sum.pdf"));
  const bool metric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
  const QSizeF paper = metric ? QSizeF(595, 842) : QSizeF(612, 792);
  const QSizeF size = pagesOf(path("sum.pdf")).at(0).size;
  EXPECT_NEAR(size.width(), paper.width(), 1);
  EXPECT_NEAR(size.height(), paper.height(), 1);
}

/// Half an inch of paper stays white on all sides.
TEST_F(SummarySaving, ADocumentHasMarginsAndSaysWhatItIs) {
  QUILLBOX_NEEDS(pdfReader);
  openWithAlbums();
  saveAs(path("sum.pdf"));
  const Page page = pagesOf(path("sum.pdf")).at(0);
  QRectF all;
  for (const Word& word : page.words) all |= word.box;
  EXPECT_NEAR(all.left(), 36, 2);
  EXPECT_NEAR(page.size.width() - all.right(), 36, 2);
  EXPECT_NEAR(all.top(), 36, 8);
  const auto inUtf16 = [](const std::string& text) {
    std::string wide("\xFE\xFF");
    for (const char letter : text) wide += std::string(1, '\0') + letter;
    return "(" + wide + ")";
  };
  const std::string bytes = file("sum.pdf");
  EXPECT_NE(bytes.find("/Title " + inUtf16("jazz.MCS")), std::string::npos);
  EXPECT_NE(bytes.find("/Creator " + inUtf16("Quillbox")), std::string::npos);
}

TEST_F(SummarySaving, ManyBarsGoOnOnFurtherPagesWithNoneLost) {
  QUILLBOX_NEEDS(pdfReader);
  open();
  constexpr int publishers = 1'000;
  for (int item = 1; item <= publishers; ++item)
    view_->take(item, recordOf(pricedAlbum("Company " + std::to_string(item), 1, 0, 0)));
  view_->showTaken();
  saveAs(path("sum.pdf"));
  const auto pages = pagesOf(path("sum.pdf"));
  EXPECT_GT(pages.size(), 10U);
  int found = 0;
  for (const Page& page : pages) {
    expectInsideThePage(page);
    found += static_cast<int>(page.lines.filter("Company ").size());
  }
  EXPECT_EQ(found, publishers);
  EXPECT_TRUE(pages[1].lines.contains(QStringLiteral("2 of %1").arg(pages.size())));
}

TEST_F(SummarySaving, IsSavedAsAPicture) {
  openWithAlbums();
  saveAs(path("Sum \xC3\xA9.PNG"));
  QImage picture;
  ASSERT_TRUE(picture.load(QString::fromStdString(path("Sum \xC3\xA9.PNG")), "PNG"));
  EXPECT_EQ(picture.pixelColor(1, 1), QColor(Qt::white));
  int bars = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y) == QColor(0x4a, 0x6f, 0x9c)) ++bars;
  EXPECT_GT(bars, 1'000);
}

TEST_F(SummarySaving, APictureHasTheSameMarginsOnAllSides) {
  openWithAlbums();
  saveAs(path("sum.png"));
  QImage picture;
  ASSERT_TRUE(picture.load(QString::fromStdString(path("sum.png"))));
  QRect drawn;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y) != QColor(Qt::white)) drawn |= QRect(x, y, 1, 1);
  const int left = drawn.left();
  EXPECT_NEAR(left, 72, 4);  // half an inch, at two pixels to the point
  EXPECT_NEAR(picture.width() - 1 - drawn.right(), left, 4);
  EXPECT_NEAR(drawn.top(), left, 24);
  EXPECT_NEAR(picture.height() - 1 - drawn.bottom(), left, 60);  // with the foot of a sheet
}

TEST_F(SummarySaving, APictureOfManyBarsIsNoHigherThanCanBeShown) {
  open();
  constexpr int publishers = 10'000;
  for (int item = 1; item <= publishers; ++item)
    view_->take(item, recordOf(pricedAlbum("Company " + std::to_string(item), 1, 0, 0)));
  view_->showTaken();
  saveAs(path("sum.png"));
  QImage picture;
  ASSERT_TRUE(picture.load(QString::fromStdString(path("sum.png"))));
  EXPECT_LT(picture.height(), 4'000);
}

TEST_F(SummarySaving, ANameWithoutAKnownEndingGetsThatOfADocument) {
  openWithAlbums();
  for (const char* name : {"sum", "sum.txt", "png", "pdf"}) {
    saveAs(path(name));
    EXPECT_FALSE(std::filesystem::exists(path(name))) << name;
    EXPECT_TRUE(file(std::string(name) + ".pdf").starts_with("%PDF-")) << name;
  }
}

TEST_F(SummarySaving, AFileThatNobodyNamedIsNotWrittenOver) {
  openWithAlbums();
  writeFile(path("sum.pdf"), "mine");
  desktop_.expectSave("Save Summary", kSummaryFilter, "jazz.pdf", path("sum"));
  desktop_.expectMessage("Quillbox",
                         "Run-time error '58':\n\nFile already exists\n" + path("sum.pdf"));
  click("cmdSaveSummary");
  EXPECT_EQ(file("sum.pdf"), "mine");
}

TEST_F(SummarySaving, AFileThatWasChosenIsReplaced) {
  openWithAlbums();
  writeFile(path("sum.pdf"), std::string(1'000'000, 'x'));
  saveAs(path("sum.pdf"));
  EXPECT_TRUE(file("sum.pdf").starts_with("%PDF-"));
  EXPECT_EQ(file("sum.pdf").find("xxxx"), std::string::npos);
}

TEST_F(SummarySaving, CancelledNothingIsSaved) {
  openWithAlbums();
  files_.forget();
  saveAs(std::nullopt);
  saveAs("");
  EXPECT_TRUE(files_.operations().empty());
}

TEST_F(SummarySaving, TheOpenCollectionIsNeverWrittenOver) {
  openWithAlbums();
  const std::string before = file();
  makeLink(path(), path("link.pdf"));
  desktop_.expectSave("Save Summary", kSummaryFilter, "jazz.pdf", path("link.pdf"));
  desktop_.expectMessage("Quillbox",
                         "Run-time error '55':\n\nFile already open\n" + path("link.pdf"));
  click("cmdSaveSummary");
  EXPECT_EQ(file(), before);
}

TEST_F(SummarySaving, WhatCannotBeWrittenIsSaid) {
  openWithAlbums();
  files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
  desktop_.expectSave("Save Summary", kSummaryFilter, "jazz.pdf", path("sum.pdf"));
  desktop_.expectMessage("Quillbox", "Run-time error '61':\n\nDisk full\n" + path("sum.pdf"));
  click("cmdSaveSummary");
  EXPECT_TRUE(files_.hasFailed());
  files_.heal();
  saveAs(path("sum.pdf"));
  EXPECT_TRUE(readFile(path("sum.pdf")).starts_with("%PDF-"));
}

// ---- Printing

TEST_F(SummarySaving, IsPrinted) {
  openWithAlbums();
  click("cmdPrintSummary");
  EXPECT_EQ(printer_.title, "Print Summary");
  EXPECT_EQ(printer_.documentName, "jazz.pdf");
  EXPECT_EQ(printer_.sheets, 1);
}

TEST_F(SummarySaving, WhatCannotBePrintedIsSaid) {
  openWithAlbums();
  printer_.fails = true;
  desktop_.expectMessage("Quillbox", "Run-time error '57':\n\nDevice I/O error\nthe printer");
  click("cmdPrintSummary");
}

TEST_F(SummarySaving, IsReachedByKeys) {
  openWithAlbums();
  tree().setFocus();
  QTest::keyClick(&tree(), Qt::Key_Tab);
  EXPECT_TRUE(viewButton("cmdPrintSummary").hasFocus());
  QTest::keyClick(&viewButton("cmdPrintSummary"), Qt::Key_Space);
  EXPECT_EQ(printer_.title, "Print Summary");
  QTest::keyClick(&viewButton("cmdPrintSummary"), Qt::Key_Tab);
  EXPECT_TRUE(viewButton("cmdSaveSummary").hasFocus());
}

}  // namespace
}  // namespace quillbox::test
