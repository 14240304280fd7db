#include "forms/text_box.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

namespace quillbox {
namespace {

int trailingBlanks(const QString& text) {
  const auto isBlank = [](QChar c) { return c == QLatin1Char(' '); };
  const auto last = std::find_if_not(text.crbegin(), text.crend(), isBlank);
  return static_cast<int>(last - text.crbegin());
}

}  // namespace

TextBox::TextBox(int width, QWidget* parent) : QLineEdit(parent), width_(width) {
  setMaxLength(width);
  connect(this, &QLineEdit::textEdited, this, &TextBox::settle);
  connect(this, &QLineEdit::textChanged, this, &TextBox::noteTextSet);
  connect(this, &QLineEdit::cursorPositionChanged, this, &TextBox::stayBeforePadding);
  connect(this, &QLineEdit::selectionChanged, this, &TextBox::stayBeforePadding);
}

void TextBox::showText(const QString& text) {
  takeAsItIs();
  setText(text);
  setCursorPosition(0);
}

void TextBox::showPadded(const QString& text) {
  padding_ = 0;
  shown_ = text.left(width_);
  // The padding does not count against the width before it is removed. Changing this limit discards
  // all edits, so it is set once.
  setMaxLength(width_ + trailingBlanks(shown_));
  setText(shown_);
  padding_ = trailingBlanks(shown_);
  before_ = shown_;
  setCursorPosition(0);
}

/// After an edit: the rest of the padding is at the end of the text, and the typed text may be
/// longer than the field. Both are cut by further edits, so that undoing leads back to what was
/// shown.
void TextBox::settle() {
  if (isSettling_) return;
  const QScopedValueRollback settling(isSettling_, true);
  if (isRedoAvailable()) {  // an undo or a redo, which may be between an edit and its cut
    stepOn();
    // Undoing the first edit leads to what was shown, whatever the edits between did.
    if (!isUndoAvailable() && !shown_.isEmpty() && text() != shown_) showPadded(QString(shown_));
  } else {
    const int padding = std::exchange(padding_, 0);
    const int blanks = std::min(padding, trailingBlanks(text()));
    if (text() != shown_ && blanks > 0) {
      unsettled_ = text();
      cut(text().size() - blanks, blanks);
    }
    const qsizetype tooMany = text().size() - width_;
    if (text() != shown_ && tooMany > 0) cut(cursorPosition() - tooMany, tooMany);
  }
  padding_ = text() == shown_ ? trailingBlanks(shown_) : 0;
  before_ = text();
  stayBeforePadding();
}

/// Whether the text is allowed to stay in the box.
bool TextBox::isSettled(const QString& text) const {
  return text == shown_ || (text.size() <= width_ && text != unsettled_);
}

void TextBox::cut(qsizetype from, qsizetype length) {
  const int caret = cursorPosition();
  setSelection(static_cast<int>(from), static_cast<int>(length));
  del();
  setCursorPosition(std::min(caret, static_cast<int>(text().size())));
}

/// Repeats an undo or a redo until the text is allowed to stay.
void TextBox::stepOn() {
  if (isSettled(text())) return;
  undo();
  // If that returns to the same text, it was a redo, unless a cut has removed all of its edit.
  if (text() != before_ || isUndoKey_) return;
  redo();
  redo();
}

void TextBox::keyPressEvent(QKeyEvent* event) {
  isUndoKey_ = event->matches(QKeySequence::Undo);
  const bool isFull = padding_ == 0 && text().size() >= width_ && !hasSelectedText();
  const bool isTyped = !event->text().isEmpty() && event->text().front().isPrint();
  if (isFull && isTyped && !event->modifiers().testFlag(Qt::ControlModifier)) return;
  QLineEdit::keyPressEvent(event);
}

/// A text set by the program is left unchanged, with its padding.
void TextBox::noteTextSet() {
  if (!isSettling_ && text() != shown_ && text() != before_) takeAsItIs();
}

void TextBox::takeAsItIs() {
  padding_ = 0;
  shown_.clear();
  unsettled_.clear();
  if (maxLength() != width_) setMaxLength(width_);
  before_ = text();
}

void TextBox::stayBeforePadding() {
  if (padding_ == 0) return;
  const int visible = visibleLength();
  if (hasSelectedText() && selectionEnd() > visible) {
    const int start = std::min(selectionStart(), visible);
    setSelection(start, visible - start);
  }
  if (cursorPosition() > visible) setCursorPosition(visible);
}

}  // namespace quillbox
