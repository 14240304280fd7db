#include "panel/item_table.h"

#include <QFont>
#include <algorithm>
#include <utility>

#include "forms/qt_text.h"
#include "overview/summary.h"

namespace quillbox {
namespace {

/// More than any screen shows.
constexpr std::size_t kMostRecords = 1'000;

/// Without the characters that a spreadsheet takes for the end of a cell.
QString asCell(QString text) {
  for (QChar& character : text)
    if (character == QLatin1Char('\t') || character == QLatin1Char('\n') ||
        character == QLatin1Char('\r'))
      character = QLatin1Char(' ');
  return text;
}

}  // namespace

ItemTable::ItemTable(CollectionStore store, RecordTexts texts, Source source)
    : store_(std::move(store)), texts_(std::move(texts)), source_(std::move(source)) {}

void ItemTable::setItems(std::vector<int> items) {
  failure_.reset();
  if (items == items_) {
    // The same items, but perhaps with other words in bold.
    if (!items_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    return;
  }
  beginResetModel();
  items_ = std::move(items);
  endResetModel();
}

void ItemTable::appendItems(const std::vector<int>& items) {
  if (items.empty()) return;
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(items.size()) - 1);
  items_.insert(items_.end(), items.begin(), items.end());
  endInsertRows();
}

void ItemTable::setColumns(std::vector<const Column*> columns) {
  beginResetModel();
  columns_ = std::move(columns);
  endResetModel();
}

void ItemTable::forgetRecords() {
  records_.clear();
  failure_.reset();
}

void ItemTable::take(int item, std::span<const std::byte> record) {
  records_[item].assign(record.begin(), record.end());
  if (const int row = rowOf(item); row >= 0)
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int ItemTable::rowOf(int item) const {
  const auto found = std::ranges::find(items_, item);
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

const ItemTable::Record& ItemTable::recordOf(int item) const {
  if (const auto known = records_.find(item); known != records_.end()) return known->second;
  if (records_.size() >= kMostRecords) records_.clear();
  Record record = blankRecord(store_.kind());
  try {
    store_.ReadRecord(item, record);
  } catch (const RunTimeError& error) {
    failure_ = error;
  }
  return records_[item] = std::move(record);
}

std::string ItemTable::textOf(const QModelIndex& cell) const {
  return columnText(columnAt(cell.column()), recordOf(itemAt(cell.row())), texts_);
}

std::vector<TextRange> ItemTable::matchesIn(const QModelIndex& cell) const {
  if (cell.column() == kNumberColumn) return {};
  return source_.matches(textOf(cell));
}

QString ItemTable::asText(const std::vector<int>& items) {
  QString text = headerData(kNumberColumn, Qt::Horizontal).toString();
  for (const Column* column : columns_) text += QLatin1Char('\t') + fromUtf8Text(column->name);
  text += QLatin1Char('\n');
  store_.ReadRecords(items, [&](int item, std::span<const std::byte> record) {
    text += QString::number(item);
    for (const Column* column : columns_)
      text += QLatin1Char('\t') + asCell(fromRecordText(columnText(*column, record, texts_)));
    text += QLatin1Char('\n');
  });
  return text;
}

QString ItemTable::sumsOf(const std::vector<int>& items) {
  const CollectionKind& kind = store_.kind();
  const PriceFields prices = priceFieldsOf(kind);
  if (prices.cost == nullptr) return {};
  AmountSum costs;
  AmountSum worths;
  store_.ReadRecords(items, [&](int, std::span<const std::byte> record) {
    costs.add(priceOf(*prices.cost, record));
    worths.add(priceOf(*prices.worth, record));
  });
  return QStringLiteral("%1 %2, %3 %4")
      .arg(fromUtf8Text(columnOf(kind, *prices.cost)->name), fromUtf8Text(costs.text()),
           fromUtf8Text(columnOf(kind, *prices.worth)->name), fromUtf8Text(worths.text()));
}

int ItemTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

int ItemTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size()) + 1;
}

QVariant ItemTable::data(const QModelIndex& index, int role) const {
  const bool isNumber = index.column() == kNumberColumn;
  const int item = itemAt(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return isNumber ? QString::number(item) : fromRecordText(textOf(index));
    case Qt::TextAlignmentRole:
      return QVariant(
          Qt::AlignVCenter |
          (isNumber || columnAt(index.column()).isNumeric() ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::FontRole: {
      if (!source_.isDeleted(item)) return {};
      QFont font;
      font.setStrikeOut(true);
      return font;
    }
    case Qt::AccessibleDescriptionRole:
      return source_.isDeleted(item) ? QStringLiteral("deleted") : QString();
    default:
      return {};
  }
}

QVariant ItemTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const bool isNumber = section == kNumberColumn;
  if (role == Qt::DisplayRole)
    return isNumber ? QStringLiteral("No.") : fromUtf8Text(columnAt(section).name);
  if (role == Qt::TextAlignmentRole)
    return QVariant(Qt::AlignVCenter |
                    (isNumber || columnAt(section).isNumeric() ? Qt::AlignRight : Qt::AlignLeft));
  return {};
}

}  // namespace quillbox
