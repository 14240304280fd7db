#include "editors/frmFamily.h"

#include <algorithm>

namespace quillbox {

frmFamily::frmFamily(Program& program, std::string_view extension, const FamilyTables& tables)
    : frmEditor(program, *kindOfExtension(extension), tables.editor), family_(tables) {
  if (tables.captionsClickable) sheet().makeCaptionsClickable();
  if (tables.listPage == nullptr) return;
  listPage_ =
      std::make_unique<frmListPage>(program, *tables.listPage,
                                    frmListPage::Owner{[this](int item) { showListPosition(item); },
                                                       [this] { leaveListPage(); }});
}

void frmFamily::Form_Load() {
  const bool isNew = state().newCollection;
  const bool isMissing = !isNew && !state().files.fileSystem().exists(state().currentPath);
  if (isNew || isMissing)
    makeFile(store().kind().rules.fileType);
  else
    readCount();
  const auto first = readFirstItem();

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
  if (listPage_) listPage_->show(buffer());
}

void frmFamily::GetScreen() {
  frmEditor::GetScreen();
  if (listPage_) listPage_->store(buffer());
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
  updateNotWritten();
  sheet().focusFirst();
}

void frmFamily::leaveListPage() {
  updateNotWritten();
  showInsteadOf(*listPage_);
}

bool frmFamily::subListDiffers(const Record* record) const {
  return listPage_ && listPage_->differsFrom(record);
}

/// The list page moves the second position alone, unless it is what this editor steps by: the
/// others' indicator, buttons and position stay.
void frmFamily::showListPosition(int item) {
  const bool inStep = &position() == &state().ListPos;
  if (inStep) return readAndShow(item);
  std::vector<std::byte> record(buffer().size());
  store().readItem(item, record);
  state().ListPos = checked16(item);
  std::ranges::copy(record, buffer().begin());
  UpdateScreen();
  updateNotWritten();  // what is shown is another item than the indicator's
}

}  // namespace quillbox
