#pragma once

#include <QFrame>
#include <functional>
#include <string>

class QPushButton;

namespace quillbox {

class ElidedLabel;

/// A message that a form shows unasked, and an action for it.
struct Notice {
  std::string text;         ///< may contain file names, in the platform's bytes
  std::string button = {};  ///< its caption; empty: no button
  std::function<void()> press = {};
};

/// A line that shows a notice, with its button.
class NoticeLine : public QFrame {
 public:
  /// `element` distinguishes the lines of a form.
  explicit NoticeLine(int element);

  void show(const Notice& notice);

  QPushButton& button() { return *button_; }

  /// The present handler of the button.
  std::function<void()> press() const { return press_; }

 private:
  ElidedLabel* label_;
  QPushButton* button_;
  std::function<void()> press_;
};

}  // namespace quillbox
