#pragma once

#include <QRadioButton>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/model_commands.h"

namespace quillbox::test {

/// The name of a media file without its extension, and in the form of records.
struct MediaName {
  std::string onDisk;
  std::string stored;
};

/// Names that are easily confused, or that records lack the space or the characters for.
inline const auto kMediaNames =
    std::to_array<MediaName>({{"a", "a"},
#ifndef _WIN32  // where it is the same name
                              {"A", "A"},
#endif
                              {"DELETED", "DELETED"},
                              {"two words", "two words"},
                              {"\xC3\xA9t\xC3\xA9 \xE2\x82\xAC", "\xE9t\xE9 \x80"},
                              {"\xE6\x97\xA5", "?"},
                              {"\xE6\x9C\x88", "?"},
                              {std::string(70, 'x') + "1", std::string(70, 'x') + "1"},
                              {std::string(70, 'x') + "2", std::string(70, 'x') + "2"},
                              {".hidden", ".hidden"}});

inline constexpr const char* kExtensions[] = {".wav",
#ifndef _WIN32
                                              ".WAV",
#endif
                                              ".mid", ".jpg", ".BMP", ".Rle", ".mp3", ".txt"};

/// In the root folder a name has no drive on Windows: to the model it would be another file's.
#ifdef _WIN32
inline constexpr bool kRootHasItsOwnName = true;
#else
inline constexpr bool kRootHasItsOwnName = false;
#endif

/// The user's commands for whole files: open another collection, create one, load a folder, export.
class ModelFiles : public ModelCommands {
 protected:
  using ModelCommands::ModelCommands;

  // Opening

  /// The answers to the open dialog: missing files first.
  struct OpenAnswers {
    int missing = 0;
    std::optional<std::string> last = {};  ///< none: cancelled
  };

  enum class Opened { yes, no, failed };  ///< no: in the end there is only the start screen

  Opened openBy(const char* action, const OpenAnswers& answers) {
    note("open ", answers.last.value_or("nothing"));
    const auto expectOpen = [&](const std::optional<std::string>& answer) {
      desktop_.expectOpen("Open Collection", kOpenFilter, answer);
    };
    const bool isCollection = answers.last && kindOfFile(*answers.last) != nullptr;
    const auto change = [&] {
      for (int attempt = 0; attempt < answers.missing; ++attempt) {
        expectOpen(path(std::string("none.") + kind().extension));
        desktop_.expectMessage("Quillbox", "File not found?!");
      }
      expectOpen(answers.last);
      if (isCollection) expectSaid(model().open(*answers.last));
    };
    if (!perform(change, [&] { trigger(action); })) return Opened::failed;
    if (isCollection) {
      findControls();
      return Opened::yes;
    }
    EXPECT_EQ(formName(), "frmBegin2");
    return Opened::no;
  }

  OpenAnswers anyAnswers() {
    OpenAnswers answers{.missing = lots_.oneIn(6) ? 1 : 0};
    if (lots_.oneIn(8)) return answers;
    answers.last = lots_.oneIn(8) ? letter() : anyCollection();
    return answers;
  }

  std::string letter() {
    const std::string name = path("letter.TXT");
    putFile(name, "Dear Ann");
    return name;
  }

  void goOnFromStartScreen() {
    for (;;) {
      desktop_.expectNothingLeft();
      EXPECT_EQ(formName(), "frmBegin2");
      if (!lots_.oneIn(6)) {
        if (openBy("O", anyAnswers()) == Opened::yes) return;
        continue;
      }
      trigger("N");
      if (makeAny()) return;
    }
  }

  /// With this file in the end.
  void open(const std::string& file) {
    if (openBy("OpenFile", {.last = file}) == Opened::no) goOnFromStartScreen();
  }

  void openFile() {
    note("Open File");
    if (lots_.oneIn(3)) putNewCollectionBeside();
    if (openBy("OpenFile", anyAnswers()) == Opened::no) goOnFromStartScreen();
  }

  /// Anywhere but in the place of the open one.
  void putNewCollectionBeside() {
    const std::string place = anyPlace();
    if (place != collection()) putNewCollection(place);
  }

