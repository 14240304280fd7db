#include "opendata/number_forms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "opendata/data_error.h"

namespace quillbox::test {
namespace {

std::string amount(std::int64_t tenThousandths) {
  std::string text;
  appendAmount(text, tenThousandths);
  return text;
}

TEST(NumberForms, AmountsHaveFourPlaces) {
  EXPECT_EQ(amount(0), "0.0000");
  EXPECT_EQ(amount(125'000), "12.5000");
  EXPECT_EQ(amount(-1), "-0.0001");
  EXPECT_EQ(amount(INT64_MAX), "922337203685477.5807");
  EXPECT_EQ(amount(INT64_MIN), "-922337203685477.5808");
}

TEST(NumberForms, AmountsAreReadBack) {
  for (const std::int64_t number :
       {std::int64_t{0}, std::int64_t{125'000}, std::int64_t{-1}, INT64_MAX, INT64_MIN})
    EXPECT_EQ(amountIn(amount(number), false), number);
}

TEST(NumberForms, AmountsAreReadInOtherForms) {
  EXPECT_EQ(amountIn("", false), 0);
  EXPECT_EQ(amountIn(" 12 ", false), 120'000);
  EXPECT_EQ(amountIn("+.5", false), 5'000);
  EXPECT_EQ(amountIn("1.50000", false), 15'000);
  EXPECT_EQ(amountIn("12,5", true), 125'000);
  EXPECT_EQ(amountIn("12.5", true), 125'000);
}

TEST(NumberForms, WhatIsNoAmountIsRefused) {
  for (const char* text : {"12 dollars", "1,250", ".", "-", "1e3", "--1", "1.00001", "1.2.3",
                           "922337203685477.5808", "99999999999999999999999"})
    EXPECT_THROW(amountIn(text, false), DataError) << text;
  EXPECT_THROW(amountIn("1,234.5", true), DataError);
}

TEST(NumberForms, WholeNumbersAreReadWhole) {
  EXPECT_EQ(wholeNumberIn("-32768"), -32768);
  EXPECT_EQ(wholeNumberIn(" +5 "), 5);
  EXPECT_EQ(wholeNumberIn(""), 0);
  for (const char* text : {"32768", "1.5", "x", "5x", "+-5", "+"})
    EXPECT_FALSE(wholeNumberIn(text)) << text;
}

TEST(NumberForms, FlagsAreNumbersOrWords) {
  EXPECT_EQ(flagOf("TRUE"), 1);
  EXPECT_EQ(flagOf("yes"), 1);
  EXPECT_EQ(flagOf("False"), 0);
  EXPECT_EQ(flagOf("no"), 0);
  EXPECT_EQ(flagOf("7"), 7);
  EXPECT_THROW(flagOf("maybe"), DataError);
}

TEST(NumberForms, DatesAreIso) {
  EXPECT_EQ(isoDate(36526), "2000-01-01");
  EXPECT_EQ(isoDate(36526.75), "2000-01-01T18:00:00");
  EXPECT_EQ(isoDate(36526 + 545.0 / 86400), "2000-01-01T00:09:05");
  EXPECT_EQ(isoDate(-1.25), "1899-12-29T06:00:00");
  EXPECT_EQ(isoDate(-657434), "0100-01-01");
}

TEST(NumberForms, WhatIsNoDateIsItsNumber) {
  EXPECT_EQ(isoDate(-657435), "-657435");
  EXPECT_EQ(isoDate(1e300), "1e+300");
  EXPECT_EQ(isoDate(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(NumberForms, DatesAreReadBack) {
  for (const double date :
       {36526.0, 36526.75, -1.25, 0.0, -657434.0, 2958465.0, 36526 + 545.0 / 86400})
    EXPECT_EQ(dateIn(isoDate(date)), date);
  EXPECT_EQ(dateIn("2000-01-01 18:00:00"), 36526.75);
  EXPECT_EQ(dateIn("1/1/2000"), 36526);
  for (const char* text :
       {"", "today", "2000-02-30", "2000-01-01T25:00:00", "2000-01-01x18:00:00", "nan"})
    EXPECT_THROW(dateIn(text), DataError) << text;
}

TEST(NumberForms, RealsAreReadBackAsTheSame) {
  EXPECT_EQ(shortestReal(0), "0");
  EXPECT_EQ(shortestReal(1'000'000), "1000000");
  EXPECT_EQ(shortestReal(0.1), "0.1");
  EXPECT_EQ(shortestReal(1e22), "1e+22");
  EXPECT_EQ(shortestReal(-std::numeric_limits<double>::infinity()), "-inf");
  for (const double number : {0.1, 1e-7, 123456789.123, 1e22, 5e-324, -2.5})
    EXPECT_EQ(realIn(shortestReal(number)), number);
  EXPECT_EQ(realIn(" "), 0);
  for (const char* text : {"nan", "inf", "1 2", "x", "1e999"})
    EXPECT_THROW(realIn(text), DataError) << text;
}

}  // namespace
}  // namespace quillbox::test
