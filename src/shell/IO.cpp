#include "shell/IO.h"

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

/// Every folder on the way to the current collection holds something.
bool pathIsWhole(AppState& state) {
  const std::string& path = state.currentPath;
  for (auto at = path.find_last_of(kSeparators); at != std::string::npos;
       at = at == 0 ? std::string::npos : path.find_last_of(kSeparators, at - 1))
    if (listsNothing(state.files.fileSystem(), path.substr(0, at + 1))) return false;
  return true;
}

}  // namespace

const CollectionKind* chooseCollection(Program& program) {
  AppState& state = program.state();
  state.newCollection = false;
  for (;;) {
    state.currentPath = program.desktop().openDialog({"Open Collection", kOpenFilter}).value_or("");
    if (state.currentPath.empty()) return nullptr;
    if (state.files.fileSystem().exists(state.currentPath)) break;
    program.message(kDefaultTitle, "File not found?!");
  }
  const CollectionKind* kind = kindOfExtension(extensionOf(state.currentPath));
  if (kind == nullptr) return nullptr;
  state.kindCode = kind->code;
  state.mediaCode = static_cast<std::int16_t>(mediaCodeOf(*kind));
  return kind;
}

void SaveAs(Program& program, std::string& chosen) {
  for (;;) {
    chosen = program.desktop().saveDialog({"File Save As", ""}).value_or("");
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
