// The print dialog, and what the desktop does after its answers and those of other dialogs.

#include "platform/qt/print_dialog.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <QWindow>
#include <functional>

#include "platform/printer.h"
#include "platform/qt/qt_desktop.h"
#include "platform/run_time_error.h"
#include "support/keys.h"
#include "support/machine.h"
#include "support/printed_pdf.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

template <typename Control>
Control& control(const QDialog& dialog, const char* name) {
  auto* found = dialog.findChild<Control*>(QString::fromUtf8(name));
  if (found == nullptr) throw std::runtime_error(std::string("no control is called ") + name);
  return *found;
}

QListWidget& printers(const QDialog& dialog) { return control<QListWidget>(dialog, "lstPrinter"); }
QSpinBox& copies(const QDialog& dialog) { return control<QSpinBox>(dialog, "spnCopies"); }
QCheckBox& toFile(const QDialog& dialog) { return control<QCheckBox>(dialog, "chkPrintToFile"); }

class PrintDialogTest : public testing::Test {
 protected:
  PrintDialogTest() {
    dialog_.open();
    QApplication::processEvents();
  }

  /// Chooses a printer that does not exist unless the test adds it.
  void chooseAPrinter() {
    printers(dialog_).addItem("Office");
    printers(dialog_).setCurrentRow(printers(dialog_).count() - 1);
  }
  void choosePdf() { printers(dialog_).setCurrentRow(0); }
  void accessKey(Qt::Key key) { QTest::keyClick(&dialog_, key, Qt::AltModifier); }

  PrintDialog dialog_{"QBX List Print"};
};

TEST_F(PrintDialogTest, HasItsTitleAndCaptions) {
  EXPECT_EQ(dialog_.windowTitle(), "QBX List Print");
  EXPECT_EQ(dialog_.objectName(), "PrintDialog");
  EXPECT_TRUE(dialog_.isModal());
  EXPECT_EQ(printers(dialog_).accessibleName(), "Printer:");
  EXPECT_EQ(copies(dialog_).accessibleName(), "Copies:");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&toFile(dialog_))->text(QAccessible::Name),
            "Print to file");
}

TEST_F(PrintDialogTest, ItsButtonsSayWhatTheyDo) {
  EXPECT_EQ(toFile(dialog_).toolTip(), "Write the listing as plain text");
  const auto expectTips = [](const PrintDialog& dialog, const char* print) {
    const auto* buttons = dialog.findChild<QDialogButtonBox*>();
    const QString ok = buttons->button(QDialogButtonBox::Ok)->toolTip();
    EXPECT_TRUE(ok.startsWith(print) && ok.endsWith("Enter)")) << ok.toStdString();
    const QString cancel = buttons->button(QDialogButtonBox::Cancel)->toolTip();
    EXPECT_TRUE(cancel.startsWith("Print nothing (") && cancel.endsWith("Escape)"));
  };
  expectTips(dialog_, "Print the listing (");
  expectTips(PrintDialog("Items", PrintDialog::What::sheets), "Print (");
}

TEST_F(PrintDialogTest, OffersAPdfDocumentAndThenThePrinters) {
  EXPECT_EQ(printers(dialog_).item(0)->text(), "PDF document");
  QStringList offered;
  for (int item = 1; item < printers(dialog_).count(); ++item)
    offered << printers(dialog_).item(item)->text();
  EXPECT_EQ(offered, QPrinterInfo::availablePrinterNames());
}

TEST_F(PrintDialogTest, ChoosesTheDefaultPrinterAtFirstOrElseThePdfDocument) {
  const QString printer = QPrinterInfo::defaultPrinterName();
  EXPECT_EQ(printers(dialog_).currentItem()->text(), printer.isEmpty() ? "PDF document" : printer);
  EXPECT_EQ(dialog_.toPdf(), printer.isEmpty());
  EXPECT_FALSE(dialog_.toTextFile());
  EXPECT_EQ(dialog_.copies(), 1);
}

TEST_F(PrintDialogTest, CopiesAreForPrintersAlone) {
  chooseAPrinter();
  EXPECT_FALSE(dialog_.toPdf());
  EXPECT_EQ(dialog_.printerName(), "Office");
  EXPECT_TRUE(copies(dialog_).isEnabled());
  choosePdf();
  EXPECT_TRUE(dialog_.toPdf());
  EXPECT_FALSE(copies(dialog_).isEnabled());
  EXPECT_TRUE(printers(dialog_).isEnabled());
}

