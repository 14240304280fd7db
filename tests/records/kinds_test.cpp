#include "records/kinds.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/disk_file_system.h"
#include "records/app_state.h"
#include "records/music_record.h"

namespace quillbox {
namespace {

TEST(Kinds, TheTableOfTheNineKinds) {
  const struct {
    int code;
    std::string_view extension;
    std::size_t recordLength;
    std::string_view optionCaption;
    std::string_view captionPrefix;
    EditorForm editor;
    bool opensFromCommandLine;
    int fileType;
    std::string_view deletedMarker;
  } rows[] = {
      {1, "MCS", 2372, "&Music Collection", "Music Collection Manager (", EditorForm::music, true,
       5, "DETELED"},
      {3, "VCS", 678, "&Video Collection", "Video Tape Collection Manager (", EditorForm::video,
       true, 1, "DELETED"},
      {2, "CCS", 640, "&Comic Collection", "Comic Collection Manager (", EditorForm::comics, true,
       1, "DELETED"},
      {4, "SCS", 662, "&Software Collection", "Software Collection Manager (", EditorForm::software,
       true, 1, "DELETED"},
      {5, "BCS", 224, "&Book Collection", "Book Collection Manager (", EditorForm::books, true, 1,
       "DELETED"},
      {6, "WCS", 328, "&Wav File Collection", "Wave File Collection (", EditorForm::wave, false, 1,
       "DELETED"},
      {7, "ICS", 328, "M&idi File Collection", "MIDI File Collection (", EditorForm::wave, false, 1,
       "DELETED"},
      {8, "GCS", 328, "&Graphic File Collection", "Graphic File Collection (", EditorForm::wave,
       false, 1, "DELETED"},
      {9, "MPS", 328, "MP&3 File Collection", "MP3 File Collection (", EditorForm::wave, false, 1,
       "DELETED"},
  };
  ASSERT_EQ(collectionKinds().size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const CollectionKind& kind = collectionKinds()[i];
    EXPECT_EQ(kind.code, rows[i].code);
    EXPECT_EQ(kind.extension, rows[i].extension);
    EXPECT_EQ(kind.recordLength, rows[i].recordLength) << kind.extension;
    EXPECT_EQ(kind.optionCaption, rows[i].optionCaption);
    EXPECT_EQ(kind.captionPrefix, rows[i].captionPrefix);
    EXPECT_EQ(kind.editor, rows[i].editor) << kind.extension;
    EXPECT_EQ(kind.opensFromCommandLine, rows[i].opensFromCommandLine) << kind.extension;
    EXPECT_EQ(kind.rules.fileType, rows[i].fileType) << kind.extension;
    EXPECT_EQ(kind.rules.deletion.marker, rows[i].deletedMarker) << kind.extension;
    EXPECT_EQ(kindOfExtension(rows[i].extension), &kind);
    EXPECT_EQ(kindOfCode(rows[i].code), &kind);
  }
}

TEST(Kinds, TheEditorsFirstCaptions) {
  EXPECT_EQ(kindOfCode(1)->designCaption, "Music Collection Manager");
  EXPECT_EQ(kindOfCode(2)->designCaption, "Comic Collection Manager");
  EXPECT_EQ(kindOfCode(3)->designCaption, "Video Tape Collection Manager");
  EXPECT_EQ(kindOfCode(4)->designCaption, "Software Collection Manager");
  EXPECT_EQ(kindOfCode(5)->designCaption, "Book Collection  Manager");
}

TEST(Kinds, TheMusicKindStepsOverDeletedAlbumsAndReusesTheirSlots) {
  const CollectionKind& music = *kindOfCode(1);
  EXPECT_EQ(music.rules.stepping, Stepping::skipsDeleted);
  EXPECT_TRUE(music.rules.reusesDeletedSlots);
  EXPECT_EQ(music.fields.data(), kMusicFields.data());
  EXPECT_EQ(music.fields.size(), kMusicFields.size());
  EXPECT_EQ(music.fields.front().name, "Artist");
}

TEST(Kinds, AnExtensionThatIsNoKindsHasNone) {
  for (const std::string_view extension :
       {"", "mcs", "Mcs", ".MCS", "MC", "MCSX", "MCS ", "TXT", "BAK", "CS"})
    EXPECT_EQ(kindOfExtension(extension), nullptr) << extension;
}

TEST(Kinds, TheRecordLabelNamesPositionAndCount) {
  const struct {
    int code;
    std::string_view label;
    std::string_view empty;
    std::string_view fresh;
  } rows[] = {
      {1, "Record #: 5 Of 12", "Record #: 0", "New Record"},
      {2, "Record # 5 of 12", "Record #: 0", "New Record"},
      {3, "Record # 5 of 12", "Record #: 0", "New Record"},
      {4, "Record # 5 of 12", "Record #: 0", "New Record"},
      {5, "Record # 5 of 12", "Record #: 0", "New Record"},
      {6, "Record #: 5 of 12", "Record #:None", ""},
      {7, "Record #: 5 of 12", "Record #:None", ""},
      {8, "Record #: 5 of 12", "Record #:None", ""},
      {9, "Record #: 5 of 12", "Record #:None", ""},
  };
  for (const auto& row : rows) {
    const CollectionKind& kind = *kindOfCode(row.code);
    EXPECT_EQ(recordLabel(kind, 5, 12), row.label);
    EXPECT_EQ(kind.rules.label.empty, row.empty) << row.code;
    if (row.code <= 5) {
      EXPECT_EQ(kind.rules.label.fresh, row.fresh) << row.code;
    }
  }
}

TEST(Kinds, TheRecordLabelsNumbersHaveABlankWhereNoSignStands) {
  const CollectionKind& music = *kindOfCode(1);
  EXPECT_EQ(recordLabel(music, -1, 12), "Record #:-1 Of 12");
  EXPECT_EQ(recordLabel(music, 0, 0), "Record #: 0 Of 0");
  EXPECT_EQ(recordLabel(music, 13, -2), "Record #: 13 Of-2");
  EXPECT_EQ(recordLabel(music, 32767, 32767), "Record #: 32767 Of 32767");
  EXPECT_EQ(recordLabel(*kindOfCode(3), -1, 12), "Record #-1 of 12");
  EXPECT_EQ(recordLabel(*kindOfCode(9), -1, 12), "Record #:-1 of 12");
}

TEST(Kinds, TheMediaFileKindsHaveACodeOfTheirOwn) {
  for (int code = 1; code <= 5; ++code) EXPECT_EQ(mediaCodeOf(*kindOfCode(code)), 0) << code;
  const std::string_view extensions[] = {"WCS", "ICS", "GCS", "MPS"};
  for (int mediaCode = 1; mediaCode <= 4; ++mediaCode) {
    const CollectionKind* kind = kindOfMediaCode(mediaCode);
    ASSERT_NE(kind, nullptr) << mediaCode;
    EXPECT_EQ(kind->extension, extensions[mediaCode - 1]);
    EXPECT_EQ(kind, kindOfCode(mediaCode + 5));
    EXPECT_EQ(mediaCodeOf(*kind), mediaCode);
  }
}

TEST(Kinds, ACodeThatIsNoKindsHasNone) {
  for (const int mediaCode : {0, 5, 6, -1, -4, -5, 255}) {
    EXPECT_EQ(kindOfMediaCode(mediaCode), nullptr) << mediaCode;
  }
  for (const int code : {0, 10, -1, 255}) EXPECT_EQ(kindOfCode(code), nullptr) << code;
}

TEST(Kinds, OnlyTheVideoEditorStepsByTheSecondPosition) {
  for (const CollectionKind& kind : collectionKinds()) {
    const auto expected =
        kind.extension == "VCS" ? &OpenCollection::ListPos : &OpenCollection::CurRec;
    EXPECT_TRUE(kind.position == expected) << kind.extension;
  }
}

TEST(Kinds, TheFirstFieldCarriesTheDeletedMarker) {
  const std::string_view names[] = {"Artist",   "BookTitle", "Label",    "DiskLabel", "Author",
                                    "FileName", "FileName",  "FileName", "FileName"};
  for (int code = 1; code <= 9; ++code) {
    const Field& first = kindOfCode(code)->fields.front();
    EXPECT_EQ(first.name, names[code - 1]);
    EXPECT_EQ(first.type, FieldType::text) << code;
    EXPECT_EQ(first.offset, 0U) << code;
    EXPECT_EQ(first.count, 1U) << code;
  }
}

TEST(Kinds, EachKindsFieldsMakeUpItsRecord) {
  for (const CollectionKind& kind : collectionKinds()) {
    std::size_t end = 0;
    for (const Field& field : kind.fields) {
      EXPECT_EQ(field.offset, end) << kind.extension << ' ' << field.name;
      end += field.width * field.count;
    }
    EXPECT_EQ(end, kind.recordLength) << kind.extension;
  }
}

TEST(Kinds, EachKindHasItsOwnBufferAndTheMediaFilesShareOne) {
  DiskFileSystem files;
  AppState state(files);
  const void* buffers[] = {&state.music, &state.comic, &state.video, &state.software, &state.book};
  for (int code = 1; code <= 9; ++code) {
    const CollectionKind& kind = *kindOfCode(code);
    const auto buffer = kind.buffer(state);
    EXPECT_EQ(buffer.size(), kind.recordLength) << kind.extension;
    EXPECT_EQ(buffer.data(), code <= 5 ? buffers[code - 1] : &state.mediaFile) << kind.extension;
  }
}

TEST(Kinds, TheRulesOfDeleteAndGoTo) {
  const std::string_view music = "QBX - Music Manager";
  const std::string_view waves = "QBX - waves Manager";
  const std::string_view aborted = "QBX - Wave/Mid/Graphic Manager";
  const std::string_view deleted = "QBX - Wave/Midi/Graphic Manager";
  const struct {
    int code;
    std::string_view marker;
    bool keepsTheRest;
    bool readsBack;
    std::string_view questionTitle;
    std::string_view abortedTitle;
    std::string_view deletedTitle;
    std::string_view invalidTitle;
    bool badTextIsAnError;
  } rows[] = {
      {1, "DETELED", true, true, music, music, music, music, false},
      {2, "DELETED", false, false, music, "", "", "Go To Record", true},
      {3, "DELETED", false, false, music, "", "", "Go To Record", true},
      {4, "DELETED", false, false, music, "", "", "Go To Record", true},
      {5, "DELETED", false, false, music, "", "", "Go To Record", true},
      {6, "DELETED", true, true, waves, aborted, deleted, "Quillbox", false},
      {7, "DELETED", true, true, waves, aborted, deleted, "Quillbox", false},
      {8, "DELETED", true, true, waves, aborted, deleted, "Quillbox", false},
      {9, "DELETED", true, true, waves, aborted, deleted, "Quillbox", false},
  };
  for (const auto& row : rows) {
    const DeleteRules& deletion = kindOfCode(row.code)->rules.deletion;
    EXPECT_EQ(deletion.marker, row.marker) << row.code;
    EXPECT_EQ(deletion.keepsTheRest, row.keepsTheRest) << row.code;
    EXPECT_EQ(deletion.readsBack, row.readsBack) << row.code;
    EXPECT_EQ(deletion.questionTitle, row.questionTitle) << row.code;
    EXPECT_EQ(deletion.abortedTitle, row.abortedTitle) << row.code;
    EXPECT_EQ(deletion.deletedTitle, row.deletedTitle) << row.code;
    const GoToRules& goTo = kindOfCode(row.code)->rules.goTo;
    EXPECT_EQ(goTo.invalidTitle, row.invalidTitle) << row.code;
    EXPECT_EQ(goTo.badTextIsAnError, row.badTextIsAnError) << row.code;
  }
}

TEST(Kinds, OnlyVideosSoftwareComicsAndBooksStepPlainlyAndNeverReuseASlot) {
  for (const CollectionKind& kind : collectionKinds()) {
    const bool family = kind.code >= 2 && kind.code <= 5;
    EXPECT_EQ(kind.rules.stepping, family ? Stepping::plain : Stepping::skipsDeleted)
        << kind.extension;
    EXPECT_EQ(kind.rules.reusesDeletedSlots, !family) << kind.extension;
    EXPECT_EQ(kind.rules.itemWritesRewriteTheHeader, !family) << kind.extension;
  }
}

}  // namespace
}  // namespace quillbox
