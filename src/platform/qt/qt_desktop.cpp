#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QTimer>
#include <QUrl>
#include <cstdlib>

#include "forms/qt_text.h"
#include "platform/qt/dialogs.h"
#include "platform/qt/print_dialog.h"
#include "platform/qt/qt_printer.h"
#include "text/date_text.h"

namespace quillbox {
namespace {

QMessageBox::Icon iconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::none:
      return QMessageBox::NoIcon;
    case MessageIcon::information:
      return QMessageBox::Information;
    case MessageIcon::question:
      return QMessageBox::Question;
    case MessageIcon::critical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

/// The name always ends in .pdf, so that no file of another kind is replaced.
std::optional<QString> askForPdf(const std::string& offered) {
  const auto name = askForFile({"Save PDF Document", "PDF Documents (*.pdf)|*.pdf",
                                offered.empty() ? "Listing.pdf" : offered},
                               FileDialogMode::save);
  if (!name) return std::nullopt;
  const QString path = fromPath(*name);
  const QString ending = QStringLiteral(".pdf");
  return path.endsWith(ending, Qt::CaseInsensitive) ? path : path + ending;
}

}  // namespace

std::string shortDateForm(const QLocale& locale) {
  return locale.dateFormat(QLocale::ShortFormat).toStdString();
}

std::string shortDateText(const QLocale& locale, QDate date) {
  const QDate dayZero(1899, 12, 30);
  return dateText(static_cast<double>(dayZero.daysTo(date)), shortDateForm(locale));
}

QtDesktop::QtDesktop() = default;
QtDesktop::~QtDesktop() = default;

Answer QtDesktop::messageBox(const MessageBox& box) {
  QMessageBox dialog(askingForm());
  dialog.setWindowTitle(captionText(box.title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(QString::fromStdString(box.text));
  dialog.setIcon(iconOf(box.icon));
  dialog.setWindowModality(Qt::ApplicationModal);
  // Across the whole grid, without a row of its own.
  auto* grid = static_cast<QGridLayout*>(dialog.layout());
  grid->addItem(new QSpacerItem(widthForTitle(dialog), 0), 0, 0, 1, grid->columnCount());
  if (box.buttons == Buttons::yesNo) {
    dialog.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    dialog.setDefaultButton(QMessageBox::No);
    dialog.setEscapeButton(QMessageBox::No);
    return dialog.exec() == QMessageBox::Yes ? Answer::yes : Answer::no;
  }
  dialog.setStandardButtons(QMessageBox::Ok);
  dialog.exec();
  return Answer::ok;
}

std::optional<std::string> QtDesktop::inputBox(const std::string& prompt, const std::string& title,
                                               const std::string& preset) {
  QInputDialog dialog(askingForm());
  dialog.setWindowTitle(captionText(title));
  dialog.setLabelText(QString::fromStdString(prompt));
  dialog.setInputMode(QInputDialog::TextInput);
  dialog.setTextValue(QString::fromStdString(preset));
  dialog.sizeHint();  // makes the layout
  static_cast<QBoxLayout*>(dialog.layout())->addStrut(widthForTitle(dialog));
  dialog.setWindowModality(Qt::ApplicationModal);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().toStdString();
}

std::optional<std::string> QtDesktop::openDialog(const FileDialog& dialog) {
  return askForFile(dialog, FileDialogMode::open);
}

std::optional<std::string> QtDesktop::saveDialog(const FileDialog& dialog) {
  return askForFile(dialog, FileDialogMode::save);
}

std::string QtDesktop::shortDateForm() { return quillbox::shortDateForm(QLocale::system()); }

std::string QtDesktop::todayText() {
  return shortDateText(QLocale::system(), QDate::currentDate());
}

QtPrinter& QtDesktop::qtPrinter() {
  if (!printer_) printer_ = std::make_unique<QtPrinter>();
  return *printer_;
}

Printer& QtDesktop::printer() { return qtPrinter(); }

void QtDesktop::printerSetup(const std::string& name) {
  QPageSetupDialog dialog(&qtPrinter().device(), askingForm());
  dialog.setObjectName(QString::fromStdString(name));
  dialog.exec();
}

std::optional<PrintChoice> QtDesktop::printDialog(const std::string& title,
                                                  const std::string& documentName) {
  PrintDialog dialog(captionText(title), PrintDialog::What::listing, askingForm());
  return askWhere(dialog, documentName);
}

bool QtDesktop::printSheets(Sheets& sheets, const std::string& title,
                            const std::string& documentName) {
  PrintDialog dialog(captionText(title), PrintDialog::What::sheets, askingForm());
  if (!askWhere(dialog, documentName)) return false;
  qtPrinter().printSheets(sheets);
  return true;
}

std::optional<PrintChoice> QtDesktop::askWhere(PrintDialog& dialog,
                                               const std::string& documentName) {
  while (dialog.exec() == QDialog::Accepted) {
    if (dialog.toTextFile()) return PrintChoice{true};
    if (!dialog.toPdf()) {
      qtPrinter().printTo(dialog.printerName(), dialog.copies());
      return PrintChoice{};
    }
    // Without a name for the document, the print dialog is shown again.
    if (const auto name = askForPdf(documentName)) {
      qtPrinter().printToPdf(*name);
      return PrintChoice{};
    }
  }
  return std::nullopt;
}

void QtDesktop::rest(int milliseconds, const std::function<bool()>& over) {
  QElapsedTimer elapsed;
  elapsed.start();
  QTimer wake;  // so that waiting for the next event ends
  wake.start(milliseconds);
  do QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  while (!over() && elapsed.elapsed() < milliseconds);
}

bool QtDesktop::openFile(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(fromPath(path)));
}

void QtDesktop::quit() { QCoreApplication::exit(0); }

void QtDesktop::endAtOnce() { std::_Exit(EXIT_SUCCESS); }

}  // namespace quillbox
