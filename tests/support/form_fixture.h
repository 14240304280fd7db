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
#include <array>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "editors/frmMusic.h"
#include "forms/program.h"
#include "forms/recent_collections.h"
#include "shell/modQBX1.h"
#include "support/failing_files.h"
#include "support/fake_desktop.h"
#include "support/keys.h"
#include "support/model_kinds.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {

inline const std::string kEditorMessages = "QBX - Music Manager";

// For expectError.
inline const std::string kOverflow = "'6':\n\nOverflow";
inline const std::string kTypeMismatch = "'13':\n\nType mismatch";

/// Of the dialog that opens a collection.
inline const std::string kOpenFilter =
    "All Collections (*.?CS, *.MPS)|*.?CS;*.MPS|Music Collection (*.MCS)|*.MCS|Comic Collection "
    "(*.CCS)|*.CCS|Video Collection (*.VCS)|*.VCS|Software Collection (*.SCS)|*.SCS|Book "
    "Collection (*.BCS)|*.BCS|Wave Collection (*.WCS)|*.WCS|MIDI Collection "
    "(*.ICS)|*.ICS|Graphics Collection (*.GCS)|*.GCS|MP3 Collection (*.MPS)|*.MPS";

/// The whole program on a scripted desktop, in a fresh folder. Controls are found by name on the
/// visible form, and worked with mouse and keys.
class FormTest : public testing::Test {
 protected:
  FormTest();
  ~FormTest() override;

  /// Starts the program with these arguments, ending a running one first; its start-up box is
  /// answered.
  void start(std::initializer_list<std::string> arguments = {});

  /// The only form on screen; fails the test when there is none, or more than one.
  QMainWindow& form();
  QMainWindow& formNamed(const char* name);  ///< visible or not
  std::string formName();

  /// Opens the collection at that path in the visible editor, as the dialogs do.
  void openHere(const std::string& path, bool isNew = false);

  std::string caption();  ///< in the window system's form

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
  void toggle(const char* box);                  ///< as assistive technology does
  void choose(const char* action);               ///< a menu item, which must be enabled
  void type(const char* box, const char* keys);  ///< replacing the contents of the box
  void pick(const char* list, int index);        ///< with the arrow keys
  /// The manual page in the help window; empty when that is not visible.
  std::string helpPage();

  void close();  ///< the visible form, as the window manager does

  /// A collection in the test's folder, as bytes.
  std::string file(std::string_view name = "jazz.MCS") { return readFile(folder_.path(name)); }
  std::string path(std::string_view name = "jazz.MCS") const { return folder_.path(name); }

  TestFolder folder_;
  FailingFiles files_;
  FakeDesktop desktop_;
  std::unique_ptr<AppState> state_;
  WindowPlaces* windowPlaces_ =
      nullptr;           ///< what the program is started with; must outlive the test
  QString typedFolder_;  ///< where typed texts are kept; empty: nowhere
  RecentCollections* recents_ = nullptr;  ///< as windowPlaces_
  std::unique_ptr<Program> program_;
  std::unique_ptr<modQBX1> modQBX1_;
};

/// The ways to leave a sort or search form.
enum class WayOut { exitButton, escape, closeWindow };
inline constexpr std::array<WayOut, 3> kWaysOut = {WayOut::exitButton, WayOut::escape,
                                                   WayOut::closeWindow};

/// The program with a collection open in one of the six editors.
class EditorTest : public FormTest {
 protected:
  explicit EditorTest(const ModelKind& kind) : kind_(kind) {}

  const ModelKind& kind() const { return kind_; }
  const Field& field(std::string_view name) const;

  std::string name() const { return std::string("mine.") + kind_.extension; }
  std::string collectionPath() const { return path(name()); }
  std::string backup() const { return path("mine.bak"); }
  std::string bytes() { return file(name()); }

  /// The bytes of an item with a value in every field, but no flag set. A form that shows it stores
  /// the same bytes.
  std::string item(std::string_view first) const;

  /// The bytes of an item that was never written.
  std::string blankItem() const { return std::string(kind_.recordLength, '\0'); }

  /// The bytes of a collection of these items.
  std::string collection(std::initializer_list<std::string> items) const;

  /// Puts such a collection into the test's folder and starts the program with it.
  void open(std::initializer_list<std::string> items) { openBytes(collection(items)); }
  void openBytes(std::string_view bytes);

  std::string first();  ///< as shown, without the padding of a text of music
  std::string other() { return shown(kind_.otherBox()); }
  std::string indicator() { return label(kind_.indicator); }
  void openSideForm(const ModelSide& opened);
  void leaveSideForm(const ModelSide& left, WayOut way = WayOut::exitButton);
  void expectError(const std::string& numberAndText);

 private:
  const ModelKind& kind_;
};

}  // namespace quillbox::test
