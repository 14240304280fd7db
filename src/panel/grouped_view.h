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

/// Rows that tell of one click, or of Enter, on them; some are headings.
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

/// A view that shows rows in groups: a line that sums up, and the rows below it. The row the user
/// is on and what is scrolled to stay so while items change. While nobody looks it does nothing.
class GroupedView : public PanelView {
 public:
  void start() final;
  void showTaken() final;
  void mark(int item) final;

 protected:
  struct ViewColumn {
    QString name;
    int characters;  ///< that it has room for at first
    bool isNumber = false;
  };

  struct Words {
    QString treeName;  ///< of the control
    QString caption;   ///< that it is known by
    QString empty;     ///< shown instead where there is nothing
    std::vector<ViewColumn> columns;
  };
  explicit GroupedView(const Words& words);
  ~GroupedView() override;

  /// What the rows are made of, gathered anew.
  struct Shown {
    QString line;  ///< above the tree
    std::vector<int> sizes;
    bool isEmpty;
  };

  /// Nothing that was taken counts any more.
  virtual void forget() = 0;

  /// Makes rows of what was taken; they hold until it is called again.
  virtual Shown gather() = 0;

  /// What a cell shows; of a heading only the first column, which has the room of all.
  virtual QString textOf(const GroupedCell& cell) const = 0;

  /// Whatever else is said of a cell, as models say it.
  virtual QVariant moreOf(const GroupedCell& cell, int role) const;

  /// By which a row, or a group, is found again after a change.
  virtual std::string idOf(const GroupedCell& cell) const = 0;

  /// The item that a row stands for; 0: none.
  virtual int itemOf(const GroupedCell& cell) const;

  /// A row, never a heading, was clicked.
  virtual void choose(const GroupedCell& cell) = 0;

  void showEvent(QShowEvent* event) override;

  ChoosingTree& tree() { return *tree_; }
  const GroupedRows& rows() const { return *rows_; }
  QVBoxLayout& page() { return *page_; }

  /// Makes a column that is narrower so wide; its heading always has room.
  void widen(int column, int width);

  /// The row that the user is on; a heading without a group where there is none.
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
  bool markIsDue_ = false;  // it came while rows were not what they should be
};

/// "1 item", "2 items".
QString countOfItems(std::size_t count);

}  // namespace quillbox
