#pragma once

#include <QListWidget>
#include <functional>
#include <string>
#include <vector>

#include "forms/recent_collections.h"

namespace quillbox {

/// The recent collections to choose from: an icon, the name, and below it kind, count and folder.
/// Missing ones look disabled and have a remark.
class RecentList : public QListWidget {
 public:
  struct Row {
    RecentCollection collection;
    bool isThere = true;

    bool operator==(const Row&) const = default;
  };

  RecentList();

  /// The current row stays on its collection or, if that is not in the list, at its position.
  /// Initially it is the first collection that exists. Returns whether the rows have changed.
  bool show(const std::vector<Row>& rows);

  /// In the current row; empty when there is none.
  std::string currentPath() const;

  /// Called after one click, or Enter, on a collection that exists.
  std::function<void(const std::string& path)> whenChosen;

  /// Called after the Delete key on any row.
  std::function<void(const std::string& path)> whenRemoved;

  /// As high as its rows.
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