TEST_F(PrintDialogTest, ATextFileNeedsNoPrinter) {
  chooseAPrinter();
  toFile(dialog_).click();
  EXPECT_TRUE(dialog_.toTextFile());
  EXPECT_FALSE(printers(dialog_).isEnabled());
  EXPECT_FALSE(copies(dialog_).isEnabled());
  toFile(dialog_).click();
  EXPECT_FALSE(dialog_.toTextFile());
  EXPECT_TRUE(printers(dialog_).isEnabled());
  EXPECT_TRUE(copies(dialog_).isEnabled());
  EXPECT_EQ(dialog_.printerName(), "Office");
}

TEST_F(PrintDialogTest, CopiesAreTypedAndAtLeastOne) {
  chooseAPrinter();
  const auto typed = [this](const char* keys) {
    copies(dialog_).selectAll();
    QTest::keyClicks(&copies(dialog_), keys);
    QTest::keyClick(&copies(dialog_), Qt::Key_Tab);
    return dialog_.copies();
  };
  EXPECT_EQ(typed("3"), 3);
  EXPECT_EQ(typed("99"), 99);
  EXPECT_EQ(typed("0"), 99) << "no copies are no choice";
  EXPECT_EQ(typed("-7"), 7) << "a key that has no place in a number is not taken";
}

TEST_F(PrintDialogTest, EachInputHasItsAccessKey) {
  chooseAPrinter();
  accessKey(Qt::Key_I);
  EXPECT_TRUE(copies(dialog_).hasFocus());
  accessKey(Qt::Key_P);
  EXPECT_TRUE(printers(dialog_).hasFocus());
  accessKey(Qt::Key_F);
  EXPECT_TRUE(waitFor([this] { return dialog_.toTextFile(); }));
}

TEST_F(PrintDialogTest, EnterAcceptsAndEscapeRejectsFromEveryInput) {
  chooseAPrinter();
  for (QWidget* input :
       std::initializer_list<QWidget*>{&printers(dialog_), &copies(dialog_), &toFile(dialog_)})
    for (const auto& [key, result] :
         {std::pair{Qt::Key_Return, QDialog::Accepted}, std::pair{Qt::Key_Enter, QDialog::Accepted},
          std::pair{Qt::Key_Escape, QDialog::Rejected}}) {
      SCOPED_TRACE(input->objectName().toStdString());
      dialog_.setResult(-1);
      dialog_.open();
      input->setFocus();
      QTest::keyClick(input, key);
      EXPECT_EQ(dialog_.result(), result) << key;
      EXPECT_FALSE(dialog_.isVisible());
    }
}

TEST_F(PrintDialogTest, TabLeadsThroughTheInputsInTheirOrder) {
  chooseAPrinter();
  printers(dialog_).setFocus();
  QTest::keyClick(&printers(dialog_), Qt::Key_Tab);
  EXPECT_EQ(dialog_.focusWidget(), &copies(dialog_));
  QTest::keyClick(&copies(dialog_), Qt::Key_Tab);
  EXPECT_EQ(dialog_.focusWidget(), &toFile(dialog_));
}

// ---- The desktop's dialogs

class PrintingOnTheDesktop : public testing::Test {
 protected:
  ~PrintingOnTheDesktop() override { EXPECT_EQ(dialogs_, expected_); }

  /// Runs `action` on the next modal dialog of that class.
  template <typename Dialog>
  void onDialog(std::function<void(Dialog&)> action) {
    ++expected_;
    waitForDialog(std::move(action));
  }
  static void key(QWidget& widget, Qt::Key key) { QTest::keyClick(&widget, key); }

  /// Types a name over the suggested one, and presses Enter.
  static void answer(QFileDialog& dialog, const std::string& name) {
    auto& line = control<QLineEdit>(dialog, "fileNameEdit");
    line.setText(QString::fromStdString(name));
    key(line, Qt::Key_Return);
  }

  void onPdfChosen() {
    onDialog<PrintDialog>([](PrintDialog& dialog) {
      EXPECT_EQ(dialog.windowHandle()->title(), "QBX [*] Print");
      printers(dialog).setCurrentRow(0);
      key(dialog, Qt::Key_Return);
    });
  }
  std::optional<PrintChoice> ask(const std::string& documentName = "jazz.pdf") {
    return desktop_.printDialog("QBX [*] Print", documentName);
  }

