#pragma once

#include <QIcon>
#include <QKeySequence>
#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <functional>
#include <string>
#include <string_view>

#include "forms/program.h"

class QAbstractButton;
class QAction;
class QSplitter;

namespace quillbox {

class StatusLine;
class WrappingRow;
struct StatusAction;

/// One item of a menu; the first item creates the menu. An item without a name is the menu itself;
/// one without a handler is disabled.
struct MenuItem {
  const char* menu;
  const char* menuCaption;
  const char* name;
  const char* caption;
  std::function<void()> click;
  QIcon icon = {};
  QKeySequence keys = {};  ///< in addition to the access keys
};

/// A window of the program. Commands run inside Program::run: clicks, menu items, closing. Keys
/// and changes of inputs call their handlers directly.
class Form : public QMainWindow {
 public:
  /// `name` is the class of the form and its object name.
  Form(Program& program, const char* name);
  ~Form() override;

  /// The window's caption, shown exactly: nothing in it is read as markup or a placeholder.
  void setCaption(const QString& text);

  /// Shows or hides the window; the focus returns to where it was. Place and size are those of the
  /// window's last use.
  void setVisible(bool visible) override;

  /// The handler for dropping that file or folder on the form; empty when it is refused. Any form
  /// opens a collection.
  virtual std::function<void()> dropHandler(const std::string& path);

  /// Shows the form in the place of `other` and hides `other`.
  void showInsteadOf(Form& other);

  /// Shows the result of a command in the status line until the next command. Does nothing on a
  /// form without a status line.
  void showStatus(const QString& text);
  void showStatus(const QString& text, StatusAction action);
  void clearStatus();

  /// Whether the status line has a button.
  bool offersAction() const;

  /// The program ends during a command: what only the form holds is saved.
  virtual void keepTyped() {}

 protected:
  Program& program() { return program_; }
  AppState& state() { return program_.state(); }
  Desktop& desktop() { return program_.desktop(); }

  /// Called when the window is closed; hides it.
  virtual void Form_Unload() = 0;

  /// The window was closed during a command; it stays open.
  virtual void closeWhileBusy() {}

  /// Lays the form out from top to bottom: a page, which scrolls if the window is too small, a row
  /// of buttons and a status line.
  void layOut(QWidget* page, WrappingRow* buttons);

  /// Shows a widget beside the form's layout or, in a window too narrow for both, below it; nullptr
  /// removes and deletes the widget. `grows`: the window grows by the space that the widget needs,
  /// as far as the screen allows, and shrinks again.
  void setSide(QWidget* side, bool grows);
  QWidget* side() const { return side_; }

  /// Whether it replaces the form, because the screen is too small for both.
  bool isSideOver() const { return side_ != nullptr && laidOut_->isHidden(); }

  /// The form's status line, for a form with another layout.
  QWidget* makeStatusLine();

  void addMenuItem(const MenuItem& item);

  /// The manual page that F1 and the form's help item open; "index.md" until it is set.
  void setHelpPage(const char* page) { helpPage_ = page; }
  void showHelp();

  /// Runs `handler` inside Program::run when the user clicks or chooses, not when the program
  /// changes the control.
  void onClick(QAbstractButton& button, std::function<void()> handler);
  void onTriggered(QAction& action, std::function<void()> handler);

  /// Calls `handler` directly, not inside Program::run, when the user presses the keys anywhere on
  /// the form.
  void onKeys(const QKeySequence& keys, const std::function<void()>& handler);

  /// From now on Escape anywhere in the window closes it, and Enter clicks `onEnter` if it is
  /// given. A button that has the focus handles Enter itself.
  void actAsDialog(QAbstractButton* onEnter);

  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void restorePlace();
  QSize smallestPage() const;
  QSize usualSize() const;
  QSize roomOnScreen() const;
  void growForSide();
  void turnSide();
  void shareRoom();
  void insistOnPlace();
  void placeAt(const Form& other);

  Program& program_;
  StatusLine* status_ = nullptr;
  QWidget* laidOut_ = nullptr;  // the page, the buttons and the status line
  QSplitter* split_ = nullptr;  // created with the first widget beside it
  QWidget* side_ = nullptr;
  QSize grown_{0, 0};  // by how much the window grew for the widget
  const char* helpPage_ = "index.md";
  bool placeIsRestored_ = false;
  bool hasFrame_ = false;  // it has been shown
  bool isDialog_ = false;
  QAbstractButton* onEnter_ = nullptr;
  QPointer<QWidget> focusWhenHidden_;  // hiding a window moves its focus
};

}  // namespace quillbox
