#include "text/date_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "platform/run_time_error.h"
#include "support/failure.h"

namespace quillbox::test {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kForms[] = {"M/d/yy",     "M/d/yyyy", "MM/dd/yyyy", "dd/MM/yy",
                                       "dd.MM.yyyy", "d.M.yy",   "d MMM yyyy", "yyyy-MM-dd",
                                       "yy/MM/dd",   "d. M. yy"};
constexpr std::string_view kUnknownForm = "dddd, d. MMMM";

constexpr double kNewYear1980 = 29221.0;

int errorOf(std::string_view text, std::string_view form) {
  return failureOf([&] { dateOf(text, form); }).number;
}

TEST(DateOf, TheSystemsShortFormIsUnderstood) {
  const struct {
    std::string_view form;
    std::string_view text;
    double date;
  } rows[] = {
      {"M/d/yy", "1/1/80", 29221},          {"M/d/yy", "01/01/80", 29221},
      {"M/d/yy", "12/31/99", 36525},        {"M/d/yyyy", "1/1/1980", 29221},
      {"dd.MM.yyyy", "01.01.1980", 29221},  {"dd.MM.yyyy", "1.1.1980", 29221},
      {"dd.MM.yyyy", "31.12.1999", 36525},  {"d MMM yyyy", "1 Jan 1980", 29221},
      {"d MMM yyyy", "31 Dec 1999", 36525}, {"d MMM yyyy", "31 DEC 1999", 36525},
      {"d MMM yyyy", "31 dec 1999", 36525}, {"yyyy-MM-dd", "1980-01-01", 29221},
      {"yyyy-MM-dd", "1980-1-1", 29221},    {"yy/MM/dd", "80/01/01", 29221},
      {"d. M. yy", "31. 12. 99", 36525},    {"M/d/yy", "12/30/1899", 0},
      {"M/d/yy", "12/31/1899", 1},          {"M/d/yy", "12/29/1899", -1},
      {"M/d/yy", "1/1/0100", -657434},      {"M/d/yy", "12/31/9999", 2958465},
  };
  for (const auto& row : rows) EXPECT_EQ(dateOf(row.text, row.form), row.date) << row.text;
}

TEST(DateOf, AnyCharacterButLettersDigitsAndQuotesMayStandBetweenTheParts) {
  for (char between = ' '; between <= '~'; ++between) {
    const bool isLetter = (between >= 'a' && between <= 'z') || (between >= 'A' && between <= 'Z');
    const bool isDigit = between >= '0' && between <= '9';
    if (isLetter || isDigit || between == '\'' || between == '"') continue;
    const std::string c(1, between);
    EXPECT_EQ(dateText(29252, "d" + c + "M" + c + "yyyy"), "1" + c + "2" + c + "1980");
    EXPECT_EQ(dateOf("1" + c + "2" + c + "1980", "d" + c + "M" + c + "yyyy"), 29252) << c;
  }
}

TEST(DateOf, BlanksAroundTheFormAreNoPartOfIt) {
  constexpr double secondOfJanuary2000 = 36527.0;
  EXPECT_EQ(dateText(secondOfJanuary2000, " d/M/yy "), "2/1/00");
  EXPECT_EQ(dateOf("2/1/00", " d/M/yy "), secondOfJanuary2000);
}

TEST(DateOf, AMonthsNameIsItsFirstThreeLetters) {
  constexpr std::string_view names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  constexpr int firsts[] = {36161, 36192, 36220, 36251, 36281, 36312,
                            36342, 36373, 36404, 36434, 36465, 36495};
  for (std::size_t month = 0; month < std::size(names); ++month) {
    const std::string text = "1 " + std::string(names[month]) + " 1999";
    EXPECT_EQ(dateOf(text, "d MMM yyyy"), firsts[month]) << text;
    EXPECT_EQ(dateText(firsts[month], "d MMM yyyy"), text);
  }
  for (const char* text : {"1 Xyz 1999", "1 Ja 1999", "1 January 1999", "1  1999", "1 J"})
    EXPECT_EQ(errorOf(text, "d MMM yyyy"), 13) << text;
}

TEST(DateOf, TheFormMayBeTypedWithTwoOrFourDigitsInItsYear) {
  const struct {
    std::string_view form;
    std::string_view two;
    std::string_view four;
  } rows[] = {
      {"M/d/yy", "2/28/99", "2/28/1999"},         {"M/d/yyyy", "2/28/99", "2/28/1999"},
      {"dd.MM.yyyy", "28.02.99", "28.02.1999"},   {"dd.MM.yy", "28.2.99", "28.2.1999"},
      {"d MMM yyyy", "28 Feb 99", "28 Feb 1999"}, {"yyyy/MM/dd", "99/02/28", "1999/02/28"},
      {"yy/MM/dd", "99/02/28", "1999/02/28"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(dateOf(row.two, row.form), 36219) << row.two;
    EXPECT_EQ(dateOf(row.four, row.form), 36219) << row.four;
  }
}

TEST(DateOf, YearMonthDayAndMonthDayYearAreUnderstoodInEveryForm) {
  for (const std::string_view form : kForms) {
    EXPECT_EQ(dateOf("1/1/80", form), kNewYear1980) << form;
    EXPECT_EQ(dateOf("1/1/1980", form), kNewYear1980) << form;
    EXPECT_EQ(dateOf("01/01/1980", form), kNewYear1980) << form;
    EXPECT_EQ(dateOf("1980-01-01", form), kNewYear1980) << form;
    EXPECT_EQ(dateOf("1999-12-31", form), 36525) << form;
    EXPECT_EQ(dateOf("12/31/1999", form), 36525) << form;
  }
}

TEST(DateOf, AFormOfOtherLettersCountsAsYearMonthDay) {
  EXPECT_EQ(dateOf("1980-01-01", kUnknownForm), kNewYear1980);
  EXPECT_EQ(dateOf("80-01-01", kUnknownForm), kNewYear1980);
  EXPECT_EQ(dateOf("1/1/80", kUnknownForm), kNewYear1980);
  EXPECT_EQ(dateOf("12/31/1999", kUnknownForm), 36525);
  EXPECT_EQ(errorOf("Tuesday, 1. January", kUnknownForm), 13);
  for (const std::string_view form :
       {"d MMMM yyyy"sv, "ddd d/M/yy"sv, "M/d/y"sv, "M/d/yyy"sv, "d.M.yyyy G"sv, "D/M/YY"sv}) {
    EXPECT_EQ(dateText(kNewYear1980, form), "1980-01-01") << form;
    EXPECT_EQ(dateOf("1980-01-01", form), kNewYear1980) << form;
  }
}

TEST(DateOf, TheFormTellsWhichNumberIsTheDay) {
  EXPECT_EQ(dateOf("1/2/1999", "M/d/yy"), 36162);      // 2 January
  EXPECT_EQ(dateOf("1/2/1999", "dd/MM/yy"), 36192);    // 1 February
  EXPECT_EQ(dateOf("1/2/99", "dd/MM/yyyy"), 36192);    // 1 February
  EXPECT_EQ(dateOf("1.2.1999", "dd.MM.yyyy"), 36192);  // 1 February
  EXPECT_EQ(dateOf("1/2/1999", "dd.MM.yyyy"), 36162);  // not the form: month before day
  EXPECT_EQ(dateOf("1/13/1999", "dd/MM/yy"), 36173);   // no such month: month before day
  EXPECT_EQ(errorOf("13/1/1999", "M/d/yy"), 13);
}

TEST(DateOf, TwoDigitYearsAreThoseFrom1930To2029) {
  for (int year = 0; year <= 99; ++year) {
    const std::string two = {static_cast<char>('0' + year / 10),
                             static_cast<char>('0' + year % 10)};
    const std::string century = year >= 30 ? "19" : "20";
    for (const std::string_view form : {"M/d/yy"sv, "M/d/yyyy"sv, kUnknownForm})
      EXPECT_EQ(dateOf("7/4/" + two, form), dateOf("7/4/" + century + two, form)) << two;
  }
  EXPECT_EQ(dateOf("1/1/29", "M/d/yy"), 47119);
  EXPECT_EQ(dateOf("1/1/30", "M/d/yy"), 10959);
  EXPECT_EQ(dateOf("1/1/99", "M/d/yy"), 36161);
  EXPECT_EQ(dateOf("1/1/00", "M/d/yy"), 36526);
  EXPECT_EQ(dateOf("01.01.29", "dd.MM.yyyy"), 47119);
  EXPECT_EQ(dateOf("01.01.30", "dd.MM.yyyy"), 10959);
}

TEST(DateOf, ATimeOfDayIsThePartOfADay) {
  const struct {
    std::string_view text;
    int seconds;
  } rows[] = {
      {"12/1/1999 18:00", 64'800},       {"12/1/1999 0:00", 0},
      {"12/1/1999 00:00:00", 0},         {"12/1/1999 1:30 PM", 48'600},
      {"12/1/1999 1:30 pm", 48'600},     {"12/1/1999 1:30 AM", 5'400},
      {"12/1/1999 1:30 am", 5'400},      {"12/1/1999 13:30:05", 48'605},
      {"12/1/99 13:30:05", 48'605},      {"1999-12-01 13:30:05", 48'605},
      {"12/1/1999 1:30:05 PM", 48'605},  {"12/1/1999 12:00 AM", 0},
      {"12/1/1999 12:00 PM", 43'200},    {"12/1/1999 12:59:59 PM", 46'799},
      {"12/1/1999 23:59:59", 86'399},    {"12/1/1999 9:05", 32'700},
      {"  12/1/1999 9:05:00  ", 32'700},
  };
  for (const auto& row : rows) {
    const double expected = 36495 + row.seconds / 86'400.0;
    EXPECT_EQ(dateOf(row.text, "M/d/yy"), expected) << row.text;
    EXPECT_EQ(dateOf(row.text, "d MMM yyyy"), expected) << row.text;
  }
  EXPECT_EQ(dateOf("1 Dec 1999 18:00", "d MMM yyyy"), 36495.75);
  EXPECT_EQ(dateOf("1 Dec 99 6:00 PM", "d MMM yyyy"), 36495.75);
  EXPECT_EQ(dateOf("1. 12. 99 6:00 PM", "d. M. yy"), 36495.75);
}

TEST(DateOf, BeforeDayZeroTheTimeCountsForwardFromMidnightToo) {
  EXPECT_EQ(dateOf("12/29/1899 6:00", "M/d/yy"), -1.25);
  EXPECT_EQ(dateOf("12/30/1899 6:00", "M/d/yy"), 0.25);
  EXPECT_EQ(dateOf("12/28/1899 18:00", "M/d/yy"), -2.75);
}

TEST(DateOf, AnImpossibleTimeIsATypeMismatch) {
  for (const char* text :
       {"1/1/80 24:00",      "1/1/80 12:60",   "1/1/80 12:30:60", "1/1/80 12",
        "1/1/80 12:",        "1/1/80 :30",     "1/1/80 12:5",     "1/1/80 12:30:",
        "1/1/80 12:30:5",    "1/1/80 0:30 PM", "1/1/80 13:30 PM", "1/1/80 1:30 XM",
        "1/1/80 1:30 P",     "1/1/80 1:30PM",  "1/1/80 1:30  PM", "1/1/80 100:00",
        "1/1/80 12:30 PM x", "1/1/80 12:300",  "1/1/80 PM",       "1/1/80 -1:30",
        "1/1/80 12.30",      "18:00",          "1:30 PM"})
    EXPECT_EQ(errorOf(text, "M/d/yy"), 13) << text;
}

TEST(DateOf, BlanksAroundAreNoMatter) {
  for (const std::string_view form : kForms) {
    EXPECT_EQ(dateOf("  1/1/1980", form), kNewYear1980);
    EXPECT_EQ(dateOf("1/1/1980   ", form), kNewYear1980);
    EXPECT_EQ(dateOf(" 1980-01-01 ", form), kNewYear1980);
  }
}

TEST(DateOf, LeapDaysAreDatesInLeapYearsOnly) {
  EXPECT_EQ(dateOf("2/29/00", "M/d/yy"), 36585);
  EXPECT_EQ(dateOf("2/29/2000", "M/d/yy"), 36585);
  EXPECT_EQ(dateOf("29.02.1996", "dd.MM.yyyy"), 35124);
  EXPECT_EQ(dateOf("29 Feb 2024", "d MMM yyyy"), 45351);
  for (const char* text : {"2/29/1900", "2/29/99", "2/29/2023", "2/29/2100", "1999-02-29"})
    for (const std::string_view form : {"M/d/yy"sv, "dd.MM.yyyy"sv, kUnknownForm})
      EXPECT_EQ(errorOf(text, form), 13) << text;
}

TEST(DateOf, WhatIsNoDateIsATypeMismatch) {
  for (const std::string_view text :
       {"2/30/99"sv,  "13/13/99"sv,   "0/1/99"sv,      "1/0/99"sv,
        "4/31/99"sv,  "32/1/99"sv,    "soon"sv,        ""sv,
        " "sv,        "    "sv,       "1/1"sv,         "1/1/"sv,
        "1/1/8"sv,    "1/1/198"sv,    "1/1/19800"sv,   "1/1/80x"sv,
        "1/1/80 x"sv, "x1/1/80"sv,    "1/1/80/"sv,     "1/1/80 1/1/80"sv,
        "1/1/80."sv,  "1/ 1/80"sv,    "1 /1/80"sv,     "1//80"sv,
        "/1/80"sv,    "001/1/80"sv,   "1/001/80"sv,    "-1/1/80"sv,
        "1/-1/80"sv,  "+1/1/80"sv,    "29221"sv,       "1980"sv,
        "1980-01"sv,  "1980-13-01"sv, "1980-00-10"sv,  "1980-01-01-"sv,
        "1/1/0099"sv, "1/1/0000"sv,   "0000-01-01"sv,  "1/1/80\0"sv,
        "1\0/1/80"sv, "\xB2/1/80"sv,  "1/1/1980 18"sv, "yesterday"sv,
        "M/d/yy"sv}) {
    EXPECT_EQ(errorOf(text, "M/d/yy"), 13) << '"' << text << '"';
    EXPECT_EQ(errorOf(text, "dd.MM.yyyy"), 13) << '"' << text << '"';
    EXPECT_EQ(errorOf(text, "d MMM yyyy"), 13) << '"' << text << '"';
    EXPECT_EQ(errorOf(text, kUnknownForm), 13) << '"' << text << '"';
  }
}

TEST(DateOf, TheErrorNamesNoFile) {
  const Failure failure = failureOf([] { dateOf("soon", "M/d/yy"); });
  EXPECT_EQ(failure, (Failure{13, ""}));
}

TEST(DateOf, ALongTextIsRefusedToo) {
  EXPECT_EQ(errorOf(std::string(10'000, '1'), "M/d/yy"), 13);
  EXPECT_EQ(errorOf("1/1/80" + std::string(2'000, ' ') + "x", "M/d/yy"), 13);
}

TEST(DateText, IsTheSystemsShortForm) {
  const struct {
    double date;
    std::string_view form;
    std::string_view text;
  } rows[] = {
      {29221, "M/d/yy", "1/1/80"},
      {29221, "M/d/yyyy", "1/1/1980"},
      {29221, "MM/dd/yyyy", "01/01/1980"},
      {29221, "dd.MM.yyyy", "01.01.1980"},
      {29221, "dd.MM.yy", "01.01.80"},
      {29221, "d MMM yyyy", "1 Jan 1980"},
      {29221, "yyyy-MM-dd", "1980-01-01"},
      {29221, "d. M. yy", "1. 1. 80"},
      {29221, kUnknownForm, "1980-01-01"},
      {36525, "M/d/yy", "12/31/99"},
      {36525, "dd.MM.yyyy", "31.12.1999"},
      {36526, "M/d/yy", "1/1/00"},
      {36585, "M/d/yy", "2/29/00"},
      {36526.75, "M/d/yy", "1/1/00 18:00"},
      {36526.75, "d MMM yyyy", "1 Jan 2000 18:00"},
      {36526.75, kUnknownForm, "2000-01-01 18:00"},
  };
  for (const auto& row : rows) EXPECT_EQ(dateText(row.date, row.form), row.text) << row.form;
}

TEST(DateText, AYearThatTwoDigitsWouldNotBringBackHasFour) {
  EXPECT_EQ(dateText(10958, "M/d/yy"), "12/31/1929");
  EXPECT_EQ(dateText(10959, "M/d/yy"), "1/1/30");
  EXPECT_EQ(dateText(47483, "M/d/yy"), "12/31/29");
  EXPECT_EQ(dateText(47484, "M/d/yy"), "1/1/2030");
  EXPECT_EQ(dateText(47484, "dd.MM.yyyy"), "01.01.2030");
  EXPECT_EQ(dateText(47484.25, "dd.MM.yy"), "01.01.2030 6:00");
  EXPECT_EQ(dateText(-657434, "M/d/yy"), "1/1/0100");
  EXPECT_EQ(dateText(-657434, "yyyy-MM-dd"), "0100-01-01");
}

TEST(DateText, ATimeThatIsNotMidnightFollowsWithItsSecondsIfItHasAny) {
  const struct {
    int seconds;
    std::string_view text;
  } rows[] = {
      {0, "1/1/80"},
      {1, "1/1/80 0:00:01"},
      {59, "1/1/80 0:00:59"},
      {60, "1/1/80 0:01"},
      {32'700, "1/1/80 9:05"},
      {43'200, "1/1/80 12:00"},
      {48'600, "1/1/80 13:30"},
      {48'605, "1/1/80 13:30:05"},
      {86'399, "1/1/80 23:59:59"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(dateText(29221 + row.seconds / 86'400.0, "M/d/yy"), row.text) << row.seconds;
}

TEST(DateText, TheTimeIsRoundedToTheSecondAndMayRoundToTheNextDay) {
  EXPECT_EQ(dateText(29221.9999999, "M/d/yy"), "1/2/80");
  EXPECT_EQ(dateText(29220.9999999, "M/d/yy"), "1/1/80");
  EXPECT_EQ(dateText(36525.9999999, "dd.MM.yyyy"), "01.01.2000");
  EXPECT_EQ(dateText(47483.9999999, "M/d/yy"), "1/1/2030");
  EXPECT_EQ(dateText(10958.9999999, "M/d/yy"), "1/1/30");
  EXPECT_EQ(dateText(29221 + 86'399.4 / 86'400, "M/d/yy"), "1/1/80 23:59:59");
  EXPECT_EQ(dateText(29221 + 86'399.6 / 86'400, "M/d/yy"), "1/2/80");
  EXPECT_EQ(dateText(29221.0000001, "M/d/yy"), "1/1/80");
  EXPECT_EQ(dateText(29221 + 0.6 / 86'400, "M/d/yy"), "1/1/80 0:00:01");
}

TEST(DateText, DayZeroAndTheDaysBeforeItAreDates) {
  EXPECT_EQ(dateText(0.0, "M/d/yy"), "12/30/1899");
  EXPECT_EQ(dateText(-0.0, "M/d/yy"), "12/30/1899");
  EXPECT_EQ(dateText(0.25, "M/d/yy"), "12/30/1899 6:00");
  EXPECT_EQ(dateText(-1, "M/d/yy"), "12/29/1899");
  EXPECT_EQ(dateText(-1.25, "M/d/yy"), "12/29/1899 6:00");
  EXPECT_EQ(dateText(-2.75, "dd.MM.yyyy"), "28.12.1899 18:00");
  EXPECT_EQ(dateText(-1.9999999, "M/d/yy"), "12/30/1899");
  EXPECT_EQ(dateText(-657434, "M/d/yyyy"), "1/1/0100");
}

TEST(DateText, WhatIsNoDateIsAnEmptyText) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const double date :
       {std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::quiet_NaN(),
        infinity, -infinity, 1e300, -1e300, 1e9, -1e9, 1e18, -1e18, 4e6, -4e6, 2958466.0,
        2958465.9999999, -657435.0, -657435.5, std::numeric_limits<double>::max()})
    for (const std::string_view form : {"M/d/yy"sv, "dd.MM.yyyy"sv, kUnknownForm})
      EXPECT_EQ(dateText(date, form), "") << date;
  EXPECT_EQ(dateText(2958465, "M/d/yy"), "12/31/9999");
  EXPECT_EQ(dateText(2958465 + 86'399 / 86'400.0, "M/d/yy"), "12/31/9999 23:59:59");
  EXPECT_EQ(dateText(5e-324, "M/d/yy"), "12/30/1899");
}

TEST(DateText, IsUnderstoodAgainForEveryDayOfTwoCenturies) {
  constexpr int first = 2;      // 1 January 1900
  constexpr int last = 73'415;  // 31 December 2100
  ASSERT_EQ(dateText(first, "yyyy-MM-dd"), "1900-01-01");
  ASSERT_EQ(dateText(last, "yyyy-MM-dd"), "2100-12-31");
  for (const std::string_view form :
       {"M/d/yy"sv, "dd/MM/yy"sv, "dd.MM.yyyy"sv, "d MMM yyyy"sv, "yyyy-MM-dd"sv, kUnknownForm})
    for (int day = first; day <= last; ++day)
      ASSERT_EQ(dateOf(dateText(day, form), form), day) << form << ' ' << dateText(day, form);
}

TEST(DateText, IsUnderstoodAgainWithEveryTimeToTheSecond) {
  for (const std::string_view form : kForms)
    for (int second = 0; second < 86'400; second += 97) {
      const int day = second % 73'000 + 2;
      const double date = day + second / 86'400.0;
      ASSERT_EQ(dateOf(dateText(date, form), form), date) << form << ' ' << dateText(date, form);
    }
  for (int second = 0; second < 86'400; ++second) {
    const double date = kNewYear1980 + second / 86'400.0;
    ASSERT_EQ(dateOf(dateText(date, "M/d/yy"), "M/d/yy"), date) << second;
  }
}

TEST(DateText, IsUnderstoodAgainBeforeDayZeroAndInFarYears) {
  for (const double date : {-1.0, -1.25, -2.75, -36'000.5, -657'434.0, -657'434.75, 0.0, 0.5,
                            2'958'465.0, 2'958'465.5, 100'000.25})
    for (const std::string_view form : kForms)
      EXPECT_EQ(dateOf(dateText(date, form), form), date) << form << ' ' << dateText(date, form);
}

TEST(DateText, AFormThatNoRecordCanHoldCountsAsYearMonthDay) {
  for (const char* form :
       {"d.MM.yy '\xD0\xB3.'", "d\xE2\x80\x8F/M\xE2\x80\x8F/yyyy", "d.\xC2\xA0M.\xC2\xA0yyyy",
        "'d'.M.yy", "d.M.yy ''", "d \"M\" yy", "d.M.yy 2", "d\tM\tyy", "d\x7FM\x7Fyy"}) {
    SCOPED_TRACE(form);
    EXPECT_EQ(dateText(29221, form), "1980-01-01");
    EXPECT_EQ(dateOf(dateText(29221, form), form), 29221);
  }
}

TEST(DateText, AFormWithoutADayAMonthOrAYearCountsAsYearMonthDay) {
  for (const char* form : {"", "M/d", "yyyy", "d.yyyy"}) {
    SCOPED_TRACE(form);
    EXPECT_EQ(dateText(29221, form), "1980-01-01");
    EXPECT_EQ(dateOf("1980-01-01", form), 29221);
  }
}

TEST(DateIn, IsTheDateThatATextIsOrNothing) {
  EXPECT_EQ(dateIn("1/1/80", "M/d/yy"), kNewYear1980);
  for (const std::string_view text : {"", " ", "soon", "13/13/80", "1/1"})
    EXPECT_EQ(dateIn(text, "M/d/yy"), std::nullopt) << text;
}

TEST(YearOf, IsThatOfADateThatIsShown) {
  EXPECT_EQ(yearOf(kNewYear1980), 1980);
  EXPECT_EQ(yearOf(kNewYear1980 - 0.000001), 1980);
  EXPECT_EQ(yearOf(kNewYear1980 - 1), 1979);
  EXPECT_EQ(yearOf(-657434), 100);
  EXPECT_EQ(yearOf(2958465.5), 9999);
  for (const double none : {-657435.0, 2958466.0, 1e300, std::nan("")})
    EXPECT_EQ(yearOf(none), std::nullopt) << none;
}

}  // namespace
}  // namespace quillbox::test
