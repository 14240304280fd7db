// The editor of media-file catalogues and its folder loader.

#include "editors/frmWave.h"

#include <QAccessible>

#include "platform/checked16.h"
#include "printing/frmRecDisp.h"
#include "records/media_file_record.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

MediaFileRecord mediaFile(std::string_view name, std::string_view description = "") {
  MediaFileRecord record;
  fillBlank(kMediaFileFields, bytesOf(record));
  record.FileName = name;
  record.FilePath = "/sounds";
  record.Description = description;
  return record;
}

std::string catalogue(int count, std::initializer_list<MediaFileRecord> items) {
  HeaderRecord header;
  header.Count = checked16(count);
  header.FileType = 1;
  header.Version = "1.71";
  std::string bytes(sizeof(MediaFileRecord), '\0');
  std::memcpy(bytes.data(), &header, sizeof header);
  for (const MediaFileRecord& item : items)
    bytes.append(reinterpret_cast<const char*>(&item), sizeof item);
  return bytes;
}

std::string catalogue(std::initializer_list<MediaFileRecord> items) {
  return catalogue(static_cast<int>(items.size()), items);
}

MediaFileRecord mediaItem(std::string_view bytes, int n) {
  MediaFileRecord item;
  const auto at = static_cast<std::size_t>(n) * sizeof item;
  if (bytes.size() < at + sizeof item) throw std::out_of_range("no such item");
  std::memcpy(&item, bytes.data() + at, sizeof item);
  return item;
}

class WaveEditor : public FormTest {
 protected:
  void open(std::string_view bytes, const char* extension = "WCS") {
    name_ = std::string("sounds.") + extension;
    writeFile(path(name_), bytes);
    start();
    openAgain();
  }
  void openAgain() {
    desktop_.tolerateOpen = path(name_);
    choose("O");
    desktop_.tolerateOpen.reset();
    ASSERT_EQ(formName(), "frmWave");
  }
  std::string bytes() { return file(name_); }
  std::string record() { return label("lblRec"); }

  /// The code that distinguishes the four kinds, as the state has it. The codes of media files
  /// follow those of the other five kinds.
  void pretendCode(int code) { state_->kindCode = static_cast<std::int16_t>(code + 5); }

  void addFiles(const char* folder, std::initializer_list<const char*> names) {
    std::filesystem::create_directories(path(folder));
    for (const char* name : names) writeFile(path(std::string(folder) + "/" + name), "data");
  }
  void load(const char* title, const char* filter, std::optional<std::string> picked) {
    desktop_.expectOpen(title, filter, std::move(picked));
    choose("LoadMenu");
    EXPECT_EQ(desktop_.dialogName, "cdlWaves");
    EXPECT_EQ(formName(), "frmWave");
  }
  void loadWaves(std::optional<std::string> picked) {
    load("Wave Collection", "Wave Files (*.WAV)|*.WAV", std::move(picked));
  }
  std::vector<std::string> names() {
    const std::string all = bytes();
    std::vector<std::string> found;
    for (int n = 1; n <= headerOf(all).Count; ++n)
      found.push_back(text(mediaItem(all, n).FileName));
    return found;
  }

  std::string name_;
};

TEST_F(WaveEditor, ShowsItemOne) {
  open(catalogue({mediaFile("chimes.wav", "Start-up"), mediaFile("ding.wav")}));
  EXPECT_EQ(record(), "Record #: 1 of 2");
  EXPECT_EQ(shown("txtFileName"), "chimes.wav");
  EXPECT_EQ(shown("txtPath"), "/sounds");
  EXPECT_EQ(shown("txtDesc"), "Start-up");
}

TEST_F(WaveEditor, StepsLikeMusic) {
  open(catalogue({mediaFile("DELETED"), mediaFile("b"), mediaFile("DELETED"), mediaFile("d")}));
  press("cmdNext");
  EXPECT_EQ(record(), "Record #: 2 of 4");
  press("cmdNext");
  EXPECT_EQ(record(), "Record #: 4 of 4");
  EXPECT_FALSE(button("cmdNext").isEnabled());
  press("cmdPrev");
  press("cmdPrev");
  EXPECT_EQ(record(), "Record #: 4 of 4") << "wraps past the deleted first item";
}

TEST_F(WaveEditor, GoesToItemsLikeMusicUnderItsOwnTitle) {
  open(catalogue({mediaFile("a"), mediaFile("b")}));
  desktop_.expectInput("Record #", "Go To Record", "2");
  press("cmdGoto");
  EXPECT_EQ(record(), "Record #: 2 of 2");
  for (const char* answer : {"3", "0", "x", "", "99999"}) {
    desktop_.expectInput("Record #", "Go To Record", answer);
    desktop_.expectMessage("Quillbox", "Invalid input?!");
    press("cmdGoto");
  }
  EXPECT_EQ(record(), "Record #: 2 of 2");
}

