#include "forms/status_line.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHBoxLayout>
#include <QPushButton>
#include <memory>
#include <utility>

#include "forms/controls.h"
#include "forms/qt_text.h"

namespace quillbox {
namespace {

class StatusAccessible : public QAccessibleWidget {
 public:
  explicit StatusAccessible(StatusText* text) : QAccessibleWidget(text, QAccessible::StatusBar) {}

  QString text(QAccessible::Text kind) const override {
    const auto& status = *static_cast<StatusText*>(object());
    return kind == QAccessible::Name || kind == QAccessible::Value ? status.fullText() : QString();
  }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* text = dynamic_cast<StatusText*>(object);
  return text != nullptr ? new StatusAccessible(text) : nullptr;
}

}  // namespace

StatusText::StatusText() {
  static const bool installed = (QAccessible::installFactory(makeAccessible), true);
  Q_UNUSED(installed);
  setObjectName(QStringLiteral("lblStatus"));
}

StatusLine::StatusLine(std::function<void(QPushButton&)> whenMade)
    : whenMade_(std::move(whenMade)), text_(new StatusText) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(text_, 1);
  const std::unique_ptr<QPushButton> button(makeButton({}, QStringLiteral("Undo")));
  setFixedHeight(button->sizeHint().height());
}

void StatusLine::show(const QString& text) {
  if (button_ != nullptr) button_->hide();
  click_ = nullptr;
  text_->showText(text);
}

void StatusLine::show(const QString& text, StatusAction action) {
  show(text);
  if (button_ == nullptr) {
    button_ = makeButton({}, {});
    // A click leaves the focus where it was: the button disappears once it is pressed.
    button_->setFocusPolicy(Qt::TabFocus);
    layout()->addWidget(button_);
    whenMade_(*button_);
  }
  nameControl(*button_, QString::fromUtf8(action.name), QString::fromUtf8(action.caption));
  button_->setText(QString::fromUtf8(action.caption));
  button_->setToolTip(action.toolTip);
  click_ = std::move(action.click);
  button_->show();
}

void StatusLine::clear() { show(QString()); }

}  // namespace quillbox
