#include "forms/text_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <memory>
#include <random>

#include "support/keys.h"

namespace quillbox::test {
namespace {

constexpr int kWidth = 10;

class TextBoxTest : public testing::Test {
 protected:
  TextBoxTest() {
    box_.showPadded(QStringLiteral("Blue      "));
    box_.show();
    box_.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box_));
  }

  void keys(const char* text) { QTest::keyClicks(&box_, QString::fromUtf8(text)); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&box_, key, modifiers);
  }
  std::string text() const { return box_.text().toStdString(); }

  TextBox box_{kWidth};
};

TEST_F(TextBoxTest, KeepsItsPaddingWhileItIsOnlyVisited) {
  key(Qt::Key_End);
  key(Qt::Key_Left);
  key(Qt::Key_Home, Qt::ShiftModifier);
  QTest::mouseClick(&box_, Qt::LeftButton, {}, QPoint(box_.width() - 5, box_.height() / 2));
  EXPECT_EQ(text(), "Blue      ");
}

TEST_F(TextBoxTest, PutsTheCaretNoFurtherThanTheVisibleText) {
  key(Qt::Key_End);
  EXPECT_EQ(box_.cursorPosition(), 4);
  key(Qt::Key_Right);
  EXPECT_EQ(box_.cursorPosition(), 4);
  key(Qt::Key_Home);
  QTest::mouseClick(&box_, Qt::LeftButton, {}, QPoint(box_.width() - 5, box_.height() / 2));
  EXPECT_EQ(box_.cursorPosition(), 4);
}

TEST_F(TextBoxTest, SelectsOnlyTheVisibleText) {
  box_.selectAll();
  EXPECT_EQ(box_.selectedText(), "Blue");
  key(Qt::Key_Home);
  key(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(box_.selectedText(), "Blue");
}

TEST_F(TextBoxTest, TabbingInSelectsTheVisibleTextSoThatTypingReplacesIt) {
  QWidget window;
  auto* first = new QLineEdit(&window);
  auto* second = new TextBox(kWidth, &window);
  second->showPadded(QStringLiteral("Blue      "));
  window.show();
  first->setFocus();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(first, Qt::Key_Tab);
  ASSERT_TRUE(second->hasFocus());
  EXPECT_EQ(second->selectedText(), "Blue");
  QTest::keyClicks(second, QStringLiteral("Red"));
  EXPECT_EQ(second->text(), "Red");
}

TEST_F(TextBoxTest, UndoBringsBackWhatWasShown) {
  box_.selectAll();
  keys("R");
  EXPECT_EQ(text(), "R");
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(), "Blue      ");
  key(Qt::Key_End);
  EXPECT_EQ(box_.cursorPosition(), 4);
  key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(text(), "R");
  key(Qt::Key_Z, Qt::ControlModifier);
  keys(" Train");
  EXPECT_TRUE(box_.text().size() <= kWidth);
}

TEST_F(TextBoxTest, UndoLeadsBackThroughAPasteThatWasTooLong) {
  key(Qt::Key_End);
  keys(" Tr");
  QApplication::clipboard()->setText(QStringLiteral("ains and more"));
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(text(), "Blue Train");
  key(Qt::Key_V, Qt::ControlModifier);  // none of it fits
  EXPECT_EQ(text(), "Blue Train");
  for (int most = 0; most < 8 && box_.isUndoAvailable(); ++most)
    key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(), "Blue      ");
  for (int most = 0; most < 8 && box_.isRedoAvailable(); ++most)
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(text(), "Blue Train");
}

