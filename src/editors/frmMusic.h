#pragma once

#include <memory>

#include "editors/frmEditor.h"
#include "editors/frmSongEdit.h"

namespace quillbox {

/// The editor of music collections.
class frmMusic : public frmEditor {
 public:
  explicit frmMusic(Program& program);

  /// Leaves the open file marked for the upgrade of old files, and asks for a new collection. The
  /// mark is wrong, and always was: see docs/decisions.md.
  void NewFile_Click();

 protected:
  void Form_Load() override;
  std::span<std::byte> buffer() override;
  void UpdateScreen() override;
  void GetScreen() override;
  void ClearData() override;
  void clearSubList() override { ClearSongList(); }
  void setRecordLabel(const std::string& text) override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeMenus();

  /// Fills the media-type list; a corrupt file of the user's is reported and deleted.
  void ReadIni();
  void upgrade();

  void loanenable();
  void chkHasBook_Click();
  void cmbMediaType_Focus();

  void ClearSongList();
  void CreateSongList();
  void GetSongs();
  frmSongEdit& songPage(int song);

  void EditSongs_Click();
  void exitSongs(frmSongEdit& page);

  std::unique_ptr<frmSongEdit> frmSongEdit1_;
  std::unique_ptr<frmSongEdit> frmSongEdit2_;
};

}  // namespace quillbox
