#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <memory>
#include <string>
#include <string_view>

#include "editors/frmMusic.h"
#include "forms/program.h"
#include "shell/modQBX1.h"
#include "support/failing_files.h"
#include "support/fake_desktop.h"
#include "support/keys.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {

inline const std::string kEditorMessages = "QBX - Music Manager";

/// The whole program on a scripted desktop, in a fresh folder. Controls are found by name on the
/// form that is on screen, and worked with mouse and keys.
class FormTest : public testing::Test {
 protected:
  FormTest();
  ~FormTest() override;

  /// Starts the program with these arguments; its start-up box is answered.
  void start(std::initializer_list<std::string> arguments = {});

  /// Ends the program and starts it again.
  void restart(std::initializer_list<std::string> arguments = {});

  /// The one form on screen; fails the test when there is none, or more than one.
  QMainWindow& form();
  std::string formName();
  std::string caption();  ///< as the window system has it

  template <typename Control>
  Control& control(const char* name) {
    auto* found = form().findChild<Control*>(QString::fromUtf8(name));
    if (found == nullptr) {
      ADD_FAILURE() << name << " is not on " << formName();
      throw std::runtime_error("no such control");
    }
    return *found;
  }
  QLineEdit& box(const char* name) { return control<QLineEdit>(name); }
  QCheckBox& check(const char* name) { return control<QCheckBox>(name); }
  QComboBox& list(const char* name) { return control<QComboBox>(name); }
  QPushButton& button(const char* name) { return control<QPushButton>(name); }

  std::string label(const char* name = "lblIndex");
  std::string shown(const char* box);  ///< a box's text in UTF-8

  void press(const char* button);                ///< with the mouse
  void tick(const char* box);                    ///< with the space bar
  void choose(const char* action);               ///< a menu item, which must be enabled
  void type(const char* box, const char* keys);  ///< over what the box holds
  void pick(const char* list, int index);        ///< with the arrow keys
  void close();                                  ///< the form on screen, as the window manager does

  /// A collection in the test's folder, as bytes.
  std::string file(std::string_view name = "jazz.MCS") { return readFile(folder_.path(name)); }
  std::string path(std::string_view name = "jazz.MCS") const { return folder_.path(name); }

  TestFolder folder_;
  FailingFiles files_;
  FakeDesktop desktop_;
  std::unique_ptr<AppState> state_;
  std::unique_ptr<Program> program_;
  std::unique_ptr<modQBX1> modQBX1_;
};

}  // namespace quillbox::test
