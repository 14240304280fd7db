#include "editors/frmWave.h"

#include <utility>

#include "platform/desktop.h"
#include "platform/file_paths.h"
#include "platform/paths.h"
#include "records/media_file_record.h"

namespace quillbox {
namespace {

enum Row { fileName, path, description };

constexpr InputRow kInputs[] = {
    input("txtFileName", "File&Name", mediaFileField("FileName"), {fileName}).labelled("Label1"),
    input("txtPath", "&Path To File:", mediaFileField("FilePath"), {path}).labelled("Label3"),
    input("txtDesc", "&Description:", mediaFileField("Description"), {description})
        .labelled("Label2"),
};

// Only the name can be searched by; its caption has no access key here.
constexpr InputRow kSearchInputs[] = {
    input("txtFileName", "FileName:", mediaFileField("FileName"), {fileName})};

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

constexpr EditorTables kTables = {.formName = "frmWave",
                                  .indicatorName = "lblRec",
                                  .indicatorText = "Record #:None",
                                  .inputs = kInputs,
                                  .buttons = kButtons,
                                  .menus = kMenus,
                                  .aboutTitle = "About Wav/MIDI/Graphic Collection",
                                  .aboutArea = "Wave/Midi/Graphics",
                                  .helpPage = "media-files.md",
                                  .search = {.inputs = kSearchInputs}};

}  // namespace

/// All four kinds follow the same rules; the open collection's code distinguishes them.
frmWave::frmWave(Program& program, PrintEngine& printEngine)
    : frmEditor(program, printEngine, *kindOfExtension("WCS"), kTables) {}

void frmWave::Form_Load(OpenCollection& opening) {
  const bool isNew = opening.newCollection;
  if (isNew || !state().files.fileSystem().exists(opening.currentPath))
    makeFile(opening, store().kind().rules.fileType);
  else
    opening.Count = storeOf(opening).readCount();
  const auto first = readFirstItem(storeOf(opening), opening.Count);

  takeOver(opening);
  resetForm();
  if (mediaCodeOf(opening.kindCode) != 0)
    setFileCaption(*kindOfCode(opening.kindCode));
  else
    program().message(kDefaultTitle, "Fucked!");
  if (!isNew) showFirstItem(first);
}

void frmWave::choose(Command command) {
  frmEditor::choose(command);
  if (command == Command::loadFolder) LoadMenu_Click();
}

std::function<void()> frmWave::dropHandler(const std::string& path) {
  if (mediaCodeOf(state().kindCode) == 0 || !isFolder(state().files.fileSystem(), path))
    return frmEditor::dropHandler(path);
  return [this, path] {
    droppedFolder_ = path;
    choose(Command::loadFolder);
  };
}

/// Even if the dialog is cancelled, the folder it ended in is scanned.
std::string frmWave::chooseFolder(const LoaderRow& loader) {
  FileSystem& files = state().files.fileSystem();
  if (const auto dropped = std::exchange(droppedFolder_, std::nullopt)) {
    files.setCurrentFolder(*dropped);
    return files.currentFolder();
  }
  const FileDialog cdlWaves{.title = loader.title, .filter = loader.filter, .name = "cdlWaves"};
  if (const auto picked = desktop().openDialog(cdlWaves))
    files.setCurrentFolder(std::string(folderOf(*picked)));
  return files.currentFolder();
}

void frmWave::LoadMenu_Click() {
  const int mediaCode = mediaCodeOf(state().kindCode);
  if (mediaCode == 0) return;
  const LoaderRow& loader = loaderRow(mediaCode);
  const std::string folder = chooseFolder(loader);
  const auto names = filesToLoad(state().files.fileSystem(), folder, loaderPatterns(loader.filter));
  if (names.empty() && loader.saysWhenEmpty)
    program().message(kDefaultTitle, "Error!");
  else
    showLoaded(loadFolder(folder, names));
}

LoadedFiles frmWave::loadFolder(const std::string& folder, const std::vector<std::string>& names) {
  const OpenBoard board(program().board(), "Loading Data");
  hide();
  return loadFiles(state().files, state(), store().kind(), folder, names, program().board());
}

/// The current item or, without one, the first, unless nothing was added. After a failure, typed
/// text stays.
void frmWave::showLoaded(const LoadedFiles& loaded) {
  const bool isMore = loaded.count > state().Count;
  const auto showFirst = [this] { showFirstItem(readFirstItem(store(), state().Count)); };
  takeCount(loaded.count);
  if (loaded.failure) {
    if (state().CurRec == 0 && isMore) ignoringErrors(showFirst);
    throw *loaded.failure;
  }
  if (state().CurRec >= 1)
    readAndShow(state().CurRec);
  else if (isMore)
    showFirst();
  tell(QStringLiteral("%1 added, %2 already there").arg(loaded.added).arg(loaded.alreadyThere));
  show();
  activateWindow();
}

}  // namespace quillbox
