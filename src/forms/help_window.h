#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;

namespace quillbox {

class WindowPlaces;

/// The manual in a window of its own, which stays open beside the forms. It is none of them: with
/// nothing but help on screen the desktop counts as empty.
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
  void showTitle();

  WindowPlaces* places_;
  QTextBrowser* browser_;
};

}  // namespace quillbox
