#pragma once

#include "editors/frmEditor.h"

namespace quillbox {

/// The editor of the four catalogues of media files, which can fill themselves from a folder.
class frmWave : public frmEditor {
 public:
  explicit frmWave(Program& program);

 protected:
  void Form_Load() override;
  void choose(Command command) override;

 private:
  void LoadMenu_Click();
  void loadFolder(const std::string& folder, const std::vector<std::string>& names);
  void showCurrentItem();
};

}  // namespace quillbox
