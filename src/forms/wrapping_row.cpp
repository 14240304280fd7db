#include "forms/wrapping_row.h"

#include <QWidget>
#include <algorithm>
#include <limits>

namespace quillbox {

WrappingRow::~WrappingRow() {
  for (const QLayoutItem* item : items_) delete item;
}

void WrappingRow::addLead(QWidget* lead) {
  addWidget(lead);
  hasLead_ = true;
}

QLayoutItem* WrappingRow::itemAt(int index) const {
  const auto at = static_cast<std::size_t>(index);
  return index >= 0 && at < items_.size() ? items_[at] : nullptr;
}

QLayoutItem* WrappingRow::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item != nullptr) items_.erase(items_.begin() + index);
  return item;
}

/// The gap between an item and the one on its left.
int WrappingRow::gapBefore(std::size_t item) const {
  return std::ranges::count(gaps_, item) > 0 ? 3 * spacing() : spacing();
}

std::vector<WrappingRow::Line> WrappingRow::lines(int width) const {
  std::vector<Line> lines;
  for (std::size_t item = 0; item < items_.size(); ++item) {
    const QSize size = sizeOf(item);
    const int wider = gapBefore(item) + size.width();
    if (lines.empty() || lines.back().width + wider > width)
      lines.push_back({item, item, size.width(), 0});
    else
      lines.back().width += wider;
    lines.back().end = item + 1;
    lines.back().height = std::max(lines.back().height, size.height());
  }
  return lines;
}

QSize WrappingRow::sizeHint() const {
  const auto all = lines(std::numeric_limits<int>::max());
  return all.empty() ? QSize(0, 0) : QSize(all.front().width, all.front().height);
}

QSize WrappingRow::minimumSize() const {
  QSize widest(0, 0);
  for (std::size_t item = 0; item < items_.size(); ++item) widest = widest.expandedTo(sizeOf(item));
  return widest;
}

int WrappingRow::heightForWidth(int width) const {
  int height = -spacing();
  for (const Line& line : lines(width)) height += spacing() + line.height;
  return std::max(height, 0);
}

void WrappingRow::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  int top = place.top();
  for (const auto& [begin, end, width, height] : lines(place.width())) {
    int left = place.right() + 1 - width;
    for (std::size_t item = begin; item < end; ++item) {
      if (item > begin) left += gapBefore(item);
      const QSize size = sizeOf(item);
      const bool leads = hasLead_ && item == 0;
      const int above = (height - size.height()) / 2;
      items_[item]->setGeometry(QRect(QPoint(leads ? place.left() : left, top + above), size));
      left += size.width();
    }
    top += height + spacing();
  }
}

}  // namespace quillbox
