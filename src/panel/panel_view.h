#pragma once

#include <QString>
#include <QWidget>
#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace quillbox {

/// What a view needs from the panel; it calls these directly.
struct PanelOwner {
  /// Shows the item on the form, exactly like Go To, inside Program::run.
  std::function<void(int item)> show;

  /// Makes the list show only these items (in rising order); `what` describes them.
  std::function<void(const std::vector<int>& items, const QString& what)> showOnly;
};

/// A view of the panel: a tab that evaluates all items of a collection. It gets every item once it
/// is first opened, and from then on each item that changes. It only reads.
class PanelView : public QWidget {
 public:
  using QWidget::QWidget;

  /// Discards everything: for another collection, or one that was sorted.
  virtual void start() = 0;

  /// Adds an item, or replaces it. It need not be shown before `showTaken`.
  virtual void take(int item, std::span<const std::byte> record) = 0;

  /// Keeps only the items up to `count`.
  virtual void cutTo(int count) = 0;

  /// Shows the items taken: when all have been read, and after every change from then on.
  virtual void showTaken() = 0;

  /// The form now shows this item; 0: none, or a new one.
  virtual void mark(int /*item*/) {}
};

}  // namespace quillbox
