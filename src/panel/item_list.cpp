#include "panel/item_list.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "forms/elided_label.h"
#include "forms/qt_text.h"
#include "forms/status_line.h"

namespace quillbox {

ItemList::ItemList(Collection collection, Owner owner, PanelSettings* settings)
    : collection_(std::move(collection)),
      owner_(std::move(owner)),
      settings_(settings),
      index_(collection_.files, collection_.open, collection_.kind, collection_.texts),
      filter_(index_),
      orderReading_(collection_.files, collection_.open, collection_.kind) {
  const auto isDeleted = [this](int item) {
    return item <= index_.readItems() && index_.isDeleted(item);
  };
  const auto matches = [this](std::string_view text) { return filter_.matchesIn(text); };
  items_ = new ItemTable(CollectionStore(collection_.files, collection_.open, collection_.kind),
                         collection_.texts, {isDeleted, matches});
  items_->setParent(this);

  auto* column = new QVBoxLayout(this);
  const int margin = column->spacing();
  column->setContentsMargins(margin, margin, margin, margin);
  column->addWidget(makeFindLine());
  column->addWidget(makeOnlyLine());
  makeTable();
  column->addWidget(table_, 1);
  status_ = new StatusText;
  status_->setObjectName(QStringLiteral("lblItems"));
  column->addWidget(status_);
  showColumns();
}

ItemList::~ItemList() = default;

void ItemList::start(int count) {
  index_.start(count);
  filter_.setOnly(std::nullopt);
  onlyLine_->hide();
  filter_.start();
  orderReading_.start(count);
  if (order_) order_ = std::make_unique<ItemOrder>(order_->column(), collection_.texts);
  orderIsRead_ = false;
  items_->forgetRecords();
  items_->setItems({});
  tell();
  owner_.moreToRead();
}

void ItemList::setCount(int count) {
  const bool isFewer = count < index_.count();
  index_.setCount(count);
  orderReading_.setCount(count);
  if (isFewer) {
    filter_.start();
    if (order_) order_->cutTo(count);
    items_->forgetRecords();
    showRows();
  }
  orderIsRead_ = false;
  owner_.moreToRead();
}

void ItemList::take(int item, std::span<const std::byte> record) {
  const bool isAdded = item > index_.count();
  index_.take(item, record);
  filter_.take(item);
  if (isAdded) orderReading_.setCount(index_.count());
  // An item that the order has not reached yet is passed to it later.
  if (order_ && item <= orderReading_.readItems()) order_->take(item, record);
  items_->take(item, record);
  if (isAdded) orderIsRead_ = false;
  if (index_.failure()) triesAgain_ = true;
  showRows();
  owner_.moreToRead();
}

bool ItemList::readOn(const ItemReading::Stop& stop) {
  const bool triesAgain = std::exchange(triesAgain_, false);
  if (index_.state() == ReadState::unfinished || (index_.failure() && triesAgain)) {
    const std::size_t before = filter_.items().size();
    index_.readOn(stop);
    filter_.readOn();
    const auto& found = filter_.items();
    if (!order_)
      items_->appendItems({found.begin() + static_cast<std::ptrdiff_t>(before), found.end()});
    markRow();
  }
  if (index_.state() != ReadState::unfinished && order_ && !orderIsRead_) readOrder(stop);
  tell();
  return index_.state() == ReadState::unfinished ||
         (order_ && !orderIsRead_ && orderReading_.state() == ReadState::unfinished);
}

void ItemList::readOrder(const ItemReading::Stop& stop) {
  orderReading_.readOn(
      [this](int item, std::span<const std::byte> record) { order_->take(item, record); }, stop);
  if (orderReading_.state() != ReadState::done) return;
  orderIsRead_ = true;
  showRows();
}

/// A click on a header sorts by its column, a second click reverses the order; the number column is
/// the order of the file.
void ItemList::orderBy(int section) {
  QHeaderView& header = *table_->horizontalHeader();
  if (section == ItemTable::kNumberColumn) {
    order_.reset();
    header.setSortIndicatorShown(false);
    return showRows();
  }
  const Column& column = *items_->columns().at(static_cast<std::size_t>(section - 1));
  const bool isSame = order_ && &order_->column() == &column;
  direction_ = isSame && direction_ == Direction::up ? Direction::down : Direction::up;
  header.setSortIndicatorShown(true);
  header.setSortIndicator(section,
                          direction_ == Direction::up ? Qt::AscendingOrder : Qt::DescendingOrder);
  if (isSame) return showRows();
  order_ = std::make_unique<ItemOrder>(column, collection_.texts);
  orderIsRead_ = false;
  orderReading_.start(index_.count());
  owner_.moreToRead();
}

/// The matching items in their order; as in the file until the order is known.
void ItemList::showRows() {
  std::vector<int> shown = filter_.items();
  if (order_ && orderIsRead_) {
    shown = order_->order(direction_);
    std::erase_if(shown, [this](int item) { return !filter_.isWanted(item); });
  }
  items_->setItems(std::move(shown));
  markRow();
  tell();
}

void ItemList::find() {
  filter_.setWords(toRecordText(txtFind_->text()));
  showRows();
}

void ItemList::mark(int item) {
  marked_ = item;
  markRow();
  if (failure()) tryAgain();
}

/// What prevents items from being shown or sorted.
const std::optional<RunTimeError>& ItemList::failure() const {
  if (index_.failure()) return index_.failure();
  return order_ && orderReading_.failure() ? orderReading_.failure() : items_->failure();
}

/// What prevented items from being read may be over now.
void ItemList::tryAgain() {
  items_->forgetRecords();
  triesAgain_ = true;
  owner_.moreToRead();
}

void ItemList::markRow() {
  const int row = marked_ < 1 ? -1 : items_->rowOf(marked_);
  if (row == table_->currentIndex().row()) return;
  if (row < 0) {
    table_->selectionModel()->clear();
    return;
  }
  table_->selectRow(row);
  table_->scrollTo(items_->index(row, 0));
}

void ItemList::showRow(int row) {
  if (row >= 0 && row < items_->rowCount()) owner_.show(items_->itemAt(row));
}

void ItemList::showNext() {
  if (items_->rowCount() > 0) showRow((table_->currentIndex().row() + 1) % items_->rowCount());
}

void ItemList::showOnly(const std::vector<int>& items, const QString& what) {
  filter_.setOnly(items);
  lblOnly_->showText(what);
  onlyLine_->show();
  showRows();
}

void ItemList::showAll() {
  const bool hadFocus = onlyLine_->isAncestorOf(QApplication::focusWidget());
  filter_.setOnly(std::nullopt);
  onlyLine_->hide();
  if (hadFocus) txtFind_->setFocus();
  showRows();
}

void ItemList::focusFind() {
  txtFind_->setFocus(Qt::ShortcutFocusReason);
  txtFind_->selectAll();
}

bool ItemList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  return watched == txtFind_ ? findKey(key.key()) : tableKey(key.key(), key.modifiers());
}

