#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/board.h"
#include "platform/desktop.h"
#include "platform/run_time_error.h"
#include "records/app_state.h"
#include "records/version.h"

namespace quillbox {

class Form;
class FileDrops;
class HelpWindow;
class PanelSettings;
class RecentCollections;
class SheetPrinter;
class WindowPlaces;

/// What the start-up code does for the forms.
class Shell {
 public:
  virtual ~Shell() = default;
  virtual void showStartScreen() = 0;

  /// Asks for a collection and shows its editor.
  virtual void FileOpen() = 0;

  /// True for an existing collection, a file that Open would accept.
  virtual bool opens(const std::string& path) = 0;

  /// Opens such a file as Open does, replacing what is on screen.
  virtual void open(const std::string& path) = 0;

  /// Asks for the name of a file to write; empty when the user cancels.
  virtual std::string SaveAs() = 0;

  virtual void showNewCollection() = 0;

  /// The progress board.
  virtual Board& board() = 0;
};

/// What all forms share: the state, the desktop, and the one place where commands run.
class Program {
 public:
  Program(AppState& state, Desktop& desktop);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  AppState& state() { return state_; }
  Desktop& desktop() { return desktop_; }

  /// The shell must be set before the first handler runs and outlive the last one.
  Shell& shell() { return *shell_; }
  void setShell(Shell& shell) { shell_ = &shell; }
  Board& board() { return shell_->board(); }

  /// The help window, created on first use.
  HelpWindow& help();

  /// The positions of windows when last used; nullptr: not kept. Must outlive the forms.
  WindowPlaces* windowPlaces() const { return windowPlaces_; }
  void setWindowPlaces(WindowPlaces& places) { windowPlaces_ = &places; }

  /// The folder for texts typed and not written; empty: kept only in memory.
  const QString& typedFolder() const { return typedFolder_; }
  void setTypedFolder(const QString& folder) { typedFolder_ = folder; }

  /// The collections opened last; nullptr: not kept. Must outlive the forms.
  RecentCollections* recents() const { return recents_; }
  void setRecents(RecentCollections& recents) { recents_ = &recents; }

  /// The user's settings for panels; nullptr: not kept. Must outlive the forms.
  PanelSettings* panelSettings() const { return panelSettings_; }
  void setPanelSettings(PanelSettings& settings) { panelSettings_ = &settings; }

  /// The printer for drawings; nullptr: they cannot be printed. Must outlive the forms.
  SheetPrinter* sheetPrinter() const { return sheetPrinter_; }
  void setSheetPrinter(SheetPrinter& printer) { sheetPrinter_ = &printer; }

  /// Runs the handler of a user's action. A run-time error ends the handler: the forms it hid come
  /// back and the error is shown. When no form is left on screen, the start screen is shown.
  ///
  /// Only one handler at a time: while one runs, no other starts, whatever triggers it. A screen
  /// reader can press buttons during a sort, which blocks only keys and the mouse.
  void run(const std::function<void()>& handler);
  bool isRunning() const { return isRunning_; }

  /// Shows a message with an OK button.
  void message(std::string_view title, std::string_view text, MessageIcon icon = MessageIcon::none);

  /// Shows a run-time error and continues.
  void report(const RunTimeError& error);

  /// Ends the program in the ordinary way: files are closed, nothing is asked.
  void end();
  bool isEnding() const { return ending_; }

  /// The only form of that class, created on first use.
  template <typename SomeForm>
  SomeForm& form() {
    auto& form = single_[typeid(SomeForm)];
    if (!form) form.reset(new SomeForm(*this));
    return static_cast<SomeForm&>(*form);
  }

  void hideForms();

  // Forms add and remove themselves.
  void enter(Form& form) { forms_.push_back(&form); }
  void leave(Form& form) { std::erase(forms_, &form); }

 private:
  std::vector<Form*> visibleForms() const;

  struct DeleteForm {
    void operator()(Form* form) const;
  };

  AppState& state_;
  Desktop& desktop_;
  Shell* shell_ = nullptr;
  WindowPlaces* windowPlaces_ = nullptr;
  QString typedFolder_;
  RecentCollections* recents_ = nullptr;
  PanelSettings* panelSettings_ = nullptr;
  SheetPrinter* sheetPrinter_ = nullptr;
  std::vector<Form*> forms_;
  bool isRunning_ = false;
  bool ending_ = false;
  std::unique_ptr<FileDrops> drops_;
  std::unique_ptr<HelpWindow> help_;
  std::unordered_map<std::type_index, std::unique_ptr<Form, DeleteForm>> single_;
};

}  // namespace quillbox
