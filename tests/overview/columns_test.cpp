#include "overview/columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/overview_model.h"

namespace quillbox::test {
namespace {

class Columns : public testing::TestWithParam<ModelKind> {
 protected:
  const CollectionKind& kind() const { return GetParam().row(); }

  /// The column of the field there; the size of a media file and lists have one, too.
  const Column& at(std::size_t offset) const {
    for (const Column& column : columnsOf(kind()))
      if (column.field->offset == offset) return column;
    throw std::out_of_range("no column");
  }
};
INSTANTIATE_TEST_SUITE_P(AllKinds, Columns, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(Columns, AreTheInputsOfTheFormAndThenWhatIsOnNone) {
  std::vector<std::size_t> offsets;
  for (const ModelInput& input : GetParam().inputs) offsets.push_back(input.offset);
  if (GetParam().list.entries > 0) offsets.push_back(GetParam().list.offset);
  if (GetParam().isMedia()) offsets.push_back(192);
  std::vector<std::size_t> found;
  for (const Column& column : columnsOf(kind())) found.push_back(column.field->offset);
  EXPECT_EQ(found, offsets);
}

TEST_P(Columns, BelongToFieldsOfTheKind) {
  for (const Column& column : columnsOf(kind())) {
    EXPECT_EQ(std::ranges::count(kind().fields, *column.field), 1) << column.name;
    EXPECT_EQ(columnOf(kind(), *column.field), &column) << column.name;
    EXPECT_EQ(column.kind == ColumnKind::list, column.field->count > 1) << column.name;
  }
}

TEST_P(Columns, KnowADateThatIsTypedFreely) {
  for (const ModelInput& input : GetParam().inputs) {
    const bool isDate = input.is == Is::date || input.searchedAsDate;
    EXPECT_EQ(at(input.offset).kind == ColumnKind::date, isDate) << input.name;
  }
}

TEST_P(Columns, AFewAreShownAtFirst) {
  const auto shown = std::ranges::count(columnsOf(kind()), true, &Column::shownAtFirst);
  EXPECT_GE(shown, 2);
  EXPECT_LE(shown, 4);
  EXPECT_TRUE(columnsOf(kind()).front().shownAtFirst);
}

TEST_P(Columns, ShowWhatTheFormShows) {
  OverviewItems items(GetParam());
  for (const std::string& item : items.items(300))
    for (const ModelInput& input : GetParam().inputs)
      ASSERT_EQ(columnText(at(input.offset), recordOf(item), overviewTexts()),
                modelShown(GetParam(), input, item))
          << input.name;
}

TEST_P(Columns, CountTheFilledEntriesOfAList) {
  const ModelList& list = GetParam().list;
  if (list.entries == 0) return;
  OverviewItems items(GetParam());
  for (const std::string& item : items.items(100)) {
    int filled = 0;
    for (int entry = 0; entry < list.entries; ++entry)
      if (!textIn(item, list.offset + static_cast<std::size_t>(entry) * 50, 50).empty()) ++filled;
    ASSERT_EQ(columnText(at(list.offset), recordOf(item), overviewTexts()), std::to_string(filled));
  }
}

TEST(ColumnText, AChoiceIsAWordOfTheUsersOwnList) {
  const RecordTexts texts = {[](const Field& field, int index) {
                               return std::string(field.name) + std::to_string(index) + "  ";
                             },
                             "M/d/yy"};
  const std::string item = withNumber(kMusic, familyItem(kMusic, ""), "cmbMediaType", 9);
  EXPECT_EQ(columnText(*columnOf(kMusic.row(), *musicField("MediaType")), recordOf(item), texts),
            "MediaType9");
}

TEST(ColumnText, ASizeIsInBytes) {
  const Column& size = *columnOf(kMp3.row(), *mediaFileField("FileSize"));
  MediaFileRecord record{};
  record.FileSize = 3e9;
  EXPECT_EQ(columnText(size, bytesOf(record), overviewTexts()), "3000000000");
  EXPECT_TRUE(size.isNumeric());
}

TEST(ColumnText, WhatIsReservedInABookHasNoColumn) {
  EXPECT_EQ(columnOf(kBooks.row(), *bookField("Reserved")), nullptr);
}

TEST(ColumnNames, AreTheCaptionsOfTheForms) {
  const struct {
    const ModelKind& kind;
    std::vector<std::string_view> names;
  } rows[] = {
      {kMusic,
       {"Artist", "Album", "Record Co", "Aquisition Date", "Aquisiton Cost", "Current Cost",
        "Media Type", "Has Booklet", "Currently On Loan", "Borrower", "Date Borrowed", "Due Date",
        "Book Loaned", "Notes", "Genre", "Bar Code/ID", "Songs"}},
      {kVideo,
       {"Label Text", "Publisher", "Media Type", "Commercially Recorded", "Purchase Price",
        "Current Price", "Aquisition Date", "Notes", "Movies"}},
      {kSoftware,
       {"Disk Label", "Publisher", "Media Type", "Commercial", "Shareware", "CD Required",
        "Purchase Price", "Current Price", "Notes", "Programs"}},
      {kComics,
       {"Book Title", "Comic Title", "Artists", "Hero(es)", "Villan(s)", "First Appearance Of",
        "Publisher", "Purchase Price", "Current Price", "Aquisition Date", "Bagged", "Boarded",
        "Notes"}},
      {kBooks, {"Author", "Title", "Publisher", "Genre", "Media Type", "Notes"}},
      {kWaves, {"FileName", "Path To File", "Description", "File Size"}},
  };
  for (const auto& row : rows) {
    std::vector<std::string_view> names;
    for (const Column& column : columnsOf(row.kind.row())) names.push_back(column.name);
    EXPECT_EQ(names, row.names);
  }
}

}  // namespace
}  // namespace quillbox::test
