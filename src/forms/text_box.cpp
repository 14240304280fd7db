#include "forms/text_box.h"

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
  connect(this, &QLineEdit::textEdited, this, &TextBox::dropPadding);
  connect(this, &QLineEdit::textChanged, this, &TextBox::textChangedBy);
  connect(this, &QLineEdit::cursorPositionChanged, this, &TextBox::stayBeforePadding);
  connect(this, &QLineEdit::selectionChanged, this, &TextBox::stayBeforePadding);
}

void TextBox::showText(const QString& text) {
  setText(text);
  setCursorPosition(0);
}

void TextBox::showPadded(const QString& text) {
  padding_ = 0;
  shown_ = text.left(width_);
  setText(shown_);
  padding_ = trailingBlanks(shown_);
  // The padding takes no room away from what is typed before it goes.
  setMaxLength(width_ + padding_);
  setCursorPosition(0);
}

/// After an edit: what is left of the padding stands at the end of the text.
void TextBox::dropPadding() {
  if (padding_ == 0) return;
  const int padding = std::exchange(padding_, 0);
  const int caret = cursorPosition();
  QString edited = text();
  edited.chop(std::min(padding, trailingBlanks(edited)));
  setText(edited);
  setMaxLength(width_);
  setCursorPosition(caret);
}

/// A text set by program is taken as it is, padding and all.
void TextBox::textChangedBy(const QString& text) {
  if (padding_ == 0 || text == shown_) return;
  padding_ = 0;
  setMaxLength(width_);
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
