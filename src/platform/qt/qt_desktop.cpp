#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QTimer>
#include <cstdlib>

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

/// The toolkit takes "[*]" in a caption for the place of a mark; doubled it stands for itself.
QString captionText(const std::string& text) {
  return QString::fromStdString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

/// "Description (*.A, *.B)|*.A;*.B|..." as the toolkit has it: "Description (*.A *.B)", ...
QStringList nameFilters(const std::string& filter) {
  QStringList filters;
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString description = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    QString patterns = parts[i + 1];
    filters << QStringLiteral("%1 (%2)").arg(description,
                                             patterns.replace(QLatin1Char(';'), QLatin1Char(' ')));
  }
  return filters;
}

std::optional<std::string> askForFile(const FileDialog& asked, QFileDialog::AcceptMode mode) {
  QFileDialog dialog(QApplication::activeWindow(), captionText(asked.title));
  dialog.setObjectName(QString::fromStdString(asked.name));
  // The toolkit's own dialog: its patterns match capitals and small letters alike everywhere.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(QFileDialog::AnyFile);
  if (!asked.filter.empty()) dialog.setNameFilters(nameFilters(asked.filter));
  if (!asked.fileName.empty())
    dialog.selectFile(QFile::decodeName(QByteArray::fromStdString(asked.fileName)));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

/// The name always ends as such documents do, so that none takes the place of another kind of file.
std::optional<QString> askForPdf() {
  const auto name = askForFile({"Save PDF Document", "PDF Documents (*.pdf)|*.pdf", "Listing.pdf"},
                               QFileDialog::AcceptSave);
  if (!name) return std::nullopt;
  const QString path = QFile::decodeName(QByteArray::fromStdString(*name));
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
  QMessageBox dialog(QApplication::activeWindow());
  dialog.setWindowTitle(captionText(box.title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(QString::fromStdString(box.text));
  dialog.setIcon(iconOf(box.icon));
  dialog.setWindowModality(Qt::ApplicationModal);
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
  QInputDialog dialog(QApplication::activeWindow());
  dialog.setWindowTitle(captionText(title));
  dialog.setLabelText(QString::fromStdString(prompt));
  dialog.setInputMode(QInputDialog::TextInput);
  dialog.setTextValue(QString::fromStdString(preset));
  dialog.setWindowModality(Qt::ApplicationModal);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().toStdString();
}

std::optional<std::string> QtDesktop::openDialog(const FileDialog& dialog) {
  return askForFile(dialog, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtDesktop::saveDialog(const FileDialog& dialog) {
  return askForFile(dialog, QFileDialog::AcceptSave);
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
  QPageSetupDialog dialog(&qtPrinter().device(), QApplication::activeWindow());
  dialog.setObjectName(QString::fromStdString(name));
  dialog.exec();
}

std::optional<PrintChoice> QtDesktop::printDialog(const std::string& title) {
  PrintDialog dialog(captionText(title), QApplication::activeWindow());
  while (dialog.exec() == QDialog::Accepted) {
    if (dialog.toTextFile()) return PrintChoice{true};
    if (!dialog.toPdf()) {
      qtPrinter().printTo(dialog.printerName(), dialog.copies());
      return PrintChoice{};
    }
    // Without a name for the document the user chooses again.
    if (const auto name = askForPdf()) {
      qtPrinter().printToPdf(*name);
      return PrintChoice{};
    }
  }
  return std::nullopt;
}

void QtDesktop::rest(int milliseconds, const std::function<bool()>& over) {
  QElapsedTimer elapsed;
  elapsed.start();
  QTimer wake;  // so that waiting for the next event comes to an end
  wake.start(milliseconds);
  do QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  while (!over() && elapsed.elapsed() < milliseconds);
}

void QtDesktop::quit() { QCoreApplication::exit(0); }

void QtDesktop::endAtOnce() { std::_Exit(EXIT_SUCCESS); }

}  // namespace quillbox
