#include "forms/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace quillbox {
namespace {

constexpr const char* kRole = "accessibleRole";

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  const QVariant role = widget == nullptr ? QVariant() : widget->property(kRole);
  if (!role.isValid()) return nullptr;
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
  static const bool installed = (QAccessible::installFactory(makeAccessible), true);
  Q_UNUSED(installed);
  widget.setProperty(kRole, static_cast<int>(role));
}

}  // namespace quillbox
