// The parts of the list of all items: the line for finding items, the table, its columns.

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <algorithm>

#include "forms/controls.h"
#include "forms/elided_label.h"
#include "forms/panel_settings.h"
#include "forms/qt_text.h"
#include "panel/item_list.h"
#include "panel/match_delegate.h"

namespace quillbox {
namespace {

/// In average characters.
constexpr int kWidestNumber = 7;
constexpr int kUsualText = 24;
constexpr int kUsualNumber = 12;

}  // namespace

QWidget* ItemList::makeFindLine() {
  txtFind_ = new QLineEdit;
  txtFind_->setClearButtonEnabled(true);
  txtFind_->setPlaceholderText(QStringLiteral("Words anywhere in an item"));
  txtFind_->setToolTip(QStringLiteral("Find items as you type (Ctrl+Shift+F)"));
  txtFind_->installEventFilter(this);
  QLabel* caption = makeCaption(*txtFind_, QStringLiteral("txtFindItems"), QStringLiteral("Find:"));
  connect(txtFind_, &QLineEdit::textChanged, this, [this] { find(); });

  chkDeleted_ = new QCheckBox(QStringLiteral("Deleted"));
  nameControl(*chkDeleted_, QStringLiteral("chkDeleted"), chkDeleted_->text());
  chkDeleted_->setToolTip(QStringLiteral("List deleted items, too, struck through"));
  connect(chkDeleted_, &QCheckBox::toggled, this, [this](bool shown) {
    filter_.showDeleted(shown);
    showRows();
  });

  auto* columns = makeButton(QStringLiteral("cmdColumns"), QStringLiteral("Columns"));
  columns->setToolTip(QStringLiteral("Choose the columns and the order"));
  columnMenu_ = new QMenu(columns);
  columnMenu_->setObjectName(QStringLiteral("ColumnMenu"));
  connect(columnMenu_, &QMenu::aboutToShow, this, [this] { fillMenu(); });
  columns->setMenu(columnMenu_);

  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins({});
  row->addWidget(caption);
  row->addWidget(txtFind_, 1);
  row->addWidget(chkDeleted_);
  row->addWidget(columns);
  return line;
}

/// What a view of the panel has selected, and a button to return to all items.
QWidget* ItemList::makeOnlyLine() {
  onlyLine_ = new QWidget;
  auto* row = new QHBoxLayout(onlyLine_);
  row->setContentsMargins({});
  lblOnly_ = new ElidedLabel;
  lblOnly_->setObjectName(QStringLiteral("lblOnly"));
  auto* all = makeButton(QStringLiteral("cmdShowAll"), QStringLiteral("Show All"));
  explain(*all, QStringLiteral("List all items again"), QStringLiteral("Escape"));
  connect(all, &QPushButton::clicked, this, [this] { showAll(); });
  row->addWidget(lblOnly_, 1);
  row->addWidget(all);
  onlyLine_->hide();
  return onlyLine_;
}

void ItemList::makeTable() {
  table_ = new QTableView;
  nameControl(*table_, QStringLiteral("tblItems"), QStringLiteral("Items"));
  table_->setModel(items_);
  table_->setItemDelegate(new MatchDelegate(*items_, table_));
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->setWordWrap(false);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->installEventFilter(this);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
  QHeaderView& header = *table_->horizontalHeader();
  header.setSectionsClickable(true);
  header.setHighlightSections(false);
  header.setToolTip(QStringLiteral("Click: order by this column. Right click: choose columns"));
  header.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&header, &QHeaderView::sectionClicked, this, &ItemList::orderBy);
  connect(&header, &QWidget::customContextMenuRequested, this,
          [this, &header](const QPoint& at) { columnMenu_->popup(header.mapToGlobal(at)); });
  connect(table_, &QAbstractItemView::clicked, this, [this](const QModelIndex& clicked) {
    // With Control or Shift held, rows are selected, not shown.
    if (QApplication::keyboardModifiers() == Qt::NoModifier) showRow(clicked.row());
  });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { tell(); });
}

std::vector<const Column*> ItemList::chosenColumns() const {
  const QStringList kept =
      settings_ != nullptr ? settings_->columns(collection_.kind) : QStringList();
  std::vector<const Column*> chosen;
  for (const Column& column : columnsOf(collection_.kind))
    if (kept.isEmpty() ? column.shownAtFirst : kept.contains(fromUtf8Text(column.name)))
      chosen.push_back(&column);
  return chosen;
}

void ItemList::showColumns() {
  items_->setColumns(chosenColumns());
  const int character = fontMetrics().averageCharWidth();
  QHeaderView& header = *table_->horizontalHeader();
  header.resizeSection(ItemTable::kNumberColumn, kWidestNumber * character);
  for (int section = 1; section < items_->columnCount(); ++section) {
    const Column& column = *items_->columns().at(static_cast<std::size_t>(section - 1));
    const bool isText = column.kind == ColumnKind::text || column.kind == ColumnKind::choice;
    const int usual = (isText ? kUsualText : kUsualNumber) * character;
    header.resizeSection(section, std::max(usual, header.sectionSizeHint(section)));
  }
  header.setStretchLastSection(true);
}

void ItemList::chooseColumn(const Column& column, bool shown) {
  QStringList names;
  const auto now = items_->columns();
  for (const Column& each : columnsOf(collection_.kind)) {
    const bool wasShown = std::ranges::find(now, &each) != now.end();
    if (&each == &column ? shown : wasShown) names << fromUtf8Text(each.name);
  }
  if (names.isEmpty()) return;  // a list of numbers alone is useless
  if (settings_ != nullptr) settings_->setColumns(collection_.kind, names);
  std::vector<const Column*> chosen;
  for (const Column& each : columnsOf(collection_.kind))
    if (names.contains(fromUtf8Text(each.name))) chosen.push_back(&each);
  items_->setColumns(chosen);
  showColumns();
  showRows();
}

/// The columns to choose from, and keyboard access to the sorting that the mouse offers.
void ItemList::fillMenu() {
  columnMenu_->clear();
  const auto shown = items_->columns();
  for (const Column& column : columnsOf(collection_.kind)) {
    QAction* action = columnMenu_->addAction(fromUtf8Text(column.name));
    action->setCheckable(true);
    action->setChecked(std::ranges::find(shown, &column) != shown.end());
    connect(action, &QAction::triggered, this,
            [this, &column](bool checked) { chooseColumn(column, checked); });
  }
  columnMenu_->addSeparator();
  QMenu* order = columnMenu_->addMenu(QStringLiteral("Order By"));
  order->setObjectName(QStringLiteral("OrderMenu"));
  for (int section = 0; section < items_->columnCount(); ++section) {
    const QString name = items_->headerData(section, Qt::Horizontal).toString();
    connect(order->addAction(name), &QAction::triggered, this,
            [this, section] { orderBy(section); });
  }
}

}  // namespace quillbox
