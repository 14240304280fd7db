#pragma once

#include <array>
#include <memory>
#include <string>

#include "editors/frmEditor.h"
#include "editors/frmSongEdit.h"
#include "editors/media_types.h"

namespace quillbox {

class ListPaste;

/// The editor of music collections.
class frmMusic : public frmEditor {
 public:
  frmMusic(Program& program, PrintEngine& printEngine);
  ~frmMusic() override;

 protected:
  void Form_Load(OpenCollection& opening) override;
  void choose(Command command) override;
  void UpdateScreen() override;
  void GetScreen(std::span<std::byte> record) override;
  void ClearData() override;
  bool subListDiffers(const Record* record) const override;
  QStringList subList() const override;
  void putBackSubList(const QStringList& entries) override;
  Form& formOnScreen() override;
  void clearSubList() override { ClearSongList(); }
  void setRecordLabel(const std::string& text) override;

  /// New File marks the open collection for the upgrade of old files. The mark is wrong but kept:
  /// D19 of docs/decisions.md.
  int newFileType() const override { return music_file_type::upgradable; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The media types to offer; a corrupt user file is reported and deleted.
  MediaTypeList ReadIni();
  void showMediaTypes(const MediaTypeList& list);
  void upgrade(OpenCollection& opening);

  void loanenable();
  void chkCurrLoaned_Click();
  void chkHasBook_Click();
  void cmbMediaType_Focus();

  void ClearSongList();
  void CreateSongList();
  void GetSongs(std::span<std::byte> record) const;
  std::string song(std::size_t song) const;  ///< as its page shows it

  void EditSongs_Click();
  void exitSongs(frmSongEdit& page);

  /// The song pages, created when first shown; until then `songs_` replaces their boxes.
  using SongPages = std::array<std::unique_ptr<frmSongEdit>, kSongs / frmSongEdit::kSongsPerPage>;
  void makeSongPages();
  void clearSongs();
  void fillSongPages();
  void makePaste();
  void nameItemOnPages();

  std::array<std::string, kSongs> songs_;  // the last contents set in the song boxes
  SongPages pages_;
  std::unique_ptr<ListPaste> paste_;  // for the boxes of both
};

}  // namespace quillbox
