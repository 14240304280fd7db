#include "forms/accessible_role.h"

#include <gtest/gtest.h>

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace quillbox::test {
namespace {

QAccessible::Role roleOf(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->role();
}

TEST(AccessibleRole, IsWhatWasSet) {
  QFrame line;
  setAccessibleRole(line, QAccessible::Separator);
  EXPECT_EQ(roleOf(line), QAccessible::Separator);
}

TEST(AccessibleRole, LeavesOtherWidgetsAlone) {
  QFrame line;
  setAccessibleRole(line, QAccessible::Separator);
  QLabel label;
  EXPECT_EQ(roleOf(label), QAccessible::StaticText);
}

TEST(AccessibleRole, LeavesNameAndChildrenAlone) {
  QFrame group;
  group.setAccessibleName(QStringLiteral("Notice"));
  auto* column = new QVBoxLayout(&group);
  column->addWidget(new QLabel(QStringLiteral("One")));
  setAccessibleRole(group, QAccessible::Grouping);
  auto* spoken = QAccessible::queryAccessibleInterface(&group);
  EXPECT_EQ(spoken->text(QAccessible::Name), "Notice");
  ASSERT_EQ(spoken->childCount(), 1);
  EXPECT_EQ(spoken->child(0)->text(QAccessible::Name), "One");
}

}  // namespace
}  // namespace quillbox::test
