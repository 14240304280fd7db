#include "editors/frmFamily.h"

#include <QAction>
#include <QMenu>

#include "forms/qt_text.h"
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
  auto* leadsThere = findChild<QAction*>(QStringLiteral("EditTitles"));
  leadsThere->setToolTip(fromUtf8Text(tables.listPage->toolTip));
  findChild<QMenu*>(QStringLiteral("EditMenu"))->setToolTipsVisible(true);
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
  // Before the item itself, which may be a deleted one that shows nothing.
  setRecordLabel(recordLabel(store().kind(), 1, state().Count));
  showFirstItem(first);
}

void frmFamily::choose(Command command) {
  if (command != Command::editSubList) return frmEditor::choose(command);
  nameItemOnListPage();
  listPage_->showInsteadOf(*this);
}

void frmFamily::UpdateScreen() {
  if (family_.hidesDeleted && store().isDeleted(buffer())) return;
  frmEditor::UpdateScreen();
  steppedTo_.reset();
  if (!listPage_) return;
  listPage_->UpdateScreen(buffer());
  nameItemOnListPage();
}

void frmFamily::GetScreen(std::span<std::byte> record) {
  frmEditor::GetScreen(record);
  steppedTo_.reset();  // the form replaces the indicator's item
  if (listPage_) listPage_->GetScreen(record);
}

void frmFamily::ClearData() {
  frmEditor::ClearData();
  clearscreen();
}

void frmFamily::clearscreen() {
  steppedTo_.reset();
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

/// By its number, which may differ from the indicator's, and by the names on the form.
void frmFamily::nameItemOnListPage() {
  const std::string number =
      steppedTo_ ? recordLabel(store().kind(), *steppedTo_, state().Count) : recordLabelText();
  listPage_->nameItem(itemLine(fromUtf8Text(number), sheet(), family_.listPage->nameBoxes));
}

bool frmFamily::subListDiffers(const Record* record) const {
  return listPage_ && listPage_->differsFrom(record);
}

/// The list page moves only the second position, unless this editor steps by it: in the others,
/// indicator, buttons and position stay.
void frmFamily::showListPosition(int item) {
  if (stepsByListPos()) return readAndShow(item);
  const auto record = store().ReadRecord(item);
  leaveTyped();
  takeBuffer(record);
  state().ListPos = checked16(item);
  UpdateScreen();
  steppedTo_ = item;
  nameItemOnListPage();
  noteShown();  // the form shows another item than the indicator
}

}  // namespace quillbox
