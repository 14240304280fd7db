// Long random sequences of user actions in an editor, compared with a model of its rules, with file
// operations that fail now and then. After every step all files and the screen must match the
// model.

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/model_files.h"

namespace quillbox::test {
namespace {

constexpr int kSteps = 2'000;

/// Next goes no further past the end.
constexpr int kFarBeyond = 3;

class Model : public ModelFiles, public testing::WithParamInterface<ModelKind> {
 protected:
  Model() : ModelFiles(GetParam()) {}

  std::size_t anyInput(bool boxes) {
    for (;;) {
      const int input = lots_.below(static_cast<int>(inputs_.size()));
      const auto i = static_cast<std::size_t>(input);
      if (kind().isMedia() || kind().inputs[i].isBox() == boxes) return i;
    }
  }

  void fillInput() {
    const std::size_t i = anyInput(!lots_.oneIn(4));
    const ModelInput& input = kind().inputs[i];
    if (!model().isEnabled(i)) return;
    if (input.is == Is::flag) {
      note("tick ", input.name);
      static_cast<QCheckBox*>(inputs_[i])->click();
      model().tick(i);
    } else if (input.is == Is::choice) {
      const int place = lots_.below(input.choices);
      note("choose ", place, " of ", input.name);
      static_cast<QComboBox*>(inputs_[i])->setCurrentIndex(place);
      model().inputs[i].number = place;
    } else {
      typeInto(*static_cast<QLineEdit*>(inputs_[i]), input, model().inputs[i]);
    }
  }

  // Buttons

  void writeSome() {
    // With nothing shown the program would end.
    if (model().curRec == 0) return;
    const bool isNew = model().curRec == EditorModel::kNew;
    if (isNew && model().newSlot() > std::max(model().count, kManyItems)) return;
    write();
  }
  void removeSome() {
    if (kind().buttons.remove != nullptr) removeItem(lots_.oneIn(2));
  }
  void takeSomethingBack() {
    takeBack("cmdUndoWrite");
    takeBack("cmdUndoDelete");
    bringBack();
  }
  void copyItem() { duplicate(); }
  void nextItem() {
    if (model().nextEnabled && model().position() <= model().count + kFarBeyond) next();
  }
  void previousItem() {
    if (hasPrevious()) previous();
  }

