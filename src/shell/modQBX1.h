#pragma once

#include <array>
#include <memory>
#include <span>
#include <string>

#include "editors/frmEditor.h"
#include "forms/program.h"
#include "printing/frmRecDisp.h"
#include "printing/print_engine.h"
#include "records/kinds.h"
#include "shell/start_notices.h"

namespace quillbox {

/// The start-up module: starts the program and shows its forms.
class modQBX1 : public Shell {
 public:
  explicit modQBX1(Program& program);

  /// Shows the start-up box, then opens the collection on the command line or shows the start
  /// screen. `arguments` are joined by one blank to form the collection's path.
  void Main(std::span<const std::string> arguments);

  void showStartScreen() override;
  void FileOpen() override;
  bool opens(const std::string& path) override;
  void open(const std::string& path) override;
  std::string SaveAs() override;
  void showNewCollection() override;
  Board& board() override { return board_; }

 private:
  frmEditor& editorOf(EditorForm form);
  void openIn(const CollectionKind& kind, std::string path, bool isNew = false);
  void openNew(const CollectionKind& kind, const std::string& path);

  Program& program_;
  frmRecDisp board_;
  PrintEngine printEngine_;
  StartNotices notices_;
  frmEditor* editor_ = nullptr;  // the one with a collection open, until the start screen appears
  std::array<std::unique_ptr<frmEditor>, kEditorForms> editors_;  // created on first use
};

}  // namespace quillbox
