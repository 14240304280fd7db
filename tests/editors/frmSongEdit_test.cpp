#include <QAccessible>
#include <QGuiApplication>
#include <functional>
#include <utility>

#include "support/form_fixture.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

class SongPages : public FormTest {
 protected:
  SongPages() {
    MusicRecord first = album("A");
    first.Songs[0] = "So What";
    first.Songs[19] = "Twenty";
    first.Songs[20] = "Twenty-one";
    first.Songs[39] = "Forty";
    MusicRecord second = album("B");
    second.Songs[0] = "Come Together";
    writeFile(path(), musicFile({first, second}));
    start({path()});
  }

  void openPage1() {
    choose("EditSongs");
    EXPECT_EQ(formName(), "frmSongEdit1");
  }
  void openPage2() {
    openPage1();
    press("cmdNextPage");
    EXPECT_EQ(formName(), "frmSongEdit2");
  }
  std::string song(int index) {
    const std::string name = "txtSongTitle_" + std::to_string(index);
    return std::string(withoutTrailingBlanks(std::string_view(shown(name.c_str()))));
  }
  QLabel& hint() { return control<QLabel>("lblFull"); }

  /// Fills the visible page and tries to add that title.
  void addToFullPage(const char* title) {
    for (int i = 0; i < 20; ++i) type(("txtSongTitle_" + std::to_string(i)).c_str(), "taken");
    type("txtSongEdit", title);
    QTest::keyClick(&box("txtSongEdit"), Qt::Key_Return);
  }
  std::string storedSong(int item, std::size_t song) {
    return text(itemOf(file(), item).Songs.at(song));
  }
};

TEST_F(SongPages, ShowTheSongsOfTheRecordOnScreen) {
  openPage1();
  EXPECT_EQ(caption(), "Song List Editor");
  EXPECT_EQ(label(), "Record #: 1 Of 2");
  EXPECT_EQ(song(0), "So What");
  EXPECT_EQ(song(1), "");
  EXPECT_EQ(song(19), "Twenty");
  press("cmdNextPage");
  EXPECT_EQ(formName(), "frmSongEdit2");
  EXPECT_EQ(caption(), "Song List Editor");
  EXPECT_EQ(label(), "Record #: 1 Of 2");
  EXPECT_EQ(song(0), "Twenty-one");
  EXPECT_EQ(song(19), "Forty");
  press("cmdNextPage");
  EXPECT_EQ(formName(), "frmSongEdit1");
}

TEST_F(SongPages, HaveTheirCaptionsIrregularBlanksIncluded) {
  const auto captions = [this] {
    std::string all;
    for (int i = 0; i < 20; ++i)
      for (const QLabel* caption : form().findChildren<QLabel*>())
        if (caption->buddy() == &box(("txtSongTitle_" + std::to_string(i)).c_str())) {
          EXPECT_EQ(
              QAccessible::queryAccessibleInterface(caption->buddy())->text(QAccessible::Name),
              caption->text());
          all += caption->text().toStdString() + "|";
        }
    return all;
  };
  openPage1();
  EXPECT_EQ(captions(),
            "Song 1:|Song 2:|Song 3 :|Song 4:|Song 5 :|Song 6 :|Song 7 :|Song 8 :|Song 9 :|Song "
            "10:|Song 11:|Song 12:|Song 13:|Song 14:|Song 15:|Song 16:|Song 17:|Song 18:|Song "
            "19:|Song 20:|");
  EXPECT_EQ(button("cmdNextPage").text(), "&Next Page");
  EXPECT_EQ(button("cmdClearList").text(), "&Clear Songs ");
  EXPECT_EQ(button("cmdExit").text(), "E&xit Songs");
  press("cmdNextPage");
  EXPECT_EQ(captions(),
            "Song 21:|Song 22:|Song 23 :|Song 24:|Song 25 :|Song 26 :|Song 27 :|Song 28 :|Song 29 "
            ":|Song 30:|Song 31:|Song 32:|Song 33:|Song 34:|Song 35:|Song 36:|Song 37:|Song "
            "38:|Song 39:|Song 40:|");
  EXPECT_EQ(button("cmdNextPage").text(), "&Previous Page");
}

TEST_F(SongPages, ReachTheFileOnlyWithWriteData) {
  const std::string before = file();
  openPage1();
  type("txtSongTitle_1", "Freddie Freeloader");
  press("cmdExit");
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(QGuiApplication::focusObject(), &box("txtArtist"));
  EXPECT_EQ(text(state_->music.Songs[1]), "Freddie Freeloader") << "taken into the record buffer";
  EXPECT_EQ(file(), before);
  press("cmdWriteData");
  EXPECT_EQ(storedSong(1, 0), "So What");
  EXPECT_EQ(storedSong(1, 1), "Freddie Freeloader");
  EXPECT_EQ(storedSong(1, 39), "Forty");
}

