#include "panel/bar_delegate.h"

#include <QPainter>
#include <algorithm>

namespace quillbox {

/// The edge has the text colour, so the bar is visible whatever the other colours are.
void BarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const double part = std::clamp(index.data(kPartRole).toDouble(), 0.0, 1.0);
  if (part <= 0) return;
  const int air = std::max(2, option.rect.height() / 6);
  QRectF bar = QRectF(option.rect).adjusted(air + 0.5, air + 0.5, -air - 0.5, -air - 0.5);
  bar.setWidth(std::max(1.0, bar.width() * part));
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QPalette& colors = option.palette;
  painter->save();
  painter->setPen(colors.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
  painter->setBrush(colors.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight));
  painter->drawRect(bar);
  painter->restore();
}

}  // namespace quillbox
