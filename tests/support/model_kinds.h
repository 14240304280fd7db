#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/kinds.h"
#include "support/model_fields.h"

/// The nine kinds for the tests: names, bytes and words, specified independently of the program.
/// Fixtures and models take what they need from a kind's row.
namespace quillbox::test {

/// The list of an item, on a page of its own.
struct ModelList {
  std::size_t offset = 0;
  int entries = 0;
  const char* box = "";       ///< followed by "_" and the number of the entry
  const char* formName = "";  ///< of songs followed by 1 or 2
  const char* action = "";
  const char* previous = "";

  static constexpr std::size_t kWidth = 50;
  static constexpr int kSongsPerPage = 20;
};

struct ModelButtons {
  const char* previous;
  const char* next;
  const char* goTo;
  const char* clear;
  const char* remove;  ///< none in the book editor
  const char* write;
};

/// A form beside the editor.
struct ModelSide {
  const char* action;  ///< the editor's menu item that opens it
  const char* formName;
  const char* begin;
  const char* exit;
  const char* boxes = "";  ///< of a sort form, followed by "_" and their number
};

struct ModelTitles {
  const char* question;  ///< of Delete
  const char* aborted;   ///< none: no message
  const char* deleted;
  const char* invalid;  ///< of Go To
};

struct ModelLabels {
  const char* before;
  const char* of;
  const char* empty;
  const char* fresh;
};

/// Menu items that every editor has, under different names.
struct ModelMenu {
  const char* exitCollection;
  const char* printerSetup;
  const char* about;
  const char* contents = nullptr;  ///< none in the editor of media files
};

/// Of a record of music in a collection of the older type.
inline constexpr std::size_t kOldMusicLength = 2336;

/// What the loader of a kind of media files looks for.
struct ModelLoader {
  const char* title = "";
  const char* filter = "";
  std::span<const std::string_view> extensions = {};
  bool saysWhenEmpty = false;
};

/// A row of the tests' only table of kinds.
struct ModelKind {
  const char* name;  ///< in the names of tests
  const char* extension;
  int code;
  int option;                ///< its number in the new-collection dialog
  std::size_t recordLength;  ///< bytes
  const char* formName;
  const char* caption;        ///< up to the file's name
  const char* designCaption;  ///< before a collection is open
  const char* aboutTitle;     ///< of its About box
  const char* aboutArea;
  const char* helpPage;
  const char* indicator = "lblIndex";
  std::span<const ModelInput> inputs;  ///< the first two are texts, the first one has the marker
  ModelList list = {};
  std::size_t reservedOffset;  ///< a text that is never shown, up to the record's end
  ModelLabels labels = {"Record # ", " of ", "Record #: 0", "New Record"};
  ModelTitles titles = {"QBX - Music Manager", nullptr, nullptr, "Go To Record"};
  ModelButtons buttons;
  ModelMenu menu;
  ModelSide sort;
  ModelSide search;
  const char* notFound = "Data Not Found...";
  int exportedTexts = 0;  ///< of 50 characters, that begin each line of an export
  ModelLoader loader = {};
  std::span<const KeyPlace> keys;  ///< the first text is first; none reaches the last byte
  bool alwaysSorted = false;       ///< there is nothing to tick
  bool showsProgress = false;      ///< of a sort
  bool endsProgram = false;        ///< when it has sorted

  /// The program's own row, for what is not repeated here.
  const CollectionKind& row() const { return *kindOfExtension(extension); }

  bool isMusic() const { return code == 1; }
  bool isVideo() const { return code == 3; }
  bool isBooks() const { return code == 5; }
  bool isMedia() const { return code >= 6; }
  bool skipsDeleted() const { return isMusic() || isMedia(); }
  bool hidesDeleted() const { return isVideo(); }  ///< the screen stays as it is
  int fileType() const { return isMusic() ? 5 : 1; }

  /// The type that New File leaves in the old header: for music, one that is upgraded.
  int fileTypeLeftBehind() const { return isMusic() ? 4 : 1; }
  std::string_view marker() const { return isMusic() ? "DETELED" : "DELETED"; }
  std::size_t markerWidth() const { return inputs.front().width; }
  const char* firstBox() const { return inputs[0].name; }
  const char* otherBox() const { return inputs[1].name; }
  std::string label(int item, int count) const {
    return labels.before + std::to_string(item) + labels.of + std::to_string(count);
  }

