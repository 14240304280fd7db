#pragma once

#include <QObject>
#include <functional>

class QDropEvent;
class QEvent;

namespace quillbox {

class Form;
class Program;

/// Takes files that are dropped anywhere on a form, on its text boxes too, and asks the form what
/// one does. Only one at a time is taken, none while a command runs, and always as a copy: whoever
/// it was dragged from keeps it. Anything else that is dropped goes its usual way.
class FileDrops : public QObject {
 public:
  explicit FileDrops(Program& program);

  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void take(Form& form, QDropEvent& drop, bool isDropped);

  Program& program_;
  std::function<void()> dropped_;  // what the last drop does, once it is over
};

}  // namespace quillbox