  GoToAnswer anyAnswer() {
    const int item = lots_.below(model().count + 2);
    const std::string digits = std::to_string(item);
    if (!lots_.oneIn(3)) return {digits, item};
    return lots_.of<GoToAnswer>({{" " + digits + " ", item},
                                 {digits + ".25", item},
                                 {"2.5", 2},
                                 {"3.5", 4},
                                 {"-1", -1},
                                 {"32767", 32'767},
                                 {"x", {}, 13},
                                 {"", {}, 13},
                                 {digits + " x", {}, 13},
                                 {"70000", {}, 6}});
  }

  void jump() {
    const GoToAnswer answer = anyAnswer();
    goTo(lots_.oneIn(8) ? std::nullopt : std::optional(answer));
  }

  // The other forms

  void visitList() {
    if (kind().list.entries == 0) return;
    openList();
    if (kind().isMusic()) return visitSongs();
    for (int steps = lots_.below(5); steps > 0; --steps) {
      const int by = lots_.below(4);
      if (by < 2) {
        stepList(by == 0 ? 1 : -1);
      } else {
        typeEntry(lots_.below(kind().list.entries), 0);
      }
      expectList(0, kind().list.entries);
    }
    note("leave the list");
    leaveBy("cmdExit");
  }

  void visitSongs() {
    int page = 0;
    for (int steps = lots_.below(6); steps > 0; --steps) {
      EXPECT_EQ(formName(), page == 0 ? "frmSongEdit1" : "frmSongEdit2");
      EXPECT_EQ(label(), model().label);
      const int first = page * ModelList::kSongsPerPage;
      switch (lots_.below(5)) {
        case 0:
          note("other songs");
          model().addSong(page);
          click("cmdNextPage");
          page = 1 - page;
          break;
        case 1:
          if (!lots_.oneIn(4)) break;
          note("clear songs");
          model().clearList();
          click("cmdClearList");
          break;
        case 2:
          typeTitle(page);
          break;
        default:
          typeEntry(first + lots_.below(ModelList::kSongsPerPage), first);
      }
      expectList(page * ModelList::kSongsPerPage, ModelList::kSongsPerPage);
      EXPECT_EQ(inRecord(box("txtSongEdit").text()), model().songTitles[page]);
    }
    note("leave the songs");
    model().addSong(page);
    model().storeList();
    leaveBy("cmdExit");
  }

  void leaveBy(const char* exit) { leavePage(exit, lots_.oneIn(3)); }

  void typeTitle(int page) {
    std::string& title = model().songTitles[page];
    Held held = {title};
    QLineEdit& box = this->box("txtSongEdit");
    typeText(box, "txtSongEdit", lots_.of(kModelTexts), held, ModelList::kWidth);
    title = held.text;
    if (lots_.oneIn(2)) return;
    note("Enter");
    model().addSong(page);
    QTest::keyClick(&box, Qt::Key_Return);
  }

  std::string entryName(int entry) const {
    return std::string(kind().list.box) + "_" + std::to_string(entry);
  }
  void typeEntry(int entry, int first) {
    const std::string name = entryName(entry - first);
    typeText(box(name.c_str()), name, lots_.of(kModelTexts),
             model().list[static_cast<std::size_t>(entry)], ModelList::kWidth);
  }
  void expectList(int first, int entries) {
    for (int entry = 0; entry < entries; ++entry)
      EXPECT_EQ(inRecord(box(entryName(entry).c_str()).text()),
                model().list[static_cast<std::size_t>(first + entry)].text)
          << entryName(entry);
  }

  void sort() {
    if (!model().canSort()) return;
    std::vector<bool> ticks = model().ticks;
    for (std::size_t key = 0; key < ticks.size(); ++key)
      if (lots_.oneIn(2)) ticks[key] = !ticks[key];
    tickKeys(ticks);
    if (!lots_.oneIn(6)) return beginSort();
    note("sort form shown and left");
    leaveBy(kind().sort.exit);
  }

  void search() {
    trigger(kind().search.action);
    EXPECT_EQ(formName(), kind().search.formName);
    fillSearch();
    if (!beginSearch()) leaveBy(kind().search.exit);
  }

  /// Some values of an item, so that there may be a hit; or random ones.
  void fillSearch() {
    const bool isForItem = model().count > 0 && !lots_.oneIn(3);
    const std::string item = model().record(1 + lots_.below(std::max(model().count, 1)));
    for (std::size_t i = 0; i < kind().inputs.size(); ++i) {
      const ModelInput& input = kind().inputs[i];
      if (!input.searched) continue;
      auto& control = this->control<QWidget>(input.name);
      EXPECT_EQ(control.isEnabled(), model().isSearchEnabled(i)) << input.name;
      if (!control.isEnabled()) continue;
      Held& held = model().search[i];
      Held wanted = heldOf(input, item, emptyOf(input));
      if (input.is == Is::flag) {
        if (isForItem ? wanted.number == held.number : lots_.oneIn(2)) continue;
        note("tick ", input.name);
        static_cast<QCheckBox&>(control).click();
        held.number = 1 - held.number;
        continue;
      }
      // Few conditions, or nothing would be found.
      const bool isCondition = lots_.oneIn(kind().isMedia() ? 1 : 4);
      if (input.is == Is::choice) {
        held.number = !isCondition ? -1 : isForItem ? wanted.number : lots_.below(input.choices);
        note("choose ", held.number, " of ", input.name);
        static_cast<QComboBox&>(control).setCurrentIndex(static_cast<int>(held.number));
      } else if (isCondition && !isForItem) {
        typeInto(static_cast<QLineEdit&>(control), input, held);
      } else {
        if (!isCondition) wanted = emptyOf(input);
        held = {withoutEndBlanks(wanted.text), wanted.number};
        note("type ", input.name, " '", held.text, "'");
        edit(static_cast<QLineEdit&>(control), held.text, false);
      }
    }
  }

  void print() {
    // Nothing to list leaves the board on screen.
    if (model().count >= 1) printList(lots_.oneIn(3));
  }

  // Faults

  /// Makes some file operation fail, soon or later.
  void armAny() {
    using enum FileOperation;
    const FileOperation operation =
        lots_.of({open, make, read, write, flush, close, exists, linkTarget, remove, rename, list});
    const bool isShort = operation == write && lots_.oneIn(2);
    const Fault fault{lots_.of(errorsOf(operation)), isShort, lots_.oneIn(3)};
    arm(static_cast<std::size_t>(lots_.below(lots_.of({1, 3, 12}))), fault, operation);
  }

  bool triesAgain() override { return lots_.oneIn(2); }

  void step() {
    if (isArmed_ ? lots_.oneIn(40) : lots_.oneIn(8)) armAny();
    struct Weighed {
      int weight;  ///< of a thousand
      void (Model::*step)();
    };
    static constexpr Weighed steps[] = {{230, &Model::fillInput}, {150, &Model::writeSome},
                                        {60, &Model::clear},      {50, &Model::takeSomethingBack},
                                        {10, &Model::copyItem},   {60, &Model::removeSome},
                                        {110, &Model::nextItem},  {90, &Model::previousItem},
                                        {60, &Model::jump},       {55, &Model::visitList},
                                        {25, &Model::search},     {15, &Model::sort},
                                        {10, &Model::print},      {22, &Model::leaveAndOpen},
                                        {12, &Model::openFile},   {10, &Model::newFile},
                                        {10, &Model::exportData}, {18, &Model::load},
                                        {3, &Model::startAgain}};
    int lot = lots_.below(1000);
    for (const Weighed& weighed : steps) {
      lot -= weighed.weight;
      if (lot < 0) return (this->*weighed.step)();
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, Model, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(Model, IsWhatTheEditorDoesStepByStep) {
#ifdef _WIN32
  if (kind().isMusic()) GTEST_SKIP() << "The backup of an upgrade is in a sort's way there.";
#endif
  startAgain();
  const int steps = modelSetting("QUILLBOX_MODEL_STEPS", kSteps);
  for (int done = 0; done < steps && !HasFailure(); ++done) {
    try {
      step();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    // Windows are painted and laid out only now and then; most steps need not wait for it.
    if (done % 50 == 0) settle();
    if (!HasFailure()) expectModel();
    if (HasFailure())
      FAIL() << "QUILLBOX_MODEL_SEED=" << modelSetting("QUILLBOX_MODEL_SEED", kModelSeed)
             << ", step " << done << "\n"
             << history();
  }
  EXPECT_GT(faults_, 0);
  RecordProperty("faults", faults_);
}

}  // namespace
}  // namespace quillbox::test
