#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "forms/elided_label.h"

class QPushButton;

namespace quillbox {

/// What can be done about a status.
struct StatusAction {
  const char* name;  ///< of the button
  const char* caption;
  QString toolTip;
  std::function<void()> click;
};

/// The text of a status line, which assistive technology knows as a status and is told of when it
/// changes.
class StatusText : public ElidedLabel {
 public:
  StatusText();
};

/// One line below a form's buttons that tells what the last command did. It always keeps its room,
/// so that nothing moves.
class StatusLine : public QWidget {
 public:
  /// `whenMade` is told of the button when there is first something to do.
  explicit StatusLine(std::function<void(QPushButton&)> whenMade);

  void show(const QString& text);

  /// With a button that does what there is to do.
  void show(const QString& text, StatusAction action);

  /// Nothing is told any more.
  void clear();

  /// What a click on the button does now.
  const std::function<void()>& click() const { return click_; }

 private:
  std::function<void(QPushButton&)> whenMade_;
  StatusText* text_;
  QPushButton* button_ = nullptr;  // made when there is first something to do
  std::function<void()> click_;
};

}  // namespace quillbox
