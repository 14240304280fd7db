// What an editor does with the collection as a whole: sort, search, print, export.

#include <algorithm>

#include "editors/frmEditor.h"
#include "forms/qt_text.h"
#include "printing/export.h"
#include "printing/frmRecDisp.h"
#include "printing/listing.h"
#include "printing/print_engine.h"

namespace quillbox {

void frmEditor::SortRecords_Click() {
  if (!sort_)
    sort_ = std::make_unique<frmSort>(
        program(), store_.kind(),
        frmSort::Owner{[this] { showSorted(); }, [this] { showInsteadOf(*sort_); }});
  sort_->open(*this);
}

/// The form as if the collection had been opened at this position: what was on it may be another
/// item's by now. A new item stays as typed.
void frmEditor::showSorted() {
  // There may be fewer items than there were.
  const auto item = std::min(position(), state().Count);
  if (state().CurRec >= 1 && item < 1) {
    resetForm();
    showNothing();
  } else if (state().CurRec >= 1) {
    std::vector<std::byte> record(buffer().size());
    store_.readItem(item, record);
    resetForm();
    // Ahead of the item itself, which may be a deleted one that shows nothing.
    setRecordLabel(recordLabel(store_.kind(), item, state().Count));
    showItem(item, record);
  }
  showInsteadOf(*sort_);
}

void frmEditor::SearchRecords_Click() {
  if (!search_)
    search_ = std::make_unique<frmSearch>(
        program(), store_.kind(), tables_.search,
        frmSearch::Owner{[this](int item) { showFound(item); }, [this] { leaveSearch(); }});
  shownRecord_.assign(buffer().begin(), buffer().end());
  search_->open(*this, *sheet_);
}

void frmEditor::showFound(int item) {
  readAndShow(item);
  showInsteadOf(*search_);
}

/// The search has read others' records into the buffer; it goes back to what the form shows.
void frmEditor::leaveSearch() {
  std::ranges::copy(shownRecord_, buffer().begin());
  showInsteadOf(*search_);
}

PrintEngine& frmEditor::printEngine() {
  Board& board = program().form<frmRecDisp>();
  return program().shared<PrintEngine>(state(), desktop(), board);
}

Listing frmEditor::listing() {
  const auto choice = [this](const Field& field, int index) {
    return sheet_->choiceText(field, index);
  };
  return Listing(store_.kind(), {choice, desktop().shortDateForm()});
}

void frmEditor::PrinterSetup_Click() { printEngine().PrinterSetup(); }

void frmEditor::PrintList_Click() {
  PrintEngine& engine = printEngine();
  Board& board = program().form<frmRecDisp>();
  const Listing pages = listing();
  std::int16_t mode = print_mode::printer;
  engine.OpenPrinter(mode);
  hide();
  board.open("Printing Status");
  board.print("Starting Print Routine...");
  const std::int16_t count = composePages(state(), store_.kind(), pages, mode, engine, board);
  if (count < 1) {
    // The editor stays hidden and the board shown; who closes it comes to the start screen.
    program().message(kDefaultTitle,
                      "System Error! Print routines have FAILED! Please contact the author for a "
                      "bug fix!");
    return;
  }
  if (const auto heading = pages.fileHeading(state().mediaCode))
    ignoringErrors([&] { engine.PrintOut(mode, count, *heading); });
  ignoringErrors([&] { readAndShow(1); });
  board.close();
  show();
  activateWindow();
}

void frmEditor::ExportData_Click() {
  const auto fixedName = exportName(store_.kind());
  const std::string name = fixedName ? *fixedName : program().shell().SaveAs();
  if (name.empty()) return;
  exportCollection(state(), store_.kind(), name);
  program().message(kDefaultTitle, "Data Exported...");
}

}  // namespace quillbox
