#pragma once

#include "editors/frmEditor.h"
#include "editors/media_loader.h"

namespace quillbox {

/// The editor of the four catalogues of media files, which can fill themselves from a folder.
class frmWave : public frmEditor {
 public:
  frmWave(Program& program, PrintEngine& printEngine);

 protected:
  void Form_Load(OpenCollection& opening) override;
  void choose(Command command) override;

 private:
  void LoadMenu_Click();
  LoadedFiles loadFolder(const std::string& folder, const std::vector<std::string>& names);
  void showLoaded(const LoadedFiles& loaded);
};

}  // namespace quillbox
