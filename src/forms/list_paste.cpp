#include "forms/list_paste.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <algorithm>
#include <utility>

#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "text/track_list.h"

namespace quillbox {
namespace {

bool isEmpty(const TextBox& box) { return box.text().trimmed().isEmpty(); }

bool isAllSelected(const TextBox& box) {
  return box.hasSelectedText() && box.selectedText().trimmed() == box.text().trimmed();
}

/// As an edit of its own, which the box can undo.
void replaceText(TextBox& box, const QString& text) {
  box.selectAll();
  box.insert(text);
  box.home(false);  // ends the edit, and shows a long text from its beginning
}

/// With the box's own undo if possible, so that earlier typing can be undone, too.
void restoreText(TextBox& box, const QString& before) {
  while (box.isUndoAvailable() && box.text() != before) box.undo();
  if (box.text() != before) box.showPadded(before);
}

QString lines(std::size_t count) {
  if (count == 0) return QStringLiteral("nothing");
  return count == 1 ? QStringLiteral("1 line") : QStringLiteral("%1 lines").arg(count);
}

/// What did not fit comes first: the line may be cut at its end.
QString inWords(std::size_t pasted, std::size_t elsewhere, std::size_t left, const QString& next) {
  QString said = lines(pasted) + QStringLiteral(" pasted");
  if (left > 0)
    said = QStringLiteral("No place for %1, from \"%2\" on; ").arg(lines(left), next) + said;
  if (elsewhere > 0) said += QStringLiteral(", %1 of them on the other page").arg(elsewhere);
  said += QLatin1Char('.');
  if (pasted > 0)
    said += pasted == 1 ? QStringLiteral(" Ctrl+Z takes it back.")
                        : QStringLiteral(" Ctrl+Z takes them back.");
  return said;
}

}  // namespace

ListPaste::ListPaste(std::vector<TextBox*> entries, Say say)
    : entries_(std::move(entries)), say_(std::move(say)) {
  for (std::size_t entry = 0; entry < entries_.size(); ++entry) alsoIn(*entries_[entry], entry);
}

void ListPaste::alsoIn(TextBox& box, std::size_t first) {
  sources_.push_back({&box, first});
  box.installEventFilter(this);
}

bool ListPaste::eventFilter(QObject* watched, QEvent* event) {
  const auto source = std::ranges::find(sources_, watched, &Source::box);
  if (source == sources_.end() || source->box->isReadOnly()) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
      return keyPressed(*source, static_cast<QKeyEvent&>(*event));
    case QEvent::MouseButtonRelease:
      return static_cast<QMouseEvent&>(*event).button() == Qt::MiddleButton &&
             QApplication::clipboard()->supportsSelection() &&
             paste(*source, QApplication::clipboard()->text(QClipboard::Selection));
    case QEvent::Drop:
      return dropped(*source, static_cast<QDropEvent&>(*event));
    case QEvent::ContextMenu:
      return menuAsked(*source, static_cast<QContextMenuEvent&>(*event));
    default:
      return false;
  }
}

bool ListPaste::keyPressed(const Source& source, const QKeyEvent& event) {
  if (event.matches(QKeySequence::Undo) && canUndo(*source.box)) {
    undo();
    return true;
  }
  if (!event.matches(QKeySequence::Paste)) return false;
  // The key that pastes the primary selection.
  const bool fromSelection = event.key() == Qt::Key_Insert &&
                             event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
  const auto mode = fromSelection ? QClipboard::Selection : QClipboard::Clipboard;
  return paste(source, QApplication::clipboard()->text(mode));
}

bool ListPaste::dropped(const Source& source, QDropEvent& drop) {
  const QMimeData* data = drop.mimeData();
  if (data->hasUrls() || !paste(source, data->text())) return false;
  drop.setDropAction(Qt::CopyAction);  // it stays at its source
  drop.accept();
  return true;
}

/// The box's own menu, with Paste and Undo replaced by ours.
bool ListPaste::menuAsked(const Source& source, const QContextMenuEvent& asked) {
  TextBox* box = source.box;
  QMenu* menu = box->createStandardContextMenu();
  const auto replace = [&](const QString& text, auto handler) {
    for (QAction* action : menu->actions()) {
      if (!action->text().startsWith(text)) continue;
      action->disconnect(box);
      connect(action, &QAction::triggered, this, handler);
    }
  };
  // Found by the toolkit's texts in any language: the actions have no names.
  replace(QLineEdit::tr("&Paste"), [this, source] {
    if (!paste(source, QApplication::clipboard()->text())) source.box->paste();
  });
  if (canUndo(*box)) replace(QLineEdit::tr("&Undo"), [this] { undo(); });
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(asked.globalPos());
  return true;
}

/// Returns whether the text was handled as a list.
bool ListPaste::paste(const Source& source, const QString& text) {
  const std::string given = toUtf8Text(text);
  if (!hasLineBreaks(given)) return false;
  std::vector<QString> titles;
  for (const std::string& title : trackTitles(given)) titles.push_back(fromUtf8Text(title));
  if (titles.size() == 1)
    source.box->insert(titles.front());
  else if (!titles.empty())
    fill(source, titles);
  return true;
}

void ListPaste::fill(const Source& source, const std::vector<QString>& titles) {
  const bool replaces = isAllSelected(*source.box);
  const auto isFree = [&](TextBox* entry) {
    return isEmpty(*entry) || (entry == source.box && replaces);
  };
  last_.clear();
  std::size_t elsewhere = 0;
  auto title = titles.begin();
  for (std::size_t at = source.first; at < entries_.size() && title != titles.end(); ++at) {
    TextBox* entry = entries_[at];
    if (!isFree(entry)) continue;
    const QString before = entry->text();
    replaceText(*entry, *title++);
    last_.push_back({entry, before, entry->text()});
    if (entry->window() != source.box->window()) ++elsewhere;
  }
  if (!last_.empty() && last_.front().box == source.box) source.box->end(false);
  pastedInto_ = source.box;
  leftThere_ = source.box->text();

  const auto left = static_cast<std::size_t>(titles.end() - title);
  say_(*source.box, inWords(last_.size(), elsewhere, left, left > 0 ? *title : QString()));
}

/// As long as the box pasted into is unchanged, its next undo is that of the paste.
bool ListPaste::canUndo(const TextBox& box) const {
  return !last_.empty() && &box == pastedInto_ && box.text() == leftThere_;
}

/// Boxes changed since then are left alone.
void ListPaste::undo() {
  for (const auto& [box, before, after] : std::exchange(last_, {}))
    if (box->text() == after) restoreText(*box, before);
  say_(*pastedInto_, {});
}

}  // namespace quillbox
