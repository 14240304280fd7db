#include "editors/frmFamily.h"

#include "platform/checked16.h"

namespace quillbox {

frmFamily::frmFamily(Program& program, PrintEngine& printEngine, std::string_view extension,
                     const FamilyTables& tables)
    : frmEditor(program, printEngine, *kindOfExtension(extension), tables.editor), family_(tables) {
  if (tables.captionsClickable) sheet().makeCaptionsClickable();
  if (tables.listPage == nullptr) return;
  listPage_ = std::make_unique<frmListPage>(
      program, *tables.listPage,
      frmListPage::Owner{[this](int item) { showListPosition(item); }, [this] { leaveListPage(); },
                         [this] { updateNotWritten(); }});
}

void frmFamily::Form_Load(OpenCollection& opening) {
  const bool isNew = opening.newCollection;
  const bool isMissing = !isNew && !state().files.fileSystem().exists(opening.currentPath);
  if (isNew || isMissing)
    makeFile(opening, store().kind().rules.fileType);
  else
    opening.Count = storeOf(opening).readCount();
  const auto first = readFirstItem(storeOf(opening), opening.Count);

  takeOver(opening);
  resetForm();
  setFileCaption(store().kind());
  if (isMissing) setRecordLabel("New File");
  if (isNew || isMissing) return;
  // Ahead of the item itself, which may be a deleted one that shows nothing.
  setRecordLabel(recordLabel(store().kind(), 1, state().Count));
  showFirstItem(first);
}

void frmFamily::choose(Command command) {
  if (command == Command::editSubList)
    listPage_->showInsteadOf(*this);
  else
    frmEditor::choose(command);
}

void frmFamily::UpdateScreen() {
  if (family_.hidesDeleted && store().isDeleted(buffer())) return;
  frmEditor::UpdateScreen();
  if (listPage_) listPage_->UpdateScreen(buffer());
}

void frmFamily::GetScreen(std::span<std::byte> record) {
  frmEditor::GetScreen(record);
  if (listPage_) listPage_->GetScreen(record);
}

void frmFamily::ClearData() {
  frmEditor::ClearData();
  clearscreen();
}

void frmFamily::clearscreen() {
  sheet().clear();
  if (listPage_) listPage_->clear();
  setRecordLabel(std::string(store().kind().rules.label.fresh));
}

void frmFamily::afterNewItem() {
  if (!family_.clearsScreenOnly) return frmEditor::afterNewItem();
  clearscreen();
  noteShown();
  sheet().focusFirst();
}

void frmFamily::leaveListPage() {
  updateNotWritten();
  showInsteadOf(*listPage_);
}

QStringList frmFamily::subList() const { return listPage_ ? listPage_->entries() : QStringList(); }

void frmFamily::putBackSubList(const QStringList& entries) {
  if (listPage_) listPage_->setEntries(entries);
}

Form& frmFamily::formOnScreen() {
  if (listPage_ && listPage_->isVisible()) return *listPage_;
  return *this;
}

bool frmFamily::subListDiffers(const Record* record) const {
  return listPage_ && listPage_->differsFrom(record);
}

/// The list page moves the second position alone, unless it is what this editor steps by: the
/// others' indicator, buttons and position stay.
void frmFamily::showListPosition(int item) {
  if (stepsByListPos()) return readAndShow(item);
  const auto record = store().ReadRecord(item);
  leaveTyped();
  takeBuffer(record);
  state().ListPos = checked16(item);
  UpdateScreen();
  noteShown();  // what is shown is another item than the indicator's
}

}  // namespace quillbox
