#include "editors/frmEditor.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <vector>

#include "forms/about.h"
#include "forms/qt_text.h"
#include "platform/paths.h"
#include "records/navigation.h"
#include "records/number_text.h"

namespace quillbox {
namespace {

/// Nothing was ever shown that could be written.
constexpr std::string_view kNothingShown =
    "No item is shown. Choose Clear Data to start a new item.";

QIcon iconOf(Command command, const QStyle& style) {
  const auto icon = [&style](const char* theme, QStyle::StandardPixmap fallback) {
    const QIcon themed = QIcon::fromTheme(QString::fromUtf8(theme));
    return themed.isNull() ? style.standardIcon(fallback) : themed;
  };
  switch (command) {
    case Command::previous:
      return icon("go-previous", QStyle::SP_ArrowLeft);
    case Command::next:
      return icon("go-next", QStyle::SP_ArrowRight);
    case Command::write:
      return icon("document-save", QStyle::SP_DialogSaveButton);
    case Command::goTo:
    case Command::clear:
    case Command::deleteItem:
      break;
  }
  return {};
}

}  // namespace

frmEditor::frmEditor(Program& program, const CollectionKind& kind, const EditorTables& tables)
    : Form(program, tables.formName), store_(program.state(), kind) {
  setCaption(fromUtf8Text(kind.designCaption));
  auto* page = new QWidget;
  setCentralWidget(page);
  auto* column = new QVBoxLayout(page);
  sheet_ = new FieldSheet(tables.inputs, tables.headings, page);
  column->addWidget(sheet_);
  column->addStretch(1);
  column->addSpacing(column->spacing());
  makeButtons(tables.buttons, tables);
}

void frmEditor::makeButtons(std::span<const ButtonRow> rows, const EditorTables& tables) {
  auto* row = new QHBoxLayout;
  lblIndex_ = new QLabel(QString::fromUtf8(tables.indicatorText));
  lblIndex_->setObjectName(QString::fromUtf8(tables.indicatorName));
  lblIndex_->setTextFormat(Qt::PlainText);
  QFont font = lblIndex_->font();
  font.setBold(true);
  lblIndex_->setFont(font);
  row->addWidget(lblIndex_, 1);
  for (const ButtonRow& command : rows) {
    auto* made = new QPushButton(QString::fromUtf8(command.caption));
    made->setObjectName(QString::fromUtf8(command.name));
    made->setAccessibleName(withoutAccessKey(command.caption));
    made->setIcon(iconOf(command.command, *style()));
    made->setAutoDefault(true);  // Enter presses the button that has the focus
    onClick(*made, [this, which = command.command] { handle(which); });
    buttons_.at(static_cast<std::size_t>(command.command)) = made;
    row->addWidget(made);
    if (command.command == Command::goTo) row->addSpacing(2 * row->spacing());
  }
  static_cast<QVBoxLayout*>(centralWidget()->layout())->addLayout(row);
}

void frmEditor::handle(Command command) {
  switch (command) {
    case Command::previous:
      return cmdPrevious_Click();
    case Command::next:
      return cmdNext_Click();
    case Command::goTo:
      return cmdGoto_Click();
    case Command::clear:
      return cmdClearData_Click();
    case Command::deleteItem:
      return cmdDelete_Click();
    case Command::write:
      return cmdWriteData_Click();
  }
}

QPushButton& frmEditor::button(Command command) {
  return *buttons_.at(static_cast<std::size_t>(command));
}

void frmEditor::open() {
  Form_Load();
  sheet_->focusFirst();
  show();
  activateWindow();
}

void frmEditor::Form_Unload() { ExitCollection_Click(); }

void frmEditor::ExitCollection_Click() {
  unloaded_ = true;
  hide();
  state().files.closeAll();
  program().shell().showStartScreen();
}

void frmEditor::setFileCaption() {
  setCaption(fromUtf8Text(store_.kind().captionPrefix) + fromPath(fileNameOf(state().currentPath)) +
             QLatin1Char(')'));
}

void frmEditor::setRecordLabel(const std::string& text) { lblIndex_->setText(fromUtf8Text(text)); }

std::string frmEditor::recordLabelText() const { return toUtf8Text(lblIndex_->text()); }

void frmEditor::BTEnable(int point) {
  QPushButton& previous = button(Command::previous);
  QPushButton& next = button(Command::next);
  const bool hadFocus = previous.hasFocus() || next.hasFocus();
  previous.setEnabled(point != 1);
  next.setEnabled(point != state().Count);
  // A user who steps to the end with the keyboard stays on the position buttons.
  if (hadFocus && !previous.hasFocus() && !next.hasFocus())
    (previous.isEnabled() ? previous : next).setFocus();
}

void frmEditor::UpdateScreen() {
  sheet_->show(buffer());
  setRecordLabel(recordLabel(store_.kind(), state().CurRec, state().Count));
  BTEnable(state().CurRec);
}

void frmEditor::ClearData() {
  sheet_->clear();
  state().CurRec = kNewItem;
  setRecordLabel(std::string(store_.kind().label.fresh));
}

void frmEditor::showItem(std::int16_t position, std::span<const std::byte> record) {
  clearSubList();
  state().CurRec = position;
  std::ranges::copy(record, buffer().begin());
  UpdateScreen();
}

void frmEditor::showNothing() {
  ClearData();
  state().CurRec = 0;
  setRecordLabel(std::string(store_.kind().label.empty));
}

void frmEditor::showFirstItem() {
  if (state().Count < 1) {
    showNothing();
    return;
  }
  std::vector<std::byte> record(buffer().size());
  store_.readItem(1, record);
  ClearData();
  showItem(1, record);
}

void frmEditor::cmdNext_Click() {
  std::vector<std::byte> record(buffer().size());
  if (const auto position = nextItem(store_, state().CurRec, record))
    showItem(*position, record);
  else
    button(Command::next).setEnabled(false);
}

void frmEditor::cmdPrevious_Click() {
  using Clock = std::chrono::steady_clock;
  unloaded_ = false;
  QWidget* focus = focusWidget();
  auto lapBegin = Clock::now();
  const auto onLap = [&] {
    setControlsEnabled(false);
    // Ten times as long as the lap took, so that a search without end costs next to nothing.
    const auto lap = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lapBegin);
    const bool goOn = restBetweenLaps(10 * static_cast<int>(lap.count()));
    lapBegin = Clock::now();
    return goOn;
  };
  std::vector<std::byte> record(buffer().size());
  std::optional<std::int16_t> position;
  try {
    position = previousItem(store_, state().CurRec, state().Count, record, onLap);
  } catch (const RunTimeError&) {
    setControlsEnabled(true);
    throw;
  }
  if (!centralWidget()->isEnabled()) {
    setControlsEnabled(true);
    if (focus != nullptr) focus->setFocus();
  }
  if (position && !unloaded_) showItem(*position, record);
}

