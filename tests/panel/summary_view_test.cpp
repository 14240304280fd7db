#include "panel/summary_view.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>

#include "forms/sheets.h"
#include "support/form_fixture.h"
#include "support/machine.h"
#include "support/panel_views.h"
#include "support/printed_pdf.h"

namespace quillbox::test {
namespace {

const std::string kFilter = "PDF Documents and PNG Pictures (*.pdf, *.png)|*.pdf;*.png";

/// A printer for drawings that records its calls.
class FakeSheetPrinter : public SheetPrinter {
 public:
  bool fails = false;
  std::string title;
  std::string documentName;
  int sheets = 0;

  bool printSheets(Sheets& printed, const std::string& asked, const std::string& name) override {
    if (fails) throw RunTimeError(ErrorNumber::deviceIo, "the printer");
    title = asked;
    documentName = name;
    sheets = printed.layOut({500, 700});
    return true;
  }
};

std::string album(std::string_view company, int genre, std::int64_t cost, std::int64_t worth) {
  std::string item = itemWith(kMusic, {{"txtArtist", "Artist"}, {"txtRecordCo", company}});
  item = withNumber(kMusic, std::move(item), "cmbGenre", genre);
  item = withNumber(kMusic, std::move(item), "txtAquireCost", cost);
  return withNumber(kMusic, std::move(item), "txtCurrCost", worth);
}

std::string genre(int index) { return builtInChoice(*musicField("Genre"), index); }

/// A summary with the program, which has a collection open.
class SummaryViewTest : public FormTest {
 protected:
  SummaryViewTest() {
    writeFile(path(), musicFile({test::album("A")}));
    start({path()});
    program_->setSheetPrinter(printer_);
  }

