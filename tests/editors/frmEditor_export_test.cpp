// Export Data in each editor, step by step.

#include <utility>
#include <vector>

#include "support/form_fixture.h"
#include "support/machine.h"

namespace quillbox::test {
namespace {

/// The beginning of an item's exported lines, and the list whose entries end them.
struct ExportedKind {
  const ModelKind& editor;
  const char* list;
  bool hasSecondField;
};

void PrintTo(const ExportedKind& exported, std::ostream* out) { *out << exported.editor.name; }

const ExportedKind kMusicExport = {kMusic, "Songs", true};
const ExportedKind kVideoExport = {kVideo, "Movies", false};
const ExportedKind kSoftwareExport = {kSoftware, "Programs", false};
const ExportedKind kComicExport = {kComics, "Notes", true};
const ExportedKind kBookExport = {kBooks, nullptr, false};
const ExportedKind kMediaExport = {kWaves, nullptr, false};

class Export : public EditorTest, public testing::WithParamInterface<ExportedKind> {
 protected:
  Export() : EditorTest(GetParam().editor) {}

  bool isBooks() const { return kind().isBooks(); }
  bool isMedia() const { return kind().isMedia(); }

  void openTwo() {
    before_ = collection({item("a"), item("b")});
    openBytes(before_);
  }

  /// Books always have the same export name.
  std::string target() const { return isBooks() ? path("export.txt") : path("out.csv"); }
  void expectDialog(std::optional<std::string> name) {
    if (!isBooks()) desktop_.expectSave("File Save As", std::move(name));
  }

  /// The message that an export of items ends with.
  void expectEnd() {
    if (isMedia())
      expectError(kTypeMismatch);
    else
      desktop_.expectMessage("Quillbox", "Data Exported...");
  }
  void exportData() {
    choose("ExportData");
    desktop_.expectNothingLeft();
    EXPECT_EQ(formName(), kind().formName);
  }
  void exportItems() {
    expectDialog(target());
    expectEnd();
    exportData();
  }

  /// The lines of an item(): each entry of its list has its name and the entry's number.
  std::string linesOf(const std::string& name) const {
    if (GetParam().list == nullptr) return {};
    std::string lines;
    for (std::size_t entry = 0; entry < field(GetParam().list).count; ++entry)
      lines += lineOf(name, name + ' ' + std::to_string(entry));
    return lines;
  }
  std::string lineOf(const std::string& name, const std::string& entry) const {
    const std::string second = GetParam().hasSecondField ? "\"" + name + " 0\"," : "";
    return "\"" + name + "\"," + second + "\"" + entry + "\"\r\n";
  }

