#pragma once

#include <memory>
#include <span>
#include <string>

#include "editors/frmMusic.h"
#include "forms/program.h"
#include "shell/frmBegin2.h"

namespace quillbox {

/// The start-up module: starts the program and brings up its forms, each made when first needed.
class modQBX1 : public Shell {
 public:
  explicit modQBX1(Program& program);

  /// Shows the start-up box, then opens the collection that the command line names or shows the
  /// start screen. `arguments` are joined by one blank to make the collection's path.
  void Main(std::span<const std::string> arguments);

  void showStartScreen() override;

 private:
  /// The editor of a kind; nullptr when there is none yet.
  frmEditor* editorOf(EditorForm form);

  Program& program_;
  std::unique_ptr<frmBegin2> frmBegin2_;
  std::unique_ptr<frmMusic> frmMusic_;
};

}  // namespace quillbox
