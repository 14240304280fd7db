#include "forms/elided_label.h"

#include <QAccessible>
#include <QEvent>

namespace quillbox {

ElidedLabel::ElidedLabel(Qt::TextElideMode cut) : cut_(cut) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const {
  const QMargins margins = contentsMargins();
  return {0, fontMetrics().height() + margins.top() + margins.bottom() + 2 * margin()};
}

void ElidedLabel::showText(const QString& text) {
  if (text == fullText_) return;
  fullText_ = text;
  setAccessibleName(text);
  fit();
  QAccessibleEvent told(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

void ElidedLabel::fit() {
  const QString shown = fontMetrics().elidedText(fullText_, cut_, contentsRect().width());
  setText(shown);
  setToolTip(shown == fullText_ ? QString() : fullText_);
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  fit();
}

void ElidedLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) fit();
}

}  // namespace quillbox
