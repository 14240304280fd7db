#include "forms/recent_list.h"

#include <QEvent>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <algorithm>

#include "forms/icons.h"
#include "forms/qt_text.h"
#include "platform/paths.h"
#include "records/kinds.h"

namespace quillbox {
namespace {

constexpr int kNarrowest = 32;  // in average characters
constexpr int kUsualWidth = 64;
constexpr int kFewestRows = 1;

constexpr int kIsThereRole = Qt::UserRole;

/// Draws missing collections as disabled. They stay enabled, so they can be removed.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// As wide as the list: longer texts are cut in the middle.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int air = option.fontMetrics.height() / 2;
    return {1, QStyledItemDelegate::sizeHint(option, index).height() + air};
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.data(kIsThereRole).toBool()) option->state &= ~QStyle::State_Enabled;
  }
};

QListWidgetItem* makeItem(const RecentList::Row& row) {
  const auto& [path, count] = row.collection;
  const CollectionKind& kind = *kindOfExtension(extensionOf(path));
  const QString name = fromPath(fileNameOf(path));
  const QString about = QStringLiteral("%1, %2, %3 %4")
                            .arg(withoutAccessKey(fromUtf8Text(kind.words.option)),
                                 fromUtf8Text(itemsText(kind, count)),
                                 row.isThere ? QStringLiteral("in") : QStringLiteral("gone from"),
                                 fromPath(folderOf(path)));
  auto* item = new QListWidgetItem(iconOf(kind), name + QLatin1Char('\n') + about);
  item->setData(Qt::AccessibleTextRole, QString(name + QStringLiteral(", ") + about));
  item->setData(kIsThereRole, row.isThere);
  item->setToolTip(fromPath(path).toHtmlEscaped());  // a tool tip may be markup, a path is not
  return item;
}

}  // namespace

RecentList::RecentList() {
  setItemDelegate(new RowDelegate(this));
  setUniformItemSizes(true);
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  connect(this, &QListWidget::itemClicked, this, &RecentList::choose);
  measure();
}

bool RecentList::show(const std::vector<Row>& rows) {
  if (rows == rows_) return false;
  const std::string current = currentPath();
  int place = currentRow();
  rows_ = rows;
  clear();
  for (const Row& row : rows_) addItem(makeItem(row));
  const auto again = std::ranges::find(
      rows_, current, [](const Row& row) -> const std::string& { return row.collection.path; });
  if (again != rows_.end()) place = static_cast<int>(again - rows_.begin());
  setCurrentRow(std::min(place < 0 ? firstThere() : place, count() - 1));
  measure();
  return true;
}

int RecentList::firstThere() const {
  const auto row = std::ranges::find(rows_, true, &Row::isThere);
  return row == rows_.end() ? 0 : static_cast<int>(row - rows_.begin());
}

std::string RecentList::currentPath() const {
  const int row = currentRow();
  return row < 0 ? std::string() : rows_.at(static_cast<std::size_t>(row)).collection.path;
}

void RecentList::choose(const QListWidgetItem* item) {
  const Row chosen = rows_.at(static_cast<std::size_t>(row(item)));
  if (chosen.isThere) whenChosen(chosen.collection.path);
}

/// A key that is held down chooses nothing: it may be the one that closed a message box.
void RecentList::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && currentItem() != nullptr && !event->isAutoRepeat())
    choose(currentItem());
  else if (event->key() == Qt::Key_Delete && currentItem() != nullptr)
    whenRemoved(currentPath());
  else if (!isEnter)
    QListWidget::keyPressEvent(event);
}

void RecentList::changeEvent(QEvent* event) {
  QListWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) measure();
}

/// An icon as high as two lines, and a list no higher than its rows.
void RecentList::measure() {
  const int side = 2 * fontMetrics().height();
  setIconSize(QSize(side, side));
  setMaximumHeight(heightOf(std::max(count(), 1)));
  updateGeometry();
}

int RecentList::heightOf(int rows) const {
  const int row = count() > 0 ? sizeHintForRow(0) : 3 * fontMetrics().height();
  return 2 * frameWidth() + rows * row;
}

QSize RecentList::sizeHint() const {
  return {kUsualWidth * fontMetrics().averageCharWidth(), heightOf(count())};
}

QSize RecentList::minimumSizeHint() const {
  return {kNarrowest * fontMetrics().averageCharWidth(), heightOf(std::min(count(), kFewestRows))};
}

}  // namespace quillbox
