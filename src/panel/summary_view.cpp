#include "panel/summary_view.h"

#include <QBuffer>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "forms/controls.h"
#include "forms/form.h"
#include "forms/qt_text.h"
#include "forms/wrapping_row.h"
#include "panel/bar_delegate.h"
#include "panel/summary_sheets.h"
#include "platform/paths.h"
#include "platform/text_writer.h"
#include "records/collection_store.h"

namespace quillbox {
namespace {

enum SummaryColumn { kLabel, kBar, kItems, kCost, kWorth };

constexpr std::size_t kAllBars = std::numeric_limits<std::size_t>::max();

/// For a picture, which would otherwise be too high for most programs.
constexpr std::size_t kBarsOfAPicture = 50;

constexpr double kMargin = 36;  // in points

constexpr const char* kFilter = "PDF Documents and PNG Pictures (*.pdf, *.png)|*.pdf;*.png";

std::vector<std::pair<QString, int>> numberColumns(const CollectionKind& kind) {
  std::vector<std::pair<QString, int>> columns = {{QStringLiteral("Items"), 8}};
  if (priceFieldsOf(kind).cost == nullptr) return columns;
  columns.emplace_back(QStringLiteral("Cost"), 14);
  columns.emplace_back(QStringLiteral("Worth"), 14);
  return columns;
}

auto withNumbers(const CollectionKind& kind, auto words) {
  for (const auto& [name, characters] : numberColumns(kind))
    words.columns.push_back({name, characters, true});
  return words;
}

QByteArray asPdf(SummarySheets sheets, const QString& title) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QPdfWriter writer(&bytes);
  writer.setTitle(title);
  writer.setCreator(QStringLiteral("Quillbox"));
  writer.setPageSize(localPageSize());
  writer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Point);
  return paintSheets(sheets, writer) ? bytes.data() : QByteArray();
}

QByteArray asPng(SummarySheets sheets) {
  constexpr double scale = 2;  // pixels per point
  constexpr double width = 520;
  const QSizeF size(width, sheets.wholeHeight());
  QImage image((scale * (size + QSizeF(2 * kMargin, 2 * kMargin))).toSize(), QImage::Format_RGB32);
  if (image.isNull()) return {};
  image.fill(Qt::white);
  sheets.layOut(size);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.scale(scale, scale);
  painter.translate(kMargin, kMargin);
  sheets.draw(painter, 0);
  painter.end();
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  return image.save(&bytes, "PNG") ? bytes.data() : QByteArray();
}

bool isPicture(const std::string& path) {
  return extensionOf(path) == "PNG" && path.size() > 3 && path[path.size() - 4] == '.';
}

/// Without a known ending it becomes a document, with the ending of one. The user was not asked
/// about a file of that name, so none is overwritten.
std::string withKnownEnding(const std::string& path, FileSystem& files) {
  const bool isDocument =
      extensionOf(path) == "PDF" && path.size() > 3 && path[path.size() - 4] == '.';
  if (isDocument || isPicture(path)) return path;
  std::string ended = path + ".pdf";
  if (files.exists(ended)) throw RunTimeError(ErrorNumber::fileAlreadyExists, ended);
  return ended;
}

}  // namespace

SummaryView::SummaryView(const CollectionKind& kind, RecordTexts texts, Program& program,
                         PanelOwner owner)
    : GroupedView(
          withNumbers(kind, Words{QStringLiteral("Summary"),
                                  QStringLiteral("Summary"),
                                  QStringLiteral("There is nothing to sum up"),
                                  {{QStringLiteral("Label"), 26}, {QStringLiteral("Bar"), 18}}})),
      kind_(kind),
      texts_(std::move(texts)),
      program_(program),
      owner_(std::move(owner)) {
  summary_.emplace(kind_, texts_);
  tree().setItemDelegateForColumn(kBar, new BarDelegate(&tree()));
  tree().header()->setSectionResizeMode(kBar, QHeaderView::Stretch);
  tree().header()->setMinimumSectionSize(4 * fontMetrics().averageCharWidth());
  // No access keys: they would conflict with the form's.
  auto* row = new WrappingRow;
  if (program_.sheetPrinter() != nullptr) {
    print_ = addButton("cmdPrintSummary", "Print Summary", "Print these bars and numbers",
                       &SummaryView::printSheets);
    row->addWidget(print_);
  }
  save_ = addButton("cmdSaveSummary", "Save Summary", "Save as a PDF document or a PNG picture",
                    &SummaryView::save);
  row->addWidget(save_);
  page().addLayout(row);
  enableButtons();
}

QPushButton* SummaryView::addButton(const char* name, const char* caption, const char* what,
                                    void (SummaryView::*handler)()) {
  QPushButton* button = makeButton(QString::fromUtf8(name), QString::fromUtf8(caption));
  explain(*button, QString::fromUtf8(what));
  connect(button, &QPushButton::clicked, this,
          [this, handler] { program_.run([this, handler] { (this->*handler)(); }); });
  return button;
}

void SummaryView::enableButtons() {
  for (QPushButton* button : {print_, save_})
    if (button != nullptr) button->setEnabled(figures_.totals.items > 0);
}

void SummaryView::forget() {
  summary_.emplace(kind_, texts_);
  figures_ = {};
  most_.clear();
  enableButtons();
}

