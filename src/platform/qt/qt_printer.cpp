#include "platform/qt/qt_printer.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <algorithm>

#include "forms/qt_text.h"
#include "platform/qt/print_layout.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kPdfMargin = 18;  // in points, as desktop printers have it
constexpr double kAscentOfALine = 0.8;
constexpr double kLeastSpacing = 1.0 / 64;  // dots of the printer

/// How many whole steps fit, at least one.
int fitting(double space, double step) {
  constexpr double tolerance = 1e-6;
  return std::max(1, static_cast<int>(space / step + tolerance));
}

/// The toolkit does not report a failure to write when it closes a document.
bool isWholeDocument(const QString& fileName) {
  constexpr qint64 lastBytes = 32;
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, file.size() - lastBytes)))
    return false;
  return file.read(lastBytes).contains("%%EOF");
}

}  // namespace

QtPrinter::QtPrinter() {
  device_.setDocName(QStringLiteral("Quillbox"));
  if (!isPdf()) return;
  device_.setPageSize(localPageSize());
  device_.setPageMargins(QMarginsF(kPdfMargin, kPdfMargin, kPdfMargin, kPdfMargin),
                         QPageLayout::Point);
}

void QtPrinter::printToPdf(const QString& fileName) {
  const QPageLayout layout = device_.pageLayout();
  device_.setOutputFormat(QPrinter::PdfFormat);
  device_.setPageLayout(layout);
  device_.setOutputFileName(fileName);
}

void QtPrinter::printTo(const QString& printerName, int copies) {
  device_.setOutputFileName(QString());
  device_.setPrinterName(printerName);
  device_.setCopyCount(copies);
}

void QtPrinter::setFont(const std::string& name, double points) {
  // If the font is missing: one with equally wide letters, or at least a fixed-width one.
  font_ = QFont(QStringList{QString::fromStdString(name), QStringLiteral("Liberation Mono"),
                            QStringLiteral("Nimbus Mono PS"), QStringLiteral("DejaVu Sans Mono")});
  font_.setStyleHint(QFont::TypeWriter);
  font_.setFixedPitch(true);
  font_.setPointSizeF(points);
  // Some fixed-width fonts draw "fi" as one letter of one column. Letters with space between them,
  // be it too small to see, are not joined.
  font_.setLetterSpacing(QFont::AbsoluteSpacing, kLeastSpacing);
}

double QtPrinter::printableHeight() {
  return device_.pageLayout().paintRect(QPageLayout::Point).height();
}

void QtPrinter::print(const std::string& text) {
  openSheet();
  const double pointsWide = device_.pageLayout().paintRect(QPageLayout::Point).width();
  const double letter = QFontMetricsF(font_, &device_).horizontalAdvance(QLatin1Char('0')) *
                        kPointsPerInch / device_.logicalDpiX();
  const auto sheets = sheetsOf(QString::fromStdString(text), fitting(pointsWide, letter),
                               fitting(printableHeight(), font_.pointSizeF()));
  for (std::size_t sheet = 0; sheet < sheets.size(); ++sheet) {
    if (sheet > 0 && !device_.newPage()) fail();
    drawSheet(sheets[sheet]);
  }
}

void QtPrinter::drawSheet(const QStringList& lines) {
  const double pitch = font_.pointSizeF() * device_.logicalDpiY() / kPointsPerInch;
  painter_.setFont(font_);
  double top = 0;
  for (const QString& line : lines) {
    painter_.drawText(QPointF(0, top + kAscentOfALine * pitch), line);
    top += pitch;
  }
}

void QtPrinter::printSheets(Sheets& sheets) { expectDelivered(paintSheets(sheets, device_)); }

void QtPrinter::newPage() {
  if (isSheetDue_ || !painter_.isActive()) openSheet();
  isSheetDue_ = true;
}

void QtPrinter::openSheet() {
  if (!painter_.isActive()) {
    if (!painter_.begin(&device_)) fail();
  } else if (isSheetDue_ && !device_.newPage()) {
    fail();
  }
  isSheetDue_ = false;
}

void QtPrinter::endDocument() {
  isSheetDue_ = false;
  if (!painter_.isActive()) return;
  expectDelivered(painter_.end());
}

void QtPrinter::expectDelivered(bool isPainted) const {
  if (!isPainted || device_.printerState() == QPrinter::Error) fail();
  if (isPdf() && !isWholeDocument(device_.outputFileName())) fail();
}

void QtPrinter::dropDocument() {
  isSheetDue_ = false;
  if (!painter_.isActive()) return;
  device_.abort();
  painter_.end();
  // A document with only some of the pages would look complete.
  if (isPdf() && QFileInfo(device_.outputFileName()).isFile())
    QFile::remove(device_.outputFileName());
}

bool QtPrinter::isPdf() const { return device_.outputFormat() == QPrinter::PdfFormat; }

void QtPrinter::fail() const {
  throw RunTimeError(ErrorNumber::deviceIo, isPdf() ? toPath(device_.outputFileName())
                                                    : device_.printerName().toStdString());
}

}  // namespace quillbox
