#pragma once

#include <QString>
#include <QWidget>
#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace quillbox {

/// What a view of the panel asks of it; a view calls these as they are.
struct PanelOwner {
  /// Shows the item on the form, exactly as Go To does, inside Program::run.
  std::function<void(int item)> show;

  /// Lets the list show these items alone (in rising order); `what` says which they are.
  std::function<void(const std::vector<int>& items, const QString& what)> showOnly;
};

/// A view of the panel: a tab that makes something of all items of a collection. It is handed every
/// item when it is first looked at, and from then on each item that changes. It only reads.
class PanelView : public QWidget {
 public:
  using QWidget::QWidget;

  /// Nothing is known: of another collection, or of one that was sorted.
  virtual void start() = 0;

  /// Takes an item, again if it was taken before. Nothing of it need be shown before `showTaken`.
  virtual void take(int item, std::span<const std::byte> record) = 0;

  /// There are only so many items now.
  virtual void cutTo(int count) = 0;

  /// Shows what was taken: when all was read, and after every change from then on.
  virtual void showTaken() = 0;

  /// The form shows this item now; 0: none, or a new one.
  virtual void mark(int /*item*/) {}
};

}  // namespace quillbox
