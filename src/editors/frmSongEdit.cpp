#include "editors/frmSongEdit.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "editors/frmEditor_commands.h"
#include "forms/controls.h"
#include "forms/elided_label.h"
#include "forms/item_line.h"
#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "forms/wrapping_row.h"
#include "records/field.h"
#include "records/music_record.h"

namespace quillbox {
namespace {

constexpr int kSongWidth = static_cast<int>(musicField("Songs")->width);

/// The characters that fit most titles; longer ones scroll.
constexpr int kUsualTitle = 38;

constexpr const char* kFull = "This page is full: the title has no place yet.";

/// Some captions have always had a blank before the colon: songs 3 and 5 to 9 of each page.
QString songCaption(int page, int song) {
  const int place = song + 1;
  const bool blank = place == 3 || (place >= 5 && place <= 9);
  return QStringLiteral("Song %1%2")
      .arg((page - 1) * static_cast<int>(frmSongEdit::kSongsPerPage) + place)
      .arg(blank ? QStringLiteral(" :") : QStringLiteral(":"));
}

}  // namespace

frmSongEdit::frmSongEdit(Program& program, int page, Owner owner)
    : Form(program, page == 1 ? "frmSongEdit1" : "frmSongEdit2"),
      page_(page),
      owner_(std::move(owner)) {
  setCaption(QStringLiteral("Song List Editor"));
  setHelpPage("lists.md");
  auto* holder = new QWidget;
  auto* column = new QVBoxLayout(holder);
  column->setContentsMargins({});
  lblItem_ = makeItemLine();
  column->addWidget(lblItem_);
  auto* grid = new QGridLayout;
  column->addLayout(grid);
  txtSongEdit_ = new TextBox(kSongWidth);
  txtSongEdit_->setPlaceholderText(QStringLiteral("Type a title and press Enter"));
  connect(txtSongEdit_, &QLineEdit::returnPressed, this, &frmSongEdit::txtSongEdit_Enter);
  grid->addWidget(
      makeCaption(*txtSongEdit_, QStringLiteral("txtSongEdit"), QStringLiteral("A&dd Song:")), 0,
      0);
  grid->addWidget(txtSongEdit_, 0, 1, 1, 3);
  lblFull_ = new ElidedLabel;
  lblFull_->setObjectName(QStringLiteral("lblFull"));
  grid->addWidget(lblFull_, 1, 1, 1, 3);
  say({});
  connect(txtSongEdit_, &QLineEdit::textChanged, this, [this] { say({}); });
  makeSongs(*grid);

  auto* row = new WrappingRow;
  makeButtons(*row);
  layOut(holder, row);
}

void frmSongEdit::makeSongs(QGridLayout& grid) {
  constexpr int rows = static_cast<int>(kSongsPerPage) / 2;
  for (int song = 0; song < 2 * rows; ++song) {
    auto* box = new TextBox(kSongWidth);
    auto* caption = makeCaption(*box, controlName("txtSongTitle", song), songCaption(page_, song));
    box->setMinimumWidth(fontMetrics().averageCharWidth() * kUsualTitle);
    if (song >= rows) caption->setIndent(fontMetrics().averageCharWidth());
    const int row = 2 + song % rows;
    const int column = 2 * (song / rows);
    grid.addWidget(caption, row, column);
    grid.addWidget(box, row, column + 1);
    connect(box, &QLineEdit::textEdited, this, [this] { owner_.edited(); });
    songs_.at(static_cast<std::size_t>(song)) = box;
  }
  grid.setColumnStretch(1, 1);
  grid.setColumnStretch(3, 1);
}

void frmSongEdit::makeButtons(WrappingRow& row) {
  lblIndex_ = new QLabel(QStringLiteral("Record #:"));
  lblIndex_->setObjectName(QStringLiteral("lblIndex"));
  lblIndex_->setTextFormat(Qt::PlainText);
  row.addLead(lblIndex_);
  const auto add = [&](const char* name, const char* caption, const char* what, const char* keys,
                       std::function<void()> handler) {
    auto* made = makeButton(QString::fromUtf8(name), QString::fromUtf8(caption));
    explain(*made, QString::fromUtf8(what), QString::fromUtf8(keys));
    onClick(*made, std::move(handler));
    row.addWidget(made);
  };
  add("cmdNextPage", page_ == 1 ? "&Next Page" : "&Previous Page",
      "Show the other songs of this album", "", [this] {
        txtSongEdit_Enter();
        owner_.showOtherPage();
      });
  add("cmdClearList", "&Clear Songs ", "Empty the boxes of all songs", "",
      [this] { owner_.clearSongs(); });
  add("cmdExit", "E&xit Songs", "Back to the album", "Ctrl+W", [this] { Form_Unload(); });
  onKeys(keysOf(Command::exitCollection), [this] { close(); });
}

void frmSongEdit::Form_Unload() {
  txtSongEdit_Enter();
  owner_.exitSongs(*this);
}

/// Moves the title typed at the top to the first empty box of the page; if the page is full, it
/// stays, and a message says so.
void frmSongEdit::txtSongEdit_Enter() {
  const QString title = txtSongEdit_->text();
  if (title.trimmed().isEmpty()) return;
  const auto empty = std::ranges::find_if(
      songs_, [](const TextBox* box) { return box->text().trimmed().isEmpty(); });
  if (empty == songs_.end()) {
    txtSongEdit_->selectAll();
    return say(QString::fromUtf8(kFull));
  }
  (*empty)->setText(title);
  txtSongEdit_->clear();
  owner_.edited();
}

void frmSongEdit::say(const QString& text) {
  lblFull_->showText(text);
  txtSongEdit_->setAccessibleDescription(text);
}

void frmSongEdit::clearAddBox() {
  txtSongEdit_->clear();
  say({});
}

void frmSongEdit::nameItem(const QString& text) { lblItem_->showText(text); }

void frmSongEdit::showSong(std::size_t song, std::string_view text) {
  songs_.at(song)->showPadded(fromRecordText(text));
}

std::string frmSongEdit::song(std::size_t song) const {
  return toRecordText(songs_.at(song)->text());
}

void frmSongEdit::setRecordLabel(const std::string& text) {
  lblIndex_->setText(fromUtf8Text(text));
}

}  // namespace quillbox
