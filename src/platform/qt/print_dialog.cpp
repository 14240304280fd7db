#include "platform/qt/print_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>

namespace quillbox {
namespace {

constexpr int kMostCopies = 99;

}  // namespace

PrintDialog::PrintDialog(const QString& title, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("PrintDialog"));
  setWindowTitle(title);
  destination_ = new QComboBox;
  destination_->setObjectName(QStringLiteral("cmbPrinter"));
  destination_->setAccessibleName(QStringLiteral("Printer:"));
  destination_->addItem(QStringLiteral("PDF document"));
  destination_->addItems(QPrinterInfo::availablePrinterNames());
  destination_->setCurrentIndex(
      std::max(0, destination_->findText(QPrinterInfo::defaultPrinterName())));
  copies_ = new QSpinBox;
  copies_->setObjectName(QStringLiteral("spnCopies"));
  copies_->setAccessibleName(QStringLiteral("Copies:"));
  copies_->setRange(1, kMostCopies);
  toFile_ = new QCheckBox(QStringLiteral("Print to &file"));
  toFile_->setObjectName(QStringLiteral("chkPrintToFile"));
  toFile_->setToolTip(QStringLiteral("Write the listing as plain text"));

  auto* form = new QFormLayout(this);
  form->addRow(QStringLiteral("&Printer:"), destination_);
  form->addRow(QStringLiteral("&Copies:"), copies_);
  form->addRow(QString(), toFile_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);

  connect(destination_, &QComboBox::currentIndexChanged, this, &PrintDialog::enableInputs);
  connect(toFile_, &QCheckBox::toggled, this, &PrintDialog::enableInputs);
  enableInputs();
}

/// A text file comes from no printer, and a document once.
void PrintDialog::enableInputs() {
  destination_->setEnabled(!toTextFile());
  copies_->setEnabled(!toTextFile() && !toPdf());
}

bool PrintDialog::toTextFile() const { return toFile_->isChecked(); }
bool PrintDialog::toPdf() const { return destination_->currentIndex() == 0; }
QString PrintDialog::printerName() const { return destination_->currentText(); }
int PrintDialog::copies() const { return copies_->value(); }

}  // namespace quillbox
