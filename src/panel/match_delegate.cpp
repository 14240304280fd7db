#include "panel/match_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

#include "panel/item_table.h"

namespace quillbox {
namespace {

/// Each character of a text is one byte of a record.
QList<QTextLayout::FormatRange> boldRanges(const std::vector<TextRange>& matches) {
  QList<QTextLayout::FormatRange> ranges;
  for (const auto& [start, length] : matches) {
    QTextLayout::FormatRange range;
    range.start = static_cast<int>(start);
    range.length = static_cast<int>(length);
    range.format.setFontWeight(QFont::Bold);
    ranges << range;
  }
  return ranges;
}

}  // namespace

MatchDelegate::MatchDelegate(const ItemTable& table, QObject* parent)
    : QStyledItemDelegate(parent), table_(table) {}

void MatchDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const auto matches = table_.matchesIn(index);
  if (matches.empty()) return QStyledItemDelegate::paint(painter, option, index);

  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QString text = std::exchange(cell.text, QString());
  const QStyle& style = *(cell.widget != nullptr ? cell.widget->style() : QApplication::style());
  style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
  const QRect room = cell.rect.adjusted(margin, 0, -margin, 0);
  QFont bold = cell.font;
  bold.setBold(true);
  // Bold letters are wider: the cut text fits however much of it is bold.
  QTextLayout layout(QFontMetrics(bold).elidedText(text, Qt::ElideRight, room.width()), cell.font);
  QTextOption lines(cell.displayAlignment);
  lines.setWrapMode(QTextOption::NoWrap);
  layout.setTextOption(lines);
  layout.setFormats(boldRanges(matches));
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(room.width());
  layout.endLayout();

  const bool isChosen = cell.state.testFlag(QStyle::State_Selected);
  const bool isActive = cell.state.testFlag(QStyle::State_Active);
  painter->save();
  painter->setClipRect(cell.rect);
  painter->setPen(cell.palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                     isChosen ? QPalette::HighlightedText : QPalette::Text));
  layout.draw(painter, room.topLeft() + QPointF(0, (room.height() - line.height()) / 2));
  painter->restore();
}

}  // namespace quillbox
