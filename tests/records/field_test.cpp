#include "records/field.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "records/music_record.h"
#include "text/padding.h"

namespace quillbox {
namespace {

using namespace std::string_view_literals;

constexpr auto kFields = std::to_array<Field>({
    {"Title", FieldType::text, 0, 4},
    {"Lines", FieldType::text, 4, 3, 2},
    {"Cost", FieldType::money, 10, 8},
    {"Lent", FieldType::flag, 18, 2},
    {"Genre", FieldType::choice, 20, 2},
});
constexpr std::size_t kLength = 22;
using Bytes = std::array<std::byte, kLength>;

constexpr const Field& kTitle = fieldNamed(kFields, "Title");
constexpr const Field& kLines = fieldNamed(kFields, "Lines");
constexpr const Field& kCost = fieldNamed(kFields, "Cost");
constexpr const Field& kLent = fieldNamed(kFields, "Lent");
constexpr const Field& kGenre = fieldNamed(kFields, "Genre");

static_assert(Field(kTitle) == kTitle, "a copy is the same field");
static_assert(!(kLent == kGenre) && !(kTitle == Field{"Name", FieldType::text, 0, 4}));
static_assert(!(kTitle == Field{"Title", FieldType::text, 4, 4}));
static_assert(!(kTitle == Field{"Title", FieldType::text, 0, 3}));
static_assert(!(kLent == Field{"Lent", FieldType::whole, 18, 2}));

static_assert(coversRecord(kFields, kLength));
static_assert(!coversRecord(kFields, kLength - 1));
static_assert(!coversRecord(kFields, kLength + 1));
static_assert(!coversRecord(std::span(kFields).subspan(1), kLength));
static_assert(!coversRecord(std::span(kFields).first(4), kLength));

constexpr auto kWithGap =
    std::to_array<Field>({{"A", FieldType::text, 0, 4}, {"B", FieldType::text, 5, 3}});
static_assert(!coversRecord(kWithGap, 8));
constexpr auto kOverlapping =
    std::to_array<Field>({{"A", FieldType::text, 0, 4}, {"B", FieldType::text, 3, 4}});
static_assert(!coversRecord(kOverlapping, 7) && !coversRecord(kOverlapping, 8));

static_assert(coversRecord(kMusicFields, 2372));
static_assert(!coversRecord(kMusicFields, 2336));
static_assert(coversRecord(std::span(kMusicFields).first(kMusicFields.size() - 1), 2336));

Bytes filledWith(char c) {
  Bytes record;
  record.fill(static_cast<std::byte>(c));
  return record;
}

std::string allOf(std::span<const std::byte> record) {
  return {reinterpret_cast<const char*>(record.data()), record.size()};
}

TEST(Fields, ATextIsCutOrPaddedToItsWidth) {
  Bytes record = filledWith('#');
  setText(kTitle, record, "ab");
  EXPECT_EQ(allOf(record), "ab  " + std::string(18, '#'));
  EXPECT_EQ(textOf(kTitle, record), "ab  ");
  setText(kTitle, record, "abcdef");
  EXPECT_EQ(allOf(record), "abcd" + std::string(18, '#'));
  setText(kTitle, record, "");
  EXPECT_EQ(textOf(kTitle, record), "    ");
  setText(kTitle, record, "a\0\xFF"sv);
  EXPECT_EQ(textOf(kTitle, record), "a\0\xFF "sv);
}

TEST(Fields, EachEntryOfAListIsATextOfItsOwn) {
  Bytes record = filledWith('#');
  setText(kLines, record, "one", 0);
  setText(kLines, record, "2", 1);
  EXPECT_EQ(allOf(record), "####one2  " + std::string(12, '#'));
  EXPECT_EQ(textOf(kLines, record, 0), "one");
  EXPECT_EQ(textOf(kLines, record, 1), "2  ");
  EXPECT_EQ(textOf(kLines, record), "one");
  setText(kLines, record, "longer", 0);
  EXPECT_EQ(textOf(kLines, record, 0), "lon");
  EXPECT_EQ(textOf(kLines, record, 1), "2  ");
}

TEST(Fields, ATextMayBeGivenFromTheRecordItself) {
  Bytes record = filledWith('#');
  setText(kTitle, record, "wxyz");
  setText(kLines, record, textOf(kTitle, record), 1);
  EXPECT_EQ(textOf(kLines, record, 1), "wxy");
}

TEST(Fields, AWholeNumberIsStoredInItsTwoBytes) {
  for (const int whole : {0, 1, -1, 258, 32767, -32768}) {
    const auto value = static_cast<std::int16_t>(whole);
    Bytes record = filledWith('#');
    setWhole(kLent, record, value);
    EXPECT_EQ(wholeOf(kLent, record), value);
    EXPECT_EQ(allOf(record).substr(0, 18), std::string(18, '#'));
    EXPECT_EQ(allOf(record).substr(20), "##");
    setWhole(kGenre, record, value);
    EXPECT_EQ(wholeOf(kGenre, record), value);
    EXPECT_EQ(wholeOf(kLent, record), value);
  }
  Bytes record = filledWith('#');
  setWhole(kGenre, record, -2);
  EXPECT_EQ(allOf(record).substr(20), "\xFE\xFF");
}

TEST(Fields, AnAmountIsStoredInItsEightBytes) {
  for (const std::int64_t value :
       {std::int64_t{0}, std::int64_t{125'000}, std::int64_t{-1},
        std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
    Bytes record = filledWith('#');
    setMoney(kCost, record, value);
    EXPECT_EQ(moneyOf(kCost, record), value);
    EXPECT_EQ(allOf(record).substr(0, 10), std::string(10, '#'));
    EXPECT_EQ(allOf(record).substr(18), "####");
  }
  Bytes record = filledWith('#');
  setMoney(kCost, record, 125'000);
  EXPECT_EQ(allOf(record).substr(10, 8), "\x48\xE8\x01\0\0\0\0\0"sv);
}

TEST(Fields, TheBlankRecordHasBlanksInTextsAndZerosElsewhere) {
  Bytes record = filledWith('#');
  fillBlank(kFields, record);
  EXPECT_EQ(allOf(record), std::string(10, ' ') + std::string(12, '\0'));
}

TEST(Fields, ARecordWithoutKnownFieldsIsBlankedWithZeros) {
  Bytes record = filledWith('#');
  fillBlank({}, record);
  EXPECT_EQ(allOf(record), std::string(kLength, '\0'));
}

TEST(Fields, TheBlankAlbumHasBlanksInTextsAndZerosElsewhere) {
  MusicRecord record;
  std::ranges::fill(bytesOf(record), std::byte{'#'});
  fillBlank(kMusicFields, bytesOf(record));
  std::string expected(2372, ' ');
  expected.replace(2170, 22, 22, '\0');  // the two costs, HasBook, MediaType, CurrLoaned
  expected.replace(2282, 2, 2, '\0');    // BookLoaned
  expected.replace(2334, 2, 2, '\0');    // Genre
  EXPECT_EQ(allOf(bytesOf(record)), expected);
}

TEST(Fields, TheAlbumsFieldsAreThoseOfItsRecord) {
  const struct {
    std::string_view name;
    FieldType type;
    std::size_t offset;
    std::size_t width;
    std::size_t count;
  } rows[] = {
      {"Artist", FieldType::text, 0, 50, 1},        {"Album", FieldType::text, 50, 50, 1},
      {"RecordCo", FieldType::text, 100, 50, 1},    {"Songs", FieldType::text, 150, 50, 40},
      {"AquireDate", FieldType::text, 2150, 20, 1}, {"AquireCost", FieldType::money, 2170, 8, 1},
      {"CurrCost", FieldType::money, 2178, 8, 1},   {"HasBook", FieldType::flag, 2186, 2, 1},
      {"MediaType", FieldType::choice, 2188, 2, 1}, {"CurrLoaned", FieldType::flag, 2190, 2, 1},
      {"Borrower", FieldType::text, 2192, 50, 1},   {"DateLoaned", FieldType::text, 2242, 20, 1},
      {"DueDate", FieldType::text, 2262, 20, 1},    {"BookLoaned", FieldType::flag, 2282, 2, 1},
      {"Notes", FieldType::text, 2284, 50, 1},      {"Genre", FieldType::choice, 2334, 2, 1},
      {"BarCode", FieldType::text, 2336, 36, 1},
  };
  ASSERT_EQ(kMusicFields.size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const Field& field = kMusicFields.at(i);
    EXPECT_EQ(field.name, rows[i].name);
    EXPECT_EQ(field.type, rows[i].type) << field.name;
    EXPECT_EQ(field.offset, rows[i].offset) << field.name;
    EXPECT_EQ(field.width, rows[i].width) << field.name;
    EXPECT_EQ(field.count, rows[i].count) << field.name;
  }
  EXPECT_EQ(musicField("Borrower")->offset, 2192U);
}

TEST(Fields, TheAlbumsFieldsReadAndWriteItsMembers) {
  MusicRecord record{};
  const auto bytes = bytesOf(record);
  setText(*musicField("Artist"), bytes, "Nina Simone");
  setText(*musicField("Songs"), bytes, "Sinnerman", 39);
  setMoney(*musicField("CurrCost"), bytes, -12'500);
  setWhole(*musicField("Genre"), bytes, -1);
  setText(*musicField("BarCode"), bytes, std::string(40, '9'));
  EXPECT_EQ(record.Artist.view(), "Nina Simone" + std::string(39, ' '));
  EXPECT_EQ(record.Songs[39].view(), "Sinnerman" + std::string(41, ' '));
  EXPECT_EQ(record.Songs[38].view(), std::string(50, '\0'));
  EXPECT_EQ(record.CurrCost, -12'500);
  EXPECT_EQ(record.AquireCost, 0);
  EXPECT_EQ(record.Genre, -1);
  EXPECT_EQ(record.BarCode.view(), std::string(36, '9'));
  record.MediaType = 7;
  record.AquireCost = 1;
  EXPECT_EQ(wholeOf(*musicField("MediaType"), bytes), 7);
  EXPECT_EQ(moneyOf(*musicField("AquireCost"), bytes), 1);
}

TEST(Fields, TheAlbumsListsAreInTheOrderOfTheFileFormat) {
  const auto genres = musicField("Genre")->choices;
  ASSERT_EQ(genres.size(), 15U);
  EXPECT_EQ(genres.front(), "Alternative");
  EXPECT_EQ(genres[5], "Country");
  EXPECT_EQ(genres[11], "Popular/Top 40");
  EXPECT_EQ(genres.back(), "Soundtrack");
  const auto media = musicField("MediaType")->choices;
  ASSERT_EQ(media.size(), 8U);
  EXPECT_EQ(media.front(), "Compact Disc");
  EXPECT_EQ(media.back(), "Cart");
  EXPECT_TRUE(musicField("Artist")->choices.empty());
}

TEST(Blanks, TrailingOnesAreDropped) {
  EXPECT_EQ(withoutTrailingBlanks("abc   "), "abc");
  EXPECT_EQ(withoutTrailingBlanks("  a b "), "  a b");
  EXPECT_EQ(withoutTrailingBlanks("abc"), "abc");
  EXPECT_EQ(withoutTrailingBlanks("    "), "");
  EXPECT_EQ(withoutTrailingBlanks(""), "");
  EXPECT_EQ(withoutTrailingBlanks("abc\t "), "abc\t");
  EXPECT_EQ(withoutTrailingBlanks("abc \0 "sv), "abc \0"sv);
  EXPECT_EQ(withoutTrailingBlanks("abc\xA0"), "abc\xA0");
}

TEST(Blanks, TrailingOnesAreDroppedWhereverTheTextEnds) {
  for (std::size_t length = 0; length <= 40; ++length) {
    for (std::size_t blanks = 0; blanks <= length; ++blanks) {
      for (const char last : {'x', '\0', '!', '\xA0', '\x1F'}) {
        const std::string filled(length - blanks, last);
        const std::string text = filled + std::string(blanks, ' ');
        EXPECT_EQ(withoutTrailingBlanks(text), filled) << length << " " << blanks;
      }
    }
  }
}

TEST(Blanks, ThoseAroundAreDropped) {
  EXPECT_EQ(withoutBlanksAround("  abc   "), "abc");
  EXPECT_EQ(withoutBlanksAround("  a b "), "a b");
  EXPECT_EQ(withoutBlanksAround("abc"), "abc");
  EXPECT_EQ(withoutBlanksAround("    "), "");
  EXPECT_EQ(withoutBlanksAround(""), "");
  EXPECT_EQ(withoutBlanksAround("\tabc "), "\tabc");
}

TEST(Blanks, ATextIsShownUpToItsFirstNul) {
  EXPECT_EQ(upToNul("abc\0def"sv), "abc");
  EXPECT_EQ(upToNul("abc"), "abc");
  EXPECT_EQ(upToNul("abc  \0\0"sv), "abc  ");
  EXPECT_EQ(upToNul("\0abc"sv), "");
  EXPECT_EQ(upToNul(""), "");
}

}  // namespace
}  // namespace quillbox
