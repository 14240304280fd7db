#include "forms/elided_label.h"

#include <QAccessible>
#include <QEvent>

namespace quillbox {
namespace {

constexpr int kNarrowest = 24;  // average characters

}  // namespace

ElidedLabel::ElidedLabel() {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ElidedLabel::setFullText(const QString& text) {
  if (text == fullText_) return;
  fullText_ = text;
  setAccessibleName(text);
  setToolTip(text.toHtmlEscaped());
  cut();
  QAccessibleEvent told(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

QSize ElidedLabel::minimumSizeHint() const {
  return {kNarrowest * fontMetrics().averageCharWidth(), QLabel::minimumSizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  cut();
}

void ElidedLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) cut();
}

void ElidedLabel::cut() {
  setText(fontMetrics().elidedText(fullText_, Qt::ElideMiddle, contentsRect().width()));
}

}  // namespace quillbox