bool ItemList::findKey(int key) {
  switch (key) {
    case Qt::Key_Down:
      if (!table_->currentIndex().isValid() && items_->rowCount() > 0) table_->selectRow(0);
      table_->setFocus(Qt::OtherFocusReason);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      showRow(std::max(table_->currentIndex().row(), 0));
      return true;
    case Qt::Key_Escape:
      if (!txtFind_->text().isEmpty())
        txtFind_->clear();
      else if (onlyLine_->isVisible())
        showAll();
      else
        owner_.leave();
      return true;
    default:
      return false;
  }
}

bool ItemList::tableKey(int key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    showRow(table_->currentIndex().row());
    return true;
  }
  if (key == Qt::Key_C && modifiers == Qt::ControlModifier) {
    copySelected();
    return true;
  }
  if (key == Qt::Key_Escape) {
    focusFind();
    return true;
  }
  return false;
}

/// In the order shown.
std::vector<int> ItemList::selectedItems() const {
  std::vector<int> rows;
  for (const QModelIndex& chosen : table_->selectionModel()->selectedRows())
    rows.push_back(chosen.row());
  std::ranges::sort(rows);
  for (int& row : rows) row = items_->itemAt(row);
  return rows;
}

void ItemList::copySelected() {
  const auto chosen = selectedItems();
  if (chosen.empty()) return;
  owner_.run([&] { QApplication::clipboard()->setText(items_->asText(chosen)); });
}

/// The number of items, the totals of the selected ones, and why the rest is not shown.
void ItemList::tell() {
  const int all = index_.count() - index_.deletedItems();
  QString text;
  const auto chosen = selectedItems();
  if (const auto& failure = this->failure()) {
    text = QStringLiteral("Not all items could be read: ") + fromUtf8Text(failure->message());
  } else if (chosen.size() > 1) {
    text = QStringLiteral("%1 items selected").arg(chosen.size());
    try {
      const QString sums = items_->sumsOf(chosen);
      if (!sums.isEmpty()) text += QStringLiteral(": ") + sums;
    } catch (const RunTimeError& error) {
      text += QStringLiteral(": ") + fromUtf8Text(error.message());
    }
  } else if (index_.state() == ReadState::unfinished) {
    text = QStringLiteral("%1 of %2 items read").arg(index_.readItems()).arg(index_.count());
  } else if (all < 1 && items_->rowCount() < 1) {
    text = QStringLiteral("No items yet");
  } else if (filter_.isActive() && items_->rowCount() < 1) {
    text = QStringLiteral("No item has all of this");
  } else {
    text = fromUtf8Text(itemsText(collection_.kind, all));
    if (filter_.isActive()) text = QStringLiteral("%1 of %2").arg(items_->rowCount()).arg(text);
    if (index_.deletedItems() > 0)
      text += QStringLiteral(", %1 deleted").arg(index_.deletedItems());
  }
  status_->showText(text.replace(QLatin1Char('\n'), QLatin1Char(' ')));
}

}  // namespace quillbox
