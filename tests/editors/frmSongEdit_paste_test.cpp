// Pasting a track list into the song pages, and the line that names the album of the songs.

#include <QApplication>
#include <QClipboard>

#include "support/form_fixture.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

class SongPaste : public FormTest {
 protected:
  SongPaste() {
    MusicRecord first = album("Miles Davis");
    first.Album = "Kind of Blue";
    first.Songs[1] = "So What";
    MusicRecord second = album("B");
    second.Songs[0] = std::string(50, 'w');
    writeFile(path(), musicFile({first, second}));
    start({path()});
  }
  ~SongPaste() override { QApplication::clipboard()->clear(); }

  static QString tracks(int count) {
    QString list;
    for (int track = 1; track <= count; ++track)
      list += QString("%1. Track %1\t3:%2\r\n").arg(track).arg(track, 2, 10, QChar('0'));
    return list;
  }
  void paste(const char* into, const QString& text) {
    QApplication::clipboard()->setText(text);
    box(into).setFocus();
    QTest::keyClick(&box(into), Qt::Key_V, Qt::ControlModifier);
  }
  std::string song(int index) {
    const std::string name = "txtSongTitle_" + std::to_string(index);
    return std::string(withoutTrailingBlanks(std::string_view(shown(name.c_str()))));
  }
  std::string storedSong(std::size_t song) { return text(itemOf(file(), 1).Songs.at(song)); }
  std::string said() { return label("lblFull"); }
};

TEST_F(SongPaste, FillsTheEmptySongsOfBothPagesAndReachesTheFileWithWriteData) {
  choose("EditSongs");
  paste("txtSongEdit", tracks(25));
  EXPECT_EQ(song(0), "Track 1");
  EXPECT_EQ(song(1), "So What");
  EXPECT_EQ(song(2), "Track 2");
  EXPECT_EQ(song(19), "Track 19");
  EXPECT_EQ(shown("txtSongEdit"), "");
  EXPECT_EQ(said(), "25 lines pasted, 6 of them on the other page. Ctrl+Z takes them back.");
  press("cmdNextPage");
  EXPECT_EQ(song(0), "Track 20");
  EXPECT_EQ(song(5), "Track 25");
  EXPECT_EQ(song(6), "");
  EXPECT_EQ(said(), "");
  press("cmdExit");
  EXPECT_TRUE(control<QLabel>("lblNotWritten").isVisible());
  press("cmdWriteData");
  EXPECT_EQ(storedSong(1), "So What");
  EXPECT_EQ(storedSong(25), "Track 25");
  EXPECT_EQ(storedSong(26), "");
}

TEST_F(SongPaste, OneUndoTakesItBackFromBothPages) {
  const std::string before = file();
  choose("EditSongs");
  paste("txtSongTitle_4", tracks(25));
  EXPECT_EQ(song(3), "");
  EXPECT_EQ(song(4), "Track 1");
  QTest::keyClick(&box("txtSongTitle_4"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(said(), "");
  for (int page = 0; page < 2; ++page) {
    for (int index = 0; index < 20; ++index)
      EXPECT_EQ(song(index), page == 0 && index == 1 ? "So What" : "") << index;
    press("cmdNextPage");
  }
  press("cmdExit");
  EXPECT_TRUE(control<QLabel>("lblNotWritten").isHidden());
  press("cmdWriteData");
  EXPECT_EQ(file(), before);
}

TEST_F(SongPaste, TheSecondPageIsFilledFromItsOwnFirst) {
  choose("EditSongs");
  press("cmdNextPage");
  paste("txtSongEdit", tracks(22));
  EXPECT_EQ(song(0), "Track 1");
  EXPECT_EQ(song(19), "Track 20");
  EXPECT_EQ(said(),
            "No place for 2 lines, from \"Track 21\" on; 20 lines pasted. Ctrl+Z takes them back.");
  EXPECT_EQ(control<QLabel>("lblFull").accessibleName().toStdString(), said());
  press("cmdNextPage");
  EXPECT_EQ(song(0), "");
}

TEST_F(SongPaste, AnotherItemForgetsIt) {
  choose("EditSongs");
  paste("txtSongEdit", QString(50, 'w') + "\nb");
  press("cmdExit");
  press("cmdNext");
  choose("EditSongs");
  EXPECT_EQ(said(), "");
  QTest::keyClick(&box("txtSongEdit"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(song(0), std::string(50, 'w')) << "which is the same by chance";
  press("cmdExit");
  EXPECT_TRUE(control<QLabel>("lblNotWritten").isHidden());
}

TEST_F(SongPaste, ClearSongsForgetsIt) {
  choose("EditSongs");
  paste("txtSongEdit", tracks(3));
  press("cmdClearList");
  EXPECT_EQ(said(), "");
  QTest::keyClick(&box("txtSongEdit"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(song(1), "");
}

TEST_F(SongPaste, ThePagesSayWhoseSongsTheyAre) {
  choose("EditSongs");
  EXPECT_EQ(label("lblItem"), "Miles Davis, Kind of Blue");
  press("cmdNextPage");
  EXPECT_EQ(label("lblItem"), "Miles Davis, Kind of Blue");
  press("cmdExit");
  type("txtAlbum", "Sketches");
  choose("EditSongs");
  EXPECT_EQ(label("lblItem"), "Miles Davis, Sketches") << "as the form calls it";
  press("cmdExit");
  press("cmdClearData");
  choose("EditSongs");
  EXPECT_EQ(label("lblItem"), "New Record");
  press("cmdExit");
  type("txtArtist", "Nina Simone");
  choose("EditSongs");
  EXPECT_EQ(label("lblItem"), "New Record \u2013 Nina Simone");
}

TEST_F(SongPaste, ALongNameIsCutAndWholeInItsToolTip) {
  const std::string name(50, 'W');
  type("txtArtist", name.c_str());
  type("txtAlbum", name.c_str());
  choose("EditSongs");
  form().resize(form().minimumSizeHint());
  QApplication::processEvents();
  const auto& line = control<QLabel>("lblItem");
  EXPECT_LT(line.fontMetrics().horizontalAdvance(line.text()), line.width());
  EXPECT_EQ(line.toolTip().toStdString(), name + ", " + name);
  EXPECT_EQ(line.accessibleName(), line.toolTip());
}

}  // namespace
}  // namespace quillbox::test