  SummaryView& open(const ModelKind& kind = kMusic) {
    view_ = std::make_unique<SummaryView>(kind.row(), overviewTexts(), *program_, asked_.owner());
    view_->resize(700, 500);
    showWindow(*view_);
    return *view_;
  }
  void openWithAlbums() {
    open();
    std::string deleted = album("Gone", 0, 99'0000, 0);
    putBytes(deleted, 0, fixedText("DETELED", 50));
    takeAll(*view_, {album("Blue Note", 1, 12'5000, 20'0000), album("Verve", 2, 1'0000, 2'0000),
                     deleted, album("BLUE NOTE", 1, 0, 1'0000)});
  }
  QTreeView& tree() { return treeOf(*view_); }
  QPushButton& viewButton(const char* name) {
    return *view_->findChild<QPushButton*>(QString::fromUtf8(name));
  }
  void click(const char* name) { QTest::mouseClick(&viewButton(name), Qt::LeftButton); }
  std::string line() { return shownLabel(*view_, "lblSummary"); }

  /// The row of a grouping's bar.
  QModelIndex bar(const char* grouping, const std::string& label, int column = 0) {
    for (int group = 0; group < groupsIn(tree()); ++group) {
      if (rowAt(tree(), group, -1).data().toString() != QString::fromUtf8(grouping)) continue;
      for (int row = 0; row < rowsOf(tree()).sizes()[static_cast<std::size_t>(group)]; ++row)
        if (rowAt(tree(), group, row).data().toString().toStdString() == label)
          return rowAt(tree(), group, row, column);
    }
    ADD_FAILURE() << grouping << ": " << label;
    return {};
  }

  /// Saves under that name; the dialog offers the collection's name.
  void saveAs(std::optional<std::string> answer) {
    desktop_.expectSave("Save Summary", kFilter, "jazz.pdf", std::move(answer));
    click("cmdSaveSummary");
    desktop_.expectNothingLeft();
  }

  AskedOwner asked_;
  FakeSheetPrinter printer_;
  std::unique_ptr<SummaryView> view_;
};

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

TEST_F(SummaryViewTest, ABarIsInTheMiddleOfItsCell) {
  openWithAlbums();
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
  takeAll(*view_, {album("Verve", 2, 1'0000, 2'0000)});
  EXPECT_EQ(line(), "1 album, cost 1, worth 2");
  EXPECT_NE(shownRows(tree()).find("[Record Co] Verve||1|1|2 "), std::string::npos);
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
  view_->take(5, recordOf(album("Verve", 2, 0, 0)));
  view_->take(6, recordOf(album("Verve", 2, 0, 0)));
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
    view_->take(item, recordOf(album("Gold", 1, INT64_MAX, INT64_MAX)));
  view_->showTaken();
  for (int column = 2; column < 5; ++column) {
    const QString text = bar("Record Co", "Gold", column).data().toString();
    EXPECT_GE(tree().columnWidth(column), tree().fontMetrics().horizontalAdvance(text)) << column;
  }
}

// ---- Saving

TEST_F(SummaryViewTest, IsSavedAsADocument) {
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
TEST_F(SummaryViewTest, ADocumentHasTheLocalPaper) {
  QUILLBOX_NEEDS(pdfReader);
  openWithAlbums();
  saveAs(path("sum.pdf"));
  const bool metric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
  const QSizeF paper = metric ? QSizeF(595, 842) : QSizeF(612, 792);
  const QSizeF size = pagesOf(path("sum.pdf")).at(0).size;
  EXPECT_NEAR(size.width(), paper.width(), 1);
  EXPECT_NEAR(size.height(), paper.height(), 1);
}

TEST_F(SummaryViewTest, ManyBarsGoOnOnFurtherPagesWithNoneLost) {
  QUILLBOX_NEEDS(pdfReader);
  open();
  constexpr int publishers = 1'000;
  for (int item = 1; item <= publishers; ++item)
    view_->take(item, recordOf(album("Company " + std::to_string(item), 1, 0, 0)));
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

TEST_F(SummaryViewTest, IsSavedAsAPicture) {
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

TEST_F(SummaryViewTest, APictureHasTheSameMarginsOnAllSides) {
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

TEST_F(SummaryViewTest, APictureOfManyBarsIsNoHigherThanCanBeShown) {
  open();
  constexpr int publishers = 10'000;
  for (int item = 1; item <= publishers; ++item)
    view_->take(item, recordOf(album("Company " + std::to_string(item), 1, 0, 0)));
  view_->showTaken();
  saveAs(path("sum.png"));
  QImage picture;
  ASSERT_TRUE(picture.load(QString::fromStdString(path("sum.png"))));
  EXPECT_LT(picture.height(), 4'000);
}

TEST_F(SummaryViewTest, ANameWithoutAKnownEndingGetsThatOfADocument) {
  openWithAlbums();
  for (const char* name : {"sum", "sum.txt", "png", "pdf"}) {
    saveAs(path(name));
    EXPECT_FALSE(std::filesystem::exists(path(name))) << name;
    EXPECT_TRUE(file(std::string(name) + ".pdf").starts_with("%PDF-")) << name;
  }
}

TEST_F(SummaryViewTest, AFileThatNobodyNamedIsNotWrittenOver) {
  openWithAlbums();
  writeFile(path("sum.pdf"), "mine");
  desktop_.expectSave("Save Summary", kFilter, "jazz.pdf", path("sum"));
  desktop_.expectMessage("Quillbox",
                         "Run-time error '58':\n\nFile already exists\n" + path("sum.pdf"));
  click("cmdSaveSummary");
  EXPECT_EQ(file("sum.pdf"), "mine");
}

TEST_F(SummaryViewTest, AFileThatWasChosenIsReplaced) {
  openWithAlbums();
  writeFile(path("sum.pdf"), std::string(1'000'000, 'x'));
  saveAs(path("sum.pdf"));
  EXPECT_TRUE(file("sum.pdf").starts_with("%PDF-"));
  EXPECT_EQ(file("sum.pdf").find("xxxx"), std::string::npos);
}

TEST_F(SummaryViewTest, CancelledNothingIsSaved) {
  openWithAlbums();
  files_.forget();
  saveAs(std::nullopt);
  saveAs("");
  EXPECT_TRUE(files_.operations().empty());
}

TEST_F(SummaryViewTest, TheOpenCollectionIsNeverWrittenOver) {
  openWithAlbums();
  const std::string before = file();
  makeLink(path(), path("link.pdf"));
  desktop_.expectSave("Save Summary", kFilter, "jazz.pdf", path("link.pdf"));
  desktop_.expectMessage("Quillbox",
                         "Run-time error '55':\n\nFile already open\n" + path("link.pdf"));
  click("cmdSaveSummary");
  EXPECT_EQ(file(), before);
}

TEST_F(SummaryViewTest, WhatCannotBeWrittenIsSaid) {
  openWithAlbums();
  files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
  desktop_.expectSave("Save Summary", kFilter, "jazz.pdf", path("sum.pdf"));
  desktop_.expectMessage("Quillbox", "Run-time error '61':\n\nDisk full\n" + path("sum.pdf"));
  click("cmdSaveSummary");
  EXPECT_TRUE(files_.hasFailed());
  files_.heal();
  saveAs(path("sum.pdf"));
  EXPECT_TRUE(readFile(path("sum.pdf")).starts_with("%PDF-"));
}

// ---- Printing

TEST_F(SummaryViewTest, IsPrinted) {
  openWithAlbums();
  click("cmdPrintSummary");
  EXPECT_EQ(printer_.title, "Print Summary");
  EXPECT_EQ(printer_.documentName, "jazz.pdf");
  EXPECT_EQ(printer_.sheets, 1);
}

TEST_F(SummaryViewTest, WhatCannotBePrintedIsSaid) {
  openWithAlbums();
  printer_.fails = true;
  desktop_.expectMessage("Quillbox", "Run-time error '57':\n\nDevice I/O error\nthe printer");
  click("cmdPrintSummary");
}

TEST_F(SummaryViewTest, IsReachedByKeys) {
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
