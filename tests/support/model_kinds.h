#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "support/sort_model.h"

/// The editors of the nine kinds as the model of them knows them: names, bytes and words, spelled
/// out a second time.
namespace quillbox::test {

enum class Is { text, padded, amount, signedAmount, whole, date, flag, choice };
enum class Fills { nothing, today, newYear1980 };

/// An input of an editor and where in the record its field lies.
struct ModelInput {
  Is is;
  const char* name;
  std::size_t offset;
  std::size_t width;  ///< bytes
  int choices = 0;    ///< entries of a list
  Fills fills = Fills::nothing;
  bool searchedAsDate = false;
  bool searched = true;

  bool isText() const { return is == Is::text || is == Is::padded; }
  bool isBox() const { return is != Is::flag && is != Is::choice; }
};

/// What a text box makes of a number: what was typed, what is stored, and how that is shown.
struct TypedNumber {
  const char* text;
  std::int64_t number;  ///< of a date the bits of its days
  int error = 0;        ///< the run-time error of storing it
};

constexpr std::int64_t daysBits(double days) { return std::bit_cast<std::int64_t>(days); }

inline constexpr auto kAmounts = std::to_array<TypedNumber>({{"", 0},
                                                             {"12", 120'000},
                                                             {"12.5", 125'000},
                                                             {"12.50 dollars", 125'000},
                                                             {"1 234", 10'000},
                                                             {"-3.25", -32'500},
                                                             {" 7", 70'000},
                                                             {"5e", 50'000},
                                                             {"1e3", 10'000'000},
                                                             {"&H10", 0},
                                                             {"abc", 0},
                                                             {"0.00005", 0},
                                                             {"0.00015", 2},
                                                             {"1e30", 0, 6}});
inline constexpr auto kWholes = std::to_array<TypedNumber>({{"", 0},
                                                            {"12", 12},
                                                            {"12.5", 12},
                                                            {"13.5", 14},
                                                            {"-7", -7},
                                                            {"free", 0},
                                                            {"9 or so", 9},
                                                            {"32767", 32'767},
                                                            {"40000", 0, 6}});
inline constexpr auto kDates = std::to_array<TypedNumber>({{"1/1/80", daysBits(29'221)},
                                                           {"11/21/26", daysBits(46'347)},
                                                           {"11/21/2026", daysBits(46'347)},
                                                           {"2026-11-21", daysBits(46'347)},
                                                           {"1/2/98 13:30", daysBits(35'797.5625)},
                                                           {"12/30/1899", daysBits(0)},
                                                           {"never", 0, 13},
                                                           {"2/30/98", 0, 13}});

/// How dates that are in records are shown; each is also a text that can be typed.
inline constexpr auto kShownDates =
    std::to_array<TypedNumber>({{"1/1/80", daysBits(29'221)},
                                {"11/21/26", daysBits(46'347)},
                                {"1/2/98 13:30", daysBits(35'797.5625)},
                                {"12/30/1899", daysBits(0)}});

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
  const char* action;
  const char* formName;
  const char* begin;
  const char* exit;
  const char* boxes = "";  ///< of a sort form, followed by "_" and their number
};

struct ModelTitles {
  const char* question;  ///< of Delete
  const char* aborted;   ///< none: nothing is said
  const char* deleted;
  const char* invalid;  ///< of Go To
};

struct ModelLabels {
  const char* before;
  const char* of;
  const char* empty;
  const char* fresh;
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

struct ModelKind {
  const SortedKind* sorted;
  const char* extension;
  int option;           ///< its number in the new-collection dialog
  const char* caption;  ///< up to the file's name
  const char* formName;
  const char* indicator;
  std::span<const ModelInput> inputs;
  ModelList list;
  std::size_t reservedOffset;  ///< a text that is never shown, up to the record's end
  ModelLabels labels;
  ModelTitles titles;
  ModelButtons buttons;
  ModelSide sort;
  ModelSide search;
  const char* exitCollection;
  int exportedTexts = 0;  ///< of 50 characters, that begin each line of an export
  const char* notFound = "Data Not Found...";
  ModelLoader loader = {};

  std::size_t length() const { return sorted->recordLength; }
  bool isMusic() const { return sorted->code == 1; }
  bool isVideo() const { return sorted->code == 3; }
  bool isBooks() const { return sorted->code == 5; }
  bool isMedia() const { return sorted->code >= 6; }
  bool skipsDeleted() const { return isMusic() || isMedia(); }
  int fileType() const { return isMusic() ? 5 : 1; }

  /// What New File leaves in the header behind it: of music, a type that is upgraded.
  int fileTypeLeftBehind() const { return isMusic() ? 4 : 1; }
  std::size_t markerWidth() const { return inputs.front().width; }
};

namespace model_inputs {
using enum Is;
inline constexpr auto music = std::to_array<ModelInput>({
    {padded, "txtArtist", 0, 50},
    {padded, "txtAlbum", 50, 50},
    {padded, "txtRecordCo", 100, 50},
    {.is = padded,
     .name = "txtAquireDate",
     .offset = 2150,
     .width = 20,
     .fills = Fills::today,
     .searchedAsDate = true},
    {amount, "txtAquireCost", 2170, 8},
    {signedAmount, "txtCurrCost", 2178, 8},
    {choice, "cmbMediaType", 2188, 2, 8},
    {flag, "chkHasBook", 2186, 2},
    {flag, "chkCurrLoaned", 2190, 2},
    {padded, "txtBorrower", 2192, 50},
    {.is = padded, .name = "txtDateLoaned", .offset = 2242, .width = 20, .searchedAsDate = true},
    {.is = padded, .name = "txtDueDate", .offset = 2262, .width = 20, .searchedAsDate = true},
    {flag, "chkBookLoaned", 2282, 2},
    {padded, "txtNotes", 2284, 50},
    {choice, "cmbGenre", 2334, 2, 15},
    {padded, "txtBarCode", 2336, 36},
});
inline constexpr auto video = std::to_array<ModelInput>({
    {text, "txtVidTitle", 0, 50},
    {text, "txtPublisher", 552, 50},
    {choice, "cmbMediaType", 602, 2, 8},
    {flag, "chkCommercial", 50, 2},
    {amount, "txtPurPrice", 604, 8},
    {amount, "txtCurrPrice", 612, 8},
    {date, "txtAquireDate", 620, 8, 0, Fills::newYear1980},
    {text, "txtNotes", 628, 50},
});
inline constexpr auto software = std::to_array<ModelInput>({
    {text, "txtSftWare_0", 0, 50},
    {text, "txtSftWare_1", 610, 50},
    {choice, "cmbMediaType", 54, 2, 5},
    {flag, "chkCommercial", 50, 2},
    {flag, "chkShareWare", 52, 2},
    {flag, "chkCDRequired", 660, 2},
    {whole, "txtSftWare_2", 56, 2},
    {whole, "txtSftWare_3", 58, 2},
    {text, "txtSftWare_4", 560, 50},
});
inline constexpr auto comics = std::to_array<ModelInput>({
    {text, "txtCmic_0", 0, 50},
    {text, "txtCmic_1", 50, 50},
    {text, "txtCmic_2", 350, 50},
    {text, "txtCmic_3", 404, 50},
    {text, "txtCmic_4", 454, 50},
    {text, "txtCmic_5", 504, 50},
    {text, "txtCmic_6", 590, 50},
    {amount, "txtCmic_7", 554, 8},
    {amount, "txtCmic_8", 562, 8},
    {.is = text,
     .name = "txtCmic_9",
     .offset = 570,
     .width = 20,
     .fills = Fills::newYear1980,
     .searchedAsDate = true},
    {.is = flag, .name = "chkBagged", .offset = 400, .width = 2, .searched = false},
    {.is = flag, .name = "chkBoarded", .offset = 402, .width = 2, .searched = false},
});
inline constexpr auto books = std::to_array<ModelInput>({
    {text, "txtBooks_0", 0, 50},
    {text, "txtBooks_1", 50, 50},
    {text, "txtBooks_2", 100, 50},
    {choice, "cmbGenre", 150, 2, 6},
    {choice, "cmbMedia", 152, 2, 4},
    {text, "txtBooks_3", 154, 50},
});
inline constexpr auto media = std::to_array<ModelInput>({
    {text, "txtFileName", 0, 64},
    {.is = text, .name = "txtPath", .offset = 64, .width = 128, .searched = false},
    {.is = text, .name = "txtDesc", .offset = 200, .width = 128, .searched = false},
});
}  // namespace model_inputs

inline constexpr const char* kMusicManager = "QBX - Music Manager";
inline constexpr ModelLabels kFamilyLabels = {"Record # ", " of ", "Record #: 0", "New Record"};
inline constexpr ModelTitles kFamilyTitles = {kMusicManager, nullptr, nullptr, "Go To Record"};

namespace model_loaders {
inline constexpr std::string_view waves[] = {"wav"};
inline constexpr std::string_view midi[] = {"mid"};
inline constexpr std::string_view graphics[] = {"jpg", "gif", "bmp", "tif", "rle"};
inline constexpr std::string_view mp3[] = {"mp3"};
}  // namespace model_loaders

constexpr ModelKind modelOfMediaFiles(const SortedKind& sorted, const char* extension,
                                      const char* caption, const ModelLoader& loader) {
  return {&sorted,
          extension,
          sorted.code,
          caption,
          "frmWave",
          "lblRec",
          model_inputs::media,
          {},
          sorted.recordLength,
          {"Record #: ", " of ", "Record #:None", "Record #:None"},
          {"QBX - waves Manager", "QBX - Wave/Mid/Graphic Manager",
           "QBX - Wave/Midi/Graphic Manager", "Quillbox"},
          {"cmdPrev", "cmdNext", "cmdGoto", "cmdClear", "cmdDelete", "cmdWrite"},
          {"SortCollection", "frmWaveSort", "cmdBeginSort", "cmdExit"},
          {"SearchCollection", "frmWaveSearch", "cmbBeginSearch", "cmdExit"},
          "ExitCollection",
          0,
          "Data Not Found...",
          loader};
}

inline constexpr ModelKind kModelKinds[] = {
    {&kSortedKinds[0],
     "MCS",
     1,
     "Music Collection Manager (",
     "frmMusic",
     "lblIndex",
     model_inputs::music,
     {150, 40, "txtSongTitle", "frmSongEdit", "EditSongs", ""},
     2372,
     {"Record #: ", " Of ", "Record #: 0", "New Record"},
     {kMusicManager, kMusicManager, kMusicManager, kMusicManager},
     {"cmdPrevious", "cmdNext", "cmdGoto", "cmdClearData", "cmdDelete", "cmdWriteData"},
     {"SortRecords", "frmMusicSort", "cmdBeginSort", "cmdExitSort", "chkMusSort"},
     {"SearchRecords", "frmMusSearch", "cmdSearch", "cmdExit"},
     "ExitCollection",
     2},
    {&kSortedKinds[1],
     "CCS",
     3,
     "Comic Collection Manager (",
     "frmComics",
     "lblIndex",
     model_inputs::comics,
     {100, 5, "txtCmic", "frmComicTitles", "EditTitles", "cmdPrevious"},
     640,
     kFamilyLabels,
     kFamilyTitles,
     {"cmdPrevious", "cmdNext", "cmdGoTo", "cmdClearData", "cmdDelete", "cmdUpdate"},
     {"SortRecords", "frmComicSort", "cmdBeginSort", "cmdExit", "chkSort"},
     {"Search", "frmComicSearch", "cmdSearch", "cmdExit"},
     "ExitCollection",
     2},
    {&kSortedKinds[2],
     "VCS",
     2,
     "Video Tape Collection Manager (",
     "frmVideo",
     "lblIndex",
     model_inputs::video,
     {52, 10, "txtMovieTitle", "frmVideoTitles", "EditTitles", "cmdPrev"},
     678,
     kFamilyLabels,
     kFamilyTitles,
     {"cmdPrev", "cmdNext", "Command1", "cmdClear", "cmdDelete", "cmdUpdate"},
     {"SortRecords", "frmVideoSort", "cmdBeginSort", "cmdExit", "chkSort"},
     {"SearchRecords", "frmVideoSearch", "cmbBeginSearch", "cmdExit"},
     "ExitCollection",
     1},
    {&kSortedKinds[3],
     "SCS",
     4,
     "Software Collection Manager (",
     "frmSoftware",
     "lblIndex",
     model_inputs::software,
     {60, 10, "txtProgram", "frmSoftwareTitles", "EditTitles", "cmdPrevious"},
     662,
     kFamilyLabels,
     kFamilyTitles,
     {"cmdPrevious", "cmdNext", "cmdGoTo", "cmdClear", "cmdDelete", "cmdUpdate"},
     {"SortRecords", "frmSoftwareSort", "cmbBeginSort", "cmdExit", "chkSort"},
     {"Search", "frmSoftwareSearch", "cmdBeginSearch", "cmdExit"},
     "ExitCollection",
     1},
    {&kSortedKinds[4],
     "BCS",
     5,
     "Book Collection Manager (",
     "frmBooks",
     "lblBookCap",
     model_inputs::books,
     {},
     204,
     kFamilyLabels,
     kFamilyTitles,
     {"cmdPrevious", "cmdNext", "cmdGoTo", "cmdClearData", nullptr, "cmdWriteData"},
     {"SortBooks", "frmBookSort", "cmdSort", "cmdExit", "chkBsort"},
     {"SearchBooks", "frmBookSearch", "cmdBeginSearch", "cmdExitWindow"},
     "ExitBooks",
     0,
     "Not Found"},
    modelOfMediaFiles(kSortedKinds[5], "WCS", "Wave File Collection (",
                      {"Wave Collection", "Wave Files (*.WAV)|*.WAV", model_loaders::waves, true}),
    modelOfMediaFiles(kSortedKinds[6], "ICS", "MIDI File Collection (",
                      {"MIDI Collection", "MIDI Files (*.MID)|*.MID", model_loaders::midi, true}),
    modelOfMediaFiles(
        kSortedKinds[7], "GCS", "Graphic File Collection (",
        {"Graphics Collection",
         "Graphics Files (*.JPG,*.GIF,*.BMP,*.TIF,*.RLE)|*.JPG;*.GIF;*.BMP;*.TIF;*.RLE",
         model_loaders::graphics}),
    modelOfMediaFiles(
        kSortedKinds[8], "MPS", "MP3 File Collection (",
        {"MPEG Layer3(MP3) Audio Collection", "MPEG Files (*.MP3)|*.MP3", model_loaders::mp3}),
};

inline void PrintTo(const ModelKind& kind, std::ostream* out) { *out << kind.sorted->name; }

}  // namespace quillbox::test
