// All pairs: each action of an editor, with each of its file operations failing, then each action,
// compared with the model of the editors. The run generates the table.

#include <algorithm>
#include <exception>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "support/model_files.h"

namespace quillbox::test {
namespace {

/// All errors of an operation, and every action both with an item shown and with a new one typed;
/// an ordinary run uses one error for each, once and with half of the bytes written.
bool runsAllPairs() { return modelSetting("QUILLBOX_ALL_PAIRS", 0) != 0; }

/// The state of the editor when an action begins.
enum class Start { itemShown, newItem };

class Pairs : public ModelFiles, public testing::WithParamInterface<ModelKind> {
 protected:
  Pairs() : ModelFiles(GetParam()) {}

  struct Action {
    const char* name;
    void (Pairs::*run)();
    bool isVariant = false;  ///< much like another
    bool (*isOf)(const ModelKind&) = [](const ModelKind&) { return true; };
  };
  static constexpr bool kVariant = true;

  // The actions

  void writeIt() {
    // With nothing shown the program would end.
    if (model().curRec != 0) write();
  }
  void clearAndWrite() {
    clear();
    write();
  }
  void deleteIt() { removeItem(true); }
  void writeAndTakeBack() {
    writeIt();
    takeBack("cmdUndoWrite");
  }
  void deleteAndTakeBack() {
    deleteIt();
    takeBack("cmdUndoDelete");
  }
  void leaveAndBringBack() {
    goForth();
    bringBack();
  }
  void goForth() {
    if (model().nextEnabled) next();
  }
  void goBack() {
    if (hasPrevious()) previous();
  }
  void goToLast() { goTo(GoToAnswer{"4", 4}); }

  void visitSongs() {
    openList();
    model().addSong(0);
    model().storeList();
    leavePage("cmdExit");
  }
  void visitList(int by) {
    openList();
    stepList(by);
    leavePage("cmdExit");
  }
  void listForth() { visitList(1); }
  void listBack() { visitList(-1); }

  void sort() {
    std::vector<bool> ticks(model().ticks.size());
    if (!ticks.empty()) ticks.front() = true;
    if (!model().canSort()) return;
    tickKeys(ticks);
    beginSort();
  }

  void searchFor(const std::string& text) {
    trigger(kind().search.action);
    edit(box(kind().inputs.front().name), text, false);
    model().search.front() = {text};
    if (!beginSearch()) leavePage(kind().search.exit);
  }
  void searchHit() { searchFor("C"); }
  void searchMiss() { searchFor("nowhere"); }

  void listCancelled() {
    if (model().count >= 1) printList(false);
  }
  void listToText() {
    if (model().count >= 1) printList(true);
  }
  void loadFolder() { loadFrom(path("some")); }
  void exportIt() { exportTo(path("out.txt")); }

  /// The new-collection dialog until a collection is open, the same one again if necessary.
  void makeNew(const std::string& stem, bool overwrites) {
    if (!openNewDialog()) return;
    while (formName() == "frmNewCollection")
      if (make(kind(), stem, overwrites)) return;
    openAgain();
  }
  void newFile() { makeNew("fresh", true); }
  void newOverOther() { makeNew("other", true); }
  void newKeepsOther() { makeNew("other", false); }

  /// It may be gone.
  void openOther() { open(disk_.contains(place("other")) ? place("other") : place("mine")); }
  void openSame() { open(collection()); }
  void openOlder() { open(place("older")); }
  void leaveAndOpenAgain() {
    trigger(kind().menu.exitCollection);
    openAgain();
  }
  void openAgain() {
    while (!openFromStartScreen(collection())) continue;
    findControls();
  }

  static bool hasListPage(const ModelKind& k) { return k.list.entries > 0 && !k.isMusic(); }