void SummaryView::take(int item, std::span<const std::byte> record) {
  summary_->take(item, record);
}

void SummaryView::cutTo(int count) { summary_->cutTo(count); }

GroupedView::Shown SummaryView::gather() {
  figures_ = summary_->figures();
  most_.clear();
  std::vector<int> sizes;
  if (figures_.totals.items > 0)
    for (const BarGroup& group : figures_.groups) {
      sizes.push_back(static_cast<int>(group.bars.size()));
      most_.push_back(0);
      for (const Bar& bar : group.bars) most_.back() = std::max(most_.back(), bar.totals.items);
    }
  widenNumbers();
  enableButtons();
  return {totalsText(), std::move(sizes), figures_.totals.items == 0};
}

/// No number below is longer than the one for all items.
void SummaryView::widenNumbers() {
  const auto widenTo = [this](int column, const QString& text) {
    widen(column, fontMetrics().horizontalAdvance(text + QStringLiteral("00")));
  };
  widenTo(kItems, QString::number(figures_.totals.items));
  if (!hasPrices()) return;
  widenTo(kCost, fromUtf8Text(figures_.totals.cost.text()));
  widenTo(kWorth, fromUtf8Text(figures_.totals.worth.text()));
}

QString SummaryView::totalsText() const {
  const Totals& totals = figures_.totals;
  QString text = fromUtf8Text(itemsText(kind_, totals.items));
  if (figures_.deleted > 0) text += QStringLiteral(", %1 deleted").arg(figures_.deleted);
  if (hasPrices())
    text += QStringLiteral(", cost %1, worth %2")
                .arg(fromUtf8Text(totals.cost.text()), fromUtf8Text(totals.worth.text()));
  return text;
}

const BarGroup& SummaryView::groupAt(const GroupedCell& cell) const {
  return figures_.groups.at(static_cast<std::size_t>(cell.group));
}

const Bar& SummaryView::barAt(const GroupedCell& cell) const {
  return groupAt(cell).bars.at(static_cast<std::size_t>(cell.row));
}

QString SummaryView::textOf(const GroupedCell& cell) const {
  if (cell.isHeading()) return fromUtf8Text(groupAt(cell).grouping->name);
  const Bar& bar = barAt(cell);
  switch (static_cast<SummaryColumn>(cell.column)) {
    case kLabel:
      return fromRecordText(bar.label);
    case kBar:
      return {};
    case kItems:
      return QString::number(bar.totals.items);
    case kCost:
      return fromUtf8Text(bar.totals.cost.text());
    case kWorth:
      return fromUtf8Text(bar.totals.worth.text());
  }
  return {};
}

/// The bar's value in words: its share of all items.
QVariant SummaryView::moreOf(const GroupedCell& cell, int role) const {
  if (cell.isHeading() || cell.column != kBar) return {};
  const double items = barAt(cell).totals.items;
  if (role == BarDelegate::kPartRole) return items / most_.at(static_cast<std::size_t>(cell.group));
  if (role != Qt::AccessibleTextRole) return {};
  constexpr double percent = 100;
  return QStringLiteral("%1 percent").arg(std::round(percent * items / figures_.totals.items));
}

std::string SummaryView::idOf(const GroupedCell& cell) const {
  const std::string group(groupAt(cell).grouping->name);
  return cell.isHeading() ? group : group + '\n' + barAt(cell).value;
}

void SummaryView::choose(const GroupedCell& cell) {
  const Bar& bar = barAt(cell);
  owner_.showOnly(bar.items,
                  QStringLiteral("%1: %2").arg(fromUtf8Text(groupAt(cell).grouping->name),
                                               fromRecordText(bar.label)));
}

SummarySheets SummaryView::sheets(std::size_t mostBars) const {
  return {figures_, hasPrices(), fromPath(fileNameOf(program_.state().currentPath)), totalsText(),
          mostBars};
}

void SummaryView::printSheets() {
  SummarySheets all = sheets(kAllBars);
  program_.sheetPrinter()->printSheets(all, "Print Summary",
                                       nameWithEnding(program_.state().currentPath, "pdf"));
}

/// Everything is drawn before the file is touched.
void SummaryView::save() {
  AppState& state = program_.state();
  const auto chosen =
      program_.desktop().saveDialog({.title = "Save Summary",
                                     .filter = kFilter,
                                     .fileName = nameWithEnding(state.currentPath, "pdf"),
                                     .name = "dlgSaveSummary"});
  if (!chosen || chosen->empty()) return;
  const std::string path = withKnownEnding(*chosen, state.files.fileSystem());
  const QByteArray bytes = isPicture(path)
                               ? asPng(sheets(kBarsOfAPicture))
                               : asPdf(sheets(kAllBars), fromPath(fileNameOf(state.currentPath)));
  if (bytes.isEmpty()) throw RunTimeError(ErrorNumber::deviceIo, path);
  refuseToReplaceCollection(state.files, state, path);
  TextWriter file(state.files, path, file_number::exportFile);
  file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  file.close();
  if (auto* form = dynamic_cast<Form*>(window()))
    form->showStatus(QStringLiteral("Saved as %1.").arg(fromPath(fileNameOf(path))));
}

}  // namespace quillbox