TEST_F(SongPages, LeavingTheSecondPageDoesTheSame) {
  openPage2();
  type("txtSongTitle_18", "Thirty-nine");
  press("cmdExit");
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(QGuiApplication::focusObject(), &box("txtArtist"));
  press("cmdWriteData");
  EXPECT_EQ(storedSong(1, 38), "Thirty-nine");
}

TEST_F(SongPages, ExitPutsTheFocusOnTheArtistWhereverItWas) {
  for (const char* button : {"cmdWriteData", "cmdGoto"})
    for (const bool second : {false, true}) {
      SCOPED_TRACE(button);
      control<QPushButton>(button).setFocus();
      openPage1();
      if (second) press("cmdNextPage");
      box("txtSongTitle_3").setFocus();
      press("cmdExit");
      EXPECT_EQ(QGuiApplication::focusObject(), &box("txtArtist"));
    }
}

TEST_F(SongPages, ClosingAPageIsLeavingIt) {
  openPage2();
  type("txtSongTitle_1", "Typed");
  close();
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(text(state_->music.Songs[21]), "Typed");
}

TEST_F(SongPages, WhatIsTypedIsLostWhenTheEditorStepsOn) {
  openPage1();
  type("txtSongTitle_1", "Typed");
  press("cmdExit");
  press("cmdNext");
  press("cmdPrevious");
  openPage1();
  EXPECT_EQ(song(1), "");
}

TEST_F(SongPages, FollowTheEditorFromItemToItem) {
  press("cmdNext");
  openPage1();
  EXPECT_EQ(label(), "Record #: 2 Of 2");
  EXPECT_EQ(song(0), "Come Together");
  EXPECT_EQ(song(19), "");
}

TEST_F(SongPages, ClearSongsEmptiesBothPages) {
  const std::string before = file();
  openPage2();
  press("cmdClearList");
  EXPECT_EQ(shown("txtSongTitle_0"), "") << "empty, not blank";
  press("cmdNextPage");
  EXPECT_EQ(song(0), "");
  EXPECT_EQ(song(19), "");
  press("cmdExit");
  EXPECT_EQ(file(), before);
  press("cmdWriteData");
  EXPECT_EQ(storedSong(1, 0), "");
  EXPECT_EQ(storedSong(1, 39), "");
}

TEST_F(SongPages, AreEmptiedWithTheEditor) {
  press("cmdClearData");
  openPage1();
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(song(0), "");
  press("cmdNextPage");
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(song(19), "");
}

TEST_F(SongPages, ANewItemIsStoredWithItsSongs) {
  press("cmdClearData");
  type("txtArtist", "C");
  openPage2();
  type("txtSongTitle_19", "Last");
  press("cmdExit");
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 3).Artist), "C");
  EXPECT_EQ(storedSong(3, 39), "Last");
  EXPECT_EQ(storedSong(3, 0), "");
}

TEST_F(SongPages, ASongIsCutAtItsWidth) {
  openPage1();
  const std::string sixty(60, 's');
  type("txtSongTitle_5", sixty.c_str());
  press("cmdExit");
  press("cmdWriteData");
  EXPECT_EQ(storedSong(1, 5), sixty.substr(0, 50));
  EXPECT_EQ(storedSong(1, 6), "");
}

TEST_F(SongPages, TheBoxAtTheTopFillsTheFirstEmptySong) {
  openPage1();
  type("txtSongEdit", "Blue in Green");
  QTest::keyClick(&box("txtSongEdit"), Qt::Key_Return);
  EXPECT_EQ(song(1), "Blue in Green");
  EXPECT_EQ(shown("txtSongEdit"), "");
  type("txtSongEdit", "All Blues");
  press("cmdExit");  // a typed title is not lost when Enter was not pressed
  EXPECT_EQ(text(state_->music.Songs[2]), "All Blues");
}

