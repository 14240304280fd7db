#include "sortsearch/sort_slots.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "records/field.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;

constexpr Field kName = {"Name", FieldType::text, 0, 4};
constexpr Field kOther = {"Other", FieldType::text, 4, 4};
constexpr Field kPlace = {"Place", FieldType::choice, 8, 2};
constexpr Field kFlag = {"Flag", FieldType::flag, 10, 2};
constexpr std::size_t kLength = 13;
constexpr std::size_t kTagAt = 12;

/// Slots filled with items of these names; an empty name is a record of zero bytes.
SortSlots slotsNamed(const std::vector<std::string>& names) {
  SortSlots slots(static_cast<int>(names.size()), kLength);
  for (std::size_t i = 0; i < names.size(); ++i)
    if (!names[i].empty()) setText(kName, slots.record(static_cast<int>(i) + 1), names[i]);
  return slots;
}

std::string nameIn(SortSlots& slots, int slot) {
  return std::string(withoutTrailingBlanks(textOf(kName, slots.record(slot))));
}

std::vector<std::string> namesIn(SortSlots& slots) {
  std::vector<std::string> names;
  for (int slot = 1; slot <= slots.count(); ++slot) names.push_back(nameIn(slots, slot));
  return names;
}

/// Slots written as a picture: "A--B" is an item A, two records of zero bytes and an item B.
SortSlots slotsOf(std::string_view picture) {
  std::vector<std::string> names;
  for (const char c : picture) names.emplace_back(c == '-' ? ""s : std::string(1, c));
  return slotsNamed(names);
}

std::string picture(SortSlots& slots, int first, int last) {
  std::string shown;
  for (int slot = first; slot <= last; ++slot) {
    const char c = textOf(kName, slots.record(slot)).front();
    shown += c == '\0' ? '-' : c;
  }
  return shown;
}

std::string counted(SortSlots& slots) { return picture(slots, 1, slots.count()); }

int repetitionsOf(SortSlots& slots, const Field& key) {
  int repetitions = 0;
  slots.exchangeSort(key, [&] { ++repetitions; });
  return repetitions;
}

void exchangeSort(SortSlots& slots, const Field& key) {
  slots.exchangeSort(key, [] {});
}

/// What remains of items after a complete sort by their names.
std::vector<std::string> sortedNames(const std::vector<std::string>& names) {
  SortSlots slots = slotsNamed(names);
  slots.compact(kName);
  exchangeSort(slots, kName);
  slots.compact(kName);
  return namesIn(slots);
}

TEST(SortSlotsCompaction, EverySecondOfAdjacentBlanksGoes) {
  const struct {
    std::string_view before;
    std::string_view after;  // the sentinels included
    int count;
  } rows[] = {
      {"", "--", 0},
      {"A", "A--", 1},
      {"AB", "AB--", 2},
      {"A-B", "AB---", 2},
      {"A--B", "A-B---", 2},
      {"A---B", "A-B----", 2},
      {"A----B", "A--B----", 2},
      {"A-----B", "A--B-----", 2},
      {"-A", "A---", 1},
      {"--A", "-A---", 1},
      {"---A", "-A----", 1},
      {"----A", "--A----", 1},
      {"A-", "A---", 1},
      {"A--", "A----", 1},
      {"A----", "A------", 1},
      {"-", "---", 0},
      {"----", "------", 0},
      {"A-B-C", "ABC----", 3},
      {"A--B--C", "A-B-C----", 3},
      {"A--B-C--D", "A-BC-D-----", 4},
  };
  for (const auto& row : rows) {
    SortSlots slots = slotsOf(row.before);
    const int all = slots.count() + 2;
    slots.compact(kName);
    EXPECT_EQ(picture(slots, 1, all), row.after) << row.before;
    EXPECT_EQ(slots.count(), row.count) << row.before;
  }
}

