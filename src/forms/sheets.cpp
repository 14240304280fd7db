#include "forms/sheets.h"

#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>

namespace quillbox {

bool paintSheets(Sheets& sheets, QPagedPaintDevice& device) {
  constexpr double pointsPerInch = 72;
  const int count = sheets.layOut(device.pageLayout().paintRect(QPageLayout::Point).size());
  QPainter painter;
  if (!painter.begin(&device)) return false;
  for (int sheet = 0; sheet < count; ++sheet) {
    if (sheet > 0 && !device.newPage()) return false;
    painter.save();
    painter.scale(device.logicalDpiX() / pointsPerInch, device.logicalDpiY() / pointsPerInch);
    sheets.draw(painter, sheet);
    painter.restore();
  }
  return painter.end();
}

QPageSize localPageSize() {
  const bool metric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
  return QPageSize(metric ? QPageSize::A4 : QPageSize::Letter);
}

}  // namespace quillbox
