#include "text/number_text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "platform/run_time_error.h"

namespace quillbox {
namespace {

using namespace std::string_view_literals;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

/// The number of the error that ends the call; 0 when there is none.
template <typename Call>
int errorOf(const Call& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return static_cast<int>(error.number());
  }
  return 0;
}

TEST(NumberText, ANumberThatIsNotNegativeHasABlankBeforeIt) {
  EXPECT_EQ(numberText(0), " 0");
  EXPECT_EQ(numberText(5), " 5");
  EXPECT_EQ(numberText(32767), " 32767");
  EXPECT_EQ(numberText(INT_MAX), " 2147483647");
  EXPECT_EQ(numberText(-1), "-1");
  EXPECT_EQ(numberText(-32768), "-32768");
  EXPECT_EQ(numberText(INT_MIN), "-2147483648");
}

TEST(NumberText, OfAWholeNumberIsAppended) {
  std::string text = "Record";
  appendNumberText(text, 7);
  appendNumberText(text, -12);
  EXPECT_EQ(text, "Record 7-12");
}

TEST(NumberText, AmountsAreDecimalWithoutTrailingZeros) {
  const struct {
    std::int64_t amount;
    std::string_view plain;
    std::string_view withSign;
  } rows[] = {
      {0, "0", " 0"},
      {5'000, "0.5", " 0.5"},
      {-5'000, "-0.5", "-0.5"},
      {120'000, "12", " 12"},
      {-12'500, "-1.25", "-1.25"},
      {1, "0.0001", " 0.0001"},
      {-1, "-0.0001", "-0.0001"},
      {10, "0.001", " 0.001"},
      {100, "0.01", " 0.01"},
      {1'000, "0.1", " 0.1"},
      {10'000, "1", " 1"},
      {10'001, "1.0001", " 1.0001"},
      {10'010, "1.001", " 1.001"},
      {100'000, "10", " 10"},
      {1'000'000, "100", " 100"},
      {159'900, "15.99", " 15.99"},
      {12'345'678, "1234.5678", " 1234.5678"},
      {10'000'000'000, "1000000", " 1000000"},
      {kMost, "922337203685477.5807", " 922337203685477.5807"},
      {kLeast, "-922337203685477.5808", "-922337203685477.5808"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(plainAmount(row.amount), row.plain);
    EXPECT_EQ(signedAmount(row.amount), row.withSign);
    EXPECT_EQ(leadingAmount(row.plain), row.amount);
    EXPECT_EQ(leadingAmount(row.withSign), row.amount);
  }
}

TEST(RealText, IsDecimalWithoutAnExponent) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  const struct {
    double number;
    std::string_view text;
  } rows[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {12345, "12345"},
      {1234567890123, "1234567890123"},
      {999999999999999, "999999999999999"},
      {4294967296, "4294967296"},
      {100, "100"},
      {1e14, "100000000000000"},
      {0.5, "0.5"},
      {0.1, "0.1"},
      {1.25, "1.25"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {2000.0 / 3, "666.666666666667"},
      {0.00001, "0.00001"},
      {1.5e-20, "0.000000000000000000015"},
      {1e15, "1000000000000000"},
      {999999999999999.9, "1000000000000000"},
      {1e15 + 0.25, "1000000000000000"},
      {9007199254740991, "9007199254740991"},
      {9007199254740992, "9007199254740992"},
      {18446744073709551616.0, "18446744073709551616"},
      {1e22, "10000000000000000000000"},
      {-1, "-1"},
      {-12345, "-12345"},
      {-0.5, "-0.5"},
      {-1e15, "-1000000000000000"},
      {none, "nan"},
      {-none, "nan"},
      {infinity, "inf"},
      {-infinity, "-inf"},
  };
  for (const auto& row : rows) EXPECT_EQ(realText(row.number), row.text);
}

TEST(RealText, OfALongWholeNumberIsReadBackExactly) {
  std::mt19937_64 random(13);  // NOLINT: the same numbers each time
  std::uniform_int_distribution<int> exponent(53, 1023);
  for (int i = 0; i < 20'000; ++i) {
    const auto mantissa = static_cast<double>(random() >> 11U) / 0x1p53 + 1;
    const double number = (i % 2 == 0 ? 1 : -1) * std::ldexp(mantissa, exponent(random));
    const std::string text = realText(number);
    ASSERT_EQ(text.find_first_not_of("-0123456789"), std::string::npos) << text;
    ASSERT_EQ(std::stod(text), number) << text;
  }
}

TEST(RealText, OfTheLargestAndTheSmallestHasNoExponentEither) {
  const std::string largest = realText(std::numeric_limits<double>::max());
  EXPECT_EQ(largest.size(), 309U);
  EXPECT_TRUE(largest.starts_with("179769313486231570814527"));
  const std::string smallest = realText(std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(smallest, "0." + std::string(323, '0') + "494065645841247");
}

TEST(LeadingAmount, IsTheNumberThatTheTextBeginsWith) {
  const struct {
    std::string_view text;
    std::int64_t amount;
  } rows[] = {
      {"0", 0},
      {"5", 50'000},
      {"12.50", 125'000},
      {"  7", 70'000},
      {"   -1.25", -12'500},
      {"+3", 30'000},
      {"-3", -30'000},
      {"007", 70'000},
      {"12.50 EUR", 125'000},
      {"12.50EUR", 125'000},
      {"5 ", 50'000},
      {"abc", 0},
      {"$5", 0},
      {"", 0},
      {"   ", 0},
      {"1 234", 10'000},
      {"1,234", 10'000},
      {"- 1", 0},
      {"-", 0},
      {"+", 0},
      {"--1", 0},
      {"+-1", 0},
      {"-+1", 0},
      {"1-", 10'000},
      {".5", 5'000},
      {"-.5", -5'000},
      {"5.", 50'000},
      {".", 0},
      {"-.", 0},
      {"..5", 0},
      {"1.2.3", 12'000},
      {"1..2", 10'000},
      {"1e3", 10'000'000},
      {"1E3", 10'000'000},
      {"1e+3", 10'000'000},
      {"1E-2", 100},
      {"1.5e1", 150'000},
      {"5e", 50'000},
      {"5E", 50'000},
      {"5e+", 50'000},
      {"5e-", 50'000},
      {"5ex", 50'000},
      {"5e 3", 50'000},
      {"5e+-3", 50'000},
      {"5e--3", 50'000},
      {"5e1.5", 500'000},
      {"5.e1", 500'000},
      {".5e1", 50'000},
      {"e5", 0},
      {".e5", 0},
      {"-e5", 0},
      {"1d3", 10'000},
      {"&H10", 0},
      {"0x10", 0},
      {"inf", 0},
      {"nan", 0},
      {"5\0009"sv, 50'000},
      {"\xB2", 0},
  };
  for (const auto& row : rows) EXPECT_EQ(leadingAmount(row.text), row.amount) << row.text;
}

TEST(LeadingAmount, IsRoundedToFourPlacesAnExactHalfToTheEvenOne) {
  const struct {
    std::string_view text;
    std::int64_t amount;
  } rows[] = {
      {"0.00005", 0},
      {"0.00015", 2},
      {"0.00025", 2},
      {"0.00035", 4},
      {"1.00005", 10'000},
      {"1.00015", 10'002},
      {"0.000051", 1},
      {"0.00005000000000000000000000000000000000000000000000000000000001", 1},
      {"0.00005000000000000000000000000000000000000000000000000000000000", 0},
      {"0.000049999999999999999999999999999999999999999999999999999999", 0},
      {"0.00014999999999999999999999999999999999999999999999999999999", 1},
      {"0.00004", 0},
      {"0.00006", 1},
      {"0.00001", 0},
      {"0.000005", 0},
      {"0.000009", 0},
      {"0.99995", 10'000},
      {"0.99994", 9'999},
      {"9.99995", 100'000},
      {"-0.00005", 0},
      {"-0.00015", -2},
      {"-0.00025", -2},
      {"-0.000051", -1},
      {"-0.00004", 0},
      {"15e-5", 2},
      {"5e-5", 0},
      {"51e-6", 1},
      {"5000e-8", 0},
      {"5e-6", 0},
      {"99e-6", 1},
  };
  for (const auto& row : rows) EXPECT_EQ(leadingAmount(row.text), row.amount) << row.text;
}

TEST(LeadingAmount, MayHaveAnyNumberOfDigits) {
  const std::string zeros(90'000, '0');
  const std::string ones(200'000, '1');
  EXPECT_EQ(leadingAmount(std::string(1'000'000, '0') + "12.5"), 125'000);
  EXPECT_EQ(leadingAmount(zeros + "12.5"), 125'000);
  EXPECT_EQ(leadingAmount("1." + zeros), 10'000);
  EXPECT_EQ(leadingAmount("1." + zeros + "1"), 10'000);
  EXPECT_EQ(leadingAmount("0." + zeros + "1"), 0);
  EXPECT_EQ(leadingAmount("0.0001" + zeros), 1);
  EXPECT_EQ(leadingAmount("0.00005" + zeros.substr(0, 50'000)), 0);
  EXPECT_EQ(leadingAmount("0.00005" + zeros.substr(0, 50'000) + "1"), 1);
  EXPECT_EQ(errorOf([&] { leadingAmount(ones); }), 6);
  EXPECT_EQ(errorOf([&] { leadingAmount("-" + ones + ".5"); }), 6);
}

TEST(LeadingAmount, ALongFractionIsStillAFraction) {
  EXPECT_EQ(leadingAmount("0." + std::string(50'000, '1')), 1'111);
  EXPECT_EQ(leadingAmount("0." + std::string(200'000, '1')), 1'111);
  EXPECT_EQ(leadingAmount("1." + std::string(200'000, '0')), 10'000);
  EXPECT_EQ(leadingAmount("1." + std::string(200'000, '0') + "e0"), 10'000);
  EXPECT_EQ(leadingAmount("7." + std::string(200'000, '3') + " EUR"), 73'333);
}

TEST(LeadingAmount, DigitsAndExponentMayCancelEachOther) {
  EXPECT_EQ(leadingAmount("1" + std::string(60'000, '0') + "e-60000"), 10'000);
  EXPECT_EQ(leadingAmount("0." + std::string(60'000, '0') + "1e60001"), 10'000);
  EXPECT_EQ(leadingAmount("0." + std::string(60'000, '0') + "1e60002"), 100'000);
}

TEST(LeadingAmount, AHugeExponentIsAnOverflowOrNothing) {
  EXPECT_EQ(errorOf([] { leadingAmount("1e1000000"); }), 6);
  EXPECT_EQ(errorOf([] { leadingAmount("-1e1000000"); }), 6);
  EXPECT_EQ(errorOf([] { leadingAmount("0.001e1000000"); }), 6);
  EXPECT_EQ(errorOf([] { leadingAmount("1e" + std::string(100'000, '9')); }), 6);
  EXPECT_EQ(leadingAmount("1e-1000000"), 0);
  EXPECT_EQ(leadingAmount("-1e-1000000"), 0);
  EXPECT_EQ(leadingAmount("999999e-1000000"), 0);
  EXPECT_EQ(leadingAmount("1e-" + std::string(100'000, '9')), 0);
  EXPECT_EQ(leadingAmount("1e" + std::string(100'000, '0') + "1"), 100'000);
  EXPECT_EQ(leadingAmount("0e999999"), 0);
  EXPECT_EQ(leadingAmount("0.000e999999"), 0);
  EXPECT_EQ(leadingAmount("-0e-999999"), 0);
}

TEST(LeadingAmount, BeyondTheRangeOfAnAmountIsAnOverflow) {
  EXPECT_EQ(leadingAmount("922337203685477.5807"), kMost);
  EXPECT_EQ(leadingAmount("-922337203685477.5808"), kLeast);
  EXPECT_EQ(leadingAmount("-922337203685477.5807"), -kMost);
  EXPECT_EQ(leadingAmount("9223372036854775807e-4"), kMost);
  for (const char* text :
       {"922337203685477.5808", "-922337203685477.5809", "1e15", "-1e15", "922337203685478",
        "999999999999999.9999", "1000000000000000", "1844674407370955.1616", "1e16", "1e20",
        "1844674407370955.1617", "3689348814741910.3232"})
    EXPECT_EQ(errorOf([&] { leadingAmount(text); }), 6) << text;
}

TEST(LeadingAmount, TheRangeIsThatOfTheRoundedAmount) {
  EXPECT_EQ(leadingAmount("922337203685477.58074999"), kMost);
  EXPECT_EQ(leadingAmount("922337203685477.58065"), kMost - 1);
  EXPECT_EQ(errorOf([] { leadingAmount("922337203685477.58075"); }), 6);
  EXPECT_EQ(errorOf([] { leadingAmount("922337203685477.58076"); }), 6);
  EXPECT_EQ(leadingAmount("-922337203685477.58075"), kLeast);
  EXPECT_EQ(leadingAmount("-922337203685477.58085"), kLeast);
  EXPECT_EQ(errorOf([] { leadingAmount("-922337203685477.580851"); }), 6);
}

TEST(WholeNumberText, TheWholeOfTheTextIsTheNumber) {
  const struct {
    std::string_view text;
    int number;
  } rows[] = {
      {"5", 5},
      {" 5 ", 5},
      {"   12", 12},
      {"12   ", 12},
      {"+5", 5},
      {"-1", -1},
      {"0", 0},
      {"-0", 0},
      {"007", 7},
      {"5.", 5},
      {".5", 0},
      {"0.5", 0},
      {"1.5", 2},
      {"2.5", 2},
      {"3.5", 4},
      {"2.51", 3},
      {"2.49", 2},
      {"-0.5", 0},
      {"-1.5", -2},
      {"-2.5", -2},
      {"0.4", 0},
      {"0.05", 0},
      {"0.09", 0},
      {"1e2", 100},
      {"1E2", 100},
      {"25e-1", 2},
      {"1e-9", 0},
      {"1e-1000000", 0},
      {"0e999999", 0},
      {"32767", 32767},
      {"32767.4", 32767},
      {"-32768", -32768},
      {"-32768.5", -32768},
      {"-32768.4", -32768},
  };
  for (const auto& row : rows) EXPECT_EQ(wholeNumber(row.text), row.number) << row.text;
}

TEST(WholeNumberText, WhatIsNoNumberIsATypeMismatch) {
  for (const std::string_view text :
       {""sv,    "  "sv,  "abc"sv, "12abc"sv, "&H10"sv,   "1,2"sv,   "1 2"sv,
        "-"sv,   "+"sv,   "."sv,   "5e"sv,    "5e+"sv,    "1.2.3"sv, "--1"sv,
        "- 1"sv, "5\0"sv, "\0"sv,  "five"sv,  "40000x"sv, "#5"sv})
    EXPECT_EQ(errorOf([&] { wholeNumber(text); }), 13) << '"' << text << '"';
}

TEST(WholeNumberText, BeyondSixteenBitsIsAnOverflow) {
  for (const char* text : {"32768", "32767.5", "40000", "-32769", "-32768.51", "65536", "1e5",
                           "1e99", "-1e99", "1e1000000", "99999999999999999999999999"})
    EXPECT_EQ(errorOf([&] { wholeNumber(text); }), 6) << text;
}

TEST(LeadingWhole, IsTheNumberThatTheTextBeginsWithAnExactHalfToTheEvenOne) {
  const struct {
    std::string_view text;
    int number;
  } rows[] = {
      {"12.50", 12},
      {"12.5abc", 12},
      {"12.51", 13},
      {"13.5", 14},
      {"13.49", 13},
      {"0.5", 0},
      {"1.5", 2},
      {"-0.5", 0},
      {"-12.5", -12},
      {"-13.5", -14},
      {"", 0},
      {"   ", 0},
      {"abc", 0},
      {"$12", 0},
      {"-", 0},
      {"&H10", 0},
      {"5", 5},
      {"  5", 5},
      {"+5", 5},
      {"007", 7},
      {"1 234", 1},
      {"1,234", 1},
      {"12 EUR", 12},
      {"1e2", 100},
      {"5e", 5},
      {"1.2.3", 1},
      {"1e-1000000", 0},
      {"32767", 32767},
      {"32767.4", 32767},
      {"32767.49 EUR", 32767},
      {"-32768", -32768},
      {"-32768.5", -32768},
      {"-32768.5 EUR", -32768},
  };
  for (const auto& row : rows) EXPECT_EQ(leadingWhole(row.text), row.number) << row.text;
}

TEST(LeadingWhole, BeyondSixteenBitsIsAnOverflow) {
  for (const char* text :
       {"99999", "32768", "32767.5", "32767.5 EUR", "40000x", "-32769", "-32768.51", "-99999",
        "65536", "1e5", "1e1000000", "-1e1000000", "99999999999999999999999999"})
    EXPECT_EQ(errorOf([&] { leadingWhole(text); }), 6) << text;
}

}  // namespace
}  // namespace quillbox
