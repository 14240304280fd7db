#pragma once

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <functional>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/paths.h"
#include "support/editor_model.h"
#include "support/form_fixture.h"
#include "support/model_aftermath.h"
#include "support/model_collections.h"

namespace quillbox::test {

inline constexpr int kModelSeed = 20'261'121;

/// At this number no new items are added, and at twice the number no folder.
inline constexpr int kManyItems = 10;

/// A number that the environment may set.
inline int modelSetting(const char* variable, int standard) {
  bool isNumber = false;
  const int value = qEnvironmentVariableIntValue(variable, &isNumber);
  return isNumber ? value : standard;
}

/// The bytes 80 to 9F of a record as characters on screen; all others are the characters of their
/// number.
inline constexpr char16_t kHighCharacters[] = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

inline QString onScreen(const std::string& text) {
  QString shown = QString::fromLatin1(text);
  for (QChar& character : shown)
    if (const char16_t code = character.unicode(); code >= 0x80 && code <= 0x9F)
      character = QChar(kHighCharacters[code - 0x80]);
  return shown;
}

inline std::string inRecord(QString text) {
  for (QChar& character : text) {
    if (character.unicode() < 0x80) continue;
    const auto* const found = std::ranges::find(kHighCharacters, character.unicode());
    if (found != std::end(kHighCharacters))
      character = QChar(static_cast<char16_t>(0x80 + (found - std::begin(kHighCharacters))));
  }
  return text.toLatin1().toStdString();
}

/// The program with a random collection open in an editor, and its model.
class ModelFixture : public FormTest {
 protected:
  explicit ModelFixture(const ModelKind& kind)
      : kind_(kind),
        lots_(static_cast<unsigned>(modelSetting("QUILLBOX_MODEL_SEED", kModelSeed) + kind.code)) {}

  const ModelKind& kind() const { return kind_; }
  EditorModel& model() { return *model_; }
  const std::string& collection() { return model().path(); }

  template <typename... Parts>
  void note(const Parts&... parts) {
    std::ostringstream line;
    (line << ... << parts);
    notes_.push_back(line.str());
  }

  void trigger(const char* action) {
    if (model_) model().giveUpSlot();
    control<QAction>(action).trigger();
  }
  void click(const std::string& name) {
    QPushButton& clicked = button(name.c_str());
    EXPECT_TRUE(clicked.isEnabled()) << name;
    clicked.click();
  }
  void expectError(const std::string& error) {
    if (!error.empty()) desktop_.expectMessage("Quillbox", error);
  }

  // Faults

  /// Makes the `nth` file operation from now on fail, or the `nth` of one kind.
  void arm(std::size_t nth, const Fault& fault, std::optional<FileOperation> operation = {}) {
    isArmed_ = true;
    fault_ = fault;
    files_.failNth(nth, fault, operation);
  }
  void disarm() {
    isArmed_ = false;
    files_.heal();
  }

  /// Makes the program do something: `change` is the effect on the model, with the boxes shown,
  /// `press` the user's action. If it fails, all is as before, except for what `failed` does to the
  /// model, and partly written files. Then returns false, with the fault removed.
  bool perform(
      const std::function<void()>& change, const std::function<void()>& press,
      const std::function<void()>& failed = [] {}) {
    keepBefore();
    if (!isArmed_) {
      change();
      press();
      return true;
    }
    const std::optional<EditorModel> before = model_;
    const ModelDisk filesBefore = disk_;
    const QWidget* const form = formOnScreen();
    std::vector<std::string> said;
    change();
    desktop_.surprises = &said;
    press();
    desktop_.surprises = nullptr;
    if (!files_.hasFailed()) {
      EXPECT_TRUE(said.empty()) << said.front();
      return true;
    }
    disarm();
    ++faults_;
    note("a fault in ", files_.operations().at(files_.failed().front()).path);
    expectSaysWhatFailed(said);
    const bool opens = model().openings > (before ? before->openings : 0);
    if (said.empty()) return expectIgnorable(filesBefore, opens);
    desktop_.forgetExpected();
    takeFilesOver(filesBefore);
    if (before) model_.emplace(*before);
    failed();
    if (formOnScreen() != form || desktop_.endedAtOnce || !triesAgain()) return false;
    note("once more");
    change();
    press();
    return true;
  }

  void keepBefore() {
    before_.reset();
    if (model_) before_.emplace(*model_);
  }

  virtual bool triesAgain() { return false; }

  QWidget* formOnScreen() { return program_ == nullptr ? nullptr : &form(); }

