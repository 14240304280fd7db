// Printed documents are read back from PDF.

#include "platform/qt/qt_printer.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QPrinterInfo>
#include <algorithm>
#include <vector>

#include "support/failure.h"
#include "support/machine.h"
#include "support/printed_pdf.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr double kPitch = 10;  // points
constexpr double kTolerance = 0.05;

/// Each line of a page one font size below the line before.
void expectEvenLines(const Page& page) {
  std::vector<double> tops;
  for (const Word& word : page.words) tops.push_back(word.box.top());
  std::ranges::sort(tops);
  for (std::size_t next = 1; next < tops.size(); ++next) {
    const double distance = tops[next] - tops[next - 1];
    if (distance > 1) {
      EXPECT_NEAR(distance, kPitch, kTolerance) << "line at " << tops[next];
    }
  }
}

std::string numberedLines(int count, const std::string& word = "line") {
  std::string text;
  for (int line = 1; line <= count; ++line) text += word + std::to_string(line) + "\r\n";
  return text;
}

class QtPrinterTest : public testing::Test {
 protected:
  QtPrinterTest() { printTo("list.pdf"); }

  void printTo(const std::string& name) {
    path_ = folder_.path(name);
    printer_.printToPdf(QString::fromStdString(path_));
    printer_.setFont("Courier New", kPitch);
  }
  std::vector<Page> end() {
    printer_.endDocument();
    return pagesOf(path_);
  }
  std::vector<Page> print(const std::string& text) {
    printer_.print(text);
    return end();
  }
  /// How many lines a sheet has.
  int rows() { return static_cast<int>(printer_.printableHeight() / kPitch); }

  TestFolder folder_;
  std::string path_;
  QtPrinter printer_;
};

TEST_F(QtPrinterTest, PrintsEveryLineInOrderAndInsideThePage) {
  QUILLBOX_NEEDS(pdfReader);
  std::string text = "Quillbox V1.71   - Music Collection Printout Page # 1\r\n";
  for (int item = 1; item <= 9; ++item)
    text += "     Record #          :  " + std::to_string(item) +
            " of 9\r\n     Artist            : Björk & <Friends>\r\n     Notes             : \r\n"
            "          " +
            std::string(70, '-') + "\r\n";
  const auto pages = print(text);
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages.front().lines, linesOf(QString::fromStdString(text).remove(QLatin1Char('\r'))));
  expectInsideThePage(pages.front());
  expectEvenLines(pages.front());
}

TEST_F(QtPrinterTest, LinesAreOneFontSizeApartAndBeginAtTheTopLeft) {
  QUILLBOX_NEEDS(pdfReader);
  const int lines = rows();
  const auto pages = print(numberedLines(lines));
  ASSERT_EQ(pages.size(), 1U);
  const auto& words = pages.front().words;
  ASSERT_EQ(words.size(), static_cast<std::size_t>(lines));
  for (std::size_t line = 1; line < words.size(); ++line) {
    EXPECT_EQ(words[line].text, QStringLiteral("line%1").arg(line + 1));
    EXPECT_NEAR(words[line].box.top() - words[line - 1].box.top(), kPitch, kTolerance);
    EXPECT_NEAR(words[line].box.left(), words.front().box.left(), kTolerance);
  }
  // Fonts differ: an "l" is 0.6 to 0.8 of its font's size high and begins 0 to 0.3 from the left.
  const double margin = (pages.front().size.height() - printer_.printableHeight()) / 2;
  const QRectF ink = inkOfTheFirstPage(path_);
  EXPECT_NEAR(ink.top(), margin + 0.1 * kPitch, 0.1 * kPitch);
  EXPECT_NEAR(ink.left(), margin + 0.15 * kPitch, 0.15 * kPitch);
  EXPECT_LE(ink.bottom(), pages.front().size.height() - margin);
  expectInsideThePage(pages.front());
}

TEST_F(QtPrinterTest, AllLettersAreEquallyWideAndBlanksCount) {
  QUILLBOX_NEEDS(pdfReader);
  const auto pages = print("iiiii|\r\nWWWWW|\r\n     |\r\nfiflf|\r\n");
  ASSERT_EQ(pages.size(), 1U);
  const auto& words = pages.front().words;
  ASSERT_EQ(words.size(), 4U);
  EXPECT_NEAR(words[0].box.right(), words[1].box.right(), kTolerance);
  EXPECT_NEAR(words[0].box.right(), words[2].box.right(), kTolerance);
  EXPECT_EQ(words[3].text, QStringLiteral("fiflf|"));  // no letters joined
  EXPECT_NEAR(words[0].box.right(), words[3].box.right(), kTolerance);
}

