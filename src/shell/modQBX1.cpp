#include "shell/modQBX1.h"

#include "forms/about.h"
#include "platform/paths.h"
#include "records/kinds.h"
#include "records/version.h"

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
  frmEditor* editor =
      kind != nullptr && kind->opensFromCommandLine ? editorOf(kind->editor) : nullptr;
  if (editor == nullptr) {
    state.dataFolder = files.currentFolder();
    showStartScreen();
    return;
  }
  // The data folder stays empty then: a collection made later goes to the root folder.
  state.currentPath = isFullPath(path) ? path : fullPath(path, files.currentFolder());
  editor->open();
}

void modQBX1::showStartScreen() {
  if (!frmBegin2_) frmBegin2_ = std::make_unique<frmBegin2>(program_);
  frmBegin2_->show();
  frmBegin2_->activateWindow();
}

frmEditor* modQBX1::editorOf(EditorForm form) {
  if (form != EditorForm::music) return nullptr;
  if (!frmMusic_) frmMusic_ = std::make_unique<frmMusic>(program_);
  return frmMusic_.get();
}

}  // namespace quillbox
