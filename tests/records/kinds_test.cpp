#include "records/kinds.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

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

}  // namespace
}  // namespace quillbox
