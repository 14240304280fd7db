#pragma once

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "support/editor_model.h"
#include "support/form_fixture.h"
#include "support/model_collections.h"

namespace quillbox::test {

inline constexpr int kModelSeed = 20'261'121;

/// A number that the environment may set.
inline int modelSetting(const char* variable, int standard) {
  bool isNumber = false;
  const int value = qEnvironmentVariableIntValue(variable, &isNumber);
  return isNumber ? value : standard;
}

inline QString onScreen(const std::string& text) { return QString::fromLatin1(text); }

inline std::string inRecord(const QString& text) { return text.toLatin1().toStdString(); }

/// The program with a random collection open in an editor, and the model of it.
class ModelFixture : public FormTest {
 protected:
  explicit ModelFixture(const ModelKind& kind)
      : kind_(kind),
        lots_(static_cast<unsigned>(modelSetting("QUILLBOX_MODEL_SEED", kModelSeed) +
                                    kind.sorted->code)) {}

  const ModelKind& kind() const { return kind_; }
  std::string collection() const { return path(std::string("mine.") + kind().extension); }
  std::string backup() const { return path("mine.bak"); }
  EditorModel& model() { return *model_; }

  template <typename... Parts>
  void note(const Parts&... parts) {
    std::ostringstream line;
    (line << ... << parts);
    notes_.push_back(line.str());
  }

  void trigger(const char* action) { control<QAction>(action).trigger(); }
  void click(const std::string& name) {
    QPushButton& clicked = button(name.c_str());
    EXPECT_TRUE(clicked.isEnabled()) << name;
    clicked.click();
  }
  void expectError(const std::string& error) {
    if (!error.empty()) desktop_.expectMessage("Quillbox", error);
  }

  // The beginning, again and again

  /// The program anew: on the command line, or by way of its start screen.
  void startProgram(bool exists = true) {
    const std::string file = model_ ? model().file : std::string();
    model_.emplace(kind(), collection());
    model().file = file;
    if (kind().isMedia()) {
      restart();
      openFromStartScreen();
      return;
    }
    model().open(exists);
    expectRefusal();
    restart({collection()});
    findControls();
  }

  void openFromStartScreen() {
    model().open();
    expectRefusal();
    desktop_.tolerateOpen = collection();
    trigger("O");
    desktop_.tolerateOpen.reset();
    findControls();
  }

  void expectRefusal() {
    if (model().isRefused())
      desktop_.expectMessage(kMusicManager, "Old File Type Incompatible. Contact us for upgrades.");
  }

  void findControls() {
    ASSERT_EQ(formName(), kind().formName);
    editor_ = &form();
    inputs_.clear();
    for (const ModelInput& input : kind().inputs) inputs_.push_back(&control<QWidget>(input.name));
    indicator_ = &control<QLabel>(kind().indicator);
    previous_ = &button(kind().buttons.previous);
    next_ = &button(kind().buttons.next);
  }

  void putNewCollection() {
    notes_.clear();
    model().file = randomCollection(lots_, kind());
    writeFile(collection(), model().file);
    note("new collection of ", model().file.size(), " bytes, Count ", numberAt(model().file, 0, 2));
  }

  void leaveAndOpen() {
    trigger(kind().exitCollection);
    EXPECT_EQ(formName(), "frmBegin2");
    if (lots_.oneIn(2)) putNewCollection();
    note("open");
    openFromStartScreen();
  }

  void startAgain() {
    const bool exists = kind().isMedia() || !lots_.oneIn(5);
    if (exists) {
      if (lots_.oneIn(2)) putNewCollection();
      note("start again");
    } else {
      notes_.clear();
      note("start without a file");
      std::filesystem::remove(collection());
    }
    startProgram(exists);
  }

  // Inputs

  /// Keys as a user types them, over what the box holds or behind it. They are put in at once, as
  /// an edit.
  static void edit(QLineEdit& box, const std::string& keys, bool isAdded) {
    if (isAdded) {
      box.end(false);
    } else {
      box.selectAll();
      box.del();
    }
    if (!keys.empty()) box.insert(onScreen(keys));
  }

  /// What a box of that width then holds.
  static Held edited(const Held& before, const std::string& keys, bool isAdded, std::size_t width) {
    std::string text = isAdded ? before.text.substr(0, before.text.size() - before.padding) : "";
    text += keys;
    // No key, no edit: what pads the text stays.
    if (isAdded && keys.empty()) return before;
    return {text.substr(0, width)};
  }

  void typeInto(QLineEdit& box, const ModelInput& input, Held& held) {
    if (!input.isText()) {
      const TypedNumber typed = lots_.of(typedNumbers(input.is));
      note("type ", input.name, " '", typed.text, "'");
      edit(box, typed.text, false);
      held = {typed.text, typed.number, typed.error};
      return;
    }
    typeText(box, input.name, lots_.of(kModelTexts), held, input.width);
  }

  void typeText(QLineEdit& box, const std::string& name, const std::string& keys, Held& held,
                std::size_t width) {
    const bool isAdded = lots_.oneIn(4);
    note(isAdded ? "add to " : "type ", name, " '", keys, "'");
    edit(box, keys, isAdded);
    held = edited(held, keys, isAdded, width);
  }

  // After every step

  void expectModel() {
    desktop_.expectNothingLeft();
    desktop_.rests = 0;
    files_.forget();
    const std::string bytes = readFile(collection());
    if (bytes != model().file) {
      const auto differs = std::ranges::mismatch(bytes, model().file);
      ADD_FAILURE() << bytes.size() << " bytes instead of " << model().file.size()
                    << "; the first that differs is " << differs.in1 - bytes.begin();
    }
    EXPECT_TRUE(editor_->isVisible());
    EXPECT_EQ(indicator_->text().toStdString(), model().label);
    EXPECT_EQ(state_->Count, model().count);
    EXPECT_EQ(state_->CurRec, model().curRec);
    EXPECT_EQ(previous_->isEnabled(), model().previousEnabled) << "Previous";
    EXPECT_EQ(next_->isEnabled(), model().nextEnabled) << "Next";
    for (std::size_t i = 0; i < inputs_.size(); ++i) {
      const ModelInput& input = kind().inputs[i];
      const Held& held = model().inputs[i];
      EXPECT_EQ(inputs_[i]->isEnabled(), model().isEnabled(i)) << input.name;
      if (input.is == Is::flag)
        EXPECT_EQ(static_cast<QCheckBox*>(inputs_[i])->isChecked(), held.number == 1) << input.name;
      else if (input.is == Is::choice)
        EXPECT_EQ(static_cast<QComboBox*>(inputs_[i])->currentIndex(), held.number) << input.name;
      else
        EXPECT_EQ(inRecord(static_cast<QLineEdit*>(inputs_[i])->text()), held.text) << input.name;
    }
  }

  std::string history() const {
    std::string lines;
    for (const std::string& line : notes_) lines += line + "\n";
    return lines;
  }

  const ModelKind& kind_;
  Lots lots_;
  std::optional<EditorModel> model_;
  std::vector<std::string> notes_;  ///< what was done since a collection was put down

  QMainWindow* editor_ = nullptr;
  std::vector<QWidget*> inputs_;
  QLabel* indicator_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
};

}  // namespace quillbox::test
