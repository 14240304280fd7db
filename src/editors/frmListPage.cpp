#include "editors/frmListPage.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "forms/controls.h"
#include "forms/elided_label.h"
#include "forms/item_line.h"
#include "forms/list_paste.h"
#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "forms/wrapping_row.h"
#include "platform/checked16.h"
#include "text/padding.h"

namespace quillbox {
namespace {

/// The characters that fit most entries; longer ones scroll.
constexpr int kUsualEntry = 50;

}  // namespace

frmListPage::frmListPage(Program& program, const ListPageTables& tables, Owner owner)
    : Form(program, tables.formName), tables_(tables), owner_(std::move(owner)) {
  setCaption(fromUtf8Text(tables.caption));
  setHelpPage("lists.md");
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins({});
  lblItem_ = makeItemLine();
  column->addWidget(lblItem_);
  auto* grid = new QGridLayout;
  column->addLayout(grid);
  for (int entry = 0; const char* text : tables.captions) {
    auto* box = new TextBox(static_cast<int>(tables.field->width));
    box->setMinimumWidth(fontMetrics().averageCharWidth() * kUsualEntry);
    auto* caption = makeCaption(*box, controlName(tables.boxName, entry), QString::fromUtf8(text));
    caption->setObjectName(controlName(tables.captionName, entry));
    grid->addWidget(caption, entry, 0);
    grid->addWidget(box, entry, 1);
    connect(box, &QLineEdit::textEdited, this, [this] { owner_.edited(); });
    boxes_.push_back(box);
    ++entry;
  }
  paste_ = std::make_unique<ListPaste>(boxes_, [this](TextBox&, const QString& text) {
    showStatus(text);
    owner_.edited();
  });
  auto* row = new WrappingRow;
  for (const auto& [command, name, text] : tables.buttons) {
    auto* made = makeButton(QString::fromUtf8(name), QString::fromUtf8(text));
    made->setToolTip(toolTipOf(command));
    onKeys(keysOf(command), [made] { made->click(); });
    onClick(*made, [this, which = command] { choose(which); });
    row->addWidget(made);
  }
  layOut(page, row);
}

frmListPage::~frmListPage() = default;

void frmListPage::nameItem(const QString& text) { lblItem_->showText(text); }

void frmListPage::choose(Command command) {
  if (command == Command::next) step(1);
  if (command == Command::previous) step(-1);
  if (command == Command::exitCollection) Undraw();
}

void frmListPage::step(int by) {
  const int count = state().Count;
  if (count < 1) return;  // nothing to step through
  int item = state().ListPos + by;
  if (by > 0 && item > count) item = 1;
  if (by < 0 && item < 1) item = count;
  checked16(item);
  owner_.showItem(item);
}

void frmListPage::UpdateScreen(std::span<const std::byte> record) {
  paste_->forget();  // it belongs to the item pasted into
  for (std::size_t entry = 0; entry < boxes_.size(); ++entry)
    boxes_[entry]->showText(shownText(record, entry));
}

QString frmListPage::shownText(std::span<const std::byte> record, std::size_t entry) const {
  return fromRecordText(readable(textOf(*tables_.field, record, entry)));
}

bool frmListPage::differsFrom(const std::vector<std::byte>* record) const {
  for (std::size_t entry = 0; entry < boxes_.size(); ++entry) {
    const QString stored = record == nullptr ? QString() : shownText(*record, entry);
    if (withoutTrailingBlanks(boxes_[entry]->text()) != stored) return true;
  }
  return false;
}

void frmListPage::GetScreen(std::span<std::byte> record) const {
  for (std::size_t entry = 0; entry < boxes_.size(); ++entry)
    setText(*tables_.field, record, toRecordText(boxes_[entry]->text()), entry);
}

void frmListPage::clear() {
  paste_->forget();  // it belongs to the item pasted into
  for (TextBox* box : boxes_) box->clear();
}

QStringList frmListPage::entries() const {
  QStringList entries;
  for (const TextBox* box : boxes_) entries << withoutTrailingBlanks(box->text()).toString();
  return entries;
}

void frmListPage::setEntries(const QStringList& entries) {
  for (std::size_t entry = 0; entry < boxes_.size(); ++entry)
    boxes_[entry]->showText(entries.value(static_cast<qsizetype>(entry)));
}

}  // namespace quillbox
