#pragma once

#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "forms/form.h"

class QGridLayout;
class QLabel;

namespace quillbox {

class ElidedLabel;
class TextBox;
class WrappingRow;

/// One of the two pages of an album's song list, `frmSongEdit1` and `frmSongEdit2`, with twenty
/// songs each. A page holds only its text boxes; what is typed here gets into the record buffer
/// when the page is left, and into the file only with the editor's Write Data.
class frmSongEdit : public Form {
 public:
  static constexpr std::size_t kSongsPerPage = 20;

  /// What the page needs from its editor.
  struct Owner {
    std::function<void()> showOtherPage;
    std::function<void()> clearSongs;
    std::function<void(frmSongEdit&)> exitSongs;
    std::function<void()> edited;  ///< the user has changed a song
  };

  /// `page` is 1 or 2.
  frmSongEdit(Program& program, int page, Owner owner);

  /// `song` is 0 to 19. Texts are Windows-1252; a text is shown with its padding.
  void showSong(std::size_t song, std::string_view text);
  std::string song(std::size_t song) const;

  /// A title that did not fit, and the message about it, belong to one album only.
  void clearAddBox();

  /// The line at the top, which names the album of these songs.
  void nameItem(const QString& text);

  // For pasted lists, which may continue from page to page.
  std::span<TextBox* const> songBoxes() const { return songs_; }
  TextBox& addBox() const { return *txtSongEdit_; }
  void say(const QString& text);

  void setRecordLabel(const std::string& text);

 protected:
  void Form_Unload() override;

 private:
  void makeSongs(QGridLayout& grid);
  void makeButtons(WrappingRow& row);
  void txtSongEdit_Enter();

  int page_;
  Owner owner_;
  std::array<TextBox*, kSongsPerPage> songs_{};
  TextBox* txtSongEdit_ = nullptr;
  ElidedLabel* lblItem_ = nullptr;
  ElidedLabel* lblFull_ = nullptr;
  QLabel* lblIndex_ = nullptr;
};

}  // namespace quillbox
