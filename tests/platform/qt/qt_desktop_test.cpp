#include "platform/qt/qt_desktop.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QTreeView>
#include <QWindow>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <set>
#include <string>

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

/// The space that a window manager may need for a title: in bold, and five times its height.
int roomFor(const QString& title) {
  QFont font = QApplication::font();
  font.setBold(true);
  const QFontMetrics metrics(font);
  return metrics.horizontalAdvance(title) + 5 * metrics.height();
}

/// Of the letters that bold widens most.
const std::string kLongTitle = "Quillbox - " + std::string(110, 'i');

TEST_F(QtDesktopTest, AMessageIsAtLeastAsWideAsItsTitleNeeds) {
  for (const auto buttons : {Buttons::ok, Buttons::yesNo})
    for (const auto icon : {MessageIcon::none, MessageIcon::critical}) {
      onDialog<QMessageBox>([](QMessageBox& box) {
        EXPECT_GE(box.width(), roomFor(QString::fromStdString(kLongTitle)));
        key(box, Qt::Key_Escape);
      });
      desktop_.messageBox({kLongTitle, "Deleted.", buttons, icon});
    }
}

TEST_F(QtDesktopTest, AnInputBoxIsAtLeastAsWideAsItsTitleNeeds) {
  onDialog<QInputDialog>([](QInputDialog& dialog) {
    EXPECT_GE(dialog.width(), roomFor(QString::fromStdString(kLongTitle)));
    key(dialog, Qt::Key_Escape);
  });
  desktop_.inputBox("#", kLongTitle, "");
}

TEST_F(QtDesktopTest, NoTitleMakesABoxWiderThanTheScreen) {
  const std::string endless(2000, 'W');
  onDialog<QMessageBox>([](QMessageBox& box) {
    EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
    key(box, Qt::Key_Escape);
  });
  desktop_.messageBox({endless, "Deleted."});
  onDialog<QInputDialog>([](QInputDialog& dialog) {
    EXPECT_LE(dialog.width(), dialog.screen()->availableGeometry().width() + 50);
    key(dialog, Qt::Key_Escape);
  });
  desktop_.inputBox("#", endless, "");
}

QIcon iconOfColor(const QColor& color) {
  QPixmap dot(16, 16);
  dot.fill(color);
  return QIcon(dot);
}

QColor colorOf(const QIcon& icon) { return icon.pixmap(16, 16).toImage().pixelColor(8, 8); }

TEST_F(QtDesktopTest, EveryBoxHasTheIconOfTheFormThatAsks) {
  QMainWindow form;
  form.setWindowIcon(iconOfColor(Qt::red));
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  const auto look = [](QDialog& dialog) {
    EXPECT_EQ(colorOf(dialog.windowHandle()->icon()), QColor(Qt::red))
        << dialog.metaObject()->className();
    key(dialog, Qt::Key_Escape);
  };
  onDialog<QMessageBox>(look);
  desktop_.messageBox({"QBX", "text"});
  onDialog<QInputDialog>(look);
  desktop_.inputBox("Record #", "Go To Record", "");
  onDialog<QFileDialog>(look);
  desktop_.openDialog({"Open Collection", "All (*.*)|*.*"});
  onDialog<QFileDialog>(look);
  desktop_.saveDialog({"File Save As", ""});
  onDialog<QDialog>(look);
  desktop_.printDialog("QBX List Print", "");
#ifndef _WIN32  // where it is the system's own, which a test cannot answer
  onDialog<QPageSetupDialog>(look);
  desktop_.printerSetup("cdlSetup");
#endif
}

TEST_F(QtDesktopTest, ABoxRightAfterAnotherStillHasTheFormsIcon) {
  QMainWindow form;
  form.setWindowIcon(iconOfColor(Qt::red));
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  QApplication::setActiveWindow(nullptr);
  onDialog<QMessageBox>([&form](QMessageBox& box) {
    EXPECT_EQ(colorOf(box.windowHandle()->icon()), QColor(Qt::red));
    EXPECT_EQ(box.parentWidget(), &form);
    key(box, Qt::Key_Escape);
  });
  desktop_.messageBox({"QBX", "text"});
}

TEST_F(QtDesktopTest, ABoxWithoutAFormHasTheProgramsIcon) {
  const QIcon before = QApplication::windowIcon();
  QApplication::setWindowIcon(iconOfColor(Qt::blue));
  onDialog<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(colorOf(box.windowHandle()->icon()), QColor(Qt::blue));
    key(box, Qt::Key_Escape);
  });
  desktop_.messageBox({"QBX", "text"});
  QApplication::setWindowIcon(before);
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
    EXPECT_TRUE(waitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
    key(dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(desktop_.openDialog(kOpen), std::nullopt);
}

TEST_F(QtDesktopTest, TheColumnsOfTheOpenDialogHoldWhatTheyShow) {
  const TestFolder folder;
  // The toolkit remembers columns; not those of other tests, and not for the user.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString(folder.path("settings")));
  std::filesystem::resize_file((writeFile(folder.path("jazz.MCS"), ""), folder.path("jazz.MCS")),
                               1023 * 1024 + 1000);
  onDialog<QFileDialog>([&folder](QFileDialog& dialog) {
    dialog.setViewMode(QFileDialog::Detail);
    dialog.setDirectory(QString::fromStdString(folder.path()));
    auto* view = dialog.findChild<QTreeView*>("treeView");
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(waitFor([&] { return view->model()->rowCount(view->rootIndex()) == 1; }));
    for (int column = 1; column < 4; ++column) {
      const QModelIndex cell = view->model()->index(0, column, view->rootIndex());
      EXPECT_GE(view->header()->sectionSize(column), view->sizeHintForIndex(cell).width())
          << column;
      EXPECT_GE(view->header()->sectionSize(column), view->header()->sectionSizeHint(column));
    }
    EXPECT_LE(dialog.width(), dialog.screen()->availableGeometry().width());
    const auto* places = dialog.findChild<QListView*>("sidebar");
    ASSERT_NE(places, nullptr);
    EXPECT_GT(places->viewport()->width(), places->sizeHintForColumn(0)) << "not cut at the edge";
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
  std::set<std::string> forms;
  for (const QLocale& locale : allLocales()) {
    SCOPED_TRACE(locale.name().toStdString());
    const std::string form = shortDateForm(locale);
    const bool isNew = forms.insert(form).second;
    TextBox box(50);
    for (int day = 2; day < 73'000; day += 97) {
      const double date = day + (day % 2 == 0 ? 0.0 : (day % 86'400) / 86'400.0);
      if (isNew) {
        box.showText(fromRecordText(dateText(date, form)));
        ASSERT_EQ(dateOf(toRecordText(box.text()), form), date) << box.text().toStdString();
      }
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
