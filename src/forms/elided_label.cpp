#include "forms/elided_label.h"

#include <QEvent>

namespace quillbox {

ElidedLabel::ElidedLabel() {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

/// As high when it is empty, so that nothing below moves.
QSize ElidedLabel::sizeHint() const {
  const QMargins margins = contentsMargins();
  return {0, fontMetrics().height() + margins.top() + margins.bottom() + 2 * margin()};
}

void ElidedLabel::showText(const QString& text) {
  whole_ = text;
  setAccessibleName(text);
  fit();
}

void ElidedLabel::fit() {
  const QString shown = fontMetrics().elidedText(whole_, Qt::ElideRight, contentsRect().width());
  setText(shown);
  setToolTip(shown == whole_ ? QString() : whole_);
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
