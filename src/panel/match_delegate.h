#pragma once

#include <QStyledItemDelegate>

namespace quillbox {

class ItemTable;

/// Draws the cells of an ItemTable, with the words searched for in bold.
class MatchDelegate : public QStyledItemDelegate {
 public:
  explicit MatchDelegate(const ItemTable& table, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  const ItemTable& table_;
};

}  // namespace quillbox