  /// The messages name what failed. If the media types cannot be read, that is the only message.
  void expectSaysWhatFailed(std::vector<std::string>& said) {
    std::vector<std::string> expected;
    for (const std::size_t failed : files_.failed()) {
      const auto& [operation, path] = files_.operations().at(failed);
      expected.push_back(RunTimeError(fault_.error, path).message());
      if (operation == FileOperation::list) expected.insert(expected.end(), {"Invalid Path!", ""});
    }
    std::erase_if(said, [&](const std::string& text) {
      const bool isOfFault = std::ranges::any_of(
          expected, [&](const std::string& known) { return text.starts_with(known); });
      EXPECT_TRUE(isOfFault) << "said: " << text;
      return text.ends_with(kMediaTypes);
    });
  }

  /// Whether an editor that has just opened the collection checks where the file ends.
  bool isLookForTheEnd(std::size_t operation) {
    const auto& operations = files_.operations();
    const auto opensIt = [&](const OperationRecord& done) {
      return done.operation == FileOperation::open && done.path == collection();
    };
    const auto isLast = std::none_of(
        operations.begin() + static_cast<std::ptrdiff_t>(operation) + 1, operations.end(), opensIt);
    return operations.at(operation).path == collection() && isLast && model().curRec >= 1;
  }

  /// Only what does not matter may fail without a message. Always true.
  bool expectIgnorable(const ModelDisk& filesBefore, bool opens) {
    for (const std::size_t failed : files_.failed()) {
      const auto& [operation, path] = files_.operations().at(failed);
      const bool isTriedElsewhere = fault_.error == ErrorNumber::differentDrive;
      // The start screen checks the files beside a collection that was not found.
      const bool isUnasked = fileNameOf(path).starts_with("none.");
      EXPECT_TRUE(ignoresFaults_ || isTriedElsewhere || path == kMediaTypes || isUnasked ||
                  (opens && isLookForTheEnd(failed)) ||
                  closesWhatWasOnlyRead(files_.operations(), failed))
          << "nothing was said of " << path;
    }
    if (ignoresFaults_) takeFilesOver(filesBefore);
    return true;
  }

  /// Nothing may be lost; the user restores what is under its backup's name. From then on the model
  /// follows the disk.
  void takeFilesOver(const ModelDisk& before) {
    ModelDisk now = filesOnDisk();
    const Aftermath aftermath{before, disk_, now, fault_.isShort, replaced_};
    aftermath.expectNothingLost();
    for (const auto& [path, bytes] : before) {
      const auto found = bytesIn(now, path);
      const bool isWhole = found == bytes || (found && found == bytesIn(disk_, path));
      if (const auto backup = aftermath.keptAs(path); backup && !isWhole)
        std::filesystem::rename(*backup, path);
    }
    // A backup that could not be deleted stops the next sort.
    for (const auto& [path, bytes] : filesOnDisk())
      if (path.ends_with(".bak")) std::filesystem::remove(path);
    disk_ = filesOnDisk();
  }

  // Files, on disk and in the model

  std::string anyPlace() {
    std::string small = std::string("small.") + kind().extension;
    for (char& letter : small) letter = static_cast<char>(std::tolower(letter));
    return path(lots_.of({std::string("mine.") + kind().extension,
                          std::string("other.") + kind().extension, small}));
  }

  /// One of the existing collections.
  std::string anyCollection() {
    std::vector<std::string> found;
    for (const auto& [path, bytes] : disk_)
      if (sameInCapitals(path.substr(path.size() - 3), kind().extension)) found.push_back(path);
    return lots_.of(found);
  }

  void putFile(const std::string& path, const std::string& bytes) {
    disk_[path] = bytes;
    writeFile(path, bytes);
  }

  void putNewCollection(const std::string& place) {
    const std::string bytes = randomCollection(lots_, kind());
    putFile(place, bytes);
    note("new collection ", place, " of ", bytes.size(), " bytes, Count ", numberAt(bytes, 0, 2),
         ", type ", numberAt(bytes, 2, 2));
  }

  // Starting again

  /// Restarts the program with a command line, or through its start screen. Only the command line
  /// creates a missing collection.
  void startProgram(const std::string& path) {
    model_.emplace(kind(), disk_);
    listingName_.reset();
    ++starts_;
    bool isOpen = false;
    if (!kind().isMedia() && (!disk_.contains(path) || startsByName())) {
      note("start with ", path);
      dataFolder_.clear();
      isOpen = perform([&] { expectSaid(model().open(path)); }, [&] { start({path}); });
    } else {
      note("start");
      dataFolder_ = std::filesystem::current_path().string();
      start();
    }
    while (!isOpen) {
      if (!disk_.contains(path)) return startProgram(path);
      isOpen = openFromStartScreen(path);
    }
    findControls();
  }