TEST(SortSlotsCompaction, AWholeSortTakesOutUpToThreeAdjacentBlanksAndMoreOfThemCostItems) {
  const struct {
    std::string_view before;
    std::string_view sorted;
    std::string_view notSorted;  // when no box is ticked
  } rows[] = {
      {"B-A", "AB", "BA"},
      {"B--A", "AB", "BA"},
      {"B---A", "AB", "BA"},
      {"D---CBA", "ABCD", "DCBA"},
      {"---BA", "AB", "BA"},
      {"BA---", "AB", "BA"},
      {"BA----", "AB", "BA"},
      {"-C-B-A-", "ABC", "CBA"},
      {"-", "", ""},
      {"-----", "", ""},
      // B is after the sentinel's slot and out of reach; a blank slot is counted instead.
      {"A----B", "-", "A"},
      {"A----BCD", "-AB", "A-B"},
      {"----A", "", ""},
      // Two runs of two leave two blank slots as well.
      {"A--B--C", "-A", "AB"},
  };
  for (const auto& row : rows) {
    SortSlots sorted = slotsOf(row.before);
    sorted.compact(kName);
    exchangeSort(sorted, kName);
    sorted.compact(kName);
    EXPECT_EQ(counted(sorted), row.sorted) << row.before;

    SortSlots notSorted = slotsOf(row.before);
    notSorted.compact(kName);
    notSorted.compact(kName);
    EXPECT_EQ(counted(notSorted), row.notSorted) << row.before;
  }
}

TEST(SortSlotsCompaction, TheFirstByteOfTheTestFieldMakesABlank) {
  SortSlots slots = slotsNamed({"A", "B", " ", "\x01", "C"});
  slots.record(2)[0] = std::byte{0};
  setText(kOther, slots.record(2), "full");
  setWhole(kPlace, slots.record(2), 7);
  slots.record(5)[1] = std::byte{0};
  slots.compact(kName);
  EXPECT_EQ(namesIn(slots), (std::vector{"A"s, ""s, "\x01"s, "C\0"s}));
}

TEST(SortSlotsCompaction, TheTestFieldIsTheOneAskedFor) {
  SortSlots slots = slotsNamed({"A", "B", "C"});
  setText(kOther, slots.record(1), "x");
  setText(kOther, slots.record(3), "z");
  slots.compact(kOther);
  EXPECT_EQ(counted(slots), "AC");
}

TEST(SortSlotsCompaction, NewSlotsAreZeroBytesAndTheSentinelsStayThatWay) {
  SortSlots slots(2, kLength);
  EXPECT_EQ(slots.count(), 2);
  const std::vector<std::byte> zeros(kLength);
  for (int slot = 1; slot <= 4; ++slot) {
    EXPECT_EQ(slots.record(slot).size(), kLength);
    EXPECT_EQ(std::memcmp(slots.record(slot).data(), zeros.data(), kLength), 0) << slot;
  }
  setText(kName, slots.record(1), "A");
  setText(kName, slots.record(2), "B");
  EXPECT_EQ(picture(slots, 1, 4), "AB--");
}

TEST(SortSlotsOrder, TheFirstSentinelTravelsToTheFrontAndTheLastItemBehindTheOthers) {
  SortSlots slots = slotsOf("CAB");
  exchangeSort(slots, kName);
  EXPECT_EQ(slots.count(), 3);
  EXPECT_EQ(picture(slots, 1, 5), "-ABC-");
  slots.compact(kName);
  EXPECT_EQ(counted(slots), "ABC");
}

TEST(SortSlotsOrder, ABlankItemTravelsToTheFrontAsWell) {
  SortSlots slots = slotsOf("C-A");
  exchangeSort(slots, kName);
  EXPECT_EQ(picture(slots, 1, 5), "--AC-");
}

TEST(SortSlotsOrder, SlotsBehindTheFirstOneThatDoesNotCountStay) {
  SortSlots slots = slotsOf("Z----BYA");
  slots.compact(kName);
  ASSERT_EQ(slots.count(), 4);
  ASSERT_EQ(picture(slots, 1, 10), "Z--BYA----");
  exchangeSort(slots, kName);
  EXPECT_EQ(picture(slots, 1, 10), "--BYZA----");
}

