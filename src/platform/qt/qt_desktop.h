#pragma once

#include <QDate>
#include <QLocale>
#include <memory>
#include <string>

#include "forms/sheets.h"
#include "platform/desktop.h"

namespace quillbox {

class PrintDialog;
class QtPrinter;

/// The short date form of a locale, and a date in it, for the desktop's answers.
std::string shortDateForm(const QLocale& locale);
std::string shortDateText(const QLocale& locale, QDate date);

/// The real desktop. The only place with dialogs and printers.
class QtDesktop : public Desktop, public SheetPrinter {
 public:
  QtDesktop();
  ~QtDesktop() override;

  Answer messageBox(const MessageBox& box) override;
  std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                      const std::string& preset) override;
  std::optional<std::string> openDialog(const FileDialog& dialog) override;
  std::optional<std::string> saveDialog(const FileDialog& dialog) override;
  std::string shortDateForm() override;
  std::string todayText() override;
  void printerSetup(const std::string& name) override;
  std::optional<PrintChoice> printDialog(const std::string& title,
                                         const std::string& documentName) override;
  Printer& printer() override;
  bool printSheets(Sheets& sheets, const std::string& title,
                   const std::string& documentName) override;
  void rest(int milliseconds, const std::function<bool()>& over) override;
  bool openFile(const std::string& path) override;
  void quit() override;
  void endAtOnce() override;

 private:
  QtPrinter& qtPrinter();
  std::optional<PrintChoice> askWhere(PrintDialog& dialog, const std::string& documentName);

  std::unique_ptr<QtPrinter> printer_;  // made when first needed
};

}  // namespace quillbox
