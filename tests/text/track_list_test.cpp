#include "text/track_list.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace quillbox {
namespace {

using Titles = std::vector<std::string>;

struct ListCase {
  const char* what;
  std::string text;
  Titles titles;
};

void PrintTo(const ListCase& list, std::ostream* out) { *out << list.what; }

const ListCase kLists[] = {
    {"plain lines", "So What\nBlue in Green", {"So What", "Blue in Green"}},
    {"line breaks of every kind",
     "a\r\nb\rc\nd\ve\ff\xE2\x80\xA8g\xE2\x80\xA9h",
     {"a", "b", "c", "d", "e", "f", "g", "h"}},
    {"blank lines", "\n\na\n \t\n\xC2\xA0\nb\n\n", {"a", "b"}},
    {"blanks around",
     "  a \n\tb\t\n\xC2\xA0"
     "c\xC2\xA0",
     {"a", "b", "c"}},
    {"what is copied along", "\xEF\xBB\xBFSide A\n\xEF\xBF\xBC\nb", {"Side A", "b"}},
    {"nothing", "", {}},
    {"nothing but blanks", " \n\t\r\n", {}},

    {"dots", "1. So What\n2. Freddie Freeloader", {"So What", "Freddie Freeloader"}},
    {"brackets", "3) So What\n4) All Blues", {"So What", "All Blues"}},
    {"hyphens", "01 - So What\n02 - All Blues", {"So What", "All Blues"}},
    {"dashes", "1 \xE2\x80\x93 So What\n2 \xE2\x80\x94 All Blues", {"So What", "All Blues"}},
    {"colons", "1: So What\n2: All Blues", {"So What", "All Blues"}},
    {"tabs", "1\tSo What\n2\tAll Blues", {"So What", "All Blues"}},
    {"noughts", "01 So What\n02 All Blues", {"So What", "All Blues"}},
    {"nothing but a blank behind", "1 One\n2 Two\n3 Three", {"One", "Two", "Three"}},
    {"past a hundred", "99. a\n100. b\n101. c", {"a", "b", "c"}},
    {"gaps", "1. a\n3. b\n7. c", {"a", "b", "c"}},
    {"a second disc",
     "Disc 1\n1. a\n2. b\n3. c\nDisc 2\n1. d\n2. e",
     {"Disc 1", "a", "b", "c", "Disc 2", "d", "e"}},
    {"numbers before numbers",
     "1. 1999\n2. 7 Seconds\n3. 99 Luftballons",
     {"1999", "7 Seconds", "99 Luftballons"}},
    {"blanks before numbers before numbers",
     "1 1999\n2 7 Seconds\n3 99 Luftballons",
     {"1999", "7 Seconds", "99 Luftballons"}},

    {"titles that are numbers", "1999\n2000\n2001", {"1999", "2000", "2001"}},
    {"titles that begin with numbers",
     "7 Seconds\n99 Luftballons\n50 Ways to Leave Your Lover",
     {"7 Seconds", "99 Luftballons", "50 Ways to Leave Your Lover"}},
    {"two that count by chance", "1 Thing\n2 Become 1", {"1 Thing", "2 Become 1"}},
    {"one title with a number and a dot",
     "Hallo Spaceboy\n1. Outside\nThe Motel",
     {"Hallo Spaceboy", "1. Outside", "The Motel"}},
    {"numbers that fall", "9. Symphony\n5. Symphony", {"9. Symphony", "5. Symphony"}},
    {"years", "1984 - Part One\n1985 - Part Two", {"1984 - Part One", "1985 - Part Two"}},
    {"fractions and times",
     "1.5 Degrees\n2.5 Degrees\n10:15 Saturday Night",
     {"1.5 Degrees", "2.5 Degrees", "10:15 Saturday Night"}},
    {"numbers alone", "1.\n2.", {"1.", "2."}},

    {"lengths", "So What 9:22\nBlue in Green 5:37", {"So What", "Blue in Green"}},
    {"lengths in brackets", "a (3:20)\nb [4:05]", {"a", "b"}},
    {"lengths behind tabs", "a\t3:20\nb\t14:05", {"a", "b"}},
    {"lengths behind dashes", "a - 3:20\nb \xE2\x80\x93 4:05", {"a", "b"}},
    {"lengths behind dots", "a ....... 3:20\nb..... 4:05\nWait... 4:06", {"a", "b", "Wait..."}},
    {"hours", "a 1:02:03\nb 59:59", {"a", "b"}},
    {"days", "a 1:02:03:04\nb 1:02:03:04", {"a 1:02:03:04", "b 1:02:03:04"}},
    {"a title that ends with a verse", "John 3:16\nPsalm", {"John 3:16", "Psalm"}},
    {"a verse before a length", "John 3:16 4:05\nPsalm 23:4 3:20", {"John 3:16", "Psalm 23:4"}},
    {"a title that is a length", "4:33\n4:34", {"4:33", "4:34"}},
    {"what is no length", "Odds 9:99\nEvens 1:2", {"Odds 9:99", "Evens 1:2"}},
    {"brackets of two kinds", "a (3:20]\nb [4:05)", {"a (3:20]", "b [4:05)"}},
    {"brackets that hold no length", "a (Live)\nb (1999)", {"a (Live)", "b (1999)"}},
    {"a letter that ends like a blank",
     "L\xC3\xA0"
     "4:05\nb\xC3\xA0"
     "3:20",
     {"L\xC3\xA0"
      "4:05",
      "b\xC3\xA0"
      "3:20"}},

    {"all of it",
     "1.\tSo What\tMiles Davis\t9:22\n2.\tBlue in Green\tBill Evans\t5:37",
     {"So What Miles Davis", "Blue in Green Bill Evans"}},
    {"one line", "1. So What 9:22\n", {"1. So What 9:22"}},
    {"most lines", "Side A\n1. a 3:20\n2. b 4:05", {"Side A", "a", "b"}},
    {"half of the lines", "1. a 3:20\nb", {"1. a 3:20", "b"}},
};

class TrackList : public testing::TestWithParam<ListCase> {};

TEST_P(TrackList, GivesItsTitles) { EXPECT_EQ(trackTitles(GetParam().text), GetParam().titles); }

INSTANTIATE_TEST_SUITE_P(Each, TrackList, testing::ValuesIn(kLists));

TEST(TrackListText, HasLineBreaksOrNone) {
  EXPECT_FALSE(hasLineBreaks(""));
  EXPECT_FALSE(hasLineBreaks("So What \t\xE2\x80\x93 9:22"));
  for (const char* text : {"a\nb", "a\r", "\v",
                           "a\xE2\x80\xA8"
                           "b",
                           "a\xE2\x80\xA9"})
    EXPECT_TRUE(hasLineBreaks(text)) << text;
}

/// Whatever is pasted, no title is empty, or begins or ends with a blank.
TEST(TrackListText, NeverGivesAnEmptyTitle) {
  const std::vector<std::string> parts = {"1",  ".", ")",    " ", "-",        "\t",
                                          "\n", ":", "4:05", "(", "\xC2\xA0", "a"};
  std::uint32_t state = 1;
  for (int round = 0; round < 20'000; ++round) {
    std::string text;
    for (int part = 0; part < 12; ++part) {
      state = state * 1'664'525 + 1'013'904'223;
      text += parts[(state >> 16) % parts.size()];
    }
    for (const std::string& title : trackTitles(text)) {
      ASSERT_FALSE(title.empty()) << text;
      ASSERT_NE(title.front(), ' ') << text;
      ASSERT_NE(title.back(), ' ') << text;
    }
  }
}

}  // namespace
}  // namespace quillbox
