#pragma once

#include <QObject>
#include <functional>

class QDropEvent;
class QEvent;

namespace quillbox {

class Form;
class Program;

/// Handles files dropped anywhere on a form, including its text boxes, and gets the handler from
/// the form. It accepts only one file, none while a command runs, and always as a copy: the source
/// keeps it. Anything else that is dropped is handled as usual.
class FileDrops : public QObject {
 public:
  explicit FileDrops(Program& program);

  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void take(Form& form, QDropEvent& drop, bool isDropped);

  Program& program_;
  std::function<void()> dropped_;  // the handler for the last drop, once it is over
};

}  // namespace quillbox