TEST_F(WaveEditor, AnEmptyCatalogueShowsNoItem) {
  open(catalogue({}));
  EXPECT_EQ(record(), "Record #:None");
  EXPECT_EQ(state_->CurRec, 0);
  desktop_.expectMessage("Quillbox", "No item is shown. Choose Clear Data to start a new item.");
  press("cmdWrite");
  EXPECT_TRUE(desktop_.endedAtOnce);
}

TEST_F(WaveEditor, WritesInPlaceAndMarksTheFile) {
  MediaFileRecord item = mediaFile("a");
  item.FileSize = 3e9;
  std::string old = catalogue({item, mediaFile("b")});
  old.replace(2, 10, std::string("\7\0009.99    ", 10));
  open(old);
  type("txtDesc", "Doorbell");
  press("cmdWrite");
  EXPECT_EQ(text(mediaItem(bytes(), 1).Description), "Doorbell");
  EXPECT_EQ(mediaItem(bytes(), 1).FileSize, 3e9) << "the size is kept though never shown";
  EXPECT_EQ(headerOf(bytes()).FileType, 1);
  EXPECT_EQ(headerOf(bytes()).Version.view(), "1.71    ");
}

TEST_F(WaveEditor, ANewItemTakesADeletedSlotOrTheEnd) {
  open(catalogue({mediaFile("a"), mediaFile("  DELETED"), mediaFile("c")}));
  press("cmdClear");
  EXPECT_EQ(record(), "Record #:None");
  EXPECT_EQ(shown("txtPath"), "");
  type("txtFileName", "new.wav");
  press("cmdWrite");
  EXPECT_EQ(text(mediaItem(bytes(), 2).FileName), "new.wav");
  type("txtFileName", "newer.wav");
  press("cmdWrite");
  EXPECT_EQ(text(mediaItem(bytes(), 4).FileName), "newer.wav");
  EXPECT_EQ(headerOf(bytes()).Count, 4);
}

TEST_F(WaveEditor, DeletesUnderThreeTitles) {
  open(catalogue({mediaFile("a", "kept"), mediaFile("b")}));
  const std::string before = bytes();
  desktop_.expectQuestion("QBX - waves Manager", "Do you really want to delete this?!", Answer::no);
  desktop_.expectMessage("QBX - Wave/Mid/Graphic Manager", "Aborted.");
  press("cmdDelete");
  EXPECT_EQ(bytes(), before);
  desktop_.expectQuestion("QBX - waves Manager", "Do you really want to delete this?!",
                          Answer::yes);
  desktop_.expectMessage("QBX - Wave/Midi/Graphic Manager", "Deleted.");
  press("cmdDelete");
  EXPECT_EQ(text(mediaItem(bytes(), 1).FileName), "DELETED");
  EXPECT_EQ(text(mediaItem(bytes(), 1).Description), "kept");
  EXPECT_EQ(record(), "Record #:None");
}

TEST_F(WaveEditor, ADeleteThatDoesNotReadBackEndsTheProgram) {
  const std::string before = catalogue({mediaFile("a")});
  open(before);
  files_.beforeRead = [&] { writeFile(path(name_), before); };
  desktop_.expectQuestion("QBX - waves Manager", "Do you really want to delete this?!",
                          Answer::yes);
  desktop_.expectMessage("QBX - waves Manager", "Deletion failure!");
  press("cmdDelete");
  EXPECT_TRUE(desktop_.endedAtOnce);
}

TEST_F(WaveEditor, AnUnknownKindSaysSoAndIsLoadedAllTheSame) {
  open(catalogue({mediaFile("a")}));
  const std::string captionBefore = caption();
  for (const int code : {-1, 0, 5, 6, 255}) {
    SCOPED_TRACE(code);
    writeFile(path("other.WCS"), catalogue({mediaFile("b"), mediaFile("c")}));
    pretendCode(code);
    desktop_.expectMessage("Quillbox", "Fucked!");
    openHere(path("other.WCS"));
    desktop_.expectNothingLeft();
    EXPECT_EQ(record(), "Record #: 1 of 2");
    EXPECT_EQ(caption(), captionBefore) << "the caption is left unset";
  }
  for (const int code : {1, 2, 3, 4}) {
    SCOPED_TRACE(code);
    pretendCode(code);
    openHere(path("other.WCS"));
    EXPECT_NE(caption(), captionBefore);
  }
}

