#include "forms/drop_down.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QWheelEvent>

namespace quillbox {
namespace {

class DropDownAccessible : public QAccessibleWidget {
 public:
  explicit DropDownAccessible(DropDown* list) : QAccessibleWidget(list, QAccessible::ComboBox) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value || kind == QAccessible::Description)
      return list()->currentText();
    return QAccessibleWidget::text(kind);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = list()->view()->isVisible();
    return state;
  }

  // The only child is the list that opens.
  int childCount() const override { return 1; }
  QAccessibleInterface* child(int index) const override {
    return index == 0 ? QAccessible::queryAccessibleInterface(list()->view()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child != nullptr && child->object() == list()->view() ? 0 : -1;
  }

  QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
  void doAction(const QString& name) override {
    if (name != showMenuAction() && name != pressAction()) return;
    if (list()->view()->isVisible())
      list()->hidePopup();
    else
      list()->showPopup();
  }

 private:
  DropDown* list() const { return static_cast<DropDown*>(object()); }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* list = dynamic_cast<DropDown*>(object);
  return list != nullptr ? new DropDownAccessible(list) : nullptr;
}

}  // namespace

DropDown::DropDown(QWidget* parent) : QComboBox(parent) {
  static const bool installed = (QAccessible::installFactory(makeAccessible), true);
  Q_UNUSED(installed);
  setFocusPolicy(Qt::StrongFocus);  // the wheel does not move the focus here either
}

void DropDown::wheelEvent(QWheelEvent* event) {
  if (hasFocus())
    QComboBox::wheelEvent(event);
  else
    event->ignore();
}

}  // namespace quillbox
