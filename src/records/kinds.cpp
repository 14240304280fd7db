#include "records/kinds.h"

#include <array>
#include <cassert>

#include "records/header_record.h"
#include "records/music_record.h"
#include "records/number_text.h"

namespace quillbox {
namespace {

// "Of" is capital in music only; media files say "None" where the others count from 0.
constexpr LabelWords kMusicLabel = {"Record #:", " Of", "Record #: 0", "New Record"};
constexpr LabelWords kLabel = {"Record #", " of", "Record #: 0", "New Record"};
constexpr LabelWords kMediaLabel = {"Record #:", " of", "Record #:None", "Record #:None"};

// The music editor's own spelling of the marker; files made with it must go on being understood.
constexpr std::string_view kMusicMarker = "DETELED";
constexpr std::string_view kMarker = "DELETED";

constexpr std::size_t kMediaFileLength = 328;

constexpr CollectionKind mediaFiles(std::int16_t code, std::string_view optionCaption,
                                    std::string_view extension, std::string_view captionPrefix) {
  return {code,
          optionCaption,
          extension,
          EditorForm::wave,
          captionPrefix,
          "",
          false,
          kMediaFileLength,
          {},
          1,
          kMediaLabel,
          kMarker,
          Stepping::skipsDeleted,
          true};
}

constexpr std::array<CollectionKind, 9> kKinds = {{
    {1, "&Music Collection", "MCS", EditorForm::music, "Music Collection Manager (",
     "Music Collection Manager", true, sizeof(MusicRecord), kMusicFields, music_file_type::current,
     kMusicLabel, kMusicMarker, Stepping::skipsDeleted, true},
    {3,
     "&Video Collection",
     "VCS",
     EditorForm::video,
     "Video Tape Collection Manager (",
     "Video Tape Collection Manager",
     true,
     678,
     {},
     1,
     kLabel,
     kMarker,
     Stepping::plain,
     false},
    {2,
     "&Comic Collection",
     "CCS",
     EditorForm::comics,
     "Comic Collection Manager (",
     "Comic Collection Manager",
     true,
     640,
     {},
     1,
     kLabel,
     kMarker,
     Stepping::plain,
     false},
    {4,
     "&Software Collection",
     "SCS",
     EditorForm::software,
     "Software Collection Manager (",
     "Software Collection Manager",
     true,
     662,
     {},
     1,
     kLabel,
     kMarker,
     Stepping::plain,
     false},
    // Two blanks in the book editor's first caption.
    {5,
     "&Book Collection",
     "BCS",
     EditorForm::books,
     "Book Collection Manager (",
     "Book Collection  Manager",
     true,
     224,
     {},
     1,
     kLabel,
     kMarker,
     Stepping::plain,
     false},
    mediaFiles(6, "&Wav File Collection", "WCS", "Wave File Collection ("),
    mediaFiles(7, "M&idi File Collection", "ICS", "MIDI File Collection ("),
    mediaFiles(8, "&Graphic File Collection", "GCS", "Graphic File Collection ("),
    mediaFiles(9, "MP&3 File Collection", "MPS", "MP3 File Collection ("),
}};

}  // namespace

std::span<const CollectionKind> collectionKinds() { return kKinds; }

const CollectionKind* kindOfExtension(std::string_view extension) {
  for (const CollectionKind& kind : kKinds)
    if (kind.extension == extension) return &kind;
  return nullptr;
}

const CollectionKind& kindOfCode(int code) {
  for (const CollectionKind& kind : kKinds)
    if (kind.code == code) return kind;
  assert(!"a kind code is 1 to 9");
  return kKinds.front();
}

std::string recordLabel(const CollectionKind& kind, int position, int count) {
  return std::string(kind.label.before)
      .append(numberText(position))
      .append(kind.label.of)
      .append(numberText(count));
}

}  // namespace quillbox
