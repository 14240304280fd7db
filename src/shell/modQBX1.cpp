#include "shell/modQBX1.h"

#include "editors/frmBooks.h"
#include "editors/frmComics.h"
#include "editors/frmMusic.h"
#include "editors/frmSoftware.h"
#include "editors/frmVideo.h"
#include "editors/frmWave.h"
#include "forms/about.h"
#include "platform/paths.h"
#include "records/kinds.h"
#include "records/version.h"
#include "shell/IO.h"
#include "shell/frmBegin2.h"
#include "shell/frmNewCollection.h"

namespace quillbox {
namespace {

std::string joined(std::span<const std::string> arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line += ' ';
    line += argument;
  }
  return std::string(withoutTrailingBlanks(line));
}

}  // namespace

modQBX1::modQBX1(Program& program) : program_(program) { program.setShell(*this); }

void modQBX1::Main(std::span<const std::string> arguments) {
  program_.message(endingWithVersion("QBX V"), aboutText(), MessageIcon::information);

  AppState& state = program_.state();
  FileSystem& files = state.files.fileSystem();
  const std::string path = joined(arguments);
  const CollectionKind* kind = kindOfExtension(extensionOf(path));
  if (kind == nullptr || !kind->opensFromCommandLine) {
    state.dataFolder = files.currentFolder();
    showStartScreen();
    return;
  }
  // The data folder stays empty then: a collection made later goes to the root folder.
  state.currentPath = isFullPath(path) ? path : fullPath(path, files.currentFolder());
  editorOf(kind->editor).open();
}

void modQBX1::showStartScreen() {
  auto& start = program_.form<frmBegin2>();
  start.show();
  start.activateWindow();
}

std::string modQBX1::SaveAs() {
  std::string chosen;
  IO::SaveAs(program_, chosen);
  return chosen;
}

void modQBX1::FileOpen() {
  AppState& state = program_.state();
  const OpenCollection before = state;
  const CollectionKind* kind = IO::chooseCollection(program_);
  if (kind == nullptr) return;
  try {
    editorOf(kind->editor).open();
  } catch (const RunTimeError&) {
    // The form that asked comes back, and so does what it had open.
    static_cast<OpenCollection&>(state) = before;
    throw;
  }
  program_.form<frmBegin2>().hide();
}

void modQBX1::showNewCollection() {
  auto& dialog = program_.form<frmNewCollection>();
  dialog.openEditor = [this](const CollectionKind& kind) { openNew(kind); };
  dialog.showWithOptions();
}

/// A collection that cannot be made leaves nothing to come back to but the start screen.
void modQBX1::openNew(const CollectionKind& kind) {
  try {
    editorOf(kind.editor).open();
  } catch (const RunTimeError& error) {
    program_.state().newCollection = false;
    program_.report(error);
  }
}

frmEditor& modQBX1::editorOf(EditorForm form) {
  switch (form) {
    case EditorForm::music:
      return program_.form<frmMusic>();
    case EditorForm::video:
      return program_.form<frmVideo>();
    case EditorForm::software:
      return program_.form<frmSoftware>();
    case EditorForm::comics:
      return program_.form<frmComics>();
    case EditorForm::books:
      return program_.form<frmBooks>();
    case EditorForm::wave:
      break;
  }
  return program_.form<frmWave>();
}

}  // namespace quillbox
