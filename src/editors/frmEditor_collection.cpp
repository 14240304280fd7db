// An editor's commands for the whole collection: open and leave it, sort, search, print, export.

#include <algorithm>

#include "editors/frmEditor.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "forms/recent_collections.h"
#include "panel/panel.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "printing/export.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "sortsearch/search_engine.h"
#include "sortsearch/search_rules.h"
#include "sortsearch/sort_rules.h"

namespace quillbox {
namespace {

/// "1 item", "2 items"
QString counted(int number, const char* noun) {
  return QStringLiteral("%1 %2%3").arg(number).arg(QLatin1String(noun),
                                                   number == 1 ? QString() : QStringLiteral("s"));
}

}  // namespace

CollectionStore frmEditor::storeOf(const OpenCollection& opening) {
  return CollectionStore(state().files, opening, store_.kind());
}

/// No position of another collection remains.
void frmEditor::makeFile(OpenCollection& opening, int fileType) {
  storeOf(opening).WriteHeader(0, fileType, OpenMode::create);
  opening.newCollection = false;
  opening.Count = 0;
  opening.ListPos = 0;
}

std::optional<frmEditor::Record> frmEditor::readFirstItem(CollectionStore store, int count) {
  if (count < 1) return std::nullopt;
  return store.ReadRecord(1);
}

void frmEditor::takeOver(const OpenCollection& opened) {
  leaveTyped(false);
  kept_.emplace(program().typedFolder(), opened.currentPath);
  static_cast<OpenCollection&>(state()) = opened;
  slot_.reset();
}

/// Not asked for: if it fails, nothing is shown.
void frmEditor::tellWhatIsMissing() {
  if (state().CurRec == 0)
    showStatus(QStringLiteral("No item yet: choose Clear Data to type the first"));
  if (state().CurRec < 1) return;
  ignoringErrors([&] {
    const int count = state().Count;
    const int last = store_.lastItemInFile(count);
    if (last == 0) showStatus(QStringLiteral("The file ends before item 1"));
    if (last > 0 && last < count) showStatus(QStringLiteral("The file ends at item %1").arg(last));
  });
}

/// A form that is shown again, as after an Open that failed, is in use again.
void frmEditor::setVisible(bool visible) {
  if (visible) isLeft_ = false;
  Form::setVisible(visible);
}

/// Leaves the form and the collection.
void frmEditor::Undraw() {
  leaveTyped(false);
  isLeft_ = true;
  if (RecentCollections* recents = program().recents())
    recents->left(state().currentPath, state().Count);
  hide();
  state().files.closeAll();
}

void frmEditor::ExitCollection_Click() {
  Undraw();
  program().shell().showStartScreen();
}

void frmEditor::OpenFile_Click() {
  Undraw();
  program().shell().FileOpen();
}

void frmEditor::NewFile_Click() {
  store_.WriteHeader(state().Count, newFileType());
  Undraw();
  program().shell().showNewCollection();
}

void frmEditor::setFileCaption(const CollectionKind& kind) {
  setWindowIcon(iconOf(kind));
  setCaption(fromUtf8Text(kind.words.captionPrefix) + fromPath(fileNameOf(state().currentPath)) +
             QLatin1Char(')'));
}

void frmEditor::SortRecords_Click() {
  if (!sort_)
    sort_ =
        std::make_unique<frmSort>(program(), store_.kind(),
                                  frmSort::Owner{[this](std::int16_t count) { showSorted(count); },
                                                 [this] { showInsteadOf(*sort_); }});
  sort_->open(*this);
}

/// The form as if the collection had been opened at this position: its contents may belong to
/// another item by now. A new item stays as typed.
void frmEditor::showSorted(std::int16_t count) {
  const bool resetsListPos = sortRulesOf(store_.kind()).resetsListPos;
  const std::int16_t position = resetsListPos && stepsByListPos() ? 1 : this->position();
  const std::int16_t item = std::min(position, count);  // there may be fewer items now
  const bool isShown = state().CurRec >= 1;
  const auto record = isShown && item >= 1 ? std::optional(store_.ReadRecord(item)) : std::nullopt;

  if (isShown) leaveTyped();
  state().Count = count;
  if (resetsListPos) state().ListPos = 1;
  if (isShown) {
    resetForm();
    // Before the item itself, which may be a deleted one that shows nothing.
    if (record) setRecordLabel(recordLabel(store_.kind(), item, count));
    record ? showItem(item, *record) : showNothing();
  }
  if (panel_ != nullptr) panel_->start(count);
  showInsteadOf(*sort_);
}

void frmEditor::SearchRecords_Click() {
  if (!search_)
    search_ = std::make_unique<frmSearch>(
        program(), store_.kind(), tables_.search,
        frmSearch::Owner{[this](const FoundItem& found) { showFound(found); },
                         [this] { showInsteadOf(*search_); }});
  search_->open(*this, *sheet_);
}

void frmEditor::showFound(const FoundItem& found) {
  showItem(found.item, found.record);
  if (searchRulesOf(store_.kind()).setsListPos) state().ListPos = found.item;
  showInsteadOf(*search_);
}

RecordTexts frmEditor::recordTexts() {
  const auto choice = [this](const Field& field, int index) {
    return sheet_->choiceText(field, index);
  };
  return {choice, desktop().shortDateForm()};
}

Listing frmEditor::listing() { return Listing(store_.kind(), recordTexts()); }

void frmEditor::PrinterSetup_Click() { printEngine_.PrinterSetup(tables_.setupDialog); }

void frmEditor::PrintList_Click() {
  Board& board = program().board();
  const Listing pages = listing();
  std::int16_t mode = print_mode::printer;
  printEngine_.OpenPrinter(mode);
  hide();
  board.open("Printing Status");
  board.print("Starting Print Routine...");
  const std::int16_t count =
      composePages(state().files, state(), store_.kind(), pages, mode, printEngine_, board);
  if (count < 1) {
    // The editor stays hidden and the board shown; closing it leads to the start screen.
    board.tell("Nothing printed: the collection is empty");
    program().message(kDefaultTitle,
                      "System Error! Print routines have FAILED! Please contact the author for a "
                      "bug fix!");
    return;
  }
  const int items = state().Count;
  bool isDelivered = false;
  if (const auto heading = pages.fileHeading(mediaCodeOf(state().kindCode)))
    ignoringErrors([&] {
      printEngine_.PrintOut(mode, count, *heading);
      isDelivered = true;
    });
  ignoringErrors([&] { readAndShow(1); });
  if (isDelivered && mode == print_mode::textFile)
    tell(QStringLiteral("Listed %1 to %2")
             .arg(counted(items, "item"), fromPath(fileNameOf(printEngine_.fileName()))));
  board.close();
  show();
  activateWindow();
}

void frmEditor::ExportData_Click() {
  const auto fixedName = exportName(store_.kind());
  const std::string name = fixedName ? *fixedName : program().shell().SaveAs();
  if (name.empty()) return;
  const int lines = exportCollection(state().files, state(), store_.kind(), name);
  tell(QStringLiteral("Exported %1 to %2").arg(counted(lines, "line"), fromPath(fileNameOf(name))));
  program().message(kDefaultTitle, "Data Exported...");
}

}  // namespace quillbox