TEST_F(WaveEditor, HasItsCaptions) {
  open(catalogue({mediaFile("a")}));
  const std::vector<std::pair<const char*, const char*>> buttons = {
      {"cmdWrite", "&Write Data"},   {"cmdClear", "&Clear Data"}, {"cmdNext", "Ne&xt Item"},
      {"cmdPrev", "Pre&vious Item"}, {"cmdGoto", "&GoTo"},        {"cmdDelete", "Delete &Item"}};
  for (const auto& [name, text] : buttons) EXPECT_EQ(button(name).text().toStdString(), text);
  const std::vector<std::array<const char*, 3>> inputs = {{"txtFileName", "Label1", "File&Name"},
                                                          {"txtPath", "Label3", "&Path To File:"},
                                                          {"txtDesc", "Label2", "&Description:"}};
  for (const auto& [name, caption, text] : inputs) {
    EXPECT_EQ(control<QLabel>(caption).text().toStdString(), text);
    EXPECT_EQ(control<QLabel>(caption).buddy(), &box(name));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&box(name))->text(QAccessible::Name),
              QString(text).remove('&'));
  }
}

// ---- The folder loader

TEST_F(WaveEditor, LoadsTheFilesOfItsKindFromTheFolderOfThePickedFile) {
  open(catalogue({mediaFile("old.wav")}));
  addFiles("found", {"one.wav", "TWO.WAV", "three.mid", ".hidden.wav"});
  std::filesystem::create_directory(path("found/folder.wav"));
  loadWaves(path("found/one.wav"));
  auto found = names();
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (std::vector<std::string>{"TWO.WAV", "old.wav", "one.wav"}));
  const MediaFileRecord item = mediaItem(bytes(), 2);
  EXPECT_EQ(text(item.FilePath), path("found"));
  EXPECT_EQ(text(item.Description), "");
  EXPECT_EQ(item.FileSize, 0.0) << "never measured";
  EXPECT_EQ(files_.currentFolder(), path("found")) << "now the current folder";
  EXPECT_EQ(record(), "Record #: 1 of 3") << "the current item is shown again";
  EXPECT_FALSE(dynamic_cast<frmRecDisp&>(program_->board()).isVisible());
}

TEST_F(WaveEditor, TheBoardStandsForTheEditorWhileFilesAreLoaded) {
  open(catalogue({mediaFile("old.wav")}));
  addFiles("found", {"one.wav"});
  const QMainWindow& shown = form();
  bool loading = false;
  desktop_.onBox = [&](const std::string&, const std::string&) {
    files_.beforeRead = [&] {
      loading = true;
      EXPECT_FALSE(shown.isVisible());
      EXPECT_EQ(formName(), "frmRecDisp");
      EXPECT_EQ(caption(), "Loading Data");
    };
  };
  loadWaves(path("found/one.wav"));
  EXPECT_TRUE(loading);
}

TEST_F(WaveEditor, LoadingAgainAddsNothing) {
  open(catalogue({}));
  addFiles("found", {"one.wav", "two.wav"});
  loadWaves(path("found/one.wav"));
  EXPECT_EQ(record(), "Record #: 1 of 2") << "item 1, when none was shown";
  const std::string once = bytes();
  loadWaves(path("found/one.wav"));
  EXPECT_EQ(bytes(), once);
}

TEST_F(WaveEditor, TheStatusLineSaysHowManyFilesWereAdded) {
  open(catalogue({mediaFile("1.wav")}));
  addFiles("found", {"1.wav", "2.wav", "3.wav", "4.wav", "5.wav", "6.wav", "7.wav", "8.wav",
                     "9.wav", "10.wav"});
  loadWaves(path("found/1.wav"));
  EXPECT_EQ(label("lblStatus"), "9 added, 1 already there");
  loadWaves(path("found/1.wav"));
  EXPECT_EQ(label("lblStatus"), "0 added, 10 already there");
}

TEST_F(WaveEditor, AFileOfTheSameNameInAnotherFolderIsNeverAdded) {
  open(catalogue({}));
  addFiles("found", {"one.wav"});
  addFiles("other", {"one.wav"});
  addFiles("third", {"One.wav"});  // where capitals make no other name it cannot lie beside one.wav
  loadWaves(path("found/one.wav"));
  loadWaves(path("other/one.wav"));
  loadWaves(path("third/One.wav"));
  EXPECT_EQ(names(), (std::vector<std::string>{"one.wav", "One.wav"})) << "capitals are distinct";
}

TEST_F(WaveEditor, ADeletedFileIsAddedAnew) {
  open(catalogue({}));
  addFiles("found", {"one.wav"});
  loadWaves(path("found/one.wav"));
  desktop_.expectQuestion("QBX - waves Manager", "Do you really want to delete this?!",
                          Answer::yes);
  desktop_.expectMessage("QBX - Wave/Midi/Graphic Manager", "Deleted.");
  press("cmdDelete");
  loadWaves(path("found/one.wav"));
  EXPECT_EQ(names(), (std::vector<std::string>{"DELETED", "one.wav"}));
}

