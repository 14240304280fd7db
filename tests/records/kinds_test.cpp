#include "records/kinds.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/disk_file_system.h"
#include "records/app_state.h"
#include "records/music_record.h"
#include "support/model_kinds.h"

namespace quillbox {
namespace {

TEST(Kinds, TheTableOfTheNineKinds) {
  ASSERT_EQ(collectionKinds().size(), std::size(test::kModelKinds));
  for (const test::ModelKind& row : test::kModelKinds) {
    SCOPED_TRACE(row.name);
    const CollectionKind& kind = collectionKinds()[static_cast<std::size_t>(row.option - 1)];
    EXPECT_EQ(kind.code, row.code);
    EXPECT_EQ(kind.extension, row.extension);
    EXPECT_EQ(kind.recordLength, row.recordLength);
    EXPECT_EQ(kind.words.captionPrefix, row.caption);
    EXPECT_EQ(kind.words.designCaption, row.designCaption);
    EXPECT_EQ(kind.opensFromCommandLine, row.code <= 5);
    EXPECT_EQ(kind.rules.fileType, row.fileType());
    EXPECT_EQ(kind.rules.label.empty, row.labels.empty);
    EXPECT_EQ(kind.rules.label.fresh, row.labels.fresh);
    EXPECT_EQ(recordLabel(kind, 5, 12), row.label(5, 12));
    EXPECT_EQ(kindOfExtension(row.extension), &kind);
    EXPECT_EQ(kindOfCode(row.code), &kind);
  }
}

TEST(Kinds, EachHasItsEditor) {
  using enum EditorForm;
  const EditorForm editors[] = {music, comics, video, software, books, wave, wave, wave, wave};
  for (int code = 1; code <= 9; ++code) EXPECT_EQ(kindOfCode(code)->editor, editors[code - 1]);
}

TEST(Kinds, TheMusicKindStepsOverDeletedAlbumsAndReusesTheirSlots) {
  const CollectionKind& music = *kindOfCode(1);
  EXPECT_EQ(music.rules.stepping, Stepping::skipsDeleted);
  EXPECT_TRUE(music.rules.reusesDeletedSlots);
  EXPECT_EQ(music.fields.data(), kMusicFields.data());
  EXPECT_EQ(music.fields.size(), kMusicFields.size());
  EXPECT_EQ(music.fields.front().name, "Artist");
}

TEST(Kinds, EachCallsItsItemsByAWordOfTheirOwn) {
  const struct {
    const char* extension;
    const char* one;
    const char* many;
  } words[] = {{"MCS", "1 album", "55 albums"}, {"VCS", "1 tape", "55 tapes"},
               {"CCS", "1 comic", "55 comics"}, {"SCS", "1 disk", "55 disks"},
               {"BCS", "1 book", "55 books"},   {"WCS", "1 file", "55 files"},
               {"ICS", "1 file", "55 files"},   {"GCS", "1 file", "55 files"},
               {"MPS", "1 file", "55 files"}};
  for (const auto& [extension, one, many] : words) {
    EXPECT_EQ(itemsText(*kindOfExtension(extension), 1), one);
    EXPECT_EQ(itemsText(*kindOfExtension(extension), 55), many);
  }
  EXPECT_EQ(itemsText(*kindOfExtension("BCS"), 0), "0 books");
}

TEST(Kinds, AnExtensionThatIsNoKindsHasNone) {
  for (const std::string_view extension :
       {"", "mcs", "Mcs", ".MCS", "MC", "MCSX", "MCS ", "TXT", "BAK", "CS"})
    EXPECT_EQ(kindOfExtension(extension), nullptr) << extension;
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
  for (const int code : {0, 1, 2, 3, 4, 5, 10, -1, 255}) EXPECT_EQ(mediaCodeOf(code), 0) << code;
  const std::string_view extensions[] = {"WCS", "ICS", "GCS", "MPS"};
  for (int mediaCode = 1; mediaCode <= 4; ++mediaCode) {
    const CollectionKind& kind = *kindOfExtension(extensions[mediaCode - 1]);
    EXPECT_EQ(kind.mediaCode, mediaCode);
    EXPECT_EQ(kind.code, mediaCode + 5);
    EXPECT_EQ(mediaCodeOf(kind.code), mediaCode);
  }
}

TEST(Kinds, ACodeThatIsNoKindsHasNone) {
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
  const auto said = [](const char* title) { return title == nullptr ? "" : title; };
  for (const test::ModelKind& row : test::kModelKinds) {
    SCOPED_TRACE(row.name);
    const DeleteRules& deletion = row.row().rules.deletion;
    EXPECT_EQ(deletion.marker, row.marker());
    EXPECT_EQ(deletion.keepsTheRest, row.skipsDeleted());
    EXPECT_EQ(deletion.readsBack, row.skipsDeleted());
    EXPECT_EQ(deletion.questionTitle, row.titles.question);
    EXPECT_EQ(deletion.abortedTitle, said(row.titles.aborted));
    EXPECT_EQ(deletion.deletedTitle, said(row.titles.deleted));
    EXPECT_EQ(row.row().rules.goTo.invalidTitle, row.titles.invalid);
    EXPECT_EQ(row.row().rules.goTo.badTextIsAnError, !row.skipsDeleted());
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
