#pragma once

#include <QTreeView>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "panel/grouped_rows.h"
#include "panel/panel_view.h"
#include "support/keys.h"
#include "support/overview_model.h"

/// A view of the panel for its user: a window of its own, worked with mouse and keys.
namespace quillbox::test {

/// The owner of the view, recording its calls.
struct AskedOwner {
  std::vector<int> shown;
  std::vector<std::pair<std::vector<int>, std::string>> only;

  PanelOwner owner() {
    return {
        .show = [this](int item) { shown.push_back(item); },
        .showOnly = [this](const std::vector<int>& items,
                           const QString& what) { only.emplace_back(items, what.toStdString()); }};
  }
};

inline void takeAll(PanelView& view, const std::vector<std::string>& items) {
  for (std::size_t at = 0; at < items.size(); ++at)
    view.take(static_cast<int>(at) + 1, recordOf(items[at]));
  view.showTaken();
}

inline void showWindow(QWidget& view) {
  view.show();
  view.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
}

inline QTreeView& treeOf(const QWidget& view) { return *view.findChild<QTreeView*>(); }

/// The text of a label of the view; empty while it is hidden.
inline std::string shownLabel(const QWidget& view, const char* name) {
  const auto* label = view.findChild<QLabel*>(QString::fromUtf8(name));
  return label->isVisible() ? label->text().toStdString() : std::string();
}

inline const GroupedRows& rowsOf(const QTreeView& tree) {
  return dynamic_cast<const GroupedRows&>(*tree.model());
}

inline int groupsIn(const QTreeView& tree) { return static_cast<int>(rowsOf(tree).sizes().size()); }

inline QModelIndex rowAt(const QTreeView& tree, int group, int row, int column = 0) {
  return rowsOf(tree).indexOf({group, row, column});
}

/// Each group with its heading and rows, as they are shown: "[Ann (1 item)] Artist|Album".
inline std::string shownRows(const QTreeView& tree) {
  std::string text;
  if (!tree.isVisible()) return text;
  for (int group = 0; group < groupsIn(tree); ++group) {
    text += "[" + rowAt(tree, group, -1).data().toString().toStdString() + "]";
    for (int row = 0; row < rowsOf(tree).sizes()[static_cast<std::size_t>(group)]; ++row)
      for (int column = 0; column < tree.model()->columnCount(); ++column)
        text += (column > 0 ? "|" : " ") +
                rowAt(tree, group, row, column).data().toString().toStdString();
    text += " ";
  }
  return text;
}

inline std::string headersOf(const QTreeView& tree) {
  std::string text;
  for (int column = 0; column < tree.model()->columnCount(); ++column)
    text += (column > 0 ? "|" : "") +
            tree.model()->headerData(column, Qt::Horizontal).toString().toStdString();
  return text;
}

inline void clickRow(QTreeView& tree, const QModelIndex& row) {
  tree.scrollTo(row);
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(row).center());
}

/// The first cell of the marked row; empty: none.
inline std::string markedRow(const QTreeView& tree) {
  const auto rows = tree.selectionModel()->selectedRows();
  return rows.isEmpty() ? std::string() : rows.front().data().toString().toStdString();
}

}  // namespace quillbox::test
