#include "records/kinds.h"

#include <array>

#include "platform/desktop.h"
#include "records/app_state.h"
#include "records/header_record.h"
#include "records/version.h"
#include "text/number_text.h"
#include "text/padding.h"

namespace quillbox {
namespace {

// "Of" has a capital in music only; media files show "None" where the others count from 0.
constexpr LabelWords kMusicLabel = {"Record #:", " Of", "Record #: 0", "New Record"};
constexpr LabelWords kLabel = {"Record #", " of", "Record #: 0", "New Record"};
constexpr LabelWords kMediaLabel = {"Record #:", " of", "Record #:None", "Record #:None"};

constexpr std::string_view kMusicTitle = "QBX - Music Manager";

// The music editor's own spelling of the marker; files made with it must stay readable.
constexpr DeleteRules kMusicDelete = {.marker = "DETELED",
                                      .keepsTheRest = true,
                                      .readsBack = true,
                                      .questionTitle = kMusicTitle,
                                      .abortedTitle = kMusicTitle,
                                      .deletedTitle = kMusicTitle};
// The music editor's title is shared; there is no message besides the question.
constexpr DeleteRules kDelete = {.marker = "DELETED", .questionTitle = kMusicTitle};
// Three titles, each with its own spelling.
constexpr DeleteRules kMediaDelete = {.marker = "DELETED",
                                      .keepsTheRest = true,
                                      .readsBack = true,
                                      .questionTitle = "QBX - waves Manager",
                                      .abortedTitle = "QBX - Wave/Mid/Graphic Manager",
                                      .deletedTitle = "QBX - Wave/Midi/Graphic Manager"};

constexpr EditingRules kMusicRules = {.messageTitle = kMusicTitle,
                                      .fileType = music_file_type::current,
                                      .itemWritesRewriteTheHeader = true,
                                      .label = kMusicLabel,
                                      .stepping = Stepping::skipsDeleted,
                                      .reusesDeletedSlots = true,
                                      .deletion = kMusicDelete,
                                      .goTo = {.invalidTitle = kMusicTitle}};
constexpr EditingRules kFamilyRules = {
    .messageTitle = kMusicTitle,
    .label = kLabel,
    .deletion = kDelete,
    .goTo = {.invalidTitle = "Go To Record", .badTextIsAnError = true}};
constexpr EditingRules kMediaRules = {.messageTitle = kDefaultTitle,
                                      .itemWritesRewriteTheHeader = true,
                                      .label = kMediaLabel,
                                      .stepping = Stepping::skipsDeleted,
                                      .reusesDeletedSlots = true,
                                      .deletion = kMediaDelete,
                                      .goTo = {.invalidTitle = kDefaultTitle}};

template <auto record>
std::span<std::byte> bufferIn(OpenCollection& collection) {
  return bytesOf(collection.*record);
}

consteval CollectionKind mediaFiles(std::int16_t code, std::int16_t mediaCode,
                                    std::string_view extension, std::string_view option,
                                    std::string_view captionPrefix) {
  return {.code = code,
          .mediaCode = mediaCode,
          .extension = extension,
          .editor = EditorForm::wave,
          .words = {option, captionPrefix, "File Collection Manager", "file", "files"},
          .opensFromCommandLine = false,
          .recordLength = sizeof(MediaFileRecord),
          .fields = kMediaFileFields,
          .buffer = bufferIn<&OpenCollection::mediaFile>,
          .rules = kMediaRules};
}

constexpr std::array<CollectionKind, 9> kKinds = {{
    {.code = 1,
     .extension = "MCS",
     .editor = EditorForm::music,
     .words = {"&Music Collection", "Music Collection Manager (", "Music Collection Manager",
               "album", "albums"},
     .recordLength = sizeof(MusicRecord),
     .fields = kMusicFields,
     .buffer = bufferIn<&OpenCollection::music>,
     .rules = kMusicRules},
    {.code = 3,
     .extension = "VCS",
     .editor = EditorForm::video,
     .words = {"&Video Collection", "Video Tape Collection Manager (",
               "Video Tape Collection Manager", "tape", "tapes"},
     .recordLength = sizeof(VideoRecord),
     .fields = kVideoFields,
     .buffer = bufferIn<&OpenCollection::video>,
     .position = &OpenCollection::ListPos,  // the only editor that steps by it
     .rules = kFamilyRules},
    {.code = 2,
     .extension = "CCS",
     .editor = EditorForm::comics,
     .words = {"&Comic Collection", "Comic Collection Manager (", "Comic Collection Manager",
               "comic", "comics"},
     .recordLength = sizeof(ComicRecord),
     .fields = kComicFields,
     .buffer = bufferIn<&OpenCollection::comic>,
     .rules = kFamilyRules},
    {.code = 4,
     .extension = "SCS",
     .editor = EditorForm::software,
     .words = {"&Software Collection", "Software Collection Manager (",
               "Software Collection Manager", "disk", "disks"},
     .recordLength = sizeof(SoftwareRecord),
     .fields = kSoftwareFields,
     .buffer = bufferIn<&OpenCollection::software>,
     .rules = kFamilyRules},
    // The book editor's first caption has two blanks.
    {.code = 5,
     .extension = "BCS",
     .editor = EditorForm::books,
     .words = {"&Book Collection", "Book Collection Manager (", "Book Collection  Manager", "book",
               "books"},
     .recordLength = sizeof(BookRecord),
     .fields = kBookFields,
     .buffer = bufferIn<&OpenCollection::book>,
     .rules = kFamilyRules},
    mediaFiles(6, 1, "WCS", "&Wav File Collection", "Wave File Collection ("),
    mediaFiles(7, 2, "ICS", "M&idi File Collection", "MIDI File Collection ("),
    mediaFiles(8, 3, "GCS", "&Graphic File Collection", "Graphic File Collection ("),
    mediaFiles(9, 4, "MPS", "MP&3 File Collection", "MP3 File Collection ("),
}};

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

int mediaCodeOf(int kindCode) {
  const CollectionKind* kind = kindOfCode(kindCode);
  return kind == nullptr ? 0 : kind->mediaCode;
}

std::vector<std::byte> blankRecord(const CollectionKind& kind) {
  std::vector<std::byte> record(kind.recordLength);
  fillBlank(kind.fields, record);
  return record;
}

bool isDeleted(const CollectionKind& kind, std::span<const std::byte> record) {
  return withoutTrailingBlanks(textOf(kind.fields.front(), record)) == kind.rules.deletion.marker;
}

std::string itemsText(const CollectionKind& kind, int count) {
  return std::to_string(count).append(" ").append(count == 1 ? kind.words.item : kind.words.items);
}

std::string recordLabel(const CollectionKind& kind, int position, int count) {
  return std::string(kind.rules.label.before)
      .append(numberText(position))
      .append(kind.rules.label.of)
      .append(numberText(count));
}

std::string widestRecordLabel(const CollectionKind& kind) {
  return recordLabel(kind, INT16_MIN, INT16_MIN);
}

}  // namespace quillbox
