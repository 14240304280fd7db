#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <span>
#include <unordered_map>
#include <vector>

#include "overview/columns.h"
#include "platform/run_time_error.h"
#include "records/collection_store.h"
#include "text/folding.h"

namespace quillbox {

/// The items of the list, in its order, with the columns that the user has chosen. A row's contents
/// are read from the file when it is shown, and kept while it may be shown again.
class ItemTable : public QAbstractTableModel {
 public:
  /// The first column is the item's number.
  static constexpr int kNumberColumn = 0;

  /// Where the items' contents come from.
  struct Source {
    std::function<bool(int item)> isDeleted;
    std::function<std::vector<TextRange>(std::string_view text)> matches;
  };

  ItemTable(CollectionStore store, RecordTexts texts, Source source);

  /// Shows these items, in this order.
  void setItems(std::vector<int> items);

  /// The same when items were only added at the end.
  void appendItems(const std::vector<int>& items);

  void setColumns(std::vector<const Column*> columns);
  const std::vector<const Column*>& columns() const { return columns_; }

  /// Discards everything read so far.
  void forgetRecords();

  /// The item was written: `record` is what the file has now.
  void take(int item, std::span<const std::byte> record);

  int itemAt(int row) const { return items_.at(static_cast<std::size_t>(row)); }

  /// The row of an item; -1 when it is not shown.
  int rowOf(int item) const;

  /// Why something could not be shown last time.
  const std::optional<RunTimeError>& failure() const { return failure_; }

  /// Where the words searched for occur in the text of a cell.
  std::vector<TextRange> matchesIn(const QModelIndex& cell) const;

  /// The columns of these items as text: lines with tabs between cells, the header first.
  QString asText(const std::vector<int>& items);

  /// What these items cost and are worth, in words; empty for a kind without prices.
  QString sumsOf(const std::vector<int>& items);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  using Record = std::vector<std::byte>;

  const Column& columnAt(int section) const {
    return *columns_.at(static_cast<std::size_t>(section - 1));
  }
  std::string textOf(const QModelIndex& cell) const;
  const Record& recordOf(int item) const;

  mutable CollectionStore store_;
  RecordTexts texts_;
  Source source_;
  std::vector<int> items_;
  std::vector<const Column*> columns_;
  mutable std::unordered_map<int, Record> records_;
  mutable std::optional<RunTimeError> failure_;
};

}  // namespace quillbox
