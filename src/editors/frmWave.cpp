#include "editors/frmWave.h"

#include "editors/media_loader.h"
#include "platform/paths.h"
#include "printing/frmRecDisp.h"
#include "records/media_file_record.h"

namespace quillbox {
namespace {

enum Row { fileName, path, description };

using enum InputKind;

constexpr InputRow kInputs[] = {
    {textBox,
     "txtFileName",
     "File&Name",
     mediaFileField("FileName"),
     {fileName},
     Shown::trimmed,
     "Label1"},
    {textBox,
     "txtPath",
     "&Path To File:",
     mediaFileField("FilePath"),
     {path},
     Shown::trimmed,
     "Label3"},
    {textBox,
     "txtDesc",
     "&Description:",
     mediaFileField("Description"),
     {description},
     Shown::trimmed,
     "Label2"},
};

// Only the name can be searched for; its caption has no access key here.
constexpr InputRow kSearchInputs[] = {
    {textBox, "txtFileName", "FileName:", mediaFileField("FileName"), {fileName}}};

constexpr ButtonRow kButtons[] = {
    {Command::previous, "cmdPrev", "Pre&vious Item"},
    {Command::next, "cmdNext", "Ne&xt Item"},
    {Command::goTo, "cmdGoto", "&GoTo"},
    {Command::clear, "cmdClear", "&Clear Data"},
    {Command::deleteItem, "cmdDelete", "Delete &Item"},
    {Command::write, "cmdWrite", "&Write Data"},
};

constexpr MenuRow kMenus[] = {
    {"FileMenu", "&File", Command::newFile, "NewFile", "&New"},
    {"FileMenu", "&File", Command::openFile, "OpenFile", "&Open"},
    {"FileMenu", "&File", Command::exitCollection, "ExitCollection", "E&xit"},
    {"EditMenu", "&Edit", Command::sort, "SortCollection", "S&ort Collection"},
    {"EditMenu", "&Edit", Command::search, "SearchCollection", "S&earch Collection"},
    {"PrintMenu", "&Print", Command::printList, "PrintList", "Print &List"},
    {"PrintMenu", "&Print", Command::printerSetup, "PrintSetup", "Printer &Setup"},
    {"PrintMenu", "&Print", Command::exportData, "ExportData", "&Export Data"},
    {"LoadMenu", "&Load", Command::loadFolder},
    {"HelpMenu", "&Help", Command::about, "AboutCollection", "&About"},
};

constexpr EditorTables kTables = {"frmWave",
                                  "lblRec",
                                  "Record #:None",
                                  kInputs,
                                  {},
                                  kButtons,
                                  kMenus,
                                  "About Wav/MIDI/Graphic Collection",
                                  "Wave/Midi/Graphics",
                                  "media-files.md",
                                  {kSearchInputs, {}}};

}  // namespace

/// All four kinds follow the same rules; the code of the open one tells them apart.
frmWave::frmWave(Program& program) : frmEditor(program, *kindOfExtension("WCS"), kTables) {}

void frmWave::Form_Load() {
  const bool isNew = state().newCollection;
  if (isNew || !state().files.fileSystem().exists(state().currentPath))
    makeFile(store().kind().rules.fileType);
  else
    readCount();
  const auto first = readFirstItem();

  resetForm();
  if (const CollectionKind* kind = kindOfMediaCode(state().mediaCode))
    setFileCaption(*kind);
  else
    program().message(kDefaultTitle, "Fucked!");
  if (!isNew) showFirstItem(first);
}

void frmWave::choose(Command command) {
  if (command == Command::loadFolder)
    LoadMenu_Click();
  else
    frmEditor::choose(command);
}

void frmWave::LoadMenu_Click() {
  const CollectionKind* kind = kindOfMediaCode(state().mediaCode);
  if (kind == nullptr) return;
  const LoaderRow& loader = loaderRow(state().mediaCode);
  FileSystem& files = state().files.fileSystem();
  // Cancelled or not, what is scanned is the folder where the dialog ended.
  if (const auto picked = desktop().openDialog({loader.title, loader.filter}))
    files.setCurrentFolder(std::string(folderOf(*picked)));
  const std::string folder = files.currentFolder();
  const auto names = filesToLoad(files, folder, loaderPatterns(loader.filter));
  if (names.empty() && loader.saysWhenEmpty) {
    program().message(kDefaultTitle, "Error!");
    return;
  }
  loadFolder(folder, names);
  showCurrentItem();
}

void frmWave::loadFolder(const std::string& folder, const std::vector<std::string>& names) {
  const OpenBoard board(program().form<frmRecDisp>(), "Loading Data");
  hide();
  loadFiles(state(), store().kind(), folder, names, program().form<frmRecDisp>());
}

void frmWave::showCurrentItem() {
  if (state().CurRec >= 1)
    readAndShow(state().CurRec);
  else
    showFirstItem(readFirstItem());
  show();
  activateWindow();
}

}  // namespace quillbox
