#pragma once

#include <QStringList>
#include <QTreeView>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "panel/grouped_rows.h"
#include "panel/panel_view.h"

class QLabel;
class QVBoxLayout;

namespace quillbox {

class ElidedLabel;

/// Rows that report a click or Enter on them; some are headings.
class ChoosingTree : public QTreeView {
 public:
  ChoosingTree();

  std::function<bool(const QModelIndex& row)> isHeading;
  std::function<void(const QModelIndex& row)> whenChosen;

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void keyPressEvent(QKeyEvent* event) override;
};

/// A view with grouped rows: a line with a summary, and the rows below it. The current row and the
/// scroll position stay the same while items change. An invisible view does nothing.
class GroupedView : public PanelView {
 public:
  void start() final;
  void showTaken() final;
  void mark(int item) final;

 protected:
  struct ViewColumn {
    QString name;
    int characters;  ///< its initial width
    bool isNumber = false;
  };

  struct Words {
    QString treeName;  ///< the object name
    QString caption;   ///< the accessible name
    QString empty;     ///< shown instead when there are no rows
    std::vector<ViewColumn> columns;
  };
  explicit GroupedView(const Words& words);
  ~GroupedView() override;

  /// The contents of the rows, computed anew.
  struct Shown {
    QString line;  ///< above the tree
    std::vector<int> sizes;
    bool isEmpty;
  };

  /// Discards everything taken so far.
  virtual void forget() = 0;

  /// Computes the rows from what was taken; they are valid until the next call.
  virtual Shown gather() = 0;

  /// The text of a cell; a heading has only the first column, which takes the width of all.
  virtual QString textOf(const GroupedCell& cell) const = 0;

  /// Anything else about a cell, by the model's roles.
  virtual QVariant moreOf(const GroupedCell& cell, int role) const;

  /// Identifies a row, or a group, after a change.
  virtual std::string idOf(const GroupedCell& cell) const = 0;

  /// The item of a row; 0: none.
  virtual int itemOf(const GroupedCell& cell) const;

  /// A row, not a heading, was clicked.
  virtual void choose(const GroupedCell& cell) = 0;

  void showEvent(QShowEvent* event) override;

  ChoosingTree& tree() { return *tree_; }
  const GroupedRows& rows() const { return *rows_; }
  QVBoxLayout& page() { return *page_; }

  /// Widens a column to at least this width; its heading always fits.
  void widen(int column, int width);

  /// The current row; a heading without a group when there is none.
  GroupedCell current() const;
  void setCurrent(const GroupedCell& cell);

 private:
  QVariant dataOf(const GroupedCell& cell, int role) const;
  void refresh();
  void showMarked();
  GroupedCell cellWith(const std::function<bool(const GroupedCell& cell)>& is) const;

  std::vector<ViewColumn> columns_;
  QVBoxLayout* page_;
  ElidedLabel* line_;
  QLabel* empty_;
  GroupedRows* rows_;
  ChoosingTree* tree_;
  bool isStale_ = false;
  int marked_ = 0;
  bool markIsDue_ = false;  // it was requested while the rows were out of date
};

/// "1 item", "2 items".
QString countOfItems(std::size_t count);

}  // namespace quillbox