  static std::span<const Action> allActions() {
    static constexpr Action actions[] = {
        {"Write Data", &Pairs::writeIt},
        {"Clear Data and Write Data", &Pairs::clearAndWrite},
        {"Delete", &Pairs::deleteIt, false,
         [](const ModelKind& k) { return k.buttons.remove != nullptr; }},
        {"Write Data and Undo Write", &Pairs::writeAndTakeBack},
        {"Delete and Undo Delete", &Pairs::deleteAndTakeBack, kVariant,
         [](const ModelKind& k) { return k.buttons.remove != nullptr; }},
        {"Next and Bring Back", &Pairs::leaveAndBringBack},
        {"Duplicate", &Pairs::duplicate, kVariant},
        {"Next", &Pairs::goForth},
        {"Previous", &Pairs::goBack},
        {"Go To", &Pairs::goToLast},
        {"songs", &Pairs::visitSongs, kVariant, [](const ModelKind& k) { return k.isMusic(); }},
        {"next on the list", &Pairs::listForth, false, hasListPage},
        {"previous on the list", &Pairs::listBack, kVariant, hasListPage},
        {"sort", &Pairs::sort},
        {"search with a hit", &Pairs::searchHit},
        {"search without one", &Pairs::searchMiss, kVariant},
        {"list, cancelled", &Pairs::listCancelled},
        {"list to text", &Pairs::listToText, kVariant},
        {"load", &Pairs::loadFolder, false, [](const ModelKind& k) { return k.isMedia(); }},
        {"export", &Pairs::exportIt},
        {"New File", &Pairs::newFile},
        {"New File over another", &Pairs::newOverOther, kVariant},
        {"New File that keeps another", &Pairs::newKeepsOther, kVariant},
        {"Open File", &Pairs::openOther},
        {"Open File, the same", &Pairs::openSame, kVariant},
        {"Open File of the older type", &Pairs::openOlder, kVariant,
         [](const ModelKind& k) { return k.isMusic(); }},
        {"Exit and open", &Pairs::leaveAndOpenAgain},
    };
    return actions;
  }

  std::vector<Action> actions() const {
    std::vector<Action> found;
    for (const Action& action : allActions())
      if (action.isOf(kind())) found.push_back(action);
    return found;
  }

  // The files at the start

  std::string place(const std::string& stem) const { return path(stem + "." + kind().extension); }

  /// An item with nothing ticked and with data that no form shows.
  std::string item(const std::string& name) const {
    std::string bytes(kind().recordLength, name.front());
    for (const ModelInput& input : kind().inputs)
      putBytes(bytes, input.offset,
               input.isText()         ? fixedText("", input.width)
               : input.is == Is::date ? littleEndian(kShownDates[0].number, input.width)
                                      : littleEndian(0, input.width));
    for (int entry = 0; entry < kind().list.entries; ++entry)
      putBytes(bytes, kind().list.offset + static_cast<std::size_t>(entry) * ModelList::kWidth,
               fixedText(entry < 2 ? name + " on the list" : "", ModelList::kWidth));
    putBytes(bytes, 0, fixedText(name, kind().markerWidth()));
    return bytes;
  }

  std::string collectionOf(const std::vector<std::string>& names, int fileType,
                           std::size_t length) const {
    std::string bytes =
        littleEndian(static_cast<int>(names.size()), 2) + littleEndian(fileType, 2) + "1.71    ";
    bytes.resize(length);
    for (const std::string& name : names) bytes += item(name).substr(0, length);
    return bytes;
  }

  ModelDisk filesAtTheStart() const {
    const std::string deleted(kind().marker());
    const int type = kind().fileType();
    ModelDisk files = {
        {place("mine"), collectionOf({"B", "A", deleted, "C"}, type, kind().recordLength)},
        {place("other"), collectionOf({"E", "D"}, type, kind().recordLength)}};
    if (kind().isMusic()) files[place("older")] = collectionOf({"F", "G", "H"}, 4, kOldMusicLength);
    if (kind().isMedia())
      for (const char* name : {"a", "A", "two words"})
        files[path("some/" + std::string(name) + "." + std::string(kind().loader.extensions[0]))];
    return files;
  }

