#include "platform/qt/qt_desktop.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <functional>

#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "support/keys.h"
#include "support/test_folder.h"
#include "text/date_text.h"
#include "text/windows1252.h"

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
  EXPECT_EQ(desktop_.inputBox("Record #", "Go To Record", ""), "12");
}

TEST_F(QtDesktopTest, AnInputBoxLeftEmptyIsNotCancelled) {
  onDialog<QInputDialog>([](QInputDialog& dialog) { key(dialog, Qt::Key_Return); });
  EXPECT_EQ(desktop_.inputBox("Record #", "Go To Record", ""), "");
}

TEST_F(QtDesktopTest, AnInputBoxIsCancelledWithEscape) {
  onDialog<QInputDialog>([](QInputDialog& dialog) { key(dialog, Qt::Key_Escape); });
  EXPECT_EQ(desktop_.inputBox("Record #", "Go To Record", ""), std::nullopt);
}

const FileDialog kOpen{"Open Collection",
                       "All Collections (*.?CS, *.MPS)|*.?CS;*.MPS|Music Collection (*.MCS)|*.MCS",
                       "", "cdlOpen"};

/// Types into the dialog's name box and presses Enter.
void answer(QFileDialog& dialog, const std::string& name) {
  auto* line = dialog.findChild<QLineEdit*>();
  ASSERT_NE(line, nullptr);
  line->setText(QString::fromStdString(name));
  QTest::keyClick(line, Qt::Key_Return);
}

TEST_F(QtDesktopTest, TheOpenDialogTurnsTheFilterIntoItsOwn) {
  onDialog<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "cdlOpen");
    EXPECT_EQ(dialog.windowHandle()->title(), "Open Collection");
    EXPECT_EQ(dialog.nameFilters(),
              (QStringList{"All Collections (*.?CS *.MPS)", "Music Collection (*.MCS)"}));
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    key(dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(desktop_.openDialog(kOpen), std::nullopt);
}

TEST_F(QtDesktopTest, TheOpenDialogListsFilesWhateverTheirCapitals) {
  const TestFolder folder;
  writeFile(folder.path("jazz.mcs"), "");
  writeFile(folder.path("letter.txt"), "");
  onDialog<QFileDialog>([&folder](QFileDialog& dialog) {
    dialog.setDirectory(QString::fromStdString(folder.path()));
    auto* list = dialog.findChild<QListView*>("listView");
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
    key(dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(desktop_.openDialog(kOpen), std::nullopt);
}

TEST_F(QtDesktopTest, TheOpenDialogLetsAMissingNameThrough) {
  const TestFolder folder;
  const std::string missing = folder.path("gone.MCS");
  onDialog<QFileDialog>([&](QFileDialog& dialog) { answer(dialog, missing); });
  EXPECT_EQ(desktop_.openDialog(kOpen), missing);
}

TEST_F(QtDesktopTest, TheSaveDialogGivesTheNameAsTyped) {
  const TestFolder folder;
  const std::string name = folder.path("my list");
  onDialog<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    answer(dialog, name);
  });
  EXPECT_EQ(desktop_.saveDialog({"File Save As", ""}), name);
}

/// Every locale that the toolkit knows.
QList<QLocale> allLocales() {
  return QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
}

TEST_F(QtDesktopTest, ADateOfEveryLocaleIsReadBackThroughTheCharactersOfARecord) {
  const QDate dayZero(1899, 12, 30);
  ASSERT_GT(allLocales().size(), 500);
  for (const QLocale& locale : allLocales()) {
    SCOPED_TRACE(locale.name().toStdString());
    const std::string form = shortDateForm(locale);
    TextBox box(50);
    for (int day = 2; day < 73'000; day += 97) {
      const double date = day + (day % 2 == 0 ? 0.0 : (day % 86'400) / 86'400.0);
      box.showText(fromRecordText(dateText(date, form)));
      ASSERT_EQ(dateOf(toRecordText(box.text()), form), date) << box.text().toStdString();

      const std::string today = shortDateText(locale, dayZero.addDays(day));
      ASSERT_EQ(toUtf8(fromUtf8(today)), today);
      ASSERT_EQ(dateOf(fromUtf8(today), form), day) << today;
      ASSERT_EQ(today.find_first_not_of(" -./0123456789ADFJMNOSabceglnoprtuvy"), std::string::npos);
    }
  }
}

TEST_F(QtDesktopTest, TodaysDateIsThePlatformsOwnWhereverARecordCanHoldIt) {
  const QDate today(2026, 11, 21);
  int own = 0;
  for (const QLocale& locale : allLocales()) {
    const std::string platforms = locale.toString(today, QLocale::ShortFormat).toStdString();
    if (!std::ranges::all_of(platforms, [](char c) { return c > 0; })) continue;
    EXPECT_EQ(shortDateText(locale, today), platforms) << locale.name().toStdString();
    ++own;
  }
  EXPECT_GT(own, 500);
  EXPECT_EQ(shortDateText(QLocale("fa_IR"), today), "2026/11/21") << "its form, but our digits";
  EXPECT_EQ(shortDateText(QLocale("bg_BG"), today), "2026-11-21");
  EXPECT_EQ(shortDateText(QLocale("ar_EG"), today), "2026-11-21");
}

TEST_F(QtDesktopTest, TheShortDateFormIsOneThatDatesCanBeReadBackFrom) {
  const std::string form = desktop_.shortDateForm();
  EXPECT_FALSE(form.empty());
  constexpr double newYear1980 = 29'221;
  EXPECT_EQ(dateOf(dateText(newYear1980, form), form), newYear1980);
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
