#include "panel/missing_view.h"

#include <algorithm>
#include <utility>

#include "forms/qt_text.h"

namespace quillbox {

MissingView::MissingView(FileSystem& files, const CollectionKind& kind, PanelOwner owner)
    : GroupedView({QStringLiteral("Missing"),
                   QStringLiteral("Missing Files"),
                   QStringLiteral("Every file is where its item says"),
                   {{QStringLiteral("No."), 10}, {QStringLiteral("File"), 60}}}),
      files_(files),
      kind_(kind),
      owner_(std::move(owner)) {
  forget();
}

void MissingView::forget() {
  missing_.emplace(files_, kind_);
  paths_.clear();
  gone_.clear();
}

void MissingView::take(int item, std::span<const std::byte> record) {
  missing_->take(item, record);
  const auto at = static_cast<std::size_t>(item - 1);
  if (at >= paths_.size()) paths_.resize(at + 1);
  paths_[at] = mediaFilePath(record).value_or("");
}

void MissingView::cutTo(int count) {
  missing_->cutTo(count);
  paths_.resize(std::min(paths_.size(), static_cast<std::size_t>(std::max(count, 0))));
}

/// All of them form one group.
GroupedView::Shown MissingView::gather() {
  gone_ = missing_->gone();
  const int count = static_cast<int>(gone_.size());
  return {.line = QStringLiteral("Not there any more: %1").arg(count),
          .sizes = std::vector<int>(gone_.empty() ? 0 : 1, count),
          .isEmpty = gone_.empty()};
}

QString MissingView::textOf(const GroupedCell& cell) const {
  if (cell.isHeading()) return QStringLiteral("Not there any more");
  const int item = itemOf(cell);
  return cell.column == 0 ? QString::number(item)
                          : fromPath(paths_.at(static_cast<std::size_t>(item - 1)));
}

std::string MissingView::idOf(const GroupedCell& cell) const {
  return cell.isHeading() ? std::string() : std::to_string(itemOf(cell));
}

int MissingView::itemOf(const GroupedCell& cell) const {
  return cell.isHeading() ? 0 : gone_.at(static_cast<std::size_t>(cell.row));
}

void MissingView::choose(const GroupedCell& cell) { owner_.show(itemOf(cell)); }

}  // namespace quillbox
