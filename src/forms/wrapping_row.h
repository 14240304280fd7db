#pragma once

#include <QLayout>
#include <vector>

class QWidget;

namespace quillbox {

/// A row of buttons that wraps if the window is too narrow. The leading widget is on the left, the
/// rest on the right.
class WrappingRow : public QLayout {
 public:
  WrappingRow() = default;
  WrappingRow(const WrappingRow&) = delete;
  WrappingRow& operator=(const WrappingRow&) = delete;
  ~WrappingRow() override;

  /// The leading widget; the first to be added.
  void addLead(QWidget* lead);

  /// Starts another group of buttons, a little apart from the one before.
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
  /// Adjacent items, from one index up to another, and the space they take.
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
