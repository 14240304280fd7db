#pragma once

#include <QAccessible>

namespace quillbox {

/// Sets the role of a widget for assistive technology, where the toolkit's own is misleading. Name,
/// state and children stay the toolkit's.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

}  // namespace quillbox
