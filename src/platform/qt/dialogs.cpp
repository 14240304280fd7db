#include "platform/qt/dialogs.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QListView>
#include <QLocale>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QTreeView>
#include <algorithm>

#include "forms/qt_text.h"

namespace quillbox {
namespace {

/// "Description (*.A, *.B)|*.A;*.B|..." in the toolkit's form: "Description (*.A *.B)", ...
QStringList nameFilters(const std::string& filter) {
  QStringList filters;
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString description = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    QString patterns = parts[i + 1];
    filters << QStringLiteral("%1 (%2)").arg(description,
                                             patterns.replace(QLatin1Char(';'), QLatin1Char(' ')));
  }
  return filters;
}

/// The longest contents of the detailed view's columns: name, size, type, time.
QStringList longestTexts(int column) {
  constexpr qint64 kibi = 1024;
  constexpr qint64 sizes[] = {kibi - 1, kibi * kibi - 1, kibi * kibi * kibi - 1};
  const QLocale locale;
  QStringList texts;
  if (column == 1)
    for (const qint64 size : sizes) texts << locale.formattedDataSize(size);
  if (column == 2) texts << QStringLiteral("MCS File");
  if (column == 3)
    texts << locale.toString(QDateTime(QDate(2028, 12, 28), QTime(22, 58)), QLocale::ShortFormat);
  return texts;
}

/// The toolkit leaves no space between a size and its column's edges. Wider columns stay.
void fitColumns(QFileDialog& dialog) {
  const auto* view = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
  QHeaderView* header = view->header();
  const int edge =
      2 * (view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1);
  const int room = 2 * edge + view->fontMetrics().averageCharWidth();
  for (int column = 0; column < header->count(); ++column) {
    int width = std::max(header->sectionSize(column), header->sectionSizeHint(column));
    for (const QString& text : longestTexts(column))
      width = std::max(width, view->fontMetrics().horizontalAdvance(text) + room);
    header->resizeSection(column, width);
  }
  // Wide enough for all columns beside the places, as far as the screen allows.
  auto* splitter = dialog.findChild<QSplitter*>(QStringLiteral("splitter"));
  const auto* places = dialog.findChild<QListView*>(QStringLiteral("sidebar"));
  const int besideNames = places->sizeHintForColumn(0) + 2 * room;
  const int wanted = besideNames + header->length() + 4 * room;
  const int most = dialog.screen()->availableGeometry().width();
  if (dialog.width() < wanted) dialog.resize(std::min(wanted, most), dialog.height());
  if (splitter->sizes().constFirst() < besideNames)
    splitter->setSizes({besideNames, dialog.width() - besideNames});
}

}  // namespace

QString captionText(const std::string& text) {
  return QString::fromStdString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QWidget* askingForm() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  // Just after a box has closed, the focus may not have returned yet.
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  return nullptr;
}

int widthForTitle(const QDialog& dialog) {
  constexpr int beside = 5;  // an icon, three buttons and some space, in title heights
  QFont font = QApplication::font("QMdiSubWindowTitleBar");
  font.setBold(true);
  const QFontMetrics title(font);
  const int height =
      std::max(dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight), title.height());
  const int needed = title.horizontalAdvance(dialog.windowTitle()) + beside * height;
  return std::min(needed, dialog.screen()->availableGeometry().width());
}

std::optional<std::string> askForFile(const FileDialog& asked, FileDialogMode mode) {
  QFileDialog dialog(askingForm(), captionText(asked.title));
  dialog.setObjectName(QString::fromStdString(asked.name));
  // The toolkit's own dialog: its patterns ignore case on every platform.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(mode == FileDialogMode::open ? QFileDialog::AcceptOpen
                                                    : QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  if (!asked.filter.empty()) dialog.setNameFilters(nameFilters(asked.filter));
  // It takes a name off its folder only where both have the toolkit's separators.
  if (!asked.fileName.empty())
    dialog.selectFile(QDir::fromNativeSeparators(fromPath(asked.fileName)));
  fitColumns(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return toNativePath(dialog.selectedFiles().constFirst());
}

}  // namespace quillbox
