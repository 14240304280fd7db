#include "platform/qt/print_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QListWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>

#include "forms/controls.h"

namespace quillbox {
namespace {

constexpr int kMostCopies = 99;
constexpr int kPrintersShown = 5;  // for more, the list scrolls

}  // namespace

PrintDialog::PrintDialog(const QString& title, What what, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("PrintDialog"));
  setWindowTitle(title);
  destination_ = new QListWidget;
  destination_->setObjectName(QStringLiteral("lstPrinter"));
  destination_->setAccessibleName(QStringLiteral("Printer:"));
  destination_->addItem(QStringLiteral("PDF document"));
  destination_->addItems(QPrinterInfo::availablePrinterNames());
  const auto usual = destination_->findItems(QPrinterInfo::defaultPrinterName(), Qt::MatchExactly);
  destination_->setCurrentRow(usual.isEmpty() ? 0 : destination_->row(usual.constFirst()));
  destination_->setFixedHeight(
      std::max(kPrintersShown * fontMetrics().height(), destination_->minimumSizeHint().height()));
  copies_ = new QSpinBox;
  copies_->setObjectName(QStringLiteral("spnCopies"));
  copies_->setAccessibleName(QStringLiteral("Copies:"));
  copies_->setRange(1, kMostCopies);
  toFile_ = new QCheckBox(QStringLiteral("Print to &file"));
  toFile_->setObjectName(QStringLiteral("chkPrintToFile"));
  toFile_->setToolTip(QStringLiteral("Write the listing as plain text"));

  auto* form = new QFormLayout(this);
  form->addRow(QStringLiteral("&Printer:"), destination_);
  form->addRow(QStringLiteral("Cop&ies:"), copies_);
  form->addRow(QString(), toFile_);
  toFile_->setVisible(what == What::listing);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  explain(*buttons->button(QDialogButtonBox::Ok),
          what == What::listing ? QStringLiteral("Print the listing") : QStringLiteral("Print"),
          QStringLiteral("Enter"));
  explain(*buttons->button(QDialogButtonBox::Cancel), QStringLiteral("Print nothing"),
          QStringLiteral("Escape"));
  form->addRow(buttons);

  connect(destination_, &QListWidget::currentRowChanged, this, &PrintDialog::enableInputs);
  connect(toFile_, &QCheckBox::toggled, this, &PrintDialog::enableInputs);
  enableInputs();
}

/// A text file needs no printer, and a document is made once.
void PrintDialog::enableInputs() {
  destination_->setEnabled(!toTextFile());
  copies_->setEnabled(!toTextFile() && !toPdf());
}

bool PrintDialog::toTextFile() const { return toFile_->isChecked(); }
bool PrintDialog::toPdf() const { return destination_->currentRow() == 0; }
QString PrintDialog::printerName() const { return destination_->currentItem()->text(); }
int PrintDialog::copies() const { return copies_->value(); }

}  // namespace quillbox
