#include "panel/grouped_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "forms/controls.h"
#include "forms/elided_label.h"

namespace quillbox {
namespace {

constexpr GroupedCell kNowhere = {-1, -1};

QStringList namesOf(const auto& columns) {
  QStringList names;
  for (const auto& column : columns) names << column.name;
  return names;
}

}  // namespace

ChoosingTree::ChoosingTree() {
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setEditTriggers(NoEditTriggers);
  setRootIsDecorated(false);
  connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& row) {
    if (whenChosen) whenChosen(row);
  });
}

/// A key that is held down chooses nothing: it may be the one that closed a message box.
void ChoosingTree::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || !currentIndex().isValid()) return QTreeView::keyPressEvent(event);
  if (!event->isAutoRepeat() && whenChosen) whenChosen(currentIndex());
}

/// A heading takes the width of all columns.
void ChoosingTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  if (!isHeading || !isHeading(index)) return QTreeView::drawRow(painter, option, index);
  QStyleOptionViewItem heading = option;
  heading.rect.setLeft(0);
  heading.rect.setWidth(viewport()->width());
  heading.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
  heading.state.setFlag(QStyle::State_HasFocus, hasFocus() && index.row() == currentIndex().row());
  heading.showDecorationSelected = true;
  itemDelegate()->paint(painter, heading, index);
}

GroupedView::GroupedView(const Words& words) : columns_(words.columns) {
  page_ = new QVBoxLayout(this);
  line_ = new ElidedLabel;
  line_->setObjectName(QStringLiteral("lbl") + words.treeName);
  empty_ = new QLabel(words.empty);
  nameControl(*empty_, QStringLiteral("lblNo") + words.treeName, words.empty);
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setWordWrap(true);
  empty_->setTextFormat(Qt::PlainText);
  empty_->hide();
  rows_ = new GroupedRows(namesOf(columns_),
                          [this](const GroupedCell& cell, int role) { return dataOf(cell, role); });
  rows_->setParent(this);
  tree_ = new ChoosingTree;
  nameControl(*tree_, QStringLiteral("tre") + words.treeName, words.caption);
  tree_->setModel(rows_);
  tree_->header()->setDefaultSectionSize(tree_->header()->minimumSectionSize());
  for (std::size_t column = 0; column < columns_.size(); ++column)
    widen(static_cast<int>(column), columns_[column].characters * fontMetrics().averageCharWidth());
  tree_->header()->setStretchLastSection(!columns_.back().isNumber);
  tree_->isHeading = [this](const QModelIndex& row) { return rows_->cellOf(row).isHeading(); };
  tree_->whenChosen = [this](const QModelIndex& row) {
    if (const GroupedCell cell = rows_->cellOf(row); !cell.isHeading()) choose(cell);
  };
  page_->addWidget(line_);
  page_->addWidget(tree_, 1);
  page_->addWidget(empty_, 1);
}

/// A window that is hidden during destruction lays out its rows again, when their contents are
/// gone.
GroupedView::~GroupedView() { rows_->show({}); }

void GroupedView::widen(int column, int width) {
  const int needed = std::max(width, tree_->header()->sectionSizeHint(column));
  if (tree_->columnWidth(column) < needed) tree_->setColumnWidth(column, needed);
}

QVariant GroupedView::moreOf(const GroupedCell& /*cell*/, int /*role*/) const { return {}; }

int GroupedView::itemOf(const GroupedCell& /*cell*/) const { return 0; }

QVariant GroupedView::dataOf(const GroupedCell& cell, int role) const {
  if (role == Qt::DisplayRole)
    return cell.isHeading() && cell.column > 0 ? QString() : textOf(cell);
  if (role == Qt::FontRole && cell.isHeading()) {
    QFont bold = font();
    bold.setBold(true);
    return bold;
  }
  if (role == Qt::TextAlignmentRole &&
      columns_.at(static_cast<std::size_t>(cell.column)).isNumber && !cell.isHeading())
    return QVariant(Qt::AlignVCenter | Qt::AlignRight);
  return moreOf(cell, role);
}

/// The rows are removed at once: from now on their numbers mean other items.
void GroupedView::start() {
  rows_->show({});
  marked_ = 0;
  forget();
  isStale_ = false;
  line_->showText(QString());
  tree_->show();
  empty_->hide();
}

void GroupedView::showTaken() {
  isStale_ = true;
  if (isVisible()) refresh();
}

void GroupedView::showEvent(QShowEvent* event) {
  PanelView::showEvent(event);
  if (isStale_) refresh();
}

void GroupedView::refresh() {
  isStale_ = false;
  const GroupedCell before = current();
  const std::string id = before.group < 0 ? std::string() : idOf(before);
  const int scrolled = tree_->verticalScrollBar()->value();
  const bool hadFocus = tree_->hasFocus();
  const bool wasSelected = tree_->selectionModel()->hasSelection();
  rows_->show({});  // their contents are about to go
  Shown shown = gather();
  line_->showText(shown.line);
  tree_->setVisible(!shown.sizes.empty());
  empty_->setVisible(shown.isEmpty);
  rows_->show(std::move(shown.sizes));
  if (before.group >= 0)
    setCurrent(cellWith([&](const GroupedCell& cell) {
      return cell.isHeading() == before.isHeading() && idOf(cell) == id;
    }));
  if (!wasSelected) tree_->clearSelection();
  if (std::exchange(markIsDue_, false) || current().group < 0) showMarked();
  tree_->verticalScrollBar()->setValue(scrolled);
  if (hadFocus && tree_->isVisible()) tree_->setFocus();
}

GroupedCell GroupedView::cellWith(const std::function<bool(const GroupedCell& cell)>& is) const {
  const std::vector<int>& sizes = rows_->sizes();
  for (std::size_t group = 0; group < sizes.size(); ++group)
    for (int row = -1; row < sizes[group]; ++row)
      if (const GroupedCell cell = {static_cast<int>(group), row}; is(cell)) return cell;
  return kNowhere;
}

GroupedCell GroupedView::current() const {
  const QModelIndex index = tree_->currentIndex();
  return index.isValid() ? rows_->cellOf(index) : kNowhere;
}

void GroupedView::setCurrent(const GroupedCell& cell) {
  if (cell.group >= 0) tree_->setCurrentIndex(rows_->indexOf({cell.group, cell.row}));
}

void GroupedView::mark(int item) {
  marked_ = item;
  markIsDue_ = isStale_;
  if (!isStale_) showMarked();
}

/// The row of an item not on the form is not marked, but remains the place to continue from.
void GroupedView::showMarked() {
  const GroupedCell at = current();
  const bool isOnItem = at.group >= 0 && itemOf(at) != 0;
  if (isOnItem && itemOf(at) == marked_) return tree_->setCurrentIndex(tree_->currentIndex());
  const GroupedCell marked = cellWith([this](const GroupedCell& cell) {
    return !cell.isHeading() && marked_ > 0 && itemOf(cell) == marked_;
  });
  setCurrent(marked);
  if (isOnItem && marked.group < 0) tree_->clearSelection();
}

QString countOfItems(std::size_t count) {
  return count == 1 ? QStringLiteral("1 item") : QStringLiteral("%1 items").arg(count);
}

}  // namespace quillbox
