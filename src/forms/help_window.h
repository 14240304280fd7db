#pragma once

#include <QString>
#include <QWidget>

#include "forms/help_page.h"

class QLabel;
class QLineEdit;

namespace quillbox {

class WindowPlaces;

/// The manual in a window of its own, which stays open beside the forms. It is not a form: with
/// only help on screen the desktop counts as empty.
class HelpWindow : public QWidget {
 public:
  /// The places, if any, must outlive the window.
  explicit HelpWindow(WindowPlaces* places);

  /// Shows a page of docs/manual by its file name, such as "music.md".
  void open(const QString& page);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void makeButtons();
  void makeFindLine();
  void addKeys();

  // The line for searching the page; initially hidden.
  void openFindLine();
  void closeFindLine();
  void findNext();
  void findPrevious();
  void findTyped();
  void look(HelpPage::From from);
  void say(const QString& text);

  WindowPlaces* places_;
  HelpPage* page_;
  QWidget* findLine_ = nullptr;
  QLineEdit* txtFind_ = nullptr;
  QLabel* lblFound_ = nullptr;
};

}  // namespace quillbox
