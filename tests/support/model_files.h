#pragma once

#include <QRadioButton>
#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/model_fixture.h"

namespace quillbox::test {

/// The name of a media file without its extension, and as records have it.
struct MediaName {
  std::string onDisk;
  std::string stored;
};

/// Names that are easily taken for one another, or that records have no room or no letters for.
inline const auto kMediaNames =
    std::to_array<MediaName>({{"a", "a"},
                              {"A", "A"},
                              {"DELETED", "DELETED"},
                              {"two words", "two words"},
                              {"\xC3\xA9t\xC3\xA9 \xE2\x82\xAC", "\xE9t\xE9 \x80"},
                              {"\xE6\x97\xA5", "?"},
                              {"\xE6\x9C\x88", "?"},
                              {std::string(70, 'x') + "1", std::string(70, 'x') + "1"},
                              {std::string(70, 'x') + "2", std::string(70, 'x') + "2"},
                              {".hidden", ".hidden"}});

/// What users do with whole files: open another collection, make one, load a folder, export.
class ModelFiles : public ModelFixture {
 protected:
  using ModelFixture::ModelFixture;

  // Opening

  void expectOpen(const std::optional<std::string>& answer) {
    desktop_.expectOpen("Open Collection", kOpenFilter, answer);
  }

  /// The open dialog, with some attempts that come to nothing. False when the start screen is all
  /// there is in the end.
  bool openBy(const char* action) {
    if (lots_.oneIn(6)) {
      note("open a file that is not there");
      expectOpen(path(std::string("none.") + kind().extension));
      desktop_.expectMessage("Quillbox", "File not found?!");
    }
    const bool isCancelled = lots_.oneIn(8);
    if (isCancelled || lots_.oneIn(8)) {
      note(isCancelled ? "cancel" : "open a letter");
      expectOpen(isCancelled ? std::nullopt : std::optional(letter()));
      trigger(action);
      EXPECT_EQ(formName(), "frmBegin2");
      return false;
    }
    const std::string chosen = anyCollection();
    note("open ", chosen);
    expectOpen(chosen);
    expectSaid(model().open(chosen));
    trigger(action);
    findControls();
    return true;
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
        if (openBy("O")) return;
        continue;
      }
      trigger("N");
      if (makeNew()) return;
    }
  }

  void openFile() {
    note("Open File");
    if (lots_.oneIn(3)) putNewCollectionBeside();
    if (!openBy("OpenFile")) goOnFromStartScreen();
  }

  /// Anywhere but in the place of the one that is open.
  void putNewCollectionBeside() {
    const std::string place = anyPlace();
    if (place != collection()) putNewCollection(place);
  }

  void leaveAndOpen() {
    trigger(kind().exitCollection);
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

  void newFile() {
    note("New File");
    model().leaveForNew();
    trigger("NewFile");
    if (!makeNew()) goOnFromStartScreen();
  }

  /// The new-collection dialog. False when the start screen is all there is in the end.
  bool makeNew() {
    EXPECT_EQ(formName(), "frmNewCollection");
    const std::string stem = lots_.of<std::string>({"mine", "other"});
    // Without a data folder the root folder is taken.
    const std::string folder = dataFolder_.empty() ? folder_.path() : dataFolder_;
    const std::string name = dataFolder_.empty() ? path(stem).substr(1) : stem;
    if (lots_.oneIn(6)) goWithoutName();
    if (lots_.oneIn(6)) {
      note("no kind");
      fillIn(name);
      click("cmdNew");
    }
    if (lots_.oneIn(5)) {
      note("leave the dialog");
      form().close();
      EXPECT_EQ(formName(), "frmBegin2");
      return false;
    }
    const ModelKind& chosen = lots_.oneIn(5) ? lots_.of(kModelKinds) : kind();
    const std::string made = folder + "/" + stem + "." + chosen.extension;
    fillIn(name);
    control<QRadioButton>(("optQBX_" + std::to_string(chosen.option)).c_str()).click();
    const bool oldStays = disk_.contains(made) && !overwrites();
    note("make ", made, oldStays ? ", the old one stays" : "");
    if (&chosen != &kind()) {
      makeOther(chosen, made, oldStays);
      return false;
    }
    model().makeNew(made, oldStays);
    click("cmdNew");
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
  bool overwrites() {
    const bool yes = lots_.oneIn(2);
    desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?",
                            yes ? Answer::yes : Answer::no);
    return yes;
  }

  /// One of another kind, which is left at once.
  void makeOther(const ModelKind& other, const std::string& made, bool oldStays) {
    std::string& bytes = disk_[made];
    bytes = headerOfNew() + (oldStays ? bytes.substr(headerOfNew().size()) : "");
    click("cmdNew");
    EXPECT_EQ(formName(), other.formName);
    EXPECT_EQ(label(other.indicator), other.labels.fresh);
    expectFiles();
    trigger(other.exitCollection);
    EXPECT_EQ(formName(), "frmBegin2");
  }

  // Loading

  /// Names as records have them: type by type, each in the order that the file system has them in.
  std::vector<std::string> namesToLoad(const std::string& folder) const {
    std::vector<std::string> names;
    for (const std::string_view extension : kind().loader.extensions)
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const auto name = storedName(entry.path().filename().string(), extension);
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

  /// Other files in the folder than before: none, few or many.
  void fillFolder(const std::string& folder) {
    note("other files in ", folder);
    const int oneOf = lots_.of({4, 12, 1'000});
    std::filesystem::create_directories(folder + "/folder.wav");
    for (const MediaName& name : kMediaNames)
      for (const char* extension : {".wav", ".WAV", ".mid", ".jpg", ".BMP", ".Rle", ".mp3", ".txt"})
        if (const std::string file = folder + "/" + name.onDisk + extension; lots_.oneIn(oneOf))
          putFile(file, "");
        else if (disk_.erase(file) > 0)
          std::filesystem::remove(file);
  }

  void load() {
    if (!kind().isMedia() || model().count > 2 * kManyItems) return;
    const std::string picked = path(lots_.of<std::string>({"some", "more"}));
    if (!std::filesystem::exists(picked) || lots_.oneIn(2)) fillFolder(picked);
    // What is scanned is the folder that the dialog ended in, now or the last time.
    const bool isCancelled = lots_.oneIn(5);
    const std::string folder = isCancelled ? std::filesystem::current_path().string() : picked;
    const auto names = namesToLoad(folder);
    note("load ", names.size(), " files of ", folder, isCancelled ? ", cancelled" : "");
    const ModelLoader& loader = kind().loader;
    desktop_.expectOpen(loader.title, loader.filter,
                        isCancelled ? std::nullopt : std::optional(picked + "/any"));
    if (names.empty() && loader.saysWhenEmpty)
      desktop_.expectMessage("Quillbox", "Error!");
    else
      model().load(folder, names);
    trigger("LoadMenu");
  }

  // Exporting

  void exportData() {
    std::string name = "export.txt";
    if (!kind().isBooks()) {
      name = lots_.oneIn(8) ? collection() : lots_.of({std::string("out.txt"), path("out.csv")});
      const bool isCancelled = lots_.oneIn(6);
      desktop_.expectSave("File Save As", isCancelled ? std::nullopt : std::optional(name));
      if (isCancelled) {
        note("export, cancelled");
        return trigger("ExportData");
      }
    }
    note("export to ", name);
    const std::string error =
        model().exportTo(name, (std::filesystem::current_path() / name).string());
    if (error.empty())
      desktop_.expectMessage("Quillbox", "Data Exported...");
    else
      expectError(error);
    trigger("ExportData");
  }
};

}  // namespace quillbox::test
