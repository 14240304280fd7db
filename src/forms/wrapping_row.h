#pragma once

#include <QLayout>
#include <vector>

class QWidget;

namespace quillbox {

/// A row of buttons that goes on in further lines when the window is too narrow for it. What leads
/// the row stands at the left, the rest at the right.
class WrappingRow : public QLayout {
 public:
  WrappingRow() = default;
  WrappingRow(const WrappingRow&) = delete;
  WrappingRow& operator=(const WrappingRow&) = delete;
  ~WrappingRow() override;

  /// The widget that leads the row; the first to be added.
  void addLead(QWidget* lead);

  /// From here on another group of buttons, a little apart from the one before.
  void addGap() { gaps_.push_back(items_.size()); }

  void addItem(QLayoutItem* item) override { items_.push_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;

  /// All in one line.
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  void setGeometry(const QRect& place) override;

 private:
  /// Neighbours, from one item up to another, and what they take.
  struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;
    int width = 0;
    int height = 0;
  };
  std::vector<Line> lines(int width) const;
  int gapBefore(std::size_t item) const;
  QSize sizeOf(std::size_t item) const { return items_[item]->sizeHint(); }

  std::vector<QLayoutItem*> items_;
  std::vector<std::size_t> gaps_;
  bool hasLead_ = false;
};

}  // namespace quillbox
