#pragma once

#include <QStyledItemDelegate>

namespace quillbox {

/// Draws a bar in its cell, in the palette's colours; the model gives its part of the cell's width.
class BarDelegate : public QStyledItemDelegate {
 public:
  /// The role of that part: a number from 0 to 1.
  static constexpr int kPartRole = Qt::UserRole;

  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace quillbox
