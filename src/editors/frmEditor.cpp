#include "editors/frmEditor.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <iterator>

#include "forms/about.h"
#include "forms/controls.h"
#include "forms/qt_text.h"
#include "forms/recent_collections.h"
#include "forms/wrapping_row.h"
#include "panel/panel.h"
#include "platform/checked16.h"
#include "records/navigation.h"
#include "text/number_text.h"

namespace quillbox {
namespace {

/// There is nothing on the form to write.
constexpr std::string_view kNothingShown =
    "No item is shown. Choose Clear Data to start a new item.";

constexpr const char* kNotWritten = "not written yet";

/// A text is kept this many milliseconds after the last key.
constexpr int kKeepAfter = 300;

QString writtenAs(int item, int count) {
  return QStringLiteral("Written as item %1 of %2").arg(item).arg(count);
}

}  // namespace

frmEditor::frmEditor(Program& program, PrintEngine& printEngine, const CollectionKind& kind,
                     const EditorTables& tables)
    : Form(program, tables.formName),
      store_(program.state().files, program.state(), kind),
      printEngine_(printEngine),
      tables_(tables) {
  setCaption(fromUtf8Text(kind.words.designCaption));
  sheet_ = new FieldSheet(tables.inputs, tables.headings, desktop());
  sheet_->whenChanged([this] { updateNotWritten(); });
  sheet_->showHints();
  layOut(sheet_, makeButtons());
  makeMenus();
  makeKeys();
  makePanelButton();
  setHelpPage(tables.helpPage);
  keepSoon_.setSingleShot(true);
  keepSoon_.setInterval(kKeepAfter);
  connect(&keepSoon_, &QTimer::timeout, this, &frmEditor::keepTyped);
}

QWidget* frmEditor::makeIndicator() {
  lblIndex_ = new QLabel(QString::fromUtf8(tables_.indicatorText));
  lblIndex_->setObjectName(QString::fromUtf8(tables_.indicatorName));
  lblIndex_->setTextFormat(Qt::PlainText);
  QFont font = lblIndex_->font();
  font.setBold(true);
  lblIndex_->setFont(font);
  keepRoomFor(*lblIndex_, fromUtf8Text(widestRecordLabel(store_.kind())));

  lblNotWritten_ = new QLabel(QStringLiteral("\u25CF not written"));  // preceded by a dot
  lblNotWritten_->setObjectName(QStringLiteral("lblNotWritten"));
  lblNotWritten_->setToolTip(QString::fromUtf8(kNotWritten));
  lblNotWritten_->setAccessibleName(QStringLiteral("Item"));
  lblNotWritten_->setAccessibleDescription(QString::fromUtf8(kNotWritten));
  QSizePolicy keepsItsRoom = lblNotWritten_->sizePolicy();
  keepsItsRoom.setRetainSizeWhenHidden(true);
  lblNotWritten_->setSizePolicy(keepsItsRoom);
  lblNotWritten_->hide();

  auto* indicator = new QWidget;
  auto* line = new QHBoxLayout(indicator);
  line->setContentsMargins({});
  line->addWidget(lblIndex_);
  line->addWidget(lblNotWritten_);
  return indicator;
}

WrappingRow* frmEditor::makeButtons() {
  auto* row = new WrappingRow;
  row->addLead(makeIndicator());
  for (const auto& [command, name, caption] : tables_.buttons) {
    auto* made = makeButton(QString::fromUtf8(name), QString::fromUtf8(caption));
    made->setIcon(iconOf(command));
    made->setToolTip(toolTipOf(command));
    onKeys(keysOf(command), [made] { made->click(); });
    onClick(*made, [this, which = command] { choose(which); });
    buttons_[command] = made;
    row->addWidget(made);
    if (command == Command::goTo) row->addGap();
  }
  return row;
}

void frmEditor::makeMenus() {
  for (const MenuRow& row : tables_.menus) {
    const auto handler = [this, command = row.command] { choose(command); };
    addMenuItem({row.menu, row.menuCaption, row.item, row.caption, handler, iconOf(row.command),
                 keysOf(row.command)});
  }
}

/// Commands with neither button nor menu item.
void frmEditor::makeKeys() {
  for (const Command command : {Command::duplicate, Command::bringBack})
    onKeys(keysOf(command), [this, command] { program().run([&] { choose(command); }); });
}

void frmEditor::choose(Command command) {
  if (command != Command::write && command != Command::clear) slot_.reset();
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
    case Command::newFile:
      return NewFile_Click();
    case Command::openFile:
      return OpenFile_Click();
    case Command::exitCollection:
      return ExitCollection_Click();
    case Command::sort:
      return SortRecords_Click();
    case Command::search:
      return SearchRecords_Click();
    case Command::printList:
      return PrintList_Click();
    case Command::printerSetup:
      return PrinterSetup_Click();
    case Command::exportData:
      return ExportData_Click();
    case Command::contents:
      return showHelp();
    case Command::about:
      return program().message(tables_.aboutTitle, aboutText(tables_.aboutArea),
                               MessageIcon::information);
    case Command::duplicate:
      return Duplicate();
    case Command::bringBack:
      return BringBack();
    case Command::mediaTypes:  // the list comes only from the user's file
    case Command::editSubList:
    case Command::loadFolder:
      return;
  }
}

