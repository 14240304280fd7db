#include "printing/listing_rules.h"

#include "records/app_state.h"

namespace quillbox {
namespace {

// The labels are spelled as in existing listings, including "Aquisition".
constexpr ListingLine kMusicLines[] = {
    {"Artist", musicField("Artist")},
    {"Album Title", musicField("Album")},
    {"Record Company", musicField("RecordCo")},
    {"Bar Code/ID", musicField("BarCode")},
    {"Aquisition Date", musicField("AquireDate")},
    {"Aquisition Cost", musicField("AquireCost")},
    {"Current Price", musicField("CurrCost")},
    {"Media Type", musicField("MediaType")},
    {"Notes", musicField("Notes")},
    {"Has Booklet", musicField("HasBook")},
    {"Genre", musicField("Genre")},
};

constexpr ListingLine kVideoLines[] = {
    {"Label Text", videoField("Label")},
    {"Publisher", videoField("Publisher")},
    {"Purchase Price", videoField("PurPrice")},
    {"Current Price", videoField("CurrPrice")},
    {"Media Type", videoField("MediaType")},
    {"Aquisition Date", videoField("AquireDate")},
    {"Notes", videoField("Notes")},
    {"Commercial", videoField("Commercial")},
};

constexpr ListingLine kSoftwareLines[] = {
    {"Disk Label", softwareField("DiskLabel")},    {"Publisher", softwareField("Publisher")},
    {"Purchase Price", softwareField("PurPrice")}, {"Current Price", softwareField("CurrPrice")},
    {"Media Type", softwareField("MediaType")},    {"Notes", softwareField("Notes")},
    {"Commercial", softwareField("Commercial")},   {"CD Required", softwareField("CDRequired")},
    {"Shareware", softwareField("Shareware")},
};

constexpr ListingLine kComicLines[] = {
    {"Comic Name", comicField("BookTitle")},
    {"Comic Title", comicField("ComicTitle")},
    {"Publisher", comicField("Publisher")},
    {"Aquisition Date", comicField("AquireDate")},
    {"Purchase Price", comicField("PurPrice")},
    {"Current Price", comicField("CurrPrice")},
    {"Artists", comicField("Artists")},
    {"Hero(es)", comicField("Heroes")},
    {"Villain(s)", comicField("Villains")},
    {"First Appearance", comicField("FirstApp")},
    {"Bagged", comicField("Bagged")},
    {"Boarded", comicField("Boarded")},
    {"Notes", nullptr},  // above the notes, even when there are none
};

constexpr ListingLine kBookLines[] = {
    {"Author", bookField("Author")},        {"Book Title", bookField("Title")},
    {"Publisher", bookField("Publisher")},  {"Genre", bookField("Genre")},
    {"Media Type", bookField("MediaType")}, {"Notes", bookField("Notes")},
};

constexpr ListingLine kMediaFileLines[] = {
    {"FileName", mediaFileField("FileName")},
    {"File Path", mediaFileField("FilePath")},
    {"File Size", mediaFileField("FileSize")},
    {"Description", mediaFileField("Description")},
};

constexpr std::string_view kMusicHeading[] = {" - Music Collection"};
constexpr std::string_view kSoftwareHeading[] = {" - Software Collection"};
constexpr std::string_view kComicHeading[] = {" - Comic Collection"};
constexpr std::string_view kBookHeading[] = {" - Book Collection"};
constexpr std::string_view kMediaFileHeadings[] = {
    " - WAV File Collection", " - MIDI File Collection", " - Graphic File Collection",
    " - MP3 File Collection"};

constexpr ListingRules kRules[] = {
    {.editor = EditorForm::music,
     .deletedMarker = "DETELED",
     .pageHeading = " - Music Collection Printout Page #",
     .fileHeadings = kMusicHeading,
     .lines = kMusicLines,
     .group = {"Song List", "Song ", musicField("Songs")},
     .showsLoan = true},
    // Text files of videos have always had the heading for music.
    {.editor = EditorForm::video,
     .deletedMarker = "DELETED",
     .pageHeading = " - Video Collection Printout Page #",
     .fileHeadings = kMusicHeading,
     .lines = kVideoLines,
     .group = {"Movie List", "Movie ", videoField("Movies")}},
    {.editor = EditorForm::software,
     .deletedMarker = "DELETED",
     .pageHeading = " - Software Collection Printout Page #",
     .fileHeadings = kSoftwareHeading,
     .lines = kSoftwareLines,
     .group = {"Program List", "Program ", softwareField("Programs")}},
    // The music editor's marker, so a deleted comic is listed in full. "Note  " has two blanks.
    {.editor = EditorForm::comics,
     .deletedMarker = "DETELED",
     .pageHeading = " - Comic Collection Printout Page #",
     .fileHeadings = kComicHeading,
     .lines = kComicLines,
     .group = {"", "Note  ", comicField("Notes")}},
    {.editor = EditorForm::books,
     .deletedMarker = "DELETED",
     .pageHeading = " - Book Collection Printout Page #",
     .fileHeadings = kBookHeading,
     .lines = kBookLines},
    {.editor = EditorForm::wave,
     .deletedMarker = "DELETED",
     .pageHeading = " - Wave/Mid/Graphic Collection Printout Page #",
     .fileHeadings = kMediaFileHeadings,
     .lines = kMediaFileLines},
};

}  // namespace

const ListingRules& listingRulesOf(const CollectionKind& kind) {
  return rowOf<kRules>(kind.editor);
}

}  // namespace quillbox
