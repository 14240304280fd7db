#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <functional>
#include <vector>

namespace quillbox {

/// A cell of rows that stand in groups, all counted from 0.
struct GroupedCell {
  int group;
  int row;  ///< within its group; less than 0: the heading of the group
  int column = 0;

  bool isHeading() const { return row < 0; }
};

/// Rows in groups, one below the other, each group below its heading. It knows how many there are
/// and no more: what a cell shows is asked for when it is shown, so that it does not matter how
/// many there are.
class GroupedRows : public QAbstractTableModel {
 public:
  using Data = std::function<QVariant(const GroupedCell& cell, int role)>;

  /// `data` must hold for as long as rows are shown.
  GroupedRows(QStringList headers, Data data);

  /// So many rows in each group from now on.
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
  std::vector<int> headings_;  // the row of each
  int rows_ = 0;
};

}  // namespace quillbox