  void restoreFiles() {
    std::filesystem::current_path(folder_.path());
    for (const char* made : {"printer.tmp", kListing}) std::filesystem::remove(path(made));
    for (const auto& [path, bytes] : disk_)
      if (!start_.contains(path)) std::filesystem::remove(path);
    for (const auto& [path, bytes] : start_)
      if (bytesIn(disk_, path) != bytes) writeFile(path, bytes);
    disk_ = start_;
  }

  // Cells

  void setOut(Start start) {
    trigger(kind().menu.exitCollection);
    restoreFiles();
    openFromStartScreen(place("mine"));
    findControls();
    goTo(GoToAnswer{"2", 2});
    if (start == Start::newItem) clear();
    const std::size_t input = start == Start::newItem ? 0 : 1;
    edit(*static_cast<QLineEdit*>(inputs_[input]), "typed", false);
    model().inputs[input] = {"typed"};
    files_.forget();
    notes_.clear();
  }

  void run(const Action& action) {
    note("* ", action.name);
    (this->*action.run)();
    expectModel();
  }

  /// Always the same operations.
  bool startsByName() override { return false; }

  std::vector<OperationRecord> operationsOf(Start start, const Action& action) {
    setOut(start);
    note("* ", action.name);
    (this->*action.run)();
    const auto operations = files_.operations();
    expectModel();
    return operations;
  }

  /// One cell; what is written at the end is what the editor believes it shows. False when the
  /// program had to be restarted, after which every action is the same.
  bool runCell(Start start, const Action& action, std::size_t nth, const Fault& fault,
               const Action& next) {
    const int starts = starts_;
    setOut(start);
    arm(nth, fault);
    run(action);
    EXPECT_FALSE(isArmed_) << "the fault has not come";
    disarm();
    const bool goesOn = starts == starts_;
    run(goesOn ? next : action);
    if (model().curRec != 0) run({"Write Data", &Pairs::writeIt});
    if (++cells_ % 20 == 0) settle();
    return goesOn;
  }

  void runCells(Start start, const Action& action) {
    const auto operations = operationsOf(start, action);
    for (std::size_t nth = 0; nth < operations.size(); ++nth)
      for (const Fault& fault : faultsOf(operations[nth].operation)) {
        if (fault.lasts) continue;
        if (!runsAllPairs() && fault.error != errorsOf(operations[nth].operation).front()) continue;
        for (const Action& next : actions()) {
          if (next.isVariant && !runsAllPairs()) continue;
          const bool goesOn = runCell(start, action, nth, fault, next);
          if (HasFailure()) {
            ADD_FAILURE() << "operation " << nth << " of " << action.name << " ("
                          << static_cast<int>(operations[nth].operation) << " on "
                          << operations[nth].path << "), error " << static_cast<int>(fault.error)
                          << (fault.isShort ? ", short" : "")
                          << (start == Start::newItem ? ", new item" : "") << ", then " << next.name
                          << "\n"
                          << history();
            return;
          }
          if (!goesOn) break;
        }
      }
  }

  void runAll() {
    for (const Action& action : actions()) {
      const bool isWrite = action.run == &Pairs::writeIt;
      for (const Start start : {Start::itemShown, Start::newItem})
        if (!HasFailure() && (start == Start::itemShown || isWrite || runsAllPairs()))
          runCells(start, action);
    }
  }

  const ModelDisk start_ = filesAtTheStart();
  int cells_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Kinds, Pairs, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(Pairs, AFaultInAnActionIsNoFaultOfTheNext) {
#ifdef _WIN32
  if (kind().isMusic()) GTEST_SKIP() << "The backup of an upgrade is in a sort's way there.";
#endif
  if (kind().isMedia()) std::filesystem::create_directory(path("some"));
  restoreFiles();
  startProgram(place("mine"));
  runAll();
  EXPECT_GT(cells_, 0);
  RecordProperty("cells", cells_);
}

}  // namespace
}  // namespace quillbox::test