void frmEditor::open(OpenCollection opening) {
  Form_Load(opening);
  clearStatus();  // it refers to the collection open before
  tellWhatIsMissing();
  offerKeptText();
  openKeptPanel();
  if (RecentCollections* recents = program().recents())
    recents->opened(state().currentPath, state().Count);
  show();
  activateWindow();
  sheet_->focusFirst();
}

void frmEditor::resetForm() {
  ClearData();
  sheet_->clearLists();
  button(Command::previous).setEnabled(false);
  button(Command::next).setEnabled(false);
  noteNothingStored();
}

void frmEditor::setRecordLabel(const std::string& text) { lblIndex_->setText(fromUtf8Text(text)); }

std::string frmEditor::recordLabelText() const { return toUtf8Text(lblIndex_->text()); }

void frmEditor::BTEnable(int point) {
  QPushButton& previous = button(Command::previous);
  QPushButton& next = button(Command::next);
  const bool hadFocus = previous.hasFocus() || next.hasFocus();
  previous.setEnabled(point != 1);
  next.setEnabled(point != state().Count);
  // A user who steps to the end with the keyboard stays on the stepping buttons.
  if (hadFocus && !previous.hasFocus() && !next.hasFocus())
    (previous.isEnabled() ? previous : next).setFocus();
}

void frmEditor::UpdateScreen() {
  sheet_->show(buffer());
  setRecordLabel(recordLabel(store_.kind(), state().CurRec, state().Count));
  BTEnable(state().CurRec);
}

void frmEditor::GetScreen(std::span<std::byte> record) { sheet_->store(record); }

void frmEditor::ClearData() {
  sheet_->clear();
  state().CurRec = kNewItem;
  setRecordLabel(std::string(store_.kind().rules.label.fresh));
}

void frmEditor::showItem(std::int16_t item, std::span<const std::byte> record) {
  leaveTyped();
  clearSubList();
  position() = item;
  state().CurRec = item;
  takeBuffer(record);
  UpdateScreen();
  noteStored(record);
  markInPanel();
}

void frmEditor::takeBuffer(std::span<const std::byte> record) {
  std::ranges::copy(record, buffer().begin());
}

void frmEditor::takeCount(std::int16_t count) {
  if (count == state().Count) return;
  state().Count = count;
  if (state().CurRec >= 1)
    setRecordLabel(recordLabel(store_.kind(), state().CurRec, state().Count));
  BTEnable(state().CurRec);
  if (panel_ != nullptr) panel_->setCount(count);
}

void frmEditor::showNothing() {
  position() = 0;
  state().CurRec = 0;
  setRecordLabel(std::string(store_.kind().rules.label.empty));
  markInPanel();
}

void frmEditor::readAndShow(int item) { showItem(checked16(item), store_.ReadRecord(item)); }

void frmEditor::showFirstItem(const std::optional<Record>& first) {
  if (first)
    showItem(1, *first);
  else
    showNothing();
}

void frmEditor::cmdNext_Click() {
  std::vector<std::byte> record(buffer().size());
  if (const auto item = nextItem(store_, position(), record))
    showItem(*item, record);
  else
    button(Command::next).setEnabled(false);
}