TEST_F(WaveEditor, ACancelledDialogScansTheCurrentFolder) {
  open(catalogue({}));
  writeFile(path("here.wav"), "data");
  loadWaves(std::nullopt);
  EXPECT_EQ(names(), (std::vector<std::string>{"here.wav"}));
  EXPECT_EQ(text(mediaItem(bytes(), 1).FilePath), folder_.path());
}

TEST_F(WaveEditor, AFolderWithoutSuchFilesIsAnErrorForWavesAndMidiOnly) {
  addFiles("empty", {"letter.txt"});
  open(catalogue({mediaFile("a")}));
  desktop_.expectOpen("Wave Collection", "Wave Files (*.WAV)|*.WAV", path("empty/letter.txt"));
  desktop_.expectMessage("Quillbox", "Error!");
  choose("LoadMenu");
  EXPECT_EQ(formName(), "frmWave");
  close();

  name_ = "tunes.ICS";
  writeFile(path(name_), catalogue({mediaFile("a")}));
  openAgain();
  desktop_.expectOpen("MIDI Collection", "MIDI Files (*.MID)|*.MID", std::nullopt);
  desktop_.expectMessage("Quillbox", "Error!");
  choose("LoadMenu");
  close();

  name_ = "pictures.GCS";
  writeFile(path(name_), catalogue({mediaFile("a")}));
  openAgain();
  load("Graphics Collection",
       "Graphics Files (*.JPG,*.GIF,*.BMP,*.TIF,*.RLE)|*.JPG;*.GIF;*.BMP;*.TIF;*.RLE",
       std::nullopt);
  close();

  name_ = "songs.MPS";
  writeFile(path(name_), catalogue({mediaFile("a")}));
  openAgain();
  load("MPEG Layer3(MP3) Audio Collection", "MPEG Files (*.MP3)|*.MP3", std::nullopt);
  EXPECT_EQ(names(), (std::vector<std::string>{"a"}));
}

TEST_F(WaveEditor, GraphicsComePatternByPattern) {
  open(catalogue({}), "GCS");
  addFiles("found", {"a.bmp", "b.jpg", "c.bmp", "d.jpg", "e.rle", "f.gif"});
  load("Graphics Collection",
       "Graphics Files (*.JPG,*.GIF,*.BMP,*.TIF,*.RLE)|*.JPG;*.GIF;*.BMP;*.TIF;*.RLE",
       path("found/a.bmp"));
  std::string endings;
  for (const std::string& name : names()) endings += name.substr(1);
  EXPECT_EQ(endings, ".jpg.jpg.gif.bmp.bmp.rle");
}

TEST_F(WaveEditor, AFolderThatCannotBeReadIsAnError) {
  open(catalogue({mediaFile("a")}));
  addFiles("found", {"one.wav"});
  files_.failNth(FileOperation::list, 0, ErrorNumber::permissionDenied);
  desktop_.expectOpen("Wave Collection", "Wave Files (*.WAV)|*.WAV", path("found/one.wav"));
  desktop_.expectMessage("Quillbox", "Run-time error '70':\n\nPermission denied\n" + path("found"));
  choose("LoadMenu");
  EXPECT_EQ(formName(), "frmWave");
  EXPECT_EQ(record(), "Record #: 1 of 1");
}

TEST_F(WaveEditor, AFullCatalogueKeepsWhatWasAdded) {
  open(catalogue(INT16_MAX - 1, {mediaFile("a")}));
  addFiles("found", {"one.wav", "two.wav"});
  desktop_.expectOpen("Wave Collection", "Wave Files (*.WAV)|*.WAV", path("found/one.wav"));
  desktop_.expectMessage("Quillbox", "Run-time error '6':\n\nOverflow");
  choose("LoadMenu");
  EXPECT_EQ(formName(), "frmWave") << "the board is gone and the editor is back";
  EXPECT_EQ(headerOf(bytes()).Count, INT16_MAX);
  EXPECT_EQ(state_->Count, INT16_MAX);
}

TEST_F(WaveEditor, AFailedWriteKeepsWhatCanBeAdded) {
  open(catalogue({mediaFile("a")}));
  addFiles("found", {"one.wav", "two.wav", "three.wav"});
  files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
  desktop_.expectOpen("Wave Collection", "Wave Files (*.WAV)|*.WAV", path("found/one.wav"));
  desktop_.expectMessage("Quillbox", "Run-time error '61':\n\nDisk full\n" + path(name_));
  choose("LoadMenu");
  EXPECT_EQ(formName(), "frmWave");
  EXPECT_EQ(headerOf(bytes()).Count, 4);
  EXPECT_EQ(names().front(), "a");
  loadWaves(path("found/one.wav"));
  EXPECT_EQ(names().size(), 4U);
}

}  // namespace
}  // namespace quillbox::test
