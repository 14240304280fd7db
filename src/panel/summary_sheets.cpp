#include "panel/summary_sheets.h"

#include <QPainter>
#include <algorithm>

#include "forms/qt_text.h"

namespace quillbox {
namespace {

constexpr int kFont = 9;
constexpr int kHeadingFont = 11;
constexpr int kTitleFont = 16;
constexpr double kLine = 14;
constexpr double kHeadingLine = 30;
constexpr double kTitleLine = 24;
constexpr double kFoot = 20;  // at the bottom of each sheet
constexpr double kGap = 6;

// As parts of a line's width.
constexpr double kLabelPart = 0.34;
constexpr double kNumberPart = 0.13;

QFont fontOf(int size, bool isBold) {
  QFont font;
  font.setPixelSize(size);
  font.setBold(isBold);
  return font;
}

void drawText(QPainter& painter, const QRectF& room, int flags, const QString& text) {
  const QString shown =
      painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(room.width()));
  painter.drawText(room, flags | Qt::TextSingleLine, shown);
}

}  // namespace

SummarySheets::SummarySheets(const SummaryFigures& figures, bool hasPrices, const QString& title,
                             const QString& totals, std::size_t mostBars)
    : hasPrices_(hasPrices), title_(title) {
  lines_.push_back({Kind::title, title});
  lines_.push_back({Kind::text, totals});
  for (const BarGroup& group : figures.groups) add(group, mostBars);
}

QStringList SummarySheets::numbersOf(const Totals& totals) const {
  QStringList numbers(QString::number(totals.items));
  if (hasPrices_) numbers << fromUtf8Text(totals.cost.text()) << fromUtf8Text(totals.worth.text());
  return numbers;
}

void SummarySheets::add(const BarGroup& group, std::size_t mostBars) {
  QStringList names(QStringLiteral("Items"));
  if (hasPrices_) names << QStringLiteral("Cost") << QStringLiteral("Worth");
  lines_.push_back({Kind::heading, fromUtf8Text(group.grouping->name), 0, names});
  int most = 1;
  for (const Bar& bar : group.bars) most = std::max(most, bar.totals.items);
  const std::size_t drawn = std::min(group.bars.size(), mostBars);
  for (std::size_t at = 0; at < drawn; ++at) {
    const Bar& bar = group.bars[at];
    lines_.push_back({Kind::bar, fromRecordText(bar.label),
                      static_cast<double>(bar.totals.items) / most, numbersOf(bar.totals)});
  }
  if (drawn < group.bars.size())
    lines_.push_back({Kind::text, QStringLiteral("and %1 more").arg(group.bars.size() - drawn)});
}

double SummarySheets::heightOf(const Line& line) {
  switch (line.kind) {
    case Kind::title:
      return kTitleLine;
    case Kind::heading:
      return kHeadingLine;
    case Kind::text:
    case Kind::bar:
      break;
  }
  return kLine;
}

double SummarySheets::wholeHeight() const {
  double height = kFoot;
  for (const Line& line : lines_) height += heightOf(line);
  return height;
}

/// A heading stays on the sheet of its first bar.
int SummarySheets::layOut(QSizeF sheet) {
  sheet_ = sheet;
  int at = 0;
  double top = 0;
  for (Line& line : lines_) {
    const double needed = heightOf(line) + (line.kind == Kind::heading ? kLine : 0);
    if (top > 0 && top + needed > sheet.height() - kFoot) {
      ++at;
      top = 0;
    }
    line.sheet = at;
    line.top = top;
    top += heightOf(line);
  }
  sheets_ = at + 1;
  return sheets_;
}

void SummarySheets::draw(QPainter& painter, int sheet) {
  painter.setPen(Qt::black);
  for (const Line& line : lines_)
    if (line.sheet == sheet) draw(painter, line);
  if (sheets_ == 1) return;
  painter.setFont(fontOf(kFont, false));
  drawText(painter, {0, sheet_.height() - kLine, sheet_.width(), kLine},
           Qt::AlignRight | Qt::AlignVCenter,
           QStringLiteral("%1 of %2").arg(sheet + 1).arg(sheets_));
}

void SummarySheets::draw(QPainter& painter, const Line& line) const {
  const double width = sheet_.width();
  const double height = heightOf(line);
  const bool isTitle = line.kind == Kind::title;
  const bool isHeading = line.kind == Kind::heading;
  painter.setFont(isTitle ? fontOf(kTitleFont, true)
                          : fontOf(isHeading ? kHeadingFont : kFont, isHeading));
  if (line.kind == Kind::title || line.kind == Kind::text)
    return drawText(painter, {0, line.top, width, height}, Qt::AlignLeft | Qt::AlignVCenter,
                    line.label);
  // The space above a heading separates it from the bars before.
  const QRectF row(0, line.top + height - kLine, width, kLine);
  drawText(painter, {0, row.top(), width * kLabelPart - kGap, kLine},
           Qt::AlignLeft | Qt::AlignVCenter, line.label);
  const double numbers = kNumberPart * width * static_cast<double>(line.numbers.size());
  double left = width - numbers;
  if (isHeading) painter.setFont(fontOf(kFont, false));
  for (const QString& number : line.numbers) {
    drawText(painter, {left + kGap, row.top(), width * kNumberPart - kGap, kLine},
             Qt::AlignRight | Qt::AlignVCenter, number);
    left += kNumberPart * width;
  }
  if (isHeading) return painter.drawLine(row.bottomLeft(), row.bottomRight());
  const double room = width - numbers - width * kLabelPart;
  const QRectF bar(width * kLabelPart, row.top() + 3, std::max(1.0, room * line.part), kLine - 6);
  painter.fillRect(bar, QColor(0x4a, 0x6f, 0x9c));
}

}  // namespace quillbox
