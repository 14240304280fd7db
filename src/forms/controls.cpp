#include "forms/controls.h"

#include <QLabel>
#include <QPushButton>

#include "forms/qt_text.h"

namespace quillbox {

QLabel* makeCaption(QWidget& input, const QString& name, const QString& caption) {
  input.setObjectName(name);
  input.setAccessibleName(withoutAccessKey(caption));
  auto* label = new QLabel(caption);
  label->setBuddy(&input);
  return label;
}

QPushButton* makeButton(const QString& name, const QString& caption) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setAccessibleName(withoutAccessKey(caption));
  button->setAutoDefault(true);
  return button;
}

}  // namespace quillbox