  std::vector<bool> ticks(std::initializer_list<std::size_t> ticked) const {
    std::vector<bool> flags(alwaysSorted ? 0 : keys.size());
    for (const std::size_t key : ticked) flags.at(key) = true;
    return flags;
  }
  std::vector<bool> everyTick() const {
    return std::vector<bool>(alwaysSorted ? 0 : keys.size(), true);
  }
};

namespace model_loaders {
inline constexpr std::string_view waves[] = {"wav"};
inline constexpr std::string_view midi[] = {"mid"};
inline constexpr std::string_view graphics[] = {"jpg", "gif", "bmp", "tif", "rle"};
inline constexpr std::string_view mp3[] = {"mp3"};
}  // namespace model_loaders

inline constexpr ModelKind kMusic = {
    .name = "Music",
    .extension = "MCS",
    .code = 1,
    .option = 1,
    .recordLength = 2372,
    .formName = "frmMusic",
    .caption = "Music Collection Manager (",
    .designCaption = "Music Collection Manager",
    .aboutTitle = "About Music Collection",
    .aboutArea = "Music",
    .helpPage = "music.md",
    .inputs = model_inputs::music,
    .list = {150, 40, "txtSongTitle", "frmSongEdit", "EditSongs", ""},
    .reservedOffset = 2372,
    .labels = {"Record #: ", " Of ", "Record #: 0", "New Record"},
    .titles = {"QBX - Music Manager", "QBX - Music Manager", "QBX - Music Manager",
               "QBX - Music Manager"},
    .buttons = {"cmdPrevious", "cmdNext", "cmdGoto", "cmdClearData", "cmdDelete", "cmdWriteData"},
    .menu = {"ExitCollection", "PrintSetup", "AboutMusic", "MusicContents"},
    .sort = {"SortRecords", "frmMusicSort", "cmdBeginSort", "cmdExitSort", "chkMusSort"},
    .search = {"SearchRecords", "frmMusSearch", "cmdSearch", "cmdExit"},
    .exportedTexts = 2,
    .keys = model_keys::music};

inline constexpr ModelKind kComics = {
    .name = "Comics",
    .extension = "CCS",
    .code = 2,
    .option = 3,
    .recordLength = 640,
    .formName = "frmComics",
    .caption = "Comic Collection Manager (",
    .designCaption = "Comic Collection Manager",
    .aboutTitle = "About Comic Collection",
    .aboutArea = "Comic",
    .helpPage = "comics.md",
    .inputs = model_inputs::comics,
    .list = {100, 5, "txtCmic", "frmComicTitles", "EditTitles", "cmdPrevious"},
    .reservedOffset = 640,
    .buttons = {"cmdPrevious", "cmdNext", "cmdGoTo", "cmdClearData", "cmdDelete", "cmdUpdate"},
    .menu = {"ExitCollection", "PrinterSetup", "AboutComic", "ContentComic"},
    .sort = {"SortRecords", "frmComicSort", "cmdBeginSort", "cmdExit", "chkSort"},
    .search = {"Search", "frmComicSearch", "cmdSearch", "cmdExit"},
    .exportedTexts = 2,
    .keys = model_keys::comics,
    .showsProgress = true};

inline constexpr ModelKind kVideo = {
    .name = "Video",
    .extension = "VCS",
    .code = 3,
    .option = 2,
    .recordLength = 678,
    .formName = "frmVideo",
    .caption = "Video Tape Collection Manager (",
    .designCaption = "Video Tape Collection Manager",
    .aboutTitle = "About Video Collection",
    .aboutArea = "Video",
    .helpPage = "video.md",
    .inputs = model_inputs::video,
    .list = {52, 10, "txtMovieTitle", "frmVideoTitles", "EditTitles", "cmdPrev"},
    .reservedOffset = 678,
    .buttons = {"cmdPrev", "cmdNext", "Command1", "cmdClear", "cmdDelete", "cmdUpdate"},
    .menu = {"ExitCollection", "SetupPrinter", "AboutVideos", "ContentVideos"},
    .sort = {"SortRecords", "frmVideoSort", "cmdBeginSort", "cmdExit", "chkSort"},
    .search = {"SearchRecords", "frmVideoSearch", "cmbBeginSearch", "cmdExit"},
    .exportedTexts = 1,
    .keys = model_keys::video};

inline constexpr ModelKind kSoftware = {
    .name = "Software",
    .extension = "SCS",
    .code = 4,
    .option = 4,
    .recordLength = 662,
    .formName = "frmSoftware",
    .caption = "Software Collection Manager (",
    .designCaption = "Software Collection Manager",
    .aboutTitle = "About Software Collection",
    .aboutArea = "Software",
    .helpPage = "software.md",
    .inputs = model_inputs::software,
    .list = {60, 10, "txtProgram", "frmSoftwareTitles", "EditTitles", "cmdPrevious"},
    .reservedOffset = 662,
    .buttons = {"cmdPrevious", "cmdNext", "cmdGoTo", "cmdClear", "cmdDelete", "cmdUpdate"},
    .menu = {"ExitCollection", "PrintSetup", "AboutSoftware", "ContentSoftware"},
    .sort = {"SortRecords", "frmSoftwareSort", "cmbBeginSort", "cmdExit", "chkSort"},
    .search = {"Search", "frmSoftwareSearch", "cmdBeginSearch", "cmdExit"},
    .exportedTexts = 1,
    .keys = model_keys::software};

// Two blanks in the caption before a collection is open.
inline constexpr ModelKind kBooks = {
    .name = "Books",
    .extension = "BCS",
    .code = 5,
    .option = 5,
    .recordLength = 224,
    .formName = "frmBooks",
    .caption = "Book Collection Manager (",
    .designCaption = "Book Collection  Manager",
    .aboutTitle = "About Book Collection",
    .aboutArea = "Book",
    .helpPage = "books.md",
    .indicator = "lblBookCap",
    .inputs = model_inputs::books,
    .reservedOffset = 204,
    .buttons = {"cmdPrevious", "cmdNext", "cmdGoTo", "cmdClearData", nullptr, "cmdWriteData"},
    .menu = {"ExitBooks", "PrinterSetup", "AboutBooks", "ContentsBooks"},
    .sort = {"SortBooks", "frmBookSort", "cmdSort", "cmdExit", "chkBsort"},
    .search = {"SearchBooks", "frmBookSearch", "cmdBeginSearch", "cmdExitWindow"},
    .notFound = "Not Found",
    .keys = model_keys::books,
    .showsProgress = true,
    .endsProgram = true};

constexpr ModelKind modelOfMediaFiles(const char* name, const char* extension, int code,
                                      const char* caption, const ModelLoader& loader) {
  return {.name = name,
          .extension = extension,
          .code = code,
          .option = code,
          .recordLength = 328,
          .formName = "frmWave",
          .caption = caption,
          .designCaption = "File Collection Manager",
          .aboutTitle = "About Wav/MIDI/Graphic Collection",
          .aboutArea = "Wave/Midi/Graphics",
          .helpPage = "media-files.md",
          .indicator = "lblRec",
          .inputs = model_inputs::media,
          .reservedOffset = 328,
          .labels = {"Record #: ", " of ", "Record #:None", "Record #:None"},
          .titles = {"QBX - waves Manager", "QBX - Wave/Mid/Graphic Manager",
                     "QBX - Wave/Midi/Graphic Manager", "Quillbox"},
          .buttons = {"cmdPrev", "cmdNext", "cmdGoto", "cmdClear", "cmdDelete", "cmdWrite"},
          .menu = {"ExitCollection", "PrintSetup", "AboutCollection"},
          .sort = {"SortCollection", "frmWaveSort", "cmdBeginSort", "cmdExit"},
          .search = {"SearchCollection", "frmWaveSearch", "cmbBeginSearch", "cmdExit"},
          .loader = loader,
          .keys = model_keys::media,
          .alwaysSorted = true};
}

inline constexpr ModelKind kWaves =
    modelOfMediaFiles("Waves", "WCS", 6, "Wave File Collection (",
                      {"Wave Collection", "Wave Files (*.WAV)|*.WAV", model_loaders::waves, true});
inline constexpr ModelKind kMidi =
    modelOfMediaFiles("Midi", "ICS", 7, "MIDI File Collection (",
                      {"MIDI Collection", "MIDI Files (*.MID)|*.MID", model_loaders::midi, true});
inline constexpr ModelKind kGraphics = modelOfMediaFiles(
    "Graphics", "GCS", 8, "Graphic File Collection (",
    {"Graphics Collection",
     "Graphics Files (*.JPG,*.GIF,*.BMP,*.TIF,*.RLE)|*.JPG;*.GIF;*.BMP;*.TIF;*.RLE",
     model_loaders::graphics});
inline constexpr ModelKind kMp3 = modelOfMediaFiles(
    "Mp3", "MPS", 9, "MP3 File Collection (",
    {"MPEG Layer3(MP3) Audio Collection", "MPEG Files (*.MP3)|*.MP3", model_loaders::mp3});

inline constexpr ModelKind kModelKinds[] = {kMusic, kComics, kVideo,    kSoftware, kBooks,
                                            kWaves, kMidi,   kGraphics, kMp3};

/// A kind for each of the six editors.
inline constexpr ModelKind kModelEditors[] = {kMusic, kVideo, kSoftware, kComics, kBooks, kWaves};

/// The two bytes of a whole number.
inline std::string wholeBytes(int value) {
  const auto bits = static_cast<unsigned>(value);
  return {static_cast<char>(bits & 0xFFU), static_cast<char>(bits >> 8U & 0xFFU)};
}

inline void PrintTo(const ModelKind& kind, std::ostream* out) { *out << kind.name; }
inline std::string nameOfKind(const testing::TestParamInfo<ModelKind>& kind) {
  return kind.param.name;
}

}  // namespace quillbox::test