/// Only closing the window has an effect meanwhile: every control is disabled.
bool frmEditor::restBetweenLaps(int milliseconds) {
  constexpr int shortest = 50;
  constexpr int longest = 2000;
  desktop().rest(std::clamp(milliseconds, shortest, longest), [this] { return unloaded_; });
  return !unloaded_;
}

void frmEditor::setControlsEnabled(bool enabled) {
  centralWidget()->setEnabled(enabled);
  menuBar()->setEnabled(enabled);
}

void frmEditor::cmdGoto_Click() {
  const auto answer = desktop().inputBox("Record #", "Go To Record");
  if (!answer) return;
  int item = 0;
  try {
    item = wholeNumber(*answer);
  } catch (const RunTimeError&) {
    // Not a number, or one that no position can have: the same as one outside the collection.
  }
  if (item < 1 || item > state().Count) {
    program().message(kEditorTitle, "Invalid input?!");
    return;
  }
  std::vector<std::byte> record(buffer().size());
  store_.readItem(item, record);
  showItem(checked16(item), record);
}

void frmEditor::cmdWriteData_Click() {
  GetScreen();
  if (state().CurRec == kNewItem) {
    store_.writeNewItem(buffer());
    cmdClearData_Click();
  } else if (state().CurRec >= 1) {
    store_.writeItem(state().CurRec, buffer(), state().Count);
  } else {
    program().message(kEditorTitle, kNothingShown);
    endProgram();
  }
}

void frmEditor::cmdClearData_Click() {
  ClearData();
  sheet_->focusFirst();
}

void frmEditor::cmdDelete_Click() {
  const Answer answer =
      desktop().messageBox({std::string(kEditorTitle), "Do you really want to delete this?!",
                            Buttons::yesNo, MessageIcon::question});
  if (answer != Answer::yes) {
    program().message(kEditorTitle, "Aborted.");
    return;
  }
  // The buffer as it was read, not what was typed since.
  std::vector<std::byte> record(buffer().begin(), buffer().end());
  setText(store_.kind().fields.front(), record, store_.kind().deletedMarker);
  const bool deleted = store_.writeDeleted(state().CurRec, record);
  std::ranges::copy(record, buffer().begin());
  if (!deleted) {
    program().message(kEditorTitle, "Deletion failure!");
    endProgram();
  }
  program().message(kEditorTitle, "Deleted.");
  setRecordLabel("No Record");
  cmdClearData_Click();
}

void frmEditor::showAbout(std::string_view title, std::string_view area) {
  program().message(title, aboutText(area), MessageIcon::information);
}

}  // namespace quillbox
