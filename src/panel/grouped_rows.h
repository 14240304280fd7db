#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <functional>
#include <vector>

namespace quillbox {

/// A cell of grouped rows, all counted from 0.
struct GroupedCell {
  int group;
  int row;  ///< within its group; negative: the heading of the group
  int column = 0;

  bool isHeading() const { return row < 0; }
};

/// Rows in groups, one group below another, each under its heading. It holds only how many there
/// are: the contents of a cell are requested when it is shown, so their number does not matter.
class GroupedRows : public QAbstractTableModel {
 public:
  using Data = std::function<QVariant(const GroupedCell& cell, int role)>;

  /// `data` must be valid for as long as rows are shown.
  GroupedRows(QStringList headers, Data data);

  /// Sets the number of rows in each group.
  void show(std::vector<int> sizes);

  const std::vector<int>& sizes() const { return sizes_; }

  GroupedCell cellOf(const QModelIndex& index) const;
  QModelIndex indexOf(const GroupedCell& cell) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QStringList headers_;
  Data data_;
  std::vector<int> sizes_;
  std::vector<int> headings_;  // the row of each heading
  int rows_ = 0;
};

}  // namespace quillbox