  void leaveAndOpen() {
    trigger(kind().menu.exitCollection);
    note("leave");
    if (lots_.oneIn(2)) putNewCollection(anyPlace());
    goOnFromStartScreen();
  }

  void startAgain() {
    notes_.clear();
    const std::string place = anyPlace();
    if (!kind().isMedia() && lots_.oneIn(5)) {
      note("start without a file");
      disk_.erase(place);
      std::filesystem::remove(place);
    } else if (!disk_.contains(place) || lots_.oneIn(2)) {
      putNewCollection(place);
    }
    startProgram(place);
  }

  // Making one

  /// The new-collection dialog instead of the editor; false when the header cannot be written.
  bool openNewDialog() {
    note("New File");
    const bool isDone = perform([&] { model().leaveForNew(); }, [&] { trigger("NewFile"); });
    EXPECT_EQ(formName(), isDone ? "frmNewCollection" : kind().formName);
    return isDone;
  }

  void newFile() {
    if (openNewDialog() && !makeAny()) goOnFromStartScreen();
  }

  /// The new-collection dialog. False when in the end there is only the start screen.
  bool makeAny() {
    EXPECT_EQ(formName(), "frmNewCollection");
    const std::string stem = lots_.of<std::string>({"mine", "other"});
    if (lots_.oneIn(6)) goWithoutName();
    if (lots_.oneIn(6)) {
      note("no kind");
      fillIn(stem);
      click("cmdNew");
    }
    if (lots_.oneIn(5) || (dataFolder_.empty() && kRootHasItsOwnName)) {
      leaveNewDialog();
      return false;
    }
    const ModelKind& chosen = lots_.oneIn(5) ? lots_.of(kModelKinds) : kind();
    const bool overwrites = lots_.oneIn(2);
    while (formName() == "frmNewCollection")
      if (make(chosen, stem, overwrites)) return true;
    return false;
  }

  void leaveNewDialog() {
    note("leave the dialog");
    form().close();
    EXPECT_EQ(formName(), "frmBegin2");
  }

  /// Go in that dialog. True when the collection is open; otherwise the dialog or the start screen
  /// is visible.
  bool make(const ModelKind& chosen, const std::string& stem, bool overwrites) {
    // Without a data folder the root folder is taken.
    const std::string folder = dataFolder_.empty() ? folder_.path() : dataFolder_;
    const std::string made = inFolder(folder, stem + "." + chosen.extension);
    fillIn(dataFolder_.empty() ? path(stem).substr(1) : stem);
    control<QRadioButton>(("optQBX_" + std::to_string(chosen.option)).c_str()).click();
    note("make ", made, overwrites ? "" : ", what is there stays");
    const bool isOther = &chosen != &kind();
    const auto change = [&] {
      const bool isThere = disk_.contains(made);
      if (isThere)
        desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?",
                                overwrites ? Answer::yes : Answer::no);
      const bool oldStays = isThere && !overwrites;
      if (!isOther) return model().makeNew(made, oldStays);
      model().listPos = 0;  // that of all kinds
      std::string& bytes = disk_[made];
      bytes.erase(0, oldStays ? headerOfNew().size() : bytes.size()).insert(0, headerOfNew());
    };
    replaced_ = overwrites ? made : "";
    const bool isDone = perform(change, [&] { click("cmdNew"); });
    replaced_.clear();
    if (!isDone) return false;
    if (isOther) {
      leaveOther(chosen);
      return false;
    }
    findControls();
    return true;
  }

  void fillIn(const std::string& name) { box("txtColName").setText(QString::fromStdString(name)); }
  void goWithoutName() {
    note("no name");
    fillIn("");
    desktop_.expectMessage("QBX - File Manager", "Must specify filename!");
    click("cmdNew");
    EXPECT_EQ(formName(), "frmNewCollection");
  }
  /// The editor of another kind, empty.
  void leaveOther(const ModelKind& other) {
    EXPECT_EQ(formName(), other.formName);
    EXPECT_EQ(label(other.indicator), other.labels.fresh);
    expectFiles();
    trigger(other.menu.exitCollection);
    EXPECT_EQ(formName(), "frmBegin2");
  }

  // Loading