  /// Prints a line to the chosen destination.
  void printALine() {
    Printer& printer = desktop_.printer();
    printer.setFont("Courier New", 10);
    printer.print("text\r\n");
    printer.endDocument();
  }

  TestFolder folder_;
  QtDesktop desktop_;

 private:
  template <typename Dialog>
  void waitForDialog(std::function<void(Dialog&)> action) {
    QTimer::singleShot(0, [this, action = std::move(action)] {
      auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return waitForDialog<Dialog>(action);  // not yet
      ++dialogs_;
      action(*dialog);
    });
  }

  int dialogs_ = 0;
  int expected_ = 0;
};

TEST_F(PrintingOnTheDesktop, APdfDocumentIsAskedForAndPrintedTo) {
  onPdfChosen();
  onDialog<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save PDF Document");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.nameFilters(), (QStringList{"PDF Documents (*.pdf)"}));
    EXPECT_EQ(control<QLineEdit>(dialog, "fileNameEdit").text(), "jazz.pdf");
    answer(dialog, folder_.path("mine.pdf"));
  });
  const auto choice = ask();
  ASSERT_TRUE(choice.has_value());
  EXPECT_FALSE(choice->toFile);
  printALine();
  EXPECT_TRUE(readFile(folder_.path("mine.pdf")).starts_with("%PDF-"));
}

TEST_F(PrintingOnTheDesktop, WithoutACollectionAPdfDocumentIsCalledListing) {
  onPdfChosen();
  onDialog<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(control<QLineEdit>(dialog, "fileNameEdit").text(), "Listing.pdf");
    answer(dialog, folder_.path("mine.pdf"));
  });
  ASSERT_TRUE(ask("").has_value());
}

TEST_F(PrintingOnTheDesktop, APdfDocumentsNameAlwaysEndsAsOne) {
  const struct {
    const char* typed;
    const char* made;
  } names[] = {{"mine", "mine.pdf"},
               {"YOURS.PDF", "YOURS.PDF"},  // MINE.PDF is the same file on Windows: it would ask
               {"jazz.MCS", "jazz.MCS.pdf"},
               {"pdf", "pdf.pdf"}};
  for (const auto& name : names) {
    SCOPED_TRACE(name.typed);
    onPdfChosen();
    onDialog<QFileDialog>([&](QFileDialog& dialog) { answer(dialog, folder_.path(name.typed)); });
    ASSERT_TRUE(ask().has_value());
    printALine();
    EXPECT_TRUE(std::filesystem::exists(folder_.path(name.made)));
    EXPECT_EQ(std::filesystem::exists(folder_.path(name.typed)),
              std::string(name.typed) == name.made);
  }
}