  virtual bool startsByName() { return !lots_.oneIn(3); }

  bool openFromStartScreen(const std::string& path) {
    note("open ", path);
    const auto change = [&] {
      desktop_.expectOpen("Open Collection", kOpenFilter, path);
      expectSaid(model().open(path));
    };
    return perform(change, [&] { trigger("O"); });
  }

  void expectSaid(const std::vector<std::string>& said) {
    for (const std::string& text : said) {
      note("said: ", text);
      desktop_.expectMessage(kEditorMessages, text);
    }
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

  // Inputs

  /// Typed keys that replace the contents of the box or are added to them. They are inserted at
  /// once, as one edit.
  static void edit(QLineEdit& box, const std::string& keys, bool isAdded) {
    if (isAdded) {
      box.end(false);
    } else {
      box.selectAll();
      box.del();
    }
    if (!keys.empty()) box.insert(onScreen(keys));
  }

  /// The contents of a box of that width afterwards.
  static Held edited(const Held& before, const std::string& keys, bool isAdded, std::size_t width) {
    std::string text = isAdded ? before.text.substr(0, before.text.size() - before.padding) : "";
    text += keys;
    // No key, no edit: the padding stays.
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

  /// Windows are painted and laid out only now and then, and what they have deleted is freed; most
  /// steps need not wait for it.
  static void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void expectModel() {
    desktop_.expectNothingLeft();
    desktop_.rests = 0;
    files_.forget();
    expectFiles();
    EXPECT_TRUE(editor_->isVisible());
    EXPECT_EQ(inRecord(editor_->windowTitle()),
              kind().caption + std::filesystem::path(collection()).filename().string() + ")");
    EXPECT_EQ(indicator_->text().toStdString(), model().label);
    EXPECT_EQ(state_->Count, model().count);
    EXPECT_EQ(state_->CurRec, model().curRec);
    if (!kind().isMusic()) {
      EXPECT_EQ(state_->ListPos, model().listPos);
    }
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

  /// Without those of a listing, which are created again each time.
  ModelDisk filesOnDisk() const {
    ModelDisk files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) {
      if (!entry.is_regular_file()) continue;
      const std::string path = textOf(entry.path());
      const auto name = fileNameOf(path);
      if (name != "printer.tmp" && name != kListing) files[path] = readFile(path);
    }
    return files;
  }

  /// Every file is as in the model, and there are no others.
  void expectFiles() {
    const ModelDisk files = filesOnDisk();
    for (const auto& [path, bytes] : files)
      if (const auto modelled = disk_.find(path); modelled == disk_.end())
        ADD_FAILURE() << path << " should not be there";
      else
        expectBytes(path, bytes, modelled->second);
    EXPECT_EQ(files.size(), disk_.size()) << "files";
  }
  static void expectBytes(const std::string& path, const std::string& bytes,
                          const std::string& expected) {
    if (bytes == expected) return;
    const auto differs = std::ranges::mismatch(bytes, expected);
    ADD_FAILURE() << path << ": " << bytes.size() << " bytes instead of " << expected.size()
                  << "; the first that differs is " << differs.in1 - bytes.begin();
  }

  std::string history() const {
    std::string lines;
    for (const std::string& line : notes_) lines += line + "\n";
    return lines;
  }

  /// The file of a text listing.
  static constexpr const char* kListing = "listing.txt";
  static constexpr std::string_view kMediaTypes = "QBX Music.ini";

  const ModelKind& kind_;
  Lots lots_;
  ModelDisk disk_;
  std::optional<EditorModel> model_;
  std::optional<EditorModel> before_;       ///< as the last command found it
  std::optional<std::string> listingName_;  ///< of a text listing, as offered once chosen
  std::string dataFolder_;                  ///< as the program found it at its start
  std::string replaced_;                    ///< the collection that may be overwritten
  bool isArmed_ = false;
  bool ignoresFaults_ = false;  ///< as a listing does, and work with an expected error
  Fault fault_{};
  int starts_ = 0;                  ///< of the program
  int faults_ = 0;                  ///< that have come
  std::vector<std::string> notes_;  ///< the actions since the program was started

  QMainWindow* editor_ = nullptr;
  std::vector<QWidget*> inputs_;
  QLabel* indicator_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
};

}  // namespace quillbox::test