TEST(SortSlotsOrder, WholeRecordsMove) {
  SortSlots slots = slotsOf("BA");
  setText(kOther, slots.record(1), "of B");
  setText(kOther, slots.record(2), "of A");
  slots.record(1)[kTagAt] = std::byte{'b'};
  slots.record(2)[kTagAt] = std::byte{'a'};
  exchangeSort(slots, kName);
  EXPECT_EQ(textOf(kOther, slots.record(2)), "of A");
  EXPECT_EQ(textOf(kOther, slots.record(3)), "of B");
  EXPECT_EQ(slots.record(2)[kTagAt], std::byte{'a'});
  EXPECT_EQ(slots.record(3)[kTagAt], std::byte{'b'});
}

TEST(SortSlotsOrder, EqualKeysKeepTheirOrder) {
  SortSlots slots = slotsOf("DBEAC");
  for (int slot = 1; slot <= 5; ++slot) setText(kOther, slots.record(slot), slot % 2 ? "x" : "m");
  exchangeSort(slots, kOther);
  slots.compact(kName);
  EXPECT_EQ(counted(slots), "BADEC");
}

TEST(SortSlotsOrder, HoweverManyKeysAreEqualTheyKeepTheirOrder) {
  constexpr int count = 1'000;
  std::vector<std::string> names;
  for (int n = 0; n < count; ++n) names.push_back(std::to_string(count + n));
  SortSlots slots = slotsNamed(names);
  const auto keyOf = [](int n) { return std::string(1, static_cast<char>('a' + n * 7 % 5)); };
  for (int n = 0; n < count; ++n) setText(kOther, slots.record(n + 1), keyOf(n));
  exchangeSort(slots, kOther);
  slots.compact(kName);
  std::vector<std::string> expected;
  for (char key = 'a'; key < 'a' + 5; ++key)
    for (int n = 0; n < count; ++n)
      if (keyOf(n).front() == key) expected.push_back(names[static_cast<std::size_t>(n)]);
  EXPECT_EQ(namesIn(slots), expected);
}

TEST(SortSlotsOrder, ALetterAndItsCapitalAreEqual) {
  const struct {
    char small;
    char capital;
  } rows[] = {{'a', 'A'},       {'z', 'Z'},       {'\xE9', '\xC9'}, {'\xFF', '\x9F'},
              {'\x9A', '\x8A'}, {'\x9C', '\x8C'}, {'\x9E', '\x8E'}, {'\xE0', '\xC0'},
              {'\xF8', '\xD8'}, {'\xFE', '\xDE'}};
  for (const auto& row : rows) {
    const std::string small(2, row.small);
    const std::string capital(2, row.capital);
    EXPECT_EQ(sortedNames({small, capital}), (std::vector{small, capital})) << row.capital;
    EXPECT_EQ(sortedNames({capital, small}), (std::vector{capital, small})) << row.capital;
  }
}

TEST(SortSlotsOrder, TextsCompareByteByByteInCapitals) {
  // Each left one precedes the right one.
  const std::pair<std::string, std::string> rows[] = {
      {"A", "B"},
      {"a", "B"},
      {"A", "b"},
      {"a", "_"},
      {"Z", "["},
      {"z", "["},
      {"9", "A"},
      {"~", "\x80"},
      {"Z", "\xC9"},
      {"Z", "\xE9"},
      {"\xC8", "\xE9"},
      {"\xE8", "\xC9"},
      {"\xFF", "\xA0"},
      {"\xFF", "\xC0"},
      {"\x9E", "\x91"},
      {"\xD7", "\xF7"},
      {"\xDE", "\xF7"},
      {"\xFE", "\xDF"},
      {"\x83", "\x84"},
      {"\xB5", "\xB6"},
      {"A", "AA"},
      {"A\x1F", "A"},
      {"A\x1F", "A "},
      {"A"s + '\0', "A"},
      {"A", "A!"},
      {"AB", "AB!"},
      {" Z", "A"},
      {"ABCA", "ABCB"},
      {"abca", "ABCB"},
      {"A"s + '\0' + "Z",
       "A"
       "\x01"},
  };
  for (const auto& [first, second] : rows) {
    const std::vector inOrder = sortedNames({first, second});
    EXPECT_EQ(inOrder, sortedNames({second, first})) << first << " and " << second;
    ASSERT_EQ(inOrder.size(), 2U);
    EXPECT_EQ(inOrder.back(), std::string(withoutTrailingBlanks(second))) << first;
  }
}

