#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/book_record.h"
#include "records/comic_record.h"
#include "records/field.h"
#include "records/field_types.h"
#include "records/media_file_record.h"
#include "records/software_record.h"
#include "records/video_record.h"

namespace quillbox {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kMovies = 10;
constexpr std::size_t kPrograms = 10;
constexpr std::size_t kComicNotes = 5;

template <typename Record>
std::string bytes(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

std::string allOf(std::span<const std::byte> record) {
  return {reinterpret_cast<const char*>(record.data()), record.size()};
}

/// One field of the file format.
struct Row {
  std::string_view name;
  FieldType type;
  std::size_t offset;
  std::size_t width;
  std::size_t count;
};

void expectFields(std::span<const Field> fields, std::span<const Row> rows) {
  ASSERT_EQ(fields.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(fields[i].name, rows[i].name);
    EXPECT_EQ(fields[i].type, rows[i].type) << rows[i].name;
    EXPECT_EQ(fields[i].offset, rows[i].offset) << rows[i].name;
    EXPECT_EQ(fields[i].width, rows[i].width) << rows[i].name;
    EXPECT_EQ(fields[i].count, rows[i].count) << rows[i].name;
  }
}

/// The blank record: blanks where the fields are texts, and zeros elsewhere.
std::string blankOf(std::span<const Field> fields, std::size_t length) {
  std::vector<std::byte> record(length, std::byte{'#'});
  fillBlank(fields, record);
  return allOf(record);
}

/// `length` blanks with runs of zeros: pairs of offset and length.
std::string blanksWithZeros(std::size_t length,
                            std::initializer_list<std::pair<std::size_t, std::size_t>> zeros) {
  std::string record(length, ' ');
  for (const auto& [offset, run] : zeros) record.replace(offset, run, run, '\0');
  return record;
}

TEST(FamilyRecords, FreshOnesAreZeroBytes) {
  EXPECT_EQ(bytes(VideoRecord{}), std::string(678, '\0'));
  EXPECT_EQ(bytes(SoftwareRecord{}), std::string(662, '\0'));
  EXPECT_EQ(bytes(ComicRecord{}), std::string(640, '\0'));
  EXPECT_EQ(bytes(BookRecord{}), std::string(224, '\0'));
  EXPECT_EQ(bytes(MediaFileRecord{}), std::string(328, '\0'));
  EXPECT_EQ(VideoRecord{}.AquireDate, 0.0);
  EXPECT_EQ(MediaFileRecord{}.FileSize, 0.0);
}

TEST(FamilyRecords, TheFieldsOfAVideo) {
  using enum FieldType;
  expectFields(kVideoFields, std::to_array<Row>({
                                 {"Label", text, 0, 50, 1},
                                 {"Commercial", flag, 50, 2, 1},
                                 {"Movies", text, 52, 50, kMovies},
                                 {"Publisher", text, 552, 50, 1},
                                 {"MediaType", choice, 602, 2, 1},
                                 {"PurPrice", money, 604, 8, 1},
                                 {"CurrPrice", money, 612, 8, 1},
                                 {"AquireDate", date, 620, 8, 1},
                                 {"Notes", text, 628, 50, 1},
                             }));
  EXPECT_EQ(videoField("AquireDate")->offset, 620U);
}

TEST(FamilyRecords, TheFieldsOfADisk) {
  using enum FieldType;
  expectFields(kSoftwareFields, std::to_array<Row>({
                                    {"DiskLabel", text, 0, 50, 1},
                                    {"Commercial", flag, 50, 2, 1},
                                    {"Shareware", flag, 52, 2, 1},
                                    {"MediaType", choice, 54, 2, 1},
                                    {"PurPrice", whole, 56, 2, 1},
                                    {"CurrPrice", whole, 58, 2, 1},
                                    {"Programs", text, 60, 50, kPrograms},
                                    {"Notes", text, 560, 50, 1},
                                    {"Publisher", text, 610, 50, 1},
                                    {"CDRequired", flag, 660, 2, 1},
                                }));
  EXPECT_EQ(softwareField("CDRequired")->offset, 660U);
}

TEST(FamilyRecords, TheFieldsOfAComic) {
  using enum FieldType;
  expectFields(kComicFields, std::to_array<Row>({
                                 {"BookTitle", text, 0, 50, 1},
                                 {"ComicTitle", text, 50, 50, 1},
                                 {"Notes", text, 100, 50, kComicNotes},
                                 {"Artists", text, 350, 50, 1},
                                 {"Bagged", flag, 400, 2, 1},
                                 {"Boarded", flag, 402, 2, 1},
                                 {"Heroes", text, 404, 50, 1},
                                 {"Villains", text, 454, 50, 1},
                                 {"FirstApp", text, 504, 50, 1},
                                 {"PurPrice", money, 554, 8, 1},
                                 {"CurrPrice", money, 562, 8, 1},
                                 {"AquireDate", text, 570, 20, 1},
                                 {"Publisher", text, 590, 50, 1},
                             }));
  EXPECT_EQ(comicField("AquireDate")->width, 20U);
}

TEST(FamilyRecords, TheFieldsOfABook) {
  using enum FieldType;
  expectFields(kBookFields, std::to_array<Row>({
                                {"Author", text, 0, 50, 1},
                                {"Title", text, 50, 50, 1},
                                {"Publisher", text, 100, 50, 1},
                                {"Genre", choice, 150, 2, 1},
                                {"MediaType", choice, 152, 2, 1},
                                {"Notes", text, 154, 50, 1},
                                {"Reserved", text, 204, 20, 1},
                            }));
  EXPECT_EQ(bookField("Reserved")->offset, 204U);
}

TEST(FamilyRecords, TheFieldsOfAMediaFile) {
  using enum FieldType;
  expectFields(kMediaFileFields, std::to_array<Row>({
                                     {"FileName", text, 0, 64, 1},
                                     {"FilePath", text, 64, 128, 1},
                                     {"FileSize", size, 192, 8, 1},
                                     {"Description", text, 200, 128, 1},
                                 }));
  EXPECT_EQ(mediaFileField("FileSize")->offset, 192U);
}

TEST(FamilyRecords, BlankOnesHaveBlanksInTextsAndZerosElsewhere) {
  EXPECT_EQ(blankOf(kVideoFields, 678), blanksWithZeros(678, {{50, 2}, {602, 26}}));
  EXPECT_EQ(blankOf(kSoftwareFields, 662), blanksWithZeros(662, {{50, 10}, {660, 2}}));
  EXPECT_EQ(blankOf(kComicFields, 640), blanksWithZeros(640, {{400, 4}, {554, 16}}));
  EXPECT_EQ(blankOf(kBookFields, 224), blanksWithZeros(224, {{150, 4}}));
  EXPECT_EQ(blankOf(kMediaFileFields, 328), blanksWithZeros(328, {{192, 8}}));
}

TEST(FamilyRecords, AVideosFieldsReadAndWriteItsMembers) {
  VideoRecord record{};
  const auto all = bytesOf(record);
  setText(*videoField("Label"), all, std::string(60, 'x'));
  setText(*videoField("Movies"), all, "Metropolis", kMovies - 1);
  setMoney(*videoField("CurrPrice"), all, 199'900);
  setReal(*videoField("AquireDate"), all, 29221.5);
  setWhole(*videoField("MediaType"), all, -1);
  EXPECT_EQ(record.Label.view(), std::string(50, 'x'));
  EXPECT_EQ(record.Commercial, 0);
  EXPECT_EQ(record.Movies[9].view(), "Metropolis" + std::string(40, ' '));
  EXPECT_EQ(record.Movies[8].view(), std::string(50, '\0'));
  EXPECT_EQ(record.Publisher.view(), std::string(50, '\0'));
  EXPECT_EQ(record.PurPrice, 0);
  EXPECT_EQ(record.CurrPrice, 199'900);
  EXPECT_EQ(record.AquireDate, 29221.5);
  EXPECT_EQ(record.MediaType, -1);
  record.AquireDate = -0.25;
  EXPECT_EQ(realOf(*videoField("AquireDate"), all), -0.25);
}

TEST(FamilyRecords, EachEntryOfAListIsItsOwnFiftyBytes) {
  SoftwareRecord disk{};
  for (std::size_t entry = 0; entry < kPrograms; ++entry)
    setText(*softwareField("Programs"), bytesOf(disk),
            std::string(60, static_cast<char>('0' + entry)), entry);
  ComicRecord comic{};
  for (std::size_t entry = 0; entry < kComicNotes; ++entry)
    setText(*comicField("Notes"), bytesOf(comic), std::string(60, static_cast<char>('0' + entry)),
            entry);
  std::string expected;
  for (std::size_t entry = 0; entry < kPrograms; ++entry)
    expected += std::string(50, static_cast<char>('0' + entry));
  EXPECT_EQ(bytes(disk), std::string(60, '\0') + expected + std::string(102, '\0'));
  EXPECT_EQ(bytes(comic),
            std::string(100, '\0') + expected.substr(0, 250) + std::string(290, '\0'));
  EXPECT_EQ(textOf(*softwareField("Programs"), bytesOf(disk), 9), std::string(50, '9'));
  EXPECT_EQ(textOf(*comicField("Notes"), bytesOf(comic), 4), std::string(50, '4'));
}

TEST(FamilyRecords, ADisksPricesAreSixteenBitWholeNumbers) {
  SoftwareRecord record{};
  setWhole(*softwareField("PurPrice"), bytesOf(record), 258);
  setWhole(*softwareField("CurrPrice"), bytesOf(record), -32768);
  EXPECT_EQ(bytes(record).substr(56, 4), "\x02\x01\x00\x80"sv);
  EXPECT_EQ(record.PurPrice, 258);
  EXPECT_EQ(record.CurrPrice, -32768);
  EXPECT_EQ(bytes(record).substr(60), std::string(602, '\0'));
}

TEST(FamilyRecords, ADateIsTheLittleEndianBytesOfItsDays) {
  VideoRecord record{};
  std::memset(&record, '#', sizeof record);
  record.AquireDate = 29221.0;
  EXPECT_EQ(bytes(record).substr(618, 12), "##\x00\x00\x00\x00\x40\x89\xDC\x40##"sv);
  EXPECT_EQ(record.AquireDate, 29221.0);
}

TEST(FamilyRecords, ASizeBeyondTwoGigabytesIsExact) {
  MediaFileRecord record{};
  for (const double size : {0.0, 1.0, 2'147'483'648.0, 5'000'000'001.0, 9'007'199'254'740'991.0}) {
    setReal(*mediaFileField("FileSize"), bytesOf(record), size);
    EXPECT_EQ(record.FileSize, size);
    EXPECT_EQ(realOf(*mediaFileField("FileSize"), bytesOf(record)), size);
  }
  EXPECT_EQ(bytes(record).substr(192, 8), "\xFF\xFF\xFF\xFF\xFF\xFF\x3F\x43"sv);
  EXPECT_EQ(bytes(record).substr(0, 192), std::string(192, '\0'));
  EXPECT_EQ(bytes(record).substr(200), std::string(128, '\0'));
}

TEST(FamilyRecords, APathIsCutAtItsWidth) {
  MediaFileRecord record{};
  record.FileName = std::string(65, 'n');
  record.FilePath = std::string(129, 'p');
  record.Description = std::string(129, 'd');
  EXPECT_EQ(bytes(record), std::string(64, 'n') + std::string(128, 'p') + std::string(8, '\0') +
                               std::string(128, 'd'));
}

TEST(FamilyRecords, TheListsAreInTheOrderOfTheFileFormat) {
  const auto list = [](const Field* field) {
    return std::vector<std::string_view>(field->choices.begin(), field->choices.end());
  };
  using Words = std::vector<std::string_view>;
  EXPECT_EQ(list(videoField("MediaType")),
            (Words{"VideoCassette", "LaserDisc", "32MM Film", "16MM Film", "Super 8MM Film",
                   "8MM Film", "Video For Windows (AVI File)", "QuickTime (MOV Files)"}));
  EXPECT_EQ(list(softwareField("MediaType")),
            (Words{"3.5\" Floppy Disk", "5.25\" Floppy Disk", "CD-ROM", "ZIP Disk", "WORM Disk"}));
  EXPECT_EQ(list(bookField("Genre")),
            (Words{"Fantasy", "Horror", "Periodical", "Reference", "Romance", "Science Fiction"}));
  EXPECT_EQ(list(bookField("MediaType")),
            (Words{"Audio Books", "Brail", "Hardcover", "Paperback"}));
  for (const Field& field : kComicFields) EXPECT_TRUE(field.choices.empty()) << field.name;
  for (const Field& field : kMediaFileFields) EXPECT_TRUE(field.choices.empty()) << field.name;
}

}  // namespace
}  // namespace quillbox
