#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "records/entered.h"
#include "support/search_form.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;

struct TextRow {
  std::string typed;
  std::string stored;
  bool found;
};

void expectTexts(const Input& input, std::span<const TextRow> rows) {
  for (const TextRow& row : rows)
    EXPECT_EQ(typed(input, row.typed).finds(Item(input.extension).text(input, row.stored)),
              row.found)
        << input << ": [" << row.typed << "] in [" << row.stored << "]";
}

TEST(SearchQuery, AnEmptyFormFindsEveryItemWithoutTicks) {
  for (const ModelKind& row : kModelKinds) {
    const SearchForm form(row.extension);
    EXPECT_TRUE(form.finds(Item(row.extension))) << row.extension;
    const std::vector<std::byte> zeros(kindOf(row.extension).recordLength);
    EXPECT_TRUE(form.query().matches(zeros)) << row.extension;
    Item full(row.extension);
    for (const Field& field : kindOf(row.extension).fields) full.put(field);
    for (const Input& box : inputsOf(FieldType::flag))
      if (box.extension == row.extension) full.whole(box, 0);
    EXPECT_TRUE(form.finds(full)) << row.extension;
  }
  for (const Input& box : inputsOf(FieldType::flag))
    EXPECT_FALSE(SearchForm(box.extension).finds(Item(box.extension).whole(box, 1))) << box;
}

TEST(SearchQuery, EveryInputLooksAtItsOwnFieldAndNoOther) {
  for (const Input& input : everyInput()) {
    SCOPED_TRACE(testing::Message() << input);
    const Field& field = fieldOf(input);
    const Item blank(input.extension);
    const Item right = Item(input.extension).put(field);
    const SearchForm form = SearchForm(input.extension).enter(wanted(field));
    EXPECT_TRUE(form.finds(right));
    EXPECT_FALSE(form.finds(blank));

    const Entered one[] = {wanted(field)};
    const Query alone(kindOf(input.extension), one, "M/d/yy");
    EXPECT_TRUE(alone.matches(right.bytes()));
    EXPECT_FALSE(alone.matches(blank.bytes()));
    EXPECT_FALSE(alone.matches(Item(input.extension).putAllBut(field).bytes()));
    EXPECT_TRUE(alone.matches(Item(input.extension).putAllBut(field).put(field).bytes()));
  }
}

