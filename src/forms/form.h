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

/// One item of a menu, which is made with its first item. An item without a name is the menu
/// itself; one without a handler cannot be chosen yet.
struct MenuItem {
  const char* menu;
  const char* menuCaption;
  const char* name;
  const char* caption;
  std::function<void()> click;
  QIcon icon = {};
  QKeySequence keys = {};  ///< besides the access keys
};

/// A window of the program. Commands run inside Program::run: clicks, menu items, closing. Keys
/// and changes of inputs call their handlers directly.
class Form : public QMainWindow {
 public:
  /// `name` is the form's name in the code and its object name.
  Form(Program& program, const char* name);
  ~Form() override;

  /// The window's caption, shown exactly: nothing in it is taken for markup or a placeholder.
  void setCaption(const QString& text);

  /// Shows or hides the window; shown again it has the focus where it was. Its place and size are
  /// those it had when the program was last used.
  void setVisible(bool visible) override;

  /// What dropping that file or folder on the form does; nothing where it is refused. Any form
  /// opens a collection.
  virtual std::function<void()> dropHandler(const std::string& path);

  /// Shows the form where `other` stands and hides `other`.
  void showInsteadOf(Form& other);

  /// Tells in the status line what a command did; the next command takes it away. Nothing on a form
  /// without a status line.
  void showStatus(const QString& text);
  void showStatus(const QString& text, StatusAction action);
  void clearStatus();

  /// Whether the status line offers something that can be done.
  bool offersAction() const;

  /// The program ends in the middle of a command: what only the form holds is to be kept.
  virtual void keepTyped() {}

 protected:
  Program& program() { return program_; }
  AppState& state() { return program_.state(); }
  Desktop& desktop() { return program_.desktop(); }

  /// What closing the window means; hides it.
  virtual void Form_Unload() = 0;

  /// The window was closed in the middle of a command; it stays.
  virtual void closeWhileBusy() {}

  /// Lays the form out from the top down: a page, which scrolls in a window that is too small for
  /// it, a row of buttons and a status line.
  void layOut(QWidget* page, WrappingRow* buttons);

  /// Shows a widget beside what is laid out or, in a window that is too narrow for both, below it;
  /// none: shows that alone again, and deletes the widget. `grows`: the window takes the room that
  /// the widget needs from the screen, and gives it back.
  void setSide(QWidget* side, bool grows);
  QWidget* side() const { return side_; }

  /// Whether it has the form's place, as the screen has no room for both.
  bool isSideOver() const { return side_ != nullptr && laidOut_->isHidden(); }

  /// The form's status line, for a form that is laid out in another way.
  QWidget* makeStatusLine();

  void addMenuItem(const MenuItem& item);

  /// The page of the manual that F1 and the form's help item open; "index.md" before it is set.
  void setHelpPage(const char* page) { helpPage_ = page; }
  void showHelp();

  /// Runs `handler` inside Program::run when the user clicks or chooses, not when the program sets
  /// the control.
  void onClick(QAbstractButton& button, std::function<void()> handler);
  void onTriggered(QAction& action, std::function<void()> handler);

  /// Calls `handler` directly, not inside Program::run, when the user presses the keys, wherever on
  /// the form the focus is.
  void onKeys(const QKeySequence& keys, const std::function<void()>& handler);

  /// From now on Escape closes the window, wherever in it the focus is, and Enter clicks `onEnter`
  /// if there is one. A button that has the focus keeps Enter for itself.
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
  QSplitter* split_ = nullptr;  // made when there is first a widget beside it
  QWidget* side_ = nullptr;
  QSize grown_{0, 0};  // what the window has grown by for the widget
  const char* helpPage_ = "index.md";
  bool placeIsRestored_ = false;
  bool hasFrame_ = false;  // it was shown
  bool isDialog_ = false;
  QAbstractButton* onEnter_ = nullptr;
  QPointer<QWidget> focusWhenHidden_;  // hiding a window moves its focus on
};

}  // namespace quillbox
