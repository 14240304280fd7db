#pragma once

#include "editors/frmEditor.h"
#include "editors/media_loader.h"

namespace quillbox {

/// The editor of the four catalogues of media files, which can be filled from a folder.
class frmWave : public frmEditor {
 public:
  frmWave(Program& program, PrintEngine& printEngine);

  /// Loads a folder.
  std::function<void()> dropHandler(const std::string& path) override;

 protected:
  void Form_Load(OpenCollection& opening) override;
  void choose(Command command) override;

 private:
  void LoadMenu_Click();
  std::string chooseFolder(const LoaderRow& loader);
  LoadedFiles loadFolder(const std::string& folder, const std::vector<std::string>& names);
  void showLoaded(const LoadedFiles& loaded);

  std::optional<std::string> droppedFolder_;  // loaded without asking for a folder
};

}  // namespace quillbox
