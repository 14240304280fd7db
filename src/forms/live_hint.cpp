#include "forms/live_hint.h"

#include <QLineEdit>
#include <QToolTip>

namespace quillbox {

LiveHint::LiveHint(QWidget& sheet) : QLabel(&sheet) {
  setObjectName(QStringLiteral("lblHint"));
  setTextFormat(Qt::PlainText);
  setFrameShape(QFrame::Box);
  setAutoFillBackground(true);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setMargin(2);
  hide();
}

void LiveHint::show(QLineEdit& box, const QString& text) {
  box.setAccessibleDescription(text);
  setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  setText(text);
  adjustSize();
  const QWidget& sheet = *parentWidget();
  QPoint place = box.mapTo(&sheet, QPoint(0, box.height()));
  if (place.y() + height() > sheet.height()) place.ry() -= box.height() + height();
  move(place);
}

}  // namespace quillbox
