#pragma once

#include <memory>

#include "platform/desktop.h"

namespace quillbox {

class QtPrinter;

/// The desktop the program really runs on. The only place with dialogs and printers.
class QtDesktop : public Desktop {
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
  void printerSetup() override;
  std::optional<PrintChoice> printDialog(const std::string& title) override;
  Printer& printer() override;
  void rest(int milliseconds, const std::function<bool()>& over) override;
  void quit() override;
  void endAtOnce() override;

 private:
  QtPrinter& qtPrinter();

  std::unique_ptr<QtPrinter> printer_;  // made when first needed
};

}  // namespace quillbox
