#include "panel/grouped_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillbox {
GroupedRows::GroupedRows(QStringList headers, Data data)
    : headers_(std::move(headers)), data_(std::move(data)) {}

void GroupedRows::show(std::vector<int> sizes) {
  beginResetModel();
  sizes_ = std::move(sizes);
  headings_.clear();
  rows_ = 0;
  for (const int size : sizes_) {
    headings_.push_back(rows_);
    rows_ += 1 + size;
  }
  endResetModel();
}

GroupedCell GroupedRows::cellOf(const QModelIndex& index) const {
  const auto behind = std::ranges::upper_bound(headings_, index.row());
  const auto group = static_cast<int>(behind - headings_.begin()) - 1;
  return {group, index.row() - *std::prev(behind) - 1, index.column()};
}

QModelIndex GroupedRows::indexOf(const GroupedCell& cell) const {
  return index(headings_.at(static_cast<std::size_t>(cell.group)) + 1 + cell.row, cell.column);
}

int GroupedRows::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GroupedRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(headers_.size());
}

QVariant GroupedRows::data(const QModelIndex& index, int role) const {
  return index.isValid() ? data_(cellOf(index), role) : QVariant();
}

QVariant GroupedRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return headers_.value(section);
}

}  // namespace quillbox