TEST(SearchQuery, EveryConditionMustBeMet) {
  const Input artist = {"MCS", "Artist"};
  const Input cost = {"MCS", "CurrCost"};
  const Input genre = {"MCS", "Genre"};
  const Input box = {"MCS", "HasBook"};
  const SearchForm form =
      SearchForm("MCS").type(artist, "Miles").type(cost, "3").choose(genre, 4).tick(box);
  for (unsigned met = 0; met < 16; ++met) {
    Item item("MCS");
    if ((met & 1U) != 0) item.text(artist, "Miles");
    if ((met & 2U) != 0) item.money(cost, 30'000);
    if ((met & 4U) != 0) item.whole(genre, 4);
    if ((met & 8U) != 0) item.whole(box, 1);
    EXPECT_EQ(form.finds(item), met == 15) << met;
  }
}

TEST(SearchQuery, ATextIsComparedExactlyButForTheBlanksAtItsEnd) {
  const TextRow rows[] = {
      {"7 Steps", "7 Steps", true},      {"7 Steps   ", "7 Steps", true},
      {"7 steps", "7 Steps", false},     {"7 STEPS", "7 Steps", false},
      {"7 Step", "7 Steps", false},      {"7 Steps", "7 Step", false},
      {"Steps", "7 Steps", false},       {"7 Steps", "7 Steps to", false},
      {" 7 Steps", "7 Steps", false},    {"7 Steps", " 7 Steps", false},
      {"7  Steps", "7 Steps", false},    {"7 Caf\xE9", "7 Caf\xE9", true},
      {"7 Caf\xE9", "7 Caf\xC9", false}, {"7 Steps", "", false},
  };
  for (const Input& input : exactTexts()) expectTexts(input, rows);
}

TEST(SearchQuery, BlanksFindOnlyABlankField) {
  const TextRow rows[] = {
      {" ", "", true}, {"    ", "", true}, {" ", "7 Steps", false}, {" ", " x", false}};
  for (const Input& input : exactTexts()) expectTexts(input, rows);
}

TEST(SearchQuery, ATextOtherThanADateMayBeginWithAnything) {
  const TextRow rows[] = {{"Miles", "Miles", true},   {"Miles", "", false},
                          {" Miles", " Miles", true}, {" Miles", "", false},
                          {"01", "01", true},         {"\xC9t\xE9", "\xC9t\xE9", true}};
  const auto dates = everyDate();
  for (const Input& input : exactTexts())
    if (std::ranges::find(dates, input) == dates.end()) expectTexts(input, rows);
}

TEST(SearchQuery, ATypedTextIsCutToTheWidthOfItsField) {
  for (const Input& input : exactTexts()) {
    const std::size_t width = fieldOf(input).width;
    const std::string full(width, '7');
    const std::string oneLess(width - 1, '7');
    const TextRow rows[] = {{full, full, true},
                            {full, oneLess, false},
                            {oneLess, full, false},
                            {full + "8", full, true},
                            {full + std::string(200, ' ') + "8", full, true},
                            {oneLess + " 8", oneLess, true}};
    expectTexts(input, rows);
  }
}

TEST(SearchQuery, WhatIsPaddedWithNulsIsAnotherText) {
  for (const Input& input : inputsOf(FieldType::text)) {
    const std::size_t width = fieldOf(input).width;
    const std::string padded = "7 Steps" + std::string(width - 7, '\0');
    const std::string zeros(width, '\0');
    const TextRow rows[] = {{"7 Steps", padded, false},
                            {padded, padded, true},
                            {padded, "7 Steps", false},
                            {" ", zeros, false},
                            {"7 Steps", "7 Steps\0"s, false}};
    expectTexts(input, rows);
  }
}

TEST(SearchQuery, ADateThatBeginsWithNoDigitFromOneToNineIsLookedForAsBlanks) {
  const TextRow rows[] = {
      {"11/21/98", "11/21/98", true},
      {"11/21/98  ", "11/21/98", true},
      {"11/21/98", "11/21/1998", false},
      {"11/21/98", "", false},
      {"9 May", "9 May", true},
      {"9 May", "9 may", false},
      {"1", "1", true},
      {"yesterday", "", true},
      {"yesterday", "yesterday", false},
      {"01/02/98", "", true},
      {"01/02/98", "01/02/98", false},
      {" 1/2/98", "", true},
      {" 1/2/98", " 1/2/98", false},
      {" 1/2/98", "1/2/98", false},
      {"-1", "", true},
      {"   ", "", true},
      {"   ", "11/21/98", false},
  };
  for (const Input& input : everyDate()) {
    expectTexts(input, rows);
    for (int code = 0; code < 256; ++code) {
      const char first = static_cast<char>(code);
      const std::string date = first + "/2/98"s;
      const bool taken = first >= '1' && first <= '9';
      const TextRow either[] = {{date, date, taken}, {date, "", !taken}};
      expectTexts(input, either);
    }
  }
}

TEST(SearchQuery, TheNameOfAMediaFileIsComparedInCapitals) {
  const std::string full(64, 'x');
  const TextRow rows[] = {
      {"song.MP3", "SONG.mp3", true},
      {"SONG.mp3", "song.MP3", true},
      {"\xE9t\xE9.wav", "\xC9T\xC9.WAV", true},
      {"\xC9.wav", "\xE9.wav", true},
      {"\x9A\x9C\x9E", "\x8A\x8C\x8E", true},
      {"\xFF", "\x9F", true},
      {"\xE9", "e", false},
      {"\xDF", "ss", false},
      {"\xF7", "\xD7", false},
      {"[song]", "{song}", false},
      {"song", "song.mp3", false},
      {"song.mp3", "song", false},
      {"song.mp3 ", "song.mp3", false},
      {" song.mp3", "song.mp3", false},
      {" song.mp3", " SONG.mp3", true},
      {"a b", "A B", true},
      {" ", "", false},
      {" ", "song.mp3", false},
      {"", "song.mp3", true},
      {"", "", true},
      {full, full, true},
      {full + "x", full, false},
      {full, full.substr(1), false},
  };
  for (const Input& input : inputsOf(FieldType::text))
    if (input.name == "FileName") expectTexts(input, rows);
}

TEST(SearchQuery, ADateIsKnownByWhatItIsNotByWhereItsDescriptorStands) {
  const Field copied = *musicField("DueDate");
  const Entered soon[] = {{&copied, "soon"}};
  MusicRecord record;
  fillBlank(kMusicFields, bytesOf(record));
  const Query query(kindOf("MCS"), soon, "M/d/yy");
  EXPECT_TRUE(query.matches(bytesOf(record))) << "no digit: looked for as a blank date";
  record.DueDate = "soon";
  EXPECT_FALSE(query.matches(bytesOf(record)));
}

}  // namespace
}  // namespace quillbox::test