TEST(SortSlotsOrder, OnlyTheKeyIsCompared) {
  SortSlots slots = slotsOf("BA");
  setText(kOther, slots.record(1), "same");
  setText(kOther, slots.record(2), "SAME");
  setWhole(kPlace, slots.record(1), 2);
  setWhole(kPlace, slots.record(2), 1);
  exchangeSort(slots, kOther);
  EXPECT_EQ(picture(slots, 1, 4), "-BA-");
}

TEST(SortSlotsOrder, FlagsAndChoicesCompareAsSignedNumbers) {
  for (const Field& key : {kFlag, kPlace}) {
    SortSlots slots = slotsOf("ABCDEFGH");
    const int values[] = {1, 0, -1, 32767, -32768, 256, 255, -256};
    for (int slot = 1; slot <= 8; ++slot)
      setWhole(key, slots.record(slot), static_cast<std::int16_t>(values[slot - 1]));
    exchangeSort(slots, key);
    EXPECT_EQ(picture(slots, 1, 10), "EHCB-AGFD-") << key.name;
    slots.compact(kName);
    EXPECT_EQ(counted(slots), "EHCBAGFD") << key.name;
  }
}

TEST(SortSlotsOrder, TheSentinelComesBehindItemsThatAreEqualToIt) {
  SortSlots slots = slotsOf("ABC");
  setWhole(kFlag, slots.record(1), 0);
  setWhole(kFlag, slots.record(2), -1);
  setWhole(kFlag, slots.record(3), 0);
  exchangeSort(slots, kFlag);
  EXPECT_EQ(picture(slots, 1, 5), "BAC--");
}

TEST(SortSlotsRepetitions, ATextGoesOnUntilTheSentinelIsInFront) {
  const struct {
    std::string_view before;
    int repetitions;
  } rows[] = {{"", 1}, {"A", 2}, {"AB", 3}, {"BA", 3}, {"ABCDE", 6}, {"EDCBA", 6}, {"-", 1}};
  for (const auto& row : rows) {
    SortSlots slots = slotsOf(row.before);
    EXPECT_EQ(repetitionsOf(slots, kName), row.repetitions) << row.before;
  }
}

TEST(SortSlotsRepetitions, WhatIsInOrderIsGoneThroughOnce) {
  SortSlots slots = slotsOf("CBA");
  EXPECT_EQ(repetitionsOf(slots, kName), 4);
  EXPECT_EQ(repetitionsOf(slots, kName), 1);
  EXPECT_EQ(picture(slots, 1, 5), "-ABC-");
}

TEST(SortSlotsRepetitions, AnItemGoesForwardByOneSlotInEach) {
  const struct {
    std::vector<int> values;  // the sentinel's is 0
    int repetitions;
  } rows[] = {{{-1}, 1},        {{0}, 1},           {{1}, 2},     {{0, 0, 0}, 1},
              {{-2, -1, 0}, 1}, {{-1, -2, -3}, 3},  {{1, 1}, 3},  {{0, -1}, 2},
              {{3, 2, -1}, 3},  {{0, 0, 0, -1}, 4}, {{5, -1}, 2}, {{0, -1, -1, -1}, 2}};
  for (const auto& row : rows) {
    SortSlots slots = slotsNamed(std::vector<std::string>(row.values.size(), "A"));
    for (std::size_t i = 0; i < row.values.size(); ++i)
      setWhole(kPlace, slots.record(static_cast<int>(i) + 1),
               static_cast<std::int16_t>(row.values[i]));
    EXPECT_EQ(repetitionsOf(slots, kPlace), row.repetitions) << testing::PrintToString(row.values);
  }
}

}  // namespace
}  // namespace quillbox::test
