#include "panel/doubles_view.h"

#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "forms/controls.h"
#include "forms/qt_text.h"
#include "forms/wrapping_row.h"

namespace quillbox {
namespace {

constexpr std::size_t kMoreColumns = 2;
constexpr const char* kKeys = "Ctrl+Shift+D";

/// Between the texts of an item; no column contains it.
constexpr char kBetween = '\0';

/// The telling fields of a kind, and other columns that help to tell its items apart.
std::vector<const Column*> columnsToShow(const CollectionKind& kind) {
  std::vector<const Column*> shown;
  for (const Field* field : tellingFields(kind)) shown.push_back(columnOf(kind, *field));
  const std::size_t most = shown.size() + kMoreColumns;
  for (const bool atFirst : {true, false})
    for (const Column& column : columnsOf(kind))
      if (column.shownAtFirst == atFirst && shown.size() < most &&
          std::ranges::find(shown, &column) == shown.end())
        shown.push_back(&column);
  return shown;
}

auto viewColumns(const CollectionKind& kind, auto words) {
  constexpr int shortText = 16;
  constexpr int longText = 26;
  for (const Column* column : columnsToShow(kind))
    words.columns.push_back({fromUtf8Text(column->name),
                             column->kind == ColumnKind::text ? longText : shortText,
                             column->isNumeric()});
  return words;
}

}  // namespace

DoublesView::DoublesView(const CollectionKind& kind, RecordTexts texts, PanelOwner owner)
    : GroupedView(viewColumns(kind, Words{QStringLiteral("Doubles"),
                                          QStringLiteral("Doubles"),
                                          QStringLiteral("No item is there twice"),
                                          {{QStringLiteral("No."), 14}}})),
      kind_(kind),
      recordTexts_(std::move(texts)),
      owner_(std::move(owner)),
      shown_(columnsToShow(kind)) {
  doubles_.emplace(kind_);
  // No access key: it would conflict with the form's.
  next_ = makeButton(QStringLiteral("cmdNextDouble"), QStringLiteral("Next Double"));
  explain(*next_, QStringLiteral("Show the next item that is there more than once"),
          QString::fromLatin1(kKeys));
  next_->setEnabled(false);
  connect(next_, &QPushButton::clicked, this, &DoublesView::showNext);
  auto* keys = new QShortcut(QKeySequence(QString::fromLatin1(kKeys)), this);
  keys->setAutoRepeat(false);
  connect(keys, &QShortcut::activated, this, [this] {
    if (next_->isEnabled()) showNext();
  });
  auto* row = new WrappingRow;
  row->addWidget(next_);
  page().addLayout(row);
}

void DoublesView::forget() {
  doubles_.emplace(kind_);
  texts_.clear();
  groups_.clear();
  next_->setEnabled(false);
}

void DoublesView::take(int item, std::span<const std::byte> record) {
  doubles_->take(item, record);
  const auto at = static_cast<std::size_t>(item - 1);
  if (at >= texts_.size()) texts_.resize(at + 1);
  std::string all;
  for (const Column* column : shown_)
    all.append(columnText(*column, record, recordTexts_)) += kBetween;
  all.shrink_to_fit();
  texts_[at] = std::move(all);
}

void DoublesView::cutTo(int count) {
  doubles_->cutTo(count);
  texts_.resize(std::min(texts_.size(), static_cast<std::size_t>(std::max(count, 0))));
}

GroupedView::Shown DoublesView::gather() {
  groups_ = doubles_->groups();
  Shown shown = {.line = {}, .sizes = {}, .isEmpty = groups_.empty()};
  std::size_t items = 0;
  for (const std::vector<int>& group : groups_) {
    shown.sizes.push_back(static_cast<int>(group.size()));
    items += group.size();
  }
  if (items > 0)
    shown.line = QStringLiteral("%1 in %2")
                     .arg(countOfItems(items),
                          groups_.size() == 1 ? QStringLiteral("1 group")
                                              : QStringLiteral("%1 groups").arg(groups_.size()));
  next_->setEnabled(items > 0);
  return shown;
}

QString DoublesView::shownText(int item, std::size_t column) const {
  const auto at = static_cast<std::size_t>(item - 1);
  if (at >= texts_.size()) return {};
  std::string_view rest = texts_[at];
  for (; column > 0; --column) rest.remove_prefix(rest.find(kBetween) + 1);
  return fromRecordText(rest.substr(0, rest.find(kBetween)));
}

QString DoublesView::textOf(const GroupedCell& cell) const {
  if (!cell.isHeading())
    return cell.column == 0 ? QString::number(itemOf(cell))
                            : shownText(itemOf(cell), static_cast<std::size_t>(cell.column - 1));
  const std::vector<int>& group = groups_.at(static_cast<std::size_t>(cell.group));
  QStringList told;
  for (std::size_t column = 0; column < tellingFields(kind_).size(); ++column)
    told << shownText(group.front(), column);
  told.removeAll(QString());
  return told.join(QStringLiteral(", ")) + QStringLiteral(" (") + countOfItems(group.size()) +
         QLatin1Char(')');
}

std::string DoublesView::idOf(const GroupedCell& cell) const {
  if (!cell.isHeading()) return std::to_string(itemOf(cell));
  return std::to_string(groups_.at(static_cast<std::size_t>(cell.group)).front());
}

int DoublesView::itemOf(const GroupedCell& cell) const {
  if (cell.isHeading()) return 0;
  return groups_.at(static_cast<std::size_t>(cell.group)).at(static_cast<std::size_t>(cell.row));
}

void DoublesView::choose(const GroupedCell& cell) { owner_.show(itemOf(cell)); }

/// From the current row, and from the first again after the last.
void DoublesView::showNext() {
  GroupedCell at = current();
  const auto behindLast = static_cast<int>(groups_.size());
  if (at.group < 0) at = {0, -1};
  ++at.row;
  if (at.row >= rows().sizes().at(static_cast<std::size_t>(at.group))) at = {at.group + 1, 0};
  if (at.group >= behindLast) at = {0, 0};
  setCurrent(at);
  choose(at);
}

}  // namespace quillbox
