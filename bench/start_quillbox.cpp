// Starts Quillbox as its main program does and exits when the editor has been painted:
// bench_start_quillbox [--with-box] COLLECTION
// bench_start_quillbox --count COUNTS COLLECTION
//
// The start-up box is answered without being shown, or with --with-box shown and pressed. The
// second form writes into the file COUNTS how many controls the editor shows.

#include <QMessageBox>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "control_counts.h"
#include "first_paint.h"
#include "forms/program.h"
#include "platform/disk_file_system.h"
#include "platform/qt/qt_desktop.h"
#include "shell/modQBX1.h"

namespace {

using namespace quillbox;

/// The real desktop, with a user who answers at once.
class AnsweringDesktop : public QtDesktop {
 public:
  explicit AnsweringDesktop(bool showsBoxes) : showsBoxes_(showsBoxes) {}

  Answer messageBox(const MessageBox& box) override {
    return showsBoxes_ ? QtDesktop::messageBox(box) : Answer::ok;
  }

 private:
  bool showsBoxes_;
};

void pressDefaultButton(QMessageBox& box) {
  QAbstractButton* button = box.defaultButton();
  if (button == nullptr) button = box.button(QMessageBox::Ok);
  if (button != nullptr) button->click();
}

/// Succeeds only when an item is shown; anything else is not the start to be timed.
void endAfter(const QWidget& window) {
  const auto* indicator = window.findChild<QLabel*>(QStringLiteral("lblIndex"));
  const bool itemShown =
      indicator != nullptr && indicator->text().startsWith(QStringLiteral("Record #: 1 "));
  if (!itemShown) std::fputs("The editor does not show item 1.\n", stderr);
  QCoreApplication::exit(itemShown ? 0 : 1);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  std::vector<std::string> arguments(argv + 1, argv + argc);
  const bool withBox = !arguments.empty() && arguments.front() == "--with-box";
  if (withBox) arguments.erase(arguments.begin());
  std::string counts;
  if (arguments.size() == 3 && arguments.front() == "--count") {
    counts = arguments[1];
    arguments.erase(arguments.begin(), arguments.begin() + 2);
  }

  const bench::FirstPaint firstPaint([&counts](QWidget& window) {
    const auto* form = qobject_cast<QMainWindow*>(&window);
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      pressDefaultButton(*box);
    } else if (form != nullptr) {
      if (!counts.empty()) bench::writeCounts(counts, bench::countControls(*form));
      endAfter(window);
    }
  });

  DiskFileSystem fileSystem;
  AppState state(fileSystem);
  AnsweringDesktop desktop(withBox);
  Program program(state, desktop);
  modQBX1 startUp(program);
  program.run([&] { startUp.Main(arguments); });
  return program.isEnding() ? 1 : QApplication::exec();
}
