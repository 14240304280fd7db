#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "forms/elided_label.h"

class QPushButton;

namespace quillbox {

/// An action offered with a status.
struct StatusAction {
  const char* name;  ///< of the button
  const char* caption;
  QString toolTip;
  std::function<void()> click;
};

/// The text of a status line; assistive technology sees a status bar and is notified of changes.
class StatusText : public ElidedLabel {
 public:
  StatusText();
};

/// One line below a form's buttons for the result of the last command. It always keeps its space,
/// so that nothing moves.
class StatusLine : public QWidget {
 public:
  /// `whenMade` is called with the button when it is created.
  explicit StatusLine(std::function<void(QPushButton&)> whenMade);

  void show(const QString& text);

  /// With a button for the action.
  void show(const QString& text, StatusAction action);

  /// Clears the line.
  void clear();

  /// The present handler of the button.
  const std::function<void()>& click() const { return click_; }

 private:
  std::function<void(QPushButton&)> whenMade_;
  StatusText* text_;
  QPushButton* button_ = nullptr;  // created with the first action
  std::function<void()> click_;
};

}  // namespace quillbox