TEST_F(TextBoxTest, NeverHoldsMoreThanItsWidthWhateverIsDone) {
  std::mt19937 random(7);
  QApplication::clipboard()->setText(QStringLiteral("pasted text"));
  for (int round = 0; round < 60; ++round) {
    box_.showPadded(QStringLiteral("Blue      "));
    for (int step = 0; step < 40; ++step) {
      switch (random() % 9) {
        case 0:
          key(Qt::Key_Home);
          break;
        case 1:
          key(Qt::Key_End);
          break;
        case 2:
          key(Qt::Key_Left, Qt::ShiftModifier);
          break;
        case 3:
          key(Qt::Key_Backspace);
          break;
        case 4:
          key(Qt::Key_V, Qt::ControlModifier);
          break;
        case 5:
          key(Qt::Key_Z, Qt::ControlModifier);
          break;
        case 6:
          key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
          break;
        case 7:
          keys(" ");
          break;
        default:
          keys("x");
          break;
      }
      ASSERT_LE(text().size(), static_cast<std::size_t>(kWidth)) << round << ", " << step;
    }
    for (int most = 0; most < 100 && box_.isUndoAvailable(); ++most)
      key(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(text(), "Blue      ") << round;
  }
}

TEST_F(TextBoxTest, ForgetsItsPaddingWithTextSetByProgram) {
  key(Qt::Key_End);
  keys("x");
  box_.setText(QStringLiteral("Set"));
  EXPECT_EQ(text(), "Set");
  EXPECT_EQ(box_.maxLength(), kWidth);
  box_.showPadded(QStringLiteral("Blue      "));
  box_.clear();
  EXPECT_EQ(text(), "");
  keys("0123456789ABC");
  EXPECT_EQ(text(), "0123456789");
}

TEST_F(TextBoxTest, GivesThePaddingWayToTheFirstKey) {
  key(Qt::Key_End);
  keys(" Train");
  EXPECT_EQ(text(), "Blue Train");
}

TEST_F(TextBoxTest, TakesNoMoreThanItsWidth) {
  key(Qt::Key_End);
  keys(" Trains and more");
  EXPECT_EQ(text(), "Blue Train");
}

TEST_F(TextBoxTest, InsertsInTheMiddleWithoutLosingTheEnd) {
  key(Qt::Key_Home);
  keys("Kind of B");
  EXPECT_EQ(text(), "Kind oBlue");
}

TEST_F(TextBoxTest, CountsTheBlanksThatTheUserTypes) {
  key(Qt::Key_End);
  keys("   x");
  EXPECT_EQ(text(), "Blue   x");
  key(Qt::Key_Backspace);
  EXPECT_EQ(text(), "Blue   ");
}

TEST_F(TextBoxTest, KeepsABlankLeftAtTheEndByTheFirstEdit) {
  box_.showPadded(QStringLiteral("A B       "));
  key(Qt::Key_End);
  key(Qt::Key_Backspace);
  EXPECT_EQ(text(), "A ");
}

TEST_F(TextBoxTest, DeletesNothingVisibleAtTheEnd) {
  key(Qt::Key_End);
  key(Qt::Key_Delete);
  EXPECT_EQ(text(), "Blue");
  EXPECT_EQ(box_.cursorPosition(), 4);
}

TEST_F(TextBoxTest, PastesInPlaceOfThePadding) {
  QApplication::clipboard()->setText(QStringLiteral(" Train and on"));
  key(Qt::Key_End);
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(text(), "Blue Train");
}

TEST_F(TextBoxTest, IsFullWhenItsTextFillsTheWidth) {
  box_.showPadded(QStringLiteral("0123456789"));
  key(Qt::Key_End);
  keys("x");
  EXPECT_EQ(text(), "0123456789");
}

TEST_F(TextBoxTest, AnAllBlankTextIsEmptyToTheUser) {
  box_.showPadded(QString(kWidth, QLatin1Char(' ')));
  keys("0123456789");
  EXPECT_EQ(text(), "0123456789");
}

TEST_F(TextBoxTest, TakesTextSetByProgramAsItIs) {
  box_.setText(QStringLiteral("Red  "));
  EXPECT_EQ(text(), "Red  ");
  key(Qt::Key_End);
  keys("x");
  EXPECT_EQ(text(), "Red  x");
}

TEST_F(TextBoxTest, ShowsALongTextFromItsBeginning) {
  box_.showText(QStringLiteral("0123456789"));
  EXPECT_EQ(box_.cursorPosition(), 0);
  key(Qt::Key_End);
  key(Qt::Key_Backspace);
  EXPECT_EQ(text(), "012345678");
}

TEST_F(TextBoxTest, ShowsTheNextTextWithItsOwnPadding) {
  key(Qt::Key_End);
  keys("s");
  box_.showPadded(QStringLiteral("Green     "));
  EXPECT_EQ(text(), "Green     ");
  key(Qt::Key_End);
  keys("12345");
  EXPECT_EQ(text(), "Green12345");
}

}  // namespace
}  // namespace quillbox::test
