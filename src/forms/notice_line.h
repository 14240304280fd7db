#pragma once

#include <QFrame>
#include <functional>
#include <string>

class QPushButton;

namespace quillbox {

class ElidedLabel;

/// What a form says unasked, and what can be done about it.
struct Notice {
  std::string text;         ///< may hold names of files, in the platform's bytes
  std::string button = {};  ///< its caption; none: there is nothing to press
  std::function<void()> press = {};
};

/// A line that shows a notice, with its button.
class NoticeLine : public QFrame {
 public:
  /// `element` tells the lines of a form apart.
  explicit NoticeLine(int element);

  void show(const Notice& notice);

  QPushButton& button() { return *button_; }

  /// What the button does by now.
  std::function<void()> press() const { return press_; }

 private:
  ElidedLabel* label_;
  QPushButton* button_;
  std::function<void()> press_;
};

}  // namespace quillbox
