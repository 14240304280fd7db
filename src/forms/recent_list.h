#pragma once

#include <QListWidget>
#include <functional>
#include <string>
#include <vector>

#include "forms/recent_collections.h"

namespace quillbox {

/// The recent collections to choose from: an icon, the name, and below it kind, count and folder.
/// Those that are gone look disabled and say so.
class RecentList : public QListWidget {
 public:
  struct Row {
    RecentCollection collection;
    bool isThere = true;

    bool operator==(const Row&) const = default;
  };

  RecentList();

  /// The current row stays on its collection or, if that is not among them, where it was. At first
  /// it is the first one that is there. Returns whether they are others than before.
  bool show(const std::vector<Row>& rows);

  /// Of the current row; empty when there is none.
  std::string currentPath() const;

  /// One click, or Enter, on a collection that is there.
  std::function<void(const std::string& path)> whenChosen;

  /// The Delete key on any.
  std::function<void(const std::string& path)> whenRemoved;

  /// As high as its rows, and no higher.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void choose(const QListWidgetItem* item);
  int firstThere() const;
  int heightOf(int rows) const;
  void measure();

  std::vector<Row> rows_;
};

}  // namespace quillbox
