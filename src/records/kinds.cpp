#include "records/kinds.h"

#include <array>

#include "records/app_state.h"
#include "records/header_record.h"
#include "records/number_text.h"
#include "records/version.h"

namespace quillbox {
namespace {

// "Of" is capital in music only; media files say "None" where the others count from 0.
constexpr LabelWords kMusicLabel = {"Record #:", " Of", "Record #: 0", "New Record"};
constexpr LabelWords kLabel = {"Record #", " of", "Record #: 0", "New Record"};
constexpr LabelWords kMediaLabel = {"Record #:", " of", "Record #:None", "Record #:None"};

constexpr std::string_view kMusicTitle = "QBX - Music Manager";

// The music editor's own spelling of the marker; files made with it must go on being understood.
constexpr DeleteRules kMusicDelete = {"DETELED", true, true, kMusicTitle, kMusicTitle, kMusicTitle};
// The music editor's title is shared; nothing but the question is said.
constexpr DeleteRules kDelete = {"DELETED", false, false, kMusicTitle, "", ""};
// Three titles, each spelled its own way.
constexpr DeleteRules kMediaDelete = {"DELETED",
                                      true,
                                      true,
                                      "QBX - waves Manager",
                                      "QBX - Wave/Mid/Graphic Manager",
                                      "QBX - Wave/Midi/Graphic Manager"};

constexpr GoToRules kMusicGoTo = {kMusicTitle, false};
constexpr GoToRules kGoTo = {"Go To Record", true};
constexpr GoToRules kMediaGoTo = {kDefaultTitle, false};

template <auto record>
std::span<std::byte> bufferIn(AppState& state) {
  return bytesOf(state.*record);
}

constexpr EditingRules kMusicRules = {kMusicTitle,
                                      music_file_type::current,
                                      true,
                                      kMusicLabel,
                                      Stepping::skipsDeleted,
                                      true,
                                      kMusicDelete,
                                      kMusicGoTo};
constexpr EditingRules kFamilyRules = {kMusicTitle,     1,     false,   kLabel,
                                       Stepping::plain, false, kDelete, kGoTo};
constexpr EditingRules kMediaRules = {kDefaultTitle,          1,    true,         kMediaLabel,
                                      Stepping::skipsDeleted, true, kMediaDelete, kMediaGoTo};

consteval CollectionKind mediaFiles(std::int16_t code, std::string_view optionCaption,
                                    std::string_view extension, std::string_view captionPrefix) {
  return {code,
          optionCaption,
          extension,
          EditorForm::wave,
          captionPrefix,
          "File Collection Manager",
          false,
          sizeof(MediaFileRecord),
          kMediaFileFields,
          bufferIn<&OpenCollection::mediaFile>,
          &OpenCollection::CurRec,
          kMediaRules};
}

constexpr std::array<CollectionKind, 9> kKinds = {{
    {1, "&Music Collection", "MCS", EditorForm::music, "Music Collection Manager (",
     "Music Collection Manager", true, sizeof(MusicRecord), kMusicFields,
     bufferIn<&OpenCollection::music>, &OpenCollection::CurRec, kMusicRules},
    // Only the video editor steps by the second position.
    {3, "&Video Collection", "VCS", EditorForm::video, "Video Tape Collection Manager (",
     "Video Tape Collection Manager", true, sizeof(VideoRecord), kVideoFields,
     bufferIn<&OpenCollection::video>, &OpenCollection::ListPos, kFamilyRules},
    {2, "&Comic Collection", "CCS", EditorForm::comics, "Comic Collection Manager (",
     "Comic Collection Manager", true, sizeof(ComicRecord), kComicFields,
     bufferIn<&OpenCollection::comic>, &OpenCollection::CurRec, kFamilyRules},
    {4, "&Software Collection", "SCS", EditorForm::software, "Software Collection Manager (",
     "Software Collection Manager", true, sizeof(SoftwareRecord), kSoftwareFields,
     bufferIn<&OpenCollection::software>, &OpenCollection::CurRec, kFamilyRules},
    // Two blanks in the book editor's first caption.
    {5, "&Book Collection", "BCS", EditorForm::books, "Book Collection Manager (",
     "Book Collection  Manager", true, sizeof(BookRecord), kBookFields,
     bufferIn<&OpenCollection::book>, &OpenCollection::CurRec, kFamilyRules},
    mediaFiles(6, "&Wav File Collection", "WCS", "Wave File Collection ("),
    mediaFiles(7, "M&idi File Collection", "ICS", "MIDI File Collection ("),
    mediaFiles(8, "&Graphic File Collection", "GCS", "Graphic File Collection ("),
    mediaFiles(9, "MP&3 File Collection", "MPS", "MP3 File Collection ("),
}};

/// The code of the last kind that is not one of media files.
constexpr int kBeforeMediaFiles = 5;

}  // namespace

std::span<const CollectionKind> collectionKinds() { return kKinds; }

const CollectionKind* kindOfExtension(std::string_view extension) {
  for (const CollectionKind& kind : kKinds)
    if (kind.extension == extension) return &kind;
  return nullptr;
}

const CollectionKind* kindOfCode(int code) {
  for (const CollectionKind& kind : kKinds)
    if (kind.code == code) return &kind;
  return nullptr;
}

int mediaCodeOf(const CollectionKind& kind) {
  return kind.code > kBeforeMediaFiles ? kind.code - kBeforeMediaFiles : 0;
}

const CollectionKind* kindOfMediaCode(int mediaCode) {
  return mediaCode < 1 ? nullptr : kindOfCode(mediaCode + kBeforeMediaFiles);
}

std::vector<std::byte> blankRecord(const CollectionKind& kind) {
  std::vector<std::byte> record(kind.recordLength);
  fillBlank(kind.fields, record);
  return record;
}

std::string recordLabel(const CollectionKind& kind, int position, int count) {
  return std::string(kind.rules.label.before)
      .append(numberText(position))
      .append(kind.rules.label.of)
      .append(numberText(count));
}

}  // namespace quillbox
