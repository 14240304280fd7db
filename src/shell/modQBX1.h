#pragma once

#include <span>
#include <string>

#include "forms/program.h"
#include "records/kinds.h"

namespace quillbox {

class frmEditor;

/// The start-up module: starts the program and brings up its forms.
class modQBX1 : public Shell {
 public:
  explicit modQBX1(Program& program);

  /// Shows the start-up box, then opens the collection that the command line names or shows the
  /// start screen. `arguments` are joined by one blank to make the collection's path.
  void Main(std::span<const std::string> arguments);

  void showStartScreen() override;
  void FileOpen() override;
  std::string SaveAs() override;
  void showNewCollection() override;

 private:
  frmEditor& editorOf(EditorForm form);
  void openNew(const CollectionKind& kind);

  Program& program_;
};

}  // namespace quillbox