TEST_F(SongPages, AFullPageLeavesTheBoxAtTheTopAsItIsAndSaysSo) {
  openPage1();
  EXPECT_EQ(hint().text(), "");
  addToFullPage("One more");
  EXPECT_EQ(shown("txtSongEdit"), "One more");
  EXPECT_NE(hint().text(), "");
  EXPECT_EQ(hint().text(), "This page is full: the title has no place yet.");
  EXPECT_EQ(box("txtSongEdit").accessibleDescription(), hint().text());
  press("cmdNextPage");
  EXPECT_EQ(hint().text(), "") << "the other page";
  press("cmdNextPage");
  EXPECT_NE(hint().text(), "");

  type("txtSongTitle_7", "");
  box("txtSongEdit").setFocus();
  QTest::keyClick(&box("txtSongEdit"), Qt::Key_Return);
  EXPECT_EQ(song(7), "One more");
  EXPECT_EQ(hint().text(), "");
  EXPECT_EQ(box("txtSongEdit").accessibleDescription(), "");
}

TEST_F(SongPages, TheHintGoesWhenTheTitleIsTypedAnew) {
  openPage1();
  addToFullPage("One more");
  QTest::keyClicks(&box("txtSongEdit"), "x");
  EXPECT_EQ(hint().text(), "");
}

TEST_F(SongPages, ATitleThatFoundNoPlaceStaysWithItsAlbum) {
  openPage1();
  addToFullPage("One more");
  press("cmdExit");
  press("cmdWriteData");
  openPage1();
  EXPECT_EQ(shown("txtSongEdit"), "One more") << "the same album";
  press("cmdExit");
  for (int song = 0; song < 40; ++song)
    EXPECT_EQ(storedSong(1, static_cast<std::size_t>(song)).find("One more"), std::string::npos);
}

TEST_F(SongPages, ATitleThatFoundNoPlaceNeverReachesAnotherAlbum) {
  writeFile(path("other.MCS"), musicFile({album("X")}));
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"next", [this] { press("cmdNext"); }},
      {"go to",
       [this] {
         desktop_.expectInput("Record #", "Go To Record", "2");
         press("cmdGoto");
       }},
      {"go to itself",
       [this] {
         desktop_.expectInput("Record #", "Go To Record", "1");
         press("cmdGoto");
       }},
      {"search",
       [this] {
         choose("SearchRecords");
         type("txtArtist", "B");
         press("cmdSearch");
       }},
      {"clear", [this] { press("cmdClearData"); }},
      {"open",
       [this] {
         desktop_.expectOpen("Open Collection", kOpenFilter, path("other.MCS"));
         choose("OpenFile");
       }},
  };
  for (const auto& [name, way] : ways) {
    SCOPED_TRACE(name);
    writeFile(path(), musicFile({album("A"), album("B")}));
    start({path()});
    openPage2();
    addToFullPage("One more");
    press("cmdExit");
    way();
    EXPECT_EQ(formName(), "frmMusic");
    openPage2();
    EXPECT_EQ(shown("txtSongEdit"), "");
    EXPECT_EQ(hint().text(), "");
    press("cmdExit");
    press("cmdWriteData");
    EXPECT_EQ((file() + file("other.MCS")).find("One more"), std::string::npos);
  }
}

TEST_F(SongPages, ClearSongsEmptiesTheBoxAtTheTopToo) {
  openPage1();
  addToFullPage("One more");
  press("cmdNextPage");
  addToFullPage("Two more");
  press("cmdClearList");
  EXPECT_EQ(shown("txtSongEdit"), "");
  press("cmdNextPage");
  EXPECT_EQ(shown("txtSongEdit"), "");
  press("cmdExit");
  EXPECT_EQ(text(state_->music.Songs[0]), "");
}

TEST_F(SongPages, FitASmallScreen) {
  openPage1();
  EXPECT_LE(form().minimumSizeHint().width(), 1024);
  EXPECT_LE(form().minimumSizeHint().height(), 700);
}

TEST_F(SongPages, ComeInTabOrder) {
  openPage1();
  box("txtSongEdit").setFocus();
  for (int i = 0; i < 20; ++i) {
    QTest::keyClick(form().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(form().focusWidget()->objectName().toStdString(),
              "txtSongTitle_" + std::to_string(i));
  }
}

TEST_F(SongPages, AListThatWasClearedStaysSoWhenTheProgramIsKilled) {
  typedFolder_ = QString::fromStdString(path("state"));
  start({path()});
  openPage1();
  press("cmdClearList");
  const auto isKept = [this] {
    const QDir kept(typedFolder_);
    return kept.exists() && !kept.entryList({"*.json"}).isEmpty();
  };
  EXPECT_TRUE(waitFor(isKept));
  start({path()});
  press("cmdBringBack");
  openPage1();
  EXPECT_EQ(song(0), "");
  EXPECT_EQ(storedSong(1, 0), "So What") << "the file is as it was";
}

}  // namespace
}  // namespace quillbox::test
