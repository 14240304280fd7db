#include "forms/status_line.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "support/keys.h"

namespace quillbox::test {
namespace {

TEST(StatusLineToAssistiveTechnology, IsAStatusBarThatSaysItsWholeTextOnce) {
  StatusLine line([](QPushButton&) {});
  line.resize(40, 20);
  const QString text = QStringLiteral("A text that is much wider than the line");
  line.show(text);
  auto* label = line.findChild<QLabel*>(QStringLiteral("lblStatus"));
  ASSERT_NE(label, nullptr);
  auto* spoken = QAccessible::queryAccessibleInterface(label);
  EXPECT_EQ(spoken->role(), QAccessible::StatusBar);
  EXPECT_EQ(spoken->text(QAccessible::Name), text);
  EXPECT_EQ(spoken->text(QAccessible::Value), text);
  for (const auto other : {QAccessible::Description, QAccessible::Help, QAccessible::Accelerator})
    EXPECT_EQ(spoken->text(other), "");
}

TEST(StatusLineText, IsAsWideAsTheLine) {
  StatusLine line([](QPushButton&) {});
  line.show("Written");
  line.resize(300, line.height());
  line.layout()->activate();
  const QRect text = line.findChild<QLabel*>(QStringLiteral("lblStatus"))->geometry();
  EXPECT_EQ(text.left(), line.rect().left());
  EXPECT_EQ(text.right(), line.rect().right());
}

TEST(StatusLineButton, LeavesTheFocusWhereItWasWhenItIsClicked) {
  QWidget window;
  auto* box = new QLineEdit;
  QPushButton* button = nullptr;
  auto* line = new StatusLine([&button](QPushButton& made) { button = &made; });
  auto* column = new QVBoxLayout(&window);
  column->addWidget(box);
  column->addWidget(line);
  line->show("Written", {"cmdUndoWrite", "Undo Write", "Put it back", [] {}});
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  box->setFocus();
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->objectName(), "cmdUndoWrite");
  EXPECT_EQ(button->text(), "Undo Write");
  EXPECT_EQ(button->accessibleName(), "Undo Write");
  EXPECT_EQ(button->toolTip(), "Put it back");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_TRUE(box->hasFocus());
  QTest::keyClick(box, Qt::Key_Tab);
  EXPECT_TRUE(button->hasFocus()) << "it is reached by keys";
  line->clear();
  EXPECT_FALSE(button->isVisible());
  EXPECT_EQ(line->click(), nullptr);
}

}  // namespace
}  // namespace quillbox::test
