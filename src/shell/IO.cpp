#include "shell/IO.h"

#include "platform/desktop.h"
#include "platform/paths.h"

namespace quillbox::IO {
namespace {

constexpr const char* kOpenFilter =
    "All Collections (*.?CS, *.MPS)|*.?CS;*.MPS|Music Collection (*.MCS)|*.MCS|Comic Collection "
    "(*.CCS)|*.CCS|Video Collection (*.VCS)|*.VCS|Software Collection (*.SCS)|*.SCS|Book "
    "Collection (*.BCS)|*.BCS|Wave Collection (*.WCS)|*.WCS|MIDI Collection "
    "(*.ICS)|*.ICS|Graphics Collection (*.GCS)|*.GCS|MP3 Collection (*.MPS)|*.MPS";

constexpr const char* kSeparators = "/\\";

bool listsNothing(FileSystem& files, const std::string& folder) {
  try {
    return files.list(folder).empty();
  } catch (const RunTimeError&) {
    return true;
  }
}

/// True when no folder on the path of the current collection is empty.
bool pathIsWhole(AppState& state) {
  const std::string& path = state.currentPath;
  for (auto at = path.find_last_of(kSeparators); at != std::string::npos;
       at = at == 0 ? std::string::npos : path.find_last_of(kSeparators, at - 1))
    if (listsNothing(state.files.fileSystem(), path.substr(0, at + 1))) return false;
  return true;
}

}  // namespace

std::string chooseCollection(Program& program,
                             const std::function<void(const std::string& path)>& missing) {
  const FileDialog cdlQBX1{.title = "Open Collection", .filter = kOpenFilter, .name = "cdlQBX1"};
  for (;;) {
    std::string path = program.desktop().openDialog(cdlQBX1).value_or("");
    if (path.empty() || program.state().files.fileSystem().exists(path)) return path;
    program.message(kDefaultTitle, "File not found?!");
    missing(path);
  }
}

void SaveAs(Program& program, std::string& chosen) {
  const FileDialog dialog{.title = "File Save As",
                          .filter = "",
                          .fileName = nameWithEnding(program.state().currentPath, "csv")};
  for (;;) {
    chosen = program.desktop().saveDialog(dialog).value_or("");
    const bool namesFolder = chosen.find_first_of(kSeparators) != std::string::npos;
    if (!namesFolder || pathIsWhole(program.state())) return;
    program.message(kDefaultTitle, "Invalid Path!");
  }
}

void DelFile(Program& program, const std::string& name) {
  FileSystem& files = program.state().files.fileSystem();
  const bool namesFolder = name.find_first_of(kSeparators) != std::string::npos;
  const std::string path = namesFolder ? name : joinPath(files.programFolder(), name);
  if (!files.exists(path)) return;
  const Answer answer =
      program.desktop().messageBox({"QBX - File Manager", "Overwrite Existing Collection?",
                                    Buttons::yesNo, MessageIcon::question});
  if (answer == Answer::yes) files.remove(path);
}

}  // namespace quillbox::IO