  /// Names in the form of records: type by type, each in the file system's order.
  std::vector<std::string> namesToLoad(const std::string& folder) const {
    std::vector<std::string> names;
    for (const std::string_view extension : kind().loader.extensions)
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const auto name = storedName(textOf(entry.path().filename()), extension);
        if (name && entry.is_regular_file()) names.push_back(*name);
      }
    return names;
  }

  /// Nothing for a file of another type, or one that is hidden.
  static std::optional<std::string> storedName(const std::string& name,
                                               std::string_view extension) {
    const std::size_t dot = name.rfind('.');
    const std::string stem = name.substr(0, dot);
    const auto* const known = std::ranges::find(kMediaNames, stem, &MediaName::onDisk);
    if (known == kMediaNames.end() || stem.front() == '.') return std::nullopt;
    if (!sameInCapitals(name.substr(dot + 1), std::string(extension))) return std::nullopt;
    return known->stored + name.substr(dot);
  }

  /// Replaces the files in the folder by none, few or many.
  void fillFolder(const std::string& folder) {
    note("other files in ", folder);
    const int oneOf = lots_.of({4, 12, 1'000});
    std::filesystem::create_directories(inFolder(folder, "folder.wav"));
    for (const MediaName& name : kMediaNames)
      for (const char* extension : kExtensions)
        if (const std::string file = inFolder(folder, name.onDisk + extension); lots_.oneIn(oneOf))
          putFile(file, "");
        else if (disk_.erase(file) > 0)
          removeFile(file);
  }

  /// Loads the files of the folder of the picked file; none: the dialog is cancelled, and the
  /// folder where it last ended is scanned. A loader that fails keeps what it has added.
  void loadFrom(const std::optional<std::string>& picked) {
    const std::string folder = picked.value_or(std::filesystem::current_path().string());
    const auto names = namesToLoad(folder);
    note("load ", names.size(), " files of ", folder, picked ? "" : ", cancelled");
    const ModelLoader& loader = kind().loader;
    const auto change = [&] {
      desktop_.expectOpen(loader.title, loader.filter,
                          picked ? std::optional(*picked + "/any") : std::nullopt);
      if (names.empty() && loader.saysWhenEmpty)
        desktop_.expectMessage("Quillbox", "Error!");
      else
        model().load(folder, names);
    };
    perform(
        change, [&] { trigger("LoadMenu"); }, [&] { loadFailed(); });
  }

  /// The item stays, with the count of the file, as far as that can be read; an empty collection
  /// shows what it now has.
  void loadFailed() {
    if (files_.operations().at(files_.failed().front()).operation == FileOperation::list) return;
    const int before = model().count;
    const int counted = fault_.lasts ? state_->Count : model().headerCount();
    EXPECT_LE(std::abs(counted - model().headerCount()), 1);
    model().takeCount(counted);
    if (model().curRec == 0 && counted > before && !lastReadFailed()) model().show(1);
  }

  void load() {
    if (!kind().isMedia() || model().count > 2 * kManyItems) return;
    const std::string picked = path(lots_.of<std::string>({"some", "more"}));
    if (!std::filesystem::exists(picked) || lots_.oneIn(2)) fillFolder(picked);
    loadFrom(lots_.oneIn(5) ? std::nullopt : std::optional(picked));
  }

  // Exporting

  /// To a file of that name; none: cancelled. Books have a fixed name.
  void exportTo(const std::optional<std::string>& chosen) {
    const auto name = kind().isBooks() ? std::optional<std::string>("export.txt") : chosen;
    note("export to ", name.value_or("nothing"));
    const auto change = [&] {
      if (!kind().isBooks()) desktop_.expectSave("File Save As", name);
      if (!name) return;
      const std::string error =
          model().exportTo(*name, (std::filesystem::current_path() / *name).string());
      ignoresFaults_ = !error.empty();
      if (error.empty())
        desktop_.expectMessage("Quillbox", "Data Exported...");
      else
        expectError(error);
    };
    perform(change, [&] { trigger("ExportData"); });
    ignoresFaults_ = false;
  }

  void exportData() {
    const std::string name =
        lots_.oneIn(8) ? collection() : lots_.of({std::string("out.txt"), path("out.csv")});
    exportTo(lots_.oneIn(6) ? std::nullopt : std::optional(name));
  }
};

}  // namespace quillbox::test