TEST_F(QtPrinterTest, ASheetHoldsAsManyLinesAsItIsHighAndTheRestComesOnTheNext) {
  QUILLBOX_NEEDS(pdfReader);
  ASSERT_GE(rows(), 75) << "what a listing takes of a sheet";
  auto pages = print(numberedLines(75));
  EXPECT_EQ(pages.size(), 1U);
  for (const int more : {0, 1, rows(), rows() + 1}) {
    SCOPED_TRACE(more);
    const int lines = rows() + more;
    printTo("more" + std::to_string(more) + ".pdf");
    pages = print(numberedLines(lines));
    ASSERT_EQ(pages.size(), static_cast<std::size_t>((lines + rows() - 1) / rows()));
    QStringList all;
    for (const Page& page : pages) {
      all << page.lines;
      EXPECT_LE(page.lines.size(), rows());
      expectInsideThePage(page);
    }
    EXPECT_EQ(all, linesOf(QString::fromStdString(numberedLines(lines))));
  }
}

TEST_F(QtPrinterTest, ALongLineIsComplete) {
  QUILLBOX_NEEDS(pdfReader);
  std::string line;
  while (line.size() < 200) line += std::to_string(line.size()) + "-";
  line.resize(200);
  const auto pages = print("before\r\n" + line + "\r\nbehind\r\n");
  ASSERT_EQ(pages.size(), 1U);
  const Page& page = pages.front();
  ASSERT_GE(page.lines.size(), 4);
  EXPECT_EQ(page.lines.front(), "before");
  EXPECT_EQ(page.lines.back(), "behind");
  EXPECT_EQ(page.lines.mid(1, page.lines.size() - 2).join(QString()), QString::fromStdString(line));
  expectInsideThePage(page);
  expectEvenLines(page);
}

TEST_F(QtPrinterTest, AListingsWidestLineNeedsNoSecondOne) {
  QUILLBOX_NEEDS(pdfReader);
  const std::string line = "     " + std::string(80, 'x');
  const auto pages = print(line + "\r\n");
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages.front().lines, (QStringList{QString(80, QLatin1Char('x'))}));
  expectInsideThePage(pages.front());
}

TEST_F(QtPrinterTest, CharactersBeyondAsciiAppear) {
  QUILLBOX_NEEDS(pdfReader);
  const char* const line = "Björk é à ß Ž € “so” ‘what’ … — ½ ÿ";
  const auto pages = print(std::string(line) + "\r\n");
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages.front().lines, (QStringList{QString::fromUtf8(line)}));
}

// ---- Sheets and documents

TEST_F(QtPrinterTest, ANewPageBeginsASheetForWhatIsPrintedNext) {
  QUILLBOX_NEEDS(pdfReader);
  printer_.print("first\r\n");
  printer_.newPage();
  printer_.print("second\r\n");
  printer_.newPage();
  const auto pages = end();
  ASSERT_EQ(pages.size(), 2U) << "no sheet follows the last page";
  EXPECT_EQ(pages[0].lines, QStringList{"first"});
  EXPECT_EQ(pages[1].lines, QStringList{"second"});
  ASSERT_FALSE(pages[0].words.empty() || pages[1].words.empty());
  EXPECT_NEAR(pages[0].words.front().box.top(), pages[1].words.front().box.top(), kTolerance);
}

TEST_F(QtPrinterTest, AnEmptyPageBetweenOthersIsASheet) {
  QUILLBOX_NEEDS(pdfReader);
  for (const bool printsNothing : {true, false}) {
    SCOPED_TRACE(printsNothing);
    printTo(printsNothing ? "printed.pdf" : "skipped.pdf");
    printer_.print("first\r\n");
    printer_.newPage();
    if (printsNothing) printer_.print("");
    printer_.newPage();
    printer_.print("third\r\n");
    const auto pages = end();
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[0].lines, QStringList{"first"});
    EXPECT_EQ(pages[1].lines, QStringList{});
    EXPECT_EQ(pages[2].lines, QStringList{"third"});
  }
}

TEST_F(QtPrinterTest, AnEmptyPageCanBeTheFirstAndTheLast) {
  QUILLBOX_NEEDS(pdfReader);
  printer_.print("");
  printer_.newPage();
  printer_.print("second\r\n");
  printer_.newPage();
  printer_.print("");
  printer_.newPage();
  const auto pages = end();
  ASSERT_EQ(pages.size(), 3U);
  EXPECT_EQ(pages[1].lines, QStringList{"second"});
}

TEST_F(QtPrinterTest, WithoutAnythingPrintedThereIsNoDocument) {
  printer_.endDocument();
  printer_.dropDocument();
  printer_.endDocument();
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(QtPrinterTest, ADocumentIsEndedOnce) {
  printer_.print("first\r\n");
  printer_.endDocument();
  const std::string document = readFile(path_);
  printer_.endDocument();
  printer_.dropDocument();
  EXPECT_TRUE(readFile(path_) == document);
}

TEST_F(QtPrinterTest, EachDocumentBeginsAnew) {
  QUILLBOX_NEEDS(pdfReader);
  EXPECT_EQ(print("first\r\n").size(), 1U);
  const std::string first = path_;
  printTo("other.pdf");
  const auto pages = print("second\r\n");
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages.front().lines, QStringList{"second"});
  const auto before = pagesOf(first);
  ASSERT_EQ(before.size(), 1U);
  EXPECT_EQ(before.front().lines, QStringList{"first"});
}

