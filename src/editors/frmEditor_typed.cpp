// Text typed on an editor and not written: it is kept when it leaves the form, and restored when
// the user asks for it. Writing and deleting can be undone, too.

#include <QByteArray>
#include <QEvent>
#include <QLabel>
#include <utility>

#include "editors/frmEditor.h"
#include "forms/controls.h"
#include "forms/status_line.h"

namespace quillbox {
namespace {

QByteArray asBytes(const std::vector<std::byte>& record) {
  return {reinterpret_cast<const char*>(record.data()), static_cast<qsizetype>(record.size())};
}

/// "item 5" or "a new item"
QString nameOf(int item) {
  return item == kNewItem ? QStringLiteral("a new item") : QStringLiteral("item %1").arg(item);
}

QString leftText(const KeptText& text) {
  QString sentence = nameOf(text.item) + QStringLiteral(" was left with text that is not written");
  sentence.front() = sentence.front().toUpper();
  return sentence;
}

}  // namespace

void frmEditor::noteStored(std::span<const std::byte> record) {
  stored_.emplace(record.begin(), record.end());
  noteShown();
}

void frmEditor::noteNothingStored() {
  stored_.reset();
  noteShown();
}

void frmEditor::updateNotWritten() {
  updateMark();
  if (kept_ && (isMarked_ || kept_->isOnForm())) keepSoon_.start();
}

/// The mark and the tints depend on the user's colours.
void frmEditor::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && lblNotWritten_ != nullptr) updateMark();
  Form::changeEvent(event);
}

void frmEditor::updateMark() {
  const Record* stored = stored_ ? &*stored_ : nullptr;
  const bool sheetDiffers = sheet_->tintDifferences(stored);
  isMarked_ = sheetDiffers || subListDiffers(stored);
  lblNotWritten_->setVisible(isMarked_);
  const QColor color = unwrittenColor(palette());
  if (lblNotWritten_->palette().color(QPalette::WindowText) == color) return;
  QPalette colors;
  colors.setColor(QPalette::WindowText, color);
  lblNotWritten_->setPalette(colors);
}

KeptText frmEditor::typedText() {
  KeptText text;
  text.item = state().CurRec >= 1 ? position() : kNewItem;
  if (stored_) text.stored = asBytes(*stored_);
  text.inputs = sheet_->typed();
  text.list = subList();
  return text;
}

void frmEditor::noteShown() {
  shown_ = typedText();
  updateNotWritten();
}

/// An item shown by the list page differs from the one at the position, but nobody typed it.
bool frmEditor::holdsTyped() { return !isLeft_ && isMarked_ && !typedText().isSameText(shown_); }

void frmEditor::keepTyped() {
  keepSoon_.stop();
  if (!kept_) return;
  updateMark();
  kept_->setOnForm(holdsTyped() ? std::optional(typedText()) : std::nullopt);
}

void frmEditor::leaveTyped(bool tells) {
  keepSoon_.stop();
  if (!kept_) return;
  updateMark();
  if (!holdsTyped()) return kept_->setOnForm(std::nullopt);
  KeptText text = typedText();
  text.isTold = tells;
  kept_->leave(text);
  if (!tells) return;
  offerBringBack(leftText(text));
}

void frmEditor::tell(const QString& text) {
  Form& form = formOnScreen();
  if (!form.offersAction()) form.showStatus(text);
}

void frmEditor::offerBringBack(const QString& told) {
  formOnScreen().showStatus(told, {"cmdBringBack", "Bring Back", toolTipOf(Command::bringBack),
                                   [this] { choose(Command::bringBack); }});
}

/// What an earlier run of the program could not report.
void frmEditor::offerKeptText() {
  const auto text = kept_ ? kept_->newest() : std::nullopt;
  if (!text || text->isTold) return;
  offerBringBack(QStringLiteral("Text typed for %1 was not written").arg(nameOf(text->item)));
  kept_->tell();
}

void frmEditor::BringBack() {
  const auto text = kept_ ? kept_->newest() : std::nullopt;
  if (!text) return tell(QStringLiteral("There is no text to bring back"));
  std::optional<std::int16_t> item;
  std::optional<Record> record;
  try {
    item = itemOf(*text);
    if (item) record = store_.ReadRecord(*item);
  } catch (const RunTimeError&) {
    offerBringBack(leftText(*text));
    throw;
  }

  if (item)
    showItem(*item, *record);
  else
    cmdClearData_Click();
  sheet_->putBack(text->inputs);
  putBackSubList(text->list);
  kept_->forget(*text);
  keepTyped();
  const bool isLost = !item && text->item != kNewItem;
  const QString place = nameOf(item.value_or(kNewItem));
  tell(isLost ? QStringLiteral("Item %1 has changed since: its text is on a new item now")
                    .arg(text->item)
              : QStringLiteral("The text is back on %1: Write Data stores it").arg(place));
  sheet_->focusFirst();
}

/// The present position of the text's item; nothing if it is gone or was never written.
std::optional<std::int16_t> frmEditor::itemOf(const KeptText& text) {
  if (text.stored.isEmpty()) return std::nullopt;
  const auto isAt = [&](int item) { return asBytes(store_.ReadRecord(item)) == text.stored; };
  const std::int16_t count = state().Count;
  if (text.item >= 1 && text.item <= count && isAt(text.item))
    return static_cast<std::int16_t>(text.item);
  for (int item = 1; item <= count; ++item)
    if (isAt(item)) return static_cast<std::int16_t>(item);
  return std::nullopt;
}

void frmEditor::Duplicate() {
  if (state().CurRec < 1) return tell(QStringLiteral("There is no item to duplicate"));
  const KeptText copied = typedText();
  startNewItem();
  sheet_->putBack(copied.inputs);
  putBackSubList(copied.list);
  keepTyped();
  tell(QStringLiteral("A copy of item %1, not written yet: Write Data stores it as a new item")
           .arg(copied.item));
}

void frmEditor::noteWritten(const KeptText& written) {
  if (kept_) {
    kept_->setOnForm(std::nullopt);
    kept_->forget(written);
  }
  noteShown();
}

void frmEditor::offerUndo(const QString& told, Undo undo) {
  showStatus(told, {undo.name, undo.caption, QStringLiteral("Put the item back as it was before"),
                    [this, told, undo] { takeBack(told, undo); }});
}

/// Only over what was written then. If it fails, it can be tried again at once.
void frmEditor::takeBack(const QString& told, Undo undo) {
  try {
    if (!undo.isBegun && store_.ReadRecord(undo.item) != undo.after)
      return showStatus(QStringLiteral("Item %1 has changed since and stays").arg(undo.item));
    slot_.reset();
    undo.isBegun = true;
    writing(undo.item, [&] { store_.WriteRecord(undo.item, undo.before, state().Count); });
  } catch (const RunTimeError&) {
    offerUndo(told, undo);
    throw;
  }
  panelTakes(undo.item, undo.before);
  showItem(undo.item, undo.before);
  tell(QStringLiteral("Item %1 is as it was").arg(undo.item));
  sheet_->focusFirst();
}

}  // namespace quillbox
