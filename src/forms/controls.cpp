#include "forms/controls.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "forms/qt_text.h"

namespace quillbox {
namespace {

/// True for a key that a caption or a menu may answer to. Control and Alt together are how some
/// keyboards write.
bool isAccessKey(const QKeyEvent& key) {
  const bool isWithAlt =
      key.modifiers().testFlag(Qt::AltModifier) && !key.modifiers().testFlag(Qt::ControlModifier);
  return isWithAlt && !key.text().isEmpty() && key.text().front().isPrint();
}

/// Keeps access keys out of an input. One that nothing answers to, as its button is disabled, would
/// otherwise be typed into a text, or choose an entry of a list, unnoticed.
class AccessKeysPass : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* /*input*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !isAccessKey(static_cast<QKeyEvent&>(*event)))
      return false;
    event->ignore();  // the window may have a use for it
    return true;
  }
};

}  // namespace

QString controlName(const char* name, int element) {
  const QString control = QString::fromUtf8(name);
  return element == kNoElement ? control : QStringLiteral("%1_%2").arg(control).arg(element);
}

void nameControl(QWidget& control, const QString& name, const QString& caption) {
  control.setObjectName(name);
  control.setAccessibleName(withoutAccessKey(caption));
}

QLabel* makeCaption(QWidget& input, const QString& name, const QString& caption) {
  nameControl(input, name, caption);
  input.installEventFilter(new AccessKeysPass(&input));
  auto* label = new QLabel(caption);
  label->setBuddy(&input);
  return label;
}

QPushButton* makeButton(const QString& name, const QString& caption) {
  auto* button = new QPushButton(caption);
  nameControl(*button, name, caption);
  button->setAutoDefault(true);
  return button;
}

}  // namespace quillbox
