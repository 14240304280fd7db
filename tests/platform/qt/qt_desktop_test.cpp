#include "platform/qt/qt_desktop.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <functional>

#include "support/keys.h"

namespace quillbox::test {
namespace {

class QtDesktopTest : public testing::Test {
 protected:
  /// Runs `action` on the modal dialog that opens next.
  template <typename Dialog>
  void onDialog(std::function<void(Dialog&)> action) {
    QTimer::singleShot(0, [this, action = std::move(action)] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) {
        onDialog<Dialog>(action);  // not yet
        return;
      }
      ++dialogs_;
      action(*dialog);
    });
  }
  static void key(QWidget& dialog, Qt::Key key) { QTest::keyClick(&dialog, key); }

  QtDesktop desktop_;
  int dialogs_ = 0;
};

TEST_F(QtDesktopTest, AMessageShowsItsTextsExactlyAndIsAnsweredWithEnter) {
  onDialog<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text(), "<b>a</b> [*] & b\n\n/music/jazz.MCS");
    EXPECT_EQ(box.windowHandle()->title(), "QBX [*]");
    EXPECT_TRUE(box.isModal());
    key(box, Qt::Key_Return);
  });
  EXPECT_EQ(desktop_.messageBox({"QBX [*]", "<b>a</b> [*] & b\n\n/music/jazz.MCS"}), Answer::ok);
  EXPECT_EQ(dialogs_, 1);
}

TEST_F(QtDesktopTest, AMessageIsDismissedWithEscape) {
  onDialog<QMessageBox>([](QMessageBox& box) { key(box, Qt::Key_Escape); });
  EXPECT_EQ(desktop_.messageBox({"QBX", "text"}), Answer::ok);
}

TEST_F(QtDesktopTest, OfYesAndNoNoIsTheDefault) {
  const MessageBox question{"QBX", "Really?", Buttons::yesNo};
  onDialog<QMessageBox>([](QMessageBox& box) { key(box, Qt::Key_Return); });
  EXPECT_EQ(desktop_.messageBox(question), Answer::no);
  onDialog<QMessageBox>([](QMessageBox& box) { key(box, Qt::Key_Escape); });
  EXPECT_EQ(desktop_.messageBox(question), Answer::no);
  onDialog<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_EQ(desktop_.messageBox(question), Answer::no);
}

TEST_F(QtDesktopTest, YesIsChosenWithTheKeyboard) {
  onDialog<QMessageBox>(
      [](QMessageBox& box) { QTest::keyClick(box.button(QMessageBox::Yes), Qt::Key_Space); });
  EXPECT_EQ(desktop_.messageBox({"QBX", "Really?", Buttons::yesNo}), Answer::yes);
}

TEST_F(QtDesktopTest, AnInputBoxGivesWhatWasTyped) {
  onDialog<QInputDialog>([](QInputDialog& dialog) {
    EXPECT_EQ(dialog.windowHandle()->title(), "Go To Record");
    auto* line = dialog.findChild<QLineEdit*>();
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(line)->text(QAccessible::Name), "Record #");
    QTest::keyClicks(line, "12");
    key(*line, Qt::Key_Return);
  });
  EXPECT_EQ(desktop_.inputBox("Record #", "Go To Record"), "12");
}

TEST_F(QtDesktopTest, AnInputBoxLeftEmptyIsNotCancelled) {
  onDialog<QInputDialog>([](QInputDialog& dialog) { key(dialog, Qt::Key_Return); });
  EXPECT_EQ(desktop_.inputBox("Record #", "Go To Record"), "");
}

TEST_F(QtDesktopTest, AnInputBoxIsCancelledWithEscape) {
  onDialog<QInputDialog>([](QInputDialog& dialog) { key(dialog, Qt::Key_Escape); });
  EXPECT_EQ(desktop_.inputBox("Record #", "Go To Record"), std::nullopt);
}

TEST_F(QtDesktopTest, TodayIsAShortDate) {
  const std::string today = desktop_.todayText();
  EXPECT_FALSE(today.empty());
  EXPECT_LE(today.size(), 20U) << "the width of the field it goes to";
}

TEST_F(QtDesktopTest, RestingLetsEventsThroughAndEnds) {
  bool event = false;
  QTimer::singleShot(0, [&event] { event = true; });
  QElapsedTimer elapsed;
  elapsed.start();
  constexpr int rest = 60;
  desktop_.rest(rest, [] { return false; });
  EXPECT_TRUE(event);
  EXPECT_GE(elapsed.elapsed(), rest);
}

TEST_F(QtDesktopTest, RestingEndsAtOnceWhenItIsOver) {
  bool over = false;
  QTimer::singleShot(0, [&over] { over = true; });
  QElapsedTimer elapsed;
  elapsed.start();
  constexpr int hour = 3'600'000;
  desktop_.rest(hour, [&over] { return over; });
  EXPECT_LT(elapsed.elapsed(), hour);
}

}  // namespace
}  // namespace quillbox::test
