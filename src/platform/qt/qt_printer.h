#pragma once

#include <QFont>
#include <QPainter>
#include <QPrinter>

#include "forms/sheets.h"
#include "platform/printer.h"

namespace quillbox {

/// The toolkit's printer, or a PDF document. Lines are one font size apart.
class QtPrinter : public Printer {
 public:
  QtPrinter();

  /// For the dialogs that set it up.
  QPrinter& device() { return device_; }

  /// From now on, output goes to the PDF document `fileName`.
  void printToPdf(const QString& fileName);

  /// From now on, output goes to the system's printer of that name.
  void printTo(const QString& printerName, int copies);

  /// Prints these sheets and sends them. Nothing else may be in print.
  void printSheets(Sheets& sheets);

  void setFont(const std::string& name, double points) override;
  double printableHeight() override;
  void print(const std::string& text) override;
  void newPage() override;
  void endDocument() override;
  void dropDocument() override;

 private:
  void openSheet();
  void drawSheet(const QStringList& lines);
  bool isPdf() const;
  void expectDelivered(bool isPainted) const;
  [[noreturn]] void fail() const;

  QPrinter device_{QPrinter::HighResolution};
  QPainter painter_;
  QFont font_;
  bool isSheetDue_ = false;  // the next output begins a sheet
};

}  // namespace quillbox