  std::string before_;
};

std::string nameOf(const testing::TestParamInfo<ExportedKind>& info) {
  return info.param.editor.name;
}

INSTANTIATE_TEST_SUITE_P(Kinds, Export,
                         testing::Values(kMusicExport, kVideoExport, kSoftwareExport, kComicExport,
                                         kBookExport, kMediaExport),
                         nameOf);

/// Those whose items become lines.
class ExportedLines : public Export {};

INSTANTIATE_TEST_SUITE_P(Kinds, ExportedLines,
                         testing::Values(kMusicExport, kVideoExport, kSoftwareExport, kComicExport),
                         nameOf);

TEST_P(Export, WritesItsFileAndSaysSo) {
  openTwo();
  exportItems();
  EXPECT_EQ(readFile(target()), linesOf("a") + linesOf("b"));
  EXPECT_EQ(bytes(), before_);
}

TEST_P(Export, ReplacesWhatWasThere) {
  openTwo();
  writeFile(target(), std::string(20'000, 'x'));
  exportItems();
  EXPECT_EQ(readFile(target()), linesOf("a") + linesOf("b"));
}

TEST_P(Export, AnEmptyCollectionGivesAnEmptyFile) {
  open({});
  expectDialog(target());
  desktop_.expectMessage("Quillbox", "Data Exported...");
  exportData();
  EXPECT_EQ(readFile(target()), "");
}

TEST_P(Export, LeavesTheScreenAsItIs) {
  openTwo();
  press(kind().buttons.next);
  type(kind().otherBox(), "typed");
  const std::string label = indicator();
  exportItems();
  EXPECT_EQ(indicator(), label);
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(first(), "b");
  EXPECT_EQ(other(), "typed");
  press(kind().buttons.write);
  EXPECT_EQ(bytes().substr(0, 2 * kind().recordLength), before_.substr(0, 2 * kind().recordLength));
  EXPECT_NE(bytes(), before_) << "what was typed is written";
}

TEST_P(Export, ChangesNothingOfTheItemOnScreen) {
  openTwo();
  press(kind().buttons.next);
  exportItems();
  press(kind().buttons.write);
  EXPECT_EQ(bytes(), before_);
}

TEST_P(Export, LeavesANewItemAsTyped) {
  openTwo();
  press(kind().buttons.clear);
  type(kind().firstBox(), "new");
  const std::string label = indicator();
  exportItems();
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(first(), "new");
  EXPECT_EQ(indicator(), label);
  EXPECT_EQ(readFile(target()), linesOf("a") + linesOf("b")) << "it is not in the collection yet";
}

TEST_P(Export, AFileThatMayNotBeWrittenIsAnError) {
  QUILLBOX_NEEDS(permissions);
  openTwo();
  std::filesystem::permissions(
      folder_.path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  const std::string shown = isBooks() ? "export.txt" : target();
  {
    const OrdinaryUser user(folder_);
    expectDialog(target());
    expectError("'70':\n\nPermission denied\n" + shown);
    exportData();
  }
  EXPECT_FALSE(std::filesystem::exists(target()));
  EXPECT_EQ(bytes(), before_);
}

TEST_P(Export, ADiskThatIsFullIsAnErrorAndTheProgramGoesOn) {
  openTwo();
  files_.failNth(FileOperation::open, 0, ErrorNumber::diskFull);
  expectDialog(target());
  expectError("'61':\n\nDisk full\n" + std::string(isBooks() ? "export.txt" : target()));
  exportData();
  exportItems();
  EXPECT_EQ(readFile(target()), linesOf("a") + linesOf("b"));
}

// ---- Music, videos, software and comics

TEST_P(ExportedLines, AnEntryThatWasNeverWrittenHasNoLine) {
  const Field& list = field(GetParam().list);
  std::string made = item("a");
  const auto record = std::as_writable_bytes(std::span(made));
  for (std::size_t entry = 0; entry < list.count; ++entry)
    made.replace(list.offset + entry * list.width, list.width, list.width, '\0');
  setText(list, record, "x, \"y\"", 1);
  setText(list, record, "", 2);
  open({made});
  exportItems();
  EXPECT_EQ(readFile(target()), lineOf("a", "x, \"y\"") + lineOf("a", ""));
}

TEST_P(ExportedLines, DeletedItemsAreExportedToo) {
  open({item("DELETED"), item("DETELED")});
  exportItems();
  EXPECT_EQ(readFile(target()), linesOf("DELETED") + linesOf("DETELED"));
}

TEST_P(ExportedLines, TextsStayInTheCharactersOfTheCollection) {
  open({item("\x80\xE9\x93")});
  exportItems();
  EXPECT_EQ(readFile(target()), linesOf("\x80\xE9\x93"));
}

TEST_P(ExportedLines, ACollectionThatIsTooShortIsAnErrorBehindWhatItHolds) {
  openTwo();
  writeFile(collectionPath(), before_.substr(0, before_.size() - 1));
  expectDialog(target());
  expectError("'63':\n\nBad record number\n" + collectionPath());
  exportData();
  EXPECT_EQ(readFile(target()), linesOf("a"));
}

// ---- All that ask for a name

class ExportDialog : public Export {};

INSTANTIATE_TEST_SUITE_P(Kinds, ExportDialog,
                         testing::Values(kMusicExport, kVideoExport, kSoftwareExport, kComicExport,
                                         kMediaExport),
                         nameOf);

TEST_P(ExportDialog, OffersTheNameOfTheCollection) {
  openTwo();
  desktop_.expectSave("File Save As", "", "mine.csv", std::nullopt);
  exportData();
}

TEST_P(ExportDialog, CancelledItEndsInSilence) {
  openTwo();
  press(kind().buttons.next);
  type(kind().otherBox(), "typed");
  desktop_.expectSave("File Save As", std::nullopt);
  exportData();
  EXPECT_EQ(other(), "typed");
  EXPECT_EQ(state_->CurRec, 2);
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
    EXPECT_EQ(entry.path().string(), collectionPath());
}

TEST_P(ExportDialog, ABareNameLiesInTheCurrentFolder) {
  openTwo();
  desktop_.expectSave("File Save As", "bare");
  expectEnd();
  exportData();
  EXPECT_EQ(file("bare"), linesOf("a") + linesOf("b"));
}

TEST_P(ExportDialog, AMissingFolderIsAnErrorAndTheProgramGoesOn) {
  openTwo();
  desktop_.expectSave("File Save As", path("gone/out.csv"));
  expectError("'76':\n\nPath not found\n" + path("gone/out.csv"));
  exportData();
  EXPECT_FALSE(std::filesystem::exists(path("gone")));
  exportItems();
  EXPECT_EQ(readFile(target()), linesOf("a") + linesOf("b"));
}

TEST_P(ExportDialog, NeverTakesThePlaceOfTheCollection) {
  openTwo();
  makeLink(collectionPath(), path("other name"));
  for (const std::string& chosen : {collectionPath(), name(), path("other name")}) {
    desktop_.expectSave("File Save As", chosen);
    expectError("'55':\n\nFile already open\n" + chosen);
    exportData();
    EXPECT_EQ(bytes(), before_) << chosen;
  }
  press(kind().buttons.next);
  EXPECT_EQ(first(), "b");
}

// ---- Books

class ExportedBooks : public EditorTest {
 protected:
  ExportedBooks() : EditorTest(kBooks) {}
};

TEST_F(ExportedBooks, NeverTakeThePlaceOfTheCollection) {
  const std::string before = collection({item("a")});
  openBytes(before);
  makeLink(collectionPath(), path("export.txt"));
  expectError("'55':\n\nFile already open\nexport.txt");
  choose("ExportData");
  EXPECT_EQ(formName(), "frmBooks");
  EXPECT_EQ(bytes(), before);
}

TEST_F(ExportedBooks, LieInTheCurrentFolderWhereverTheCollectionIs) {
  std::filesystem::create_directory(path("elsewhere"));
  open({item("a")});
  files_.setCurrentFolder(path("elsewhere"));
  desktop_.expectMessage("Quillbox", "Data Exported...");
  choose("ExportData");
  EXPECT_EQ(file("elsewhere/export.txt"), "");
  EXPECT_FALSE(std::filesystem::exists(path("export.txt")));
}

}  // namespace
}  // namespace quillbox::test