TEST_F(QtPrinterTest, ADocumentReplacesTheOneOfThatName) {
  QUILLBOX_NEEDS(pdfReader);
  print(numberedLines(300));
  const auto pages = print("second\r\n");
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages.front().lines, QStringList{"second"});
}

TEST_F(QtPrinterTest, WhatWasDroppedIsNotPrinted) {
  QUILLBOX_NEEDS(pdfReader);
  printer_.print("dropped\r\n");
  printer_.newPage();
  printer_.print("dropped, too\r\n");
  printer_.newPage();
  printer_.dropDocument();
  const auto pages = print("kept\r\n");
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages.front().lines, QStringList{"kept"});
}

TEST_F(QtPrinterTest, WhatWasDroppedLeavesNoDocument) {
  printer_.print("dropped\r\n");
  printer_.newPage();
  printer_.dropDocument();
  EXPECT_FALSE(std::filesystem::exists(path_)) << "a part of a listing looks like the whole";
}

TEST_F(QtPrinterTest, ADocumentThatCannotBeWrittenIsAnErrorEachTime) {
  QUILLBOX_NEEDS(pdfReader);
  printTo("gone/list.pdf");
  for (int time = 1; time <= 2; ++time) {
    EXPECT_EQ(failureOf([&] { print("text\r\n"); }), (Failure{57, path_}));
    EXPECT_EQ(failureOf([&] { printer_.newPage(); }), (Failure{57, path_}));
    printer_.dropDocument();
  }
  printTo("list.pdf");
  EXPECT_EQ(print("text\r\n").size(), 1U);
}

TEST_F(QtPrinterTest, ADocumentThatMayNotBeWrittenIsAnErrorAndStaysAsItIs) {
  QUILLBOX_NEEDS(readOnlyFiles);
  writeFile(path_, "another's");
  std::filesystem::permissions(path_, std::filesystem::perms::owner_read);
  {
    const OrdinaryUser user(folder_);
    EXPECT_EQ(failureOf([&] { printer_.print("text\r\n"); }), (Failure{57, path_}));
    printer_.dropDocument();
  }
  EXPECT_EQ(readFile(path_), "another's");
}

#ifndef _WIN32  // where there is no device for it
TEST_F(QtPrinterTest, ADiskThatIsFullIsAnErrorHoweverShortTheDocument) {
  path_ = "/dev/full";
  ASSERT_TRUE(std::filesystem::exists(path_));
  for (const int pages : {1, 5, 50}) {
    printer_.printToPdf(QString::fromStdString(path_));
    const auto print = [&] {
      for (int page = 1; page <= pages; ++page) {
        printer_.print("text\r\n");
        printer_.newPage();
      }
      printer_.endDocument();
    };
    EXPECT_EQ(failureOf(print), (Failure{57, path_})) << pages << " pages";
    printer_.dropDocument();
  }
}
#endif

// ---- The paper

TEST_F(QtPrinterTest, WithoutAPrinterThePaperIsWhatTheSystemMeasuresIn) {
  QUILLBOX_NEEDS(pdfReader);
  if (!QPrinterInfo::availablePrinterNames().isEmpty())
    GTEST_SKIP() << "a printer has paper of its own";
  const bool metric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
  constexpr double margins = 36;
  EXPECT_NEAR(printer_.printableHeight(), (metric ? 842 : 792) - margins, 1);
  const auto pages = print("text\r\n");
  ASSERT_EQ(pages.size(), 1U);
  ASSERT_EQ(pages.front().words.size(), 1U);
  EXPECT_NEAR(pages.front().size.height(), metric ? 842 : 792, 1);
  EXPECT_NEAR(pages.front().size.width(), metric ? 595 : 612, 1);
  EXPECT_NEAR(pages.front().words.front().box.left(), margins / 2, 1);
}

TEST(PrintQueue, TakesAListing) {
  const QStringList queues = QPrinterInfo::availablePrinterNames();
  if (queues.isEmpty()) GTEST_SKIP() << "no print queue is installed";
  QtPrinter printer;
  printer.printTo(queues.constFirst(), 1);
  printer.setFont("Courier New", kPitch);
  EXPECT_EQ(failureOf([&] {
              printer.print("Quillbox prints a test page.\r\n");
              printer.newPage();
              printer.endDocument();
            }),
            Failure{});
}

}  // namespace
}  // namespace quillbox::test