void frmEditor::cmdPrevious_Click() {
  using Clock = std::chrono::steady_clock;
  isLeaving_ = false;
  QWidget* focus = focusWidget();
  auto lapBegin = Clock::now();
  const auto onLap = [&] {
    setControlsEnabled(false);
    // Ten times the duration of the lap, so that an endless search costs next to nothing.
    const auto lap = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lapBegin);
    const bool goOn = restBetweenLaps(10 * static_cast<int>(lap.count()));
    lapBegin = Clock::now();
    return goOn;
  };
  std::vector<std::byte> record(buffer().size());
  std::optional<std::int16_t> item;
  try {
    item = previousItem(store_, position(), state().Count, record, onLap);
  } catch (const RunTimeError&) {
    setControlsEnabled(true);
    throw;
  }
  if (!centralWidget()->isEnabled()) {
    setControlsEnabled(true);
    if (focus != nullptr) focus->setFocus();
  }
  if (isLeaving_) return ExitCollection_Click();
  if (item) showItem(*item, record);
}

/// Only closing the window has an effect meanwhile: all controls are disabled.
bool frmEditor::restBetweenLaps(int milliseconds) {
  constexpr int shortest = 50;
  constexpr int longest = 2000;
  desktop().rest(std::clamp(milliseconds, shortest, longest), [this] { return isLeaving_; });
  return !isLeaving_;
}

void frmEditor::setControlsEnabled(bool enabled) {
  centralWidget()->setEnabled(enabled);
  menuBar()->setEnabled(enabled);
}

void frmEditor::cmdGoto_Click() {
  const auto answer = desktop().inputBox("Record #", "Go To Record");
  if (!answer) return;
  const GoToRules& rules = store_.kind().rules.goTo;
  int item = 0;
  try {
    item = wholeNumber(*answer);
  } catch (const RunTimeError&) {
    // No valid position: some editors treat such a text like a number that is no item.
    if (rules.badTextIsAnError) throw;
  }
  if (item < 1 || item > state().Count)
    program().message(rules.invalidTitle, "Invalid input?!");
  else
    readAndShow(item);
}

void frmEditor::cmdWriteData_Click() {
  const KeptText typed = typedText();
  Record record(buffer().begin(), buffer().end());
  GetScreen(record);
  if (state().CurRec == kNewItem) {
    NewItem written{};
    writing(slot_, [&] { written = store_.writeNewItem(slot_, record); });
    const auto [item, count] = written;
    state().Count = count;
    takeBuffer(record);
    noteWritten(typed);
    panelTakes(item, record);
    afterNewItem();
    showStatus(writtenAs(item, count));
  } else if (state().CurRec >= 1) {
    writing(position(), [&] { store_.WriteRecord(position(), record, state().Count); });
    const auto before = std::exchange(stored_, record);
    takeBuffer(record);
    noteWritten(typed);
    panelTakes(position(), record);
    const QString told = writtenAs(position(), state().Count);
    if (before && *before != record)
      offerUndo(told, {"cmdUndoWrite", "Undo Write", position(), *before, record});
    else
      showStatus(told);
  } else {
    say(kNothingShown);
    endProgram();
  }
}

void frmEditor::cmdClearData_Click() {
  leaveTyped();
  startNewItem();
}

void frmEditor::startNewItem() {
  ClearData();
  noteNothingStored();
  markInPanel();
  sheet_->focusFirst();
}

void frmEditor::cmdDelete_Click() {
  const DeleteRules& rules = store_.kind().rules.deletion;
  const auto report = [this](std::string_view title, std::string_view text) {
    if (!title.empty()) program().message(title, text);
  };
  const Answer answer =
      desktop().messageBox({std::string(rules.questionTitle), "Do you really want to delete this?!",
                            Buttons::yesNo, MessageIcon::question});
  if (answer != Answer::yes) {
    report(rules.abortedTitle, "Aborted.");
    return;
  }
  // The buffer as it was read, not as typed since; or only the marker.
  std::vector<std::byte> record(buffer().size());
  if (rules.keepsTheRest) std::ranges::copy(buffer(), record.begin());
  setText(store_.kind().fields.front(), record, rules.marker);
  const std::int16_t item = state().CurRec < 1 ? state().CurRec : position();
  const auto before = stored_;
  bool deleted = false;
  writing(item, [&] { deleted = store_.writeDeleted(item, record); });
  if (rules.keepsTheRest) takeBuffer(record);
  panelTakes(item, record);
  if (!deleted) {
    report(rules.questionTitle, "Deletion failure!");
    endProgram();
  }
  report(rules.deletedTitle, "Deleted.");
  setRecordLabel("No Record");
  cmdClearData_Click();
  const QString told = QStringLiteral("Item %1 deleted").arg(item);
  if (before)
    offerUndo(told, {"cmdUndoDelete", "Undo Delete", item, *before, record});
  else
    showStatus(told);
}

}  // namespace quillbox
