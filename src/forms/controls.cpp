#include "forms/controls.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <algorithm>

#include "forms/qt_text.h"

namespace quillbox {
namespace {

/// True for a key that can be an access key of a caption or a menu. With Control and Alt together,
/// some keyboards type characters.
bool isAccessKey(const QKeyEvent& key) {
  const bool isWithAlt =
      key.modifiers().testFlag(Qt::AltModifier) && !key.modifiers().testFlag(Qt::ControlModifier);
  return isWithAlt && !key.text().isEmpty() && key.text().front().isPrint();
}

/// `color` with a little of `tint`.
QColor blended(const QColor& color, const QColor& tint) {
  constexpr double part = 0.18;
  const auto mix = [](int a, int b) { return static_cast<int>(a + part * (b - a)); };
  return {mix(color.red(), tint.red()), mix(color.green(), tint.green()),
          mix(color.blue(), tint.blue())};
}

/// Keeps access keys out of an input. One whose button is disabled would otherwise be typed into a
/// text, or select an entry of a list, unnoticed.
class AccessKeysPass : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* /*input*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !isAccessKey(static_cast<QKeyEvent&>(*event)))
      return false;
    event->ignore();  // the window may handle it
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

void explain(QPushButton& button, const QString& what, const QString& otherKeys) {
  const QKeySequence accessKey = QKeySequence::mnemonic(button.text());
  QStringList keys(accessKey.toString(QKeySequence::NativeText));
  keys << otherKeys;
  keys.removeAll(QString());
  const QString all = keys.join(QStringLiteral(" or "));
  button.setToolTip(all.isEmpty() ? what : QStringLiteral("%1 (%2)").arg(what, all));
}

void keepRoomFor(QLabel& label, const QString& widest) {
  const int width = label.fontMetrics().horizontalAdvance(widest) + 2 * label.margin();
  label.setMinimumWidth(std::max(label.minimumWidth(), width));
}

QColor unwrittenColor(const QPalette& palette) {
  constexpr int middle = 128;
  const bool isDark = palette.color(QPalette::Window).lightness() < middle;
  return isDark ? QColor(0xff, 0xb3, 0x5c) : QColor(0x9a, 0x45, 0x00);
}

void tintAsChanged(QWidget& input, bool isChanged) {
  const QPalette usual = QApplication::palette(&input);
  QPalette tinted;
  if (isChanged)
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button})
      tinted.setColor(role, blended(usual.color(role), unwrittenColor(usual)));
  const bool isAsWanted =
      isChanged ? input.palette().color(QPalette::Base) == tinted.color(QPalette::Base)
                : !input.testAttribute(Qt::WA_SetPalette);
  if (!isAsWanted) input.setPalette(tinted);
}

}  // namespace quillbox
