#include "shell/modQBX1.h"

#include <utility>

#include "editors/frmBooks.h"
#include "editors/frmComics.h"
#include "editors/frmMusic.h"
#include "editors/frmSoftware.h"
#include "editors/frmVideo.h"
#include "editors/frmWave.h"
#include "forms/about.h"
#include "platform/file_paths.h"
#include "platform/paths.h"
#include "records/kinds.h"
#include "records/version.h"
#include "shell/IO.h"
#include "shell/frmBegin2.h"
#include "shell/frmNewCollection.h"
#include "text/padding.h"

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

modQBX1::modQBX1(Program& program)
    : program_(program),
      board_(program),
      printEngine_(program.state(), program.desktop(), board_),
      notices_(program) {
  program.setShell(*this);
}

void modQBX1::Main(std::span<const std::string> arguments) {
  program_.message(endingWithVersion("QBX V"), aboutText(), MessageIcon::information);

  AppState& state = program_.state();
  FileSystem& files = state.files.fileSystem();
  const std::string path = joined(arguments);
  const CollectionKind* kind = kindOfExtension(extensionOf(path));
  if (kind == nullptr || !kind->opensFromCommandLine) {
    state.dataFolder = files.currentFolder();
    if (!path.empty()) notices_.notOpened(fullPathOnDisk(files, path));
    showStartScreen();
    return;
  }
  // The data folder stays empty then: a collection created later goes to the root folder.
  openIn(*kind, fullPathOnDisk(files, path));
}

/// The record buffers and the second position are kept from the last collection.
void modQBX1::openIn(const CollectionKind& kind, std::string path, bool isNew) {
  OpenCollection opening = program_.state();
  opening.currentPath = std::move(path);
  opening.kindCode = kind.code;
  opening.newCollection = isNew;
  frmEditor& editor = editorOf(kind.editor);
  editor.open(std::move(opening));
  editor_ = &editor;
  notices_.opened();
}

void modQBX1::showStartScreen() {
  editor_ = nullptr;
  auto& start = program_.form<frmBegin2>();
  start.notices = [this] { return notices_.all(); };
  start.show();
  start.activateWindow();
}

std::string modQBX1::SaveAs() {
  std::string chosen;
  IO::SaveAs(program_, chosen);
  return chosen;
}

/// A collection that cannot be opened changes nothing: the calling form returns with what it had
/// open.
void modQBX1::FileOpen() {
  const std::string path = IO::chooseCollection(
      program_, [this](const std::string& missing) { notices_.missing(missing); });
  const CollectionKind* kind = kindOfExtension(extensionOf(path));
  if (kind == nullptr) return;
  program_.form<frmBegin2>().hide();
  openIn(*kind, path);
}

bool modQBX1::opens(const std::string& path) {
  return kindOfExtension(extensionOf(path)) != nullptr &&
         program_.state().files.fileSystem().exists(path);
}

void modQBX1::open(const std::string& path) {
  const CollectionKind* kind = kindOfExtension(extensionOf(path));
  if (kind == nullptr) return;
  if (editor_ != nullptr) editor_->leave();
  program_.hideForms();
  openIn(*kind, path);
}

void modQBX1::showNewCollection() {
  editor_ = nullptr;
  auto& dialog = program_.form<frmNewCollection>();
  dialog.openEditor = [this](const CollectionKind& kind, const std::string& path) {
    openNew(kind, path);
  };
  dialog.showWithOptions();
}

/// After a collection that cannot be created, there is only the start screen to return to.
void modQBX1::openNew(const CollectionKind& kind, const std::string& path) {
  try {
    openIn(kind, path, true);
  } catch (const RunTimeError& error) {
    program_.report(error);
  }
}

frmEditor& modQBX1::editorOf(EditorForm form) {
  const auto make = [&]() -> std::unique_ptr<frmEditor> {
    switch (form) {
      case EditorForm::music:
        return std::make_unique<frmMusic>(program_, printEngine_);
      case EditorForm::video:
        return std::make_unique<frmVideo>(program_, printEngine_);
      case EditorForm::software:
        return std::make_unique<frmSoftware>(program_, printEngine_);
      case EditorForm::comics:
        return std::make_unique<frmComics>(program_, printEngine_);
      case EditorForm::books:
        return std::make_unique<frmBooks>(program_, printEngine_);
      case EditorForm::wave:
        break;
    }
    return std::make_unique<frmWave>(program_, printEngine_);
  };
  auto& editor = editors_.at(static_cast<std::size_t>(form));
  if (!editor) editor = make();
  return *editor;
}

}  // namespace quillbox
