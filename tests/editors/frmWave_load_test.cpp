// The folder loader of the catalogues when it finds nothing, and when it fails part-way.

#include <QRadioButton>
#include <filesystem>

#include "support/family_files.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

/// A catalogue of media files and its loader.
struct Catalogue {
  const char* extension;
  const char* title;
  const char* filter;
  const char* file;  ///< a file that is loaded
  const char* option;
  bool saysWhenEmpty;
};

void PrintTo(const Catalogue& kind, std::ostream* out) { *out << kind.extension; }

constexpr Catalogue kCatalogues[] = {
    {"WCS", "Wave Collection", "Wave Files (*.WAV)|*.WAV", "1.wav", "optQBX_6", true},
    {"ICS", "MIDI Collection", "MIDI Files (*.MID)|*.MID", "1.mid", "optQBX_7", true},
    {"GCS", "Graphics Collection",
     "Graphics Files (*.JPG,*.GIF,*.BMP,*.TIF,*.RLE)|*.JPG;*.GIF;*.BMP;*.TIF;*.RLE", "1.jpg",
     "optQBX_8", false},
    {"MPS", "MPEG Layer3(MP3) Audio Collection", "MPEG Files (*.MP3)|*.MP3", "1.mp3", "optQBX_9",
     false},
};

class Loading : public FormTest, public testing::WithParamInterface<Catalogue> {
 protected:
  std::string name() const { return std::string("files.") + GetParam().extension; }
  std::string bytes() { return file(name()); }
  std::string record() { return label("lblRec"); }

  static MediaFileRecord item(std::string_view name) {
    auto record = blankRecord<MediaFileRecord>(kMediaFileFields);
    record.FileName = name;
    return record;
  }

  void open(std::initializer_list<MediaFileRecord> items) {
    writeFile(path(name()), fileOf<MediaFileRecord>(items));
    start();
    desktop_.expectOpen("Open Collection", kOpenFilterOfTests, path(name()));
    choose("O");
  }
  void make() {
    start();
    choose("N");
    type("txtColName", "files");
    control<QRadioButton>(GetParam().option).click();
    press("cmdNew");
  }

  /// A folder with a number of files to load, and one other file.
  void fillFolder(int files) {
    std::filesystem::create_directory(path("found"));
    writeFile(path("found/letter.txt"), "data");
    for (int n = 1; n <= files; ++n)
      writeFile(path("found/" + std::to_string(n) + std::string(GetParam().file).substr(1)), "");
  }
  void load(const std::string& error = {}) {
    desktop_.expectOpen(GetParam().title, GetParam().filter, path("found/letter.txt"));
    if (!error.empty()) desktop_.expectMessage("Quillbox", error);
    choose("LoadMenu");
    EXPECT_EQ(formName(), "frmWave");
  }
  std::string diskFull() const { return "Run-time error '61':\n\nDisk full\n" + path(name()); }
  /// Writing fails from one write on, which is cut short or not written at all.
  void loadOntoFullDisk(std::size_t write, bool isShort) {
    files_.otherKindsWork = true;
    files_.failNth(write, {ErrorNumber::diskFull, isShort, true}, FileOperation::write);
    load(diskFull());
    files_.heal();
  }
  void loadNothing() {
    fillFolder(0);
    desktop_.expectOpen(GetParam().title, GetParam().filter, path("found/letter.txt"));
    if (GetParam().saysWhenEmpty) desktop_.expectMessage("Quillbox", "Error!");
    choose("LoadMenu");
  }

  void typeNewItem() {
    type("txtFileName", "typed.wav");
    type("txtDesc", "kept");
  }
  void expectNewItemIsWritten() {
    EXPECT_EQ(record(), "Record #:None");
    EXPECT_EQ(shown("txtFileName"), "typed.wav");
    EXPECT_EQ(shown("txtDesc"), "kept");
    press("cmdWrite");
    EXPECT_FALSE(desktop_.endedAtOnce);
    EXPECT_EQ(state_->Count, 1);
    EXPECT_EQ(textAt(bytes().substr(sizeof(MediaFileRecord)), 0, 64), "typed.wav");
  }

  static constexpr const char* kOpenFilterOfTests =
      "All Collections (*.?CS, *.MPS)|*.?CS;*.MPS|Music Collection (*.MCS)|*.MCS|Comic Collection "
      "(*.CCS)|*.CCS|Video Collection (*.VCS)|*.VCS|Software Collection (*.SCS)|*.SCS|Book "
      "Collection (*.BCS)|*.BCS|Wave Collection (*.WCS)|*.WCS|MIDI Collection "
      "(*.ICS)|*.ICS|Graphics Collection (*.GCS)|*.GCS|MP3 Collection (*.MPS)|*.MPS";
};

INSTANTIATE_TEST_SUITE_P(Kinds, Loading, testing::ValuesIn(kCatalogues),
                         [](const auto& kind) { return std::string(kind.param.extension); });

TEST_P(Loading, NothingIntoACollectionJustMadeLeavesTheNewItem) {
  make();
  typeNewItem();
  loadNothing();
  expectNewItemIsWritten();
}

TEST_P(Loading, NothingIntoAnEmptyCollectionLeavesTheNewItem) {
  open({});
  press("cmdClear");
  typeNewItem();
  loadNothing();
  expectNewItemIsWritten();
}

TEST_P(Loading, WhatIsThereAlreadyLeavesTheNewItem) {
  open({item("1" + std::string(GetParam().file).substr(1))});
  press("cmdClear");
  typeNewItem();
  fillFolder(1);
  load();
  EXPECT_EQ(record(), "Record #:None");
  EXPECT_EQ(shown("txtDesc"), "kept");
}

TEST_P(Loading, AFailurePartWayShowsHowManyItemsThereAre) {
  open({item("old")});
  type("txtDesc", "typed");
  fillFolder(12);
  // Eight items are written, their header, and then nothing more.
  loadOntoFullDisk(2, false);
  EXPECT_EQ(headerOf(bytes()).Count, 9);
  EXPECT_EQ(record(), "Record #: 1 of 9");
  EXPECT_TRUE(button("cmdNext").isEnabled());
  EXPECT_EQ(shown("txtDesc"), "typed") << "what was typed stays";
  press("cmdWrite");
  EXPECT_EQ(textAt(bytes().substr(sizeof(MediaFileRecord)), 0, 64), "old");
  press("cmdNext");
  EXPECT_EQ(record(), "Record #: 2 of 9");
  load();
  EXPECT_EQ(headerOf(bytes()).Count, 13) << "the next try adds the rest";
}

TEST_P(Loading, AFailureInAnEmptyCollectionShowsItsFirstItem) {
  open({});
  fillFolder(9);
  loadOntoFullDisk(2, false);
  EXPECT_EQ(record(), "Record #: 1 of 8");
  press("cmdWrite");
  EXPECT_FALSE(desktop_.endedAtOnce);
  EXPECT_EQ(headerOf(bytes()).Count, 8);
}

TEST_P(Loading, AHeaderWrittenInPartIsReadAgain) {
  open({item("old")});
  fillFolder(2);
  loadOntoFullDisk(1, true);
  EXPECT_EQ(headerOf(bytes()).Count, 3) << "half of a header holds the count";
  EXPECT_EQ(record(), "Record #: 1 of 3");
}

}  // namespace
}  // namespace quillbox::test