TEST_F(PrintingOnTheDesktop, WithoutANameForThePdfTheUserChoosesAgain) {
  onPdfChosen();
  onDialog<QFileDialog>([this](QFileDialog& dialog) {
    onDialog<PrintDialog>([](PrintDialog& again) {
      EXPECT_TRUE(again.toPdf()) << "as it was left";
      key(again, Qt::Key_Escape);
    });
    key(dialog, Qt::Key_Escape);
  });
  EXPECT_FALSE(ask().has_value());
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(PrintingOnTheDesktop, ATextFileIsAChoiceOfItsOwn) {
  onDialog<PrintDialog>([](PrintDialog& dialog) {
    toFile(dialog).setFocus();
    key(toFile(dialog), Qt::Key_Space);
    key(toFile(dialog), Qt::Key_Return);
  });
  const auto choice = ask();
  ASSERT_TRUE(choice.has_value());
  EXPECT_TRUE(choice->toFile);
}

/// Three sheets with a word each.
class ThreeSheets : public Sheets {
 public:
  int layOut(QSizeF sheet) override {
    size = sheet;
    return 3;
  }
  void draw(QPainter& painter, int sheet) override {
    QFont font;
    font.setPixelSize(10);
    painter.setFont(font);
    painter.drawText(QPointF(0, 10), QStringLiteral("sheet%1").arg(sheet));
  }

  QSizeF size;
};

TEST_F(PrintingOnTheDesktop, SheetsArePrintedInPointsOneAfterTheOther) {
  QUILLBOX_NEEDS(pdfReader);
  ThreeSheets sheets;
  onPdfChosen();
  onDialog<QFileDialog>([this](QFileDialog& dialog) { answer(dialog, folder_.path("drawn.pdf")); });
  ASSERT_TRUE(desktop_.printSheets(sheets, "QBX [*] Print", "jazz.pdf"));
  const auto pages = pagesOf(folder_.path("drawn.pdf"));
  ASSERT_EQ(pages.size(), 3U);
  for (int page = 0; page < 3; ++page) {
    const auto& words = pages[static_cast<std::size_t>(page)].words;
    ASSERT_EQ(words.size(), 1U);
    EXPECT_EQ(words[0].text, QStringLiteral("sheet%1").arg(page));
    EXPECT_NEAR(words[0].box.height(), 10, 5);
  }
  EXPECT_NEAR(sheets.size.width(), pages[0].size.width(), 40);
}

TEST_F(PrintingOnTheDesktop, SheetsAreNoTextFile) {
  ThreeSheets sheets;
  onDialog<PrintDialog>([](PrintDialog& dialog) {
    EXPECT_FALSE(toFile(dialog).isVisible());
    key(dialog, Qt::Key_Escape);
  });
  EXPECT_FALSE(desktop_.printSheets(sheets, "QBX [*] Print", "jazz.pdf"));
}

TEST_F(PrintingOnTheDesktop, SheetsThatCannotBePrintedAreRunTimeError57) {
  ThreeSheets sheets;
  onPdfChosen();
  onDialog<QFileDialog>(
      [this](QFileDialog& dialog) { answer(dialog, folder_.path("no folder/drawn.pdf")); });
  EXPECT_THROW(desktop_.printSheets(sheets, "QBX [*] Print", "jazz.pdf"), RunTimeError);
}

TEST_F(PrintingOnTheDesktop, CancelledIsNoChoice) {
  onDialog<PrintDialog>([](PrintDialog& dialog) { key(dialog, Qt::Key_Escape); });
  EXPECT_FALSE(ask().has_value());
  onDialog<PrintDialog>([](PrintDialog& dialog) { dialog.close(); });
  EXPECT_FALSE(ask().has_value());
}

TEST_F(PrintingOnTheDesktop, AnInputBoxOffersItsPresetToBeTypedOver) {
  onDialog<QInputDialog>([](QInputDialog& dialog) {
    const auto& line = *dialog.findChild<QLineEdit*>();
    EXPECT_EQ(line.text(), "12");
    EXPECT_EQ(line.selectedText(), "12");
    key(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(desktop_.inputBox("Ending Page", "Printer Data", "12"), "12");
  onDialog<QInputDialog>([](QInputDialog& dialog) {
    auto& line = *dialog.findChild<QLineEdit*>();
    QTest::keyClicks(&line, "3");
    key(line, Qt::Key_Return);
  });
  EXPECT_EQ(desktop_.inputBox("Ending Page", "Printer Data", "12"), "3");
}

TEST_F(PrintingOnTheDesktop, ASaveDialogOffersItsFileName) {
  const std::string offered = folder_.path("my list.txt");
  for (const std::string& name : {offered, std::string("my list.txt")}) {
    onDialog<QFileDialog>([](QFileDialog& dialog) {
      auto& line = control<QLineEdit>(dialog, "fileNameEdit");
      EXPECT_EQ(line.text(), "my list.txt");
      key(line, Qt::Key_Return);
    });
    EXPECT_EQ(desktop_.saveDialog({"Print to FileName", "Text File (*.txt)|*.txt", name}), offered);
  }
}

#ifndef _WIN32  // where it is the system's own, which a test cannot answer
TEST_F(PrintingOnTheDesktop, ThePrinterIsSetUpInADialogOfItsOwn) {
  const double portrait = desktop_.printer().printableHeight();
  const auto setUp = [this](Qt::Key end) {
    onDialog<QPageSetupDialog>([end](QPageSetupDialog& dialog) {
      EXPECT_EQ(dialog.objectName(), "cdlSetup");
      control<QRadioButton>(dialog, "landscape").click();
      key(dialog, end);
    });
    desktop_.printerSetup("cdlSetup");
    return desktop_.printer().printableHeight();
  };
  EXPECT_EQ(setUp(Qt::Key_Escape), portrait);
  const double landscape = setUp(Qt::Key_Return);
  EXPECT_LT(landscape, portrait - 100);
  onPdfChosen();
  onDialog<QFileDialog>([this](QFileDialog& dialog) { answer(dialog, folder_.path("mine.pdf")); });
  ask();
  EXPECT_NEAR(desktop_.printer().printableHeight(), landscape, 1) << "a document is no different";
}
#endif

}  // namespace
}  // namespace quillbox::test
