#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QRectF>
#include <QStringList>
#include <QXmlStreamReader>
#include <string>
#include <vector>

namespace quillbox::test {

/// A word of a page and its box, in points from the top left corner.
struct Word {
  QString text;
  QRectF box;
};

struct Page {
  QSizeF size;
  QStringList lines;  ///< in the form of linesOf()
  std::vector<Word> words;
};

/// What a reader of PDF documents writes to its standard output.
inline QByteArray readPdf(const QString& program, const QStringList& arguments) {
  QProcess reader;
  reader.start(program, arguments);
  if (!reader.waitForFinished() || reader.exitStatus() != QProcess::NormalExit ||
      reader.exitCode() != 0)
    ADD_FAILURE() << program.toStdString() << ": " << reader.errorString().toStdString() << " "
                  << reader.readAllStandardError().toStdString();
  return reader.readAllStandardOutput();
}

inline QByteArray pdfToText(const QString& layout, const std::string& path) {
  return readPdf(QStringLiteral("pdftotext"),
                 {layout, QStringLiteral("-enc"), QStringLiteral("UTF-8"),
                  QString::fromStdString(path), QStringLiteral("-")});
}

/// The box around everything that is black on the first page, in points. The box of a word is as
/// high as its font says, this one as its letters are.
inline QRectF inkOfTheFirstPage(const std::string& path) {
  constexpr int kDotsPerPoint = 4;
  const QImage page = QImage::fromData(readPdf(
      QStringLiteral("pdftoppm"),
      {QStringLiteral("-png"), QStringLiteral("-gray"), QStringLiteral("-singlefile"),
       QStringLiteral("-r"), QString::number(72 * kDotsPerPoint), QString::fromStdString(path)}));
  EXPECT_FALSE(page.isNull());
  QRect ink;
  for (int y = 0; y < page.height(); ++y)
    for (int x = 0; x < page.width(); ++x)
      if (qGray(page.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
  return {QPointF(ink.topLeft()) / kDotsPerPoint, QSizeF(ink.size()) / kDotsPerPoint};
}

/// The lines that are not empty, with single blanks between words.
inline QStringList linesOf(const QString& text) {
  QStringList lines;
  for (const QString& line : text.split(QLatin1Char('\n')))
    if (const QString words = line.simplified(); !words.isEmpty()) lines << words;
  return lines;
}

/// The pages of a PDF document; one that cannot be read fails the test.
inline std::vector<Page> pagesOf(const std::string& path) {
  std::vector<Page> pages;
  QXmlStreamReader xml(pdfToText(QStringLiteral("-bbox"), path));
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const auto points = [&](const char* name) {
      return xml.attributes().value(QLatin1String(name)).toDouble();
    };
    if (xml.name() == QLatin1String("page")) {
      pages.push_back({{points("width"), points("height")}, {}, {}});
    } else if (xml.name() == QLatin1String("word")) {
      const QRectF box(QPointF(points("xMin"), points("yMin")),
                       QPointF(points("xMax"), points("yMax")));
      pages.back().words.push_back({xml.readElementText(), box});
    }
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  // A form feed ends each page.
  const QString text = QString::fromUtf8(pdfToText(QStringLiteral("-layout"), path));
  const QStringList parts = text.split(QLatin1Char('\f'));
  EXPECT_EQ(parts.size(), static_cast<qsizetype>(pages.size()) + 1);
  for (std::size_t page = 0; page < pages.size(); ++page)
    pages[page].lines = linesOf(parts.value(static_cast<qsizetype>(page)));
  return pages;
}

inline void expectInsideThePage(const Page& page) {
  const QRectF paper(QPointF(0, 0), page.size);
  for (const Word& word : page.words)
    EXPECT_TRUE(paper.contains(word.box)) << word.text.toStdString();
}

}  // namespace quillbox::test
