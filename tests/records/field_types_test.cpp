#include "records/field_types.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/checked16.h"
#include "records/header_record.h"
#include "records/music_record.h"

namespace quillbox {
namespace {

using namespace std::string_view_literals;

static_assert(alignof(FixedText<1>) == 1 && sizeof(FixedText<1>) == 1);
static_assert(alignof(FixedText<36>) == 1 && sizeof(FixedText<36>) == 36);
static_assert(std::is_trivially_copyable_v<Real>);
static_assert(std::is_trivially_copyable_v<FixedText<50>>);
static_assert(std::is_trivially_copyable_v<WholeNumber> && std::is_trivially_copyable_v<Money>);

template <typename Record>
std::string bytes(const Record& record) {
  const auto all = bytesOf(record);
  return {reinterpret_cast<const char*>(all.data()), all.size()};
}

TEST(FixedText, ShortTextIsPaddedWithBlanks) {
  FixedText<8> text;
  text = "1.71";
  EXPECT_EQ(text.view(), "1.71    ");
  text = "";
  EXPECT_EQ(text.view(), "        ");
}

TEST(FixedText, LongTextIsCutAtTheWidth) {
  FixedText<8> text;
  text = "12345678";
  EXPECT_EQ(text.view(), "12345678");
  text = "123456789";
  EXPECT_EQ(text.view(), "12345678");
  text = std::string(10'000, 'x');
  EXPECT_EQ(text.view(), "xxxxxxxx");
}

TEST(FixedText, AShorterTextLeavesNothingOfALongerOne) {
  FixedText<6> text("abcdef");
  text = "xy";
  EXPECT_EQ(text.view(), "xy    ");
}

TEST(FixedText, EveryByteIsKept) {
  FixedText<6> text;
  text = "a\0b\xFF\n "sv;
  EXPECT_EQ(text.view(), "a\0b\xFF\n "sv);
  EXPECT_EQ(bytes(text), "a\0b\xFF\n "sv);
}

TEST(FixedText, ItsTextMayBeAPartOfItself) {
  FixedText<6> text("abcdef");
  text = text.view().substr(0, 3);
  EXPECT_EQ(text.view(), "abc   ");
}

TEST(FixedText, AFreshOneHoldsZeroBytes) {
  EXPECT_EQ(FixedText<4>{}.view(), "\0\0\0\0"sv);
  EXPECT_EQ(bytes(MusicRecord{}), std::string(2372, '\0'));
}

TEST(WholeNumberField, IsLittleEndianInItsBytes) {
  const struct {
    std::int16_t value;
    std::string_view bytes;
  } rows[] = {
      {0, "\x00\x00"sv},   {1, "\x01\x00"sv},      {5, "\x05\x00"sv},     {255, "\xFF\x00"sv},
      {256, "\x00\x01"sv}, {0x1234, "\x34\x12"sv}, {32767, "\xFF\x7F"sv}, {-1, "\xFF\xFF"sv},
      {-2, "\xFE\xFF"sv},  {-32768, "\x00\x80"sv}, {-256, "\x00\xFF"sv},
  };
  for (const auto& row : rows) {
    WholeNumber number;
    number = row.value;
    EXPECT_EQ(bytes(number), row.bytes) << row.value;
    WholeNumber back;
    std::memcpy(&back, row.bytes.data(), sizeof back);
    EXPECT_EQ(back, row.value);
  }
}

TEST(WholeNumberField, EveryValueSurvives) {
  for (int value = -32768; value <= 32767; ++value) {
    WholeNumber number;
    number = static_cast<std::int16_t>(value);
    ASSERT_EQ(number, value);
  }
}

TEST(MoneyField, IsLittleEndianInItsBytes) {
  const struct {
    std::int64_t value;
    std::string_view bytes;
  } rows[] = {
      {0, "\0\0\0\0\0\0\0\0"sv},
      {1, "\1\0\0\0\0\0\0\0"sv},
      {125'000, "\x48\xE8\x01\0\0\0\0\0"sv},
      {-1, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv},
      {-12'500, "\x2C\xCF\xFF\xFF\xFF\xFF\xFF\xFF"sv},
      {0x0102030405060708, "\x08\x07\x06\x05\x04\x03\x02\x01"sv},
      {std::numeric_limits<std::int64_t>::max(), "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"sv},
      {std::numeric_limits<std::int64_t>::min(), "\0\0\0\0\0\0\0\x80"sv},
  };
  for (const auto& row : rows) {
    Money money;
    money = row.value;
    EXPECT_EQ(bytes(money), row.bytes) << row.value;
    Money back;
    std::memcpy(&back, row.bytes.data(), sizeof back);
    EXPECT_EQ(back, row.value);
  }
}

TEST(RealField, IsLittleEndianInItsBytes) {
  const struct {
    double value;
    std::string_view bytes;
  } rows[] = {
      {0.0, "\0\0\0\0\0\0\0\0"sv},
      {-0.0, "\0\0\0\0\0\0\0\x80"sv},
      {1.0, "\0\0\0\0\0\0\xF0\x3F"sv},
      {-2.0, "\0\0\0\0\0\0\0\xC0"sv},
      {29221.0, "\0\0\0\0\x40\x89\xDC\x40"sv},
      {36526.75, "\0\0\0\0\xD8\xD5\xE1\x40"sv},
      {0.1, "\x9A\x99\x99\x99\x99\x99\xB9\x3F"sv},
      {std::numeric_limits<double>::infinity(), "\0\0\0\0\0\0\xF0\x7F"sv},
  };
  for (const auto& row : rows) {
    Real real;
    real = row.value;
    EXPECT_EQ(bytes(real), row.bytes) << row.value;
    Real back;
    std::memcpy(&back, row.bytes.data(), sizeof back);
    EXPECT_EQ(back, row.value);
    EXPECT_EQ(std::signbit(back), std::signbit(row.value));
  }
}

TEST(RealField, EveryBitOfItsValueSurvives) {
  for (const double value : {5e-324, -5e-324, std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest(), 2'147'483'648.0, 1.0 / 3}) {
    Real real;
    real = value;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(double{real}), std::bit_cast<std::uint64_t>(value));
  }
  Real real;
  real = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(std::isnan(double{real}));
}

TEST(RealField, AFreshOneIsZero) {
  EXPECT_EQ(bytes(Real{}), "\0\0\0\0\0\0\0\0"sv);
  EXPECT_EQ(Real{}, 0.0);
}

TEST(HeaderRecord, IsTwelveBytesInOrder) {
  HeaderRecord header;
  header.Count = 3;
  header.FileType = 5;
  header.Version = "1.71";
  EXPECT_EQ(bytes(header), "\x03\x00\x05\x00\x31\x2E\x37\x31\x20\x20\x20\x20"sv);
  EXPECT_EQ(kHeaderRecordNumber, 1);
  EXPECT_EQ(recordNumberOf(1), 2);
  EXPECT_EQ(recordNumberOf(32767), 32768);
}

TEST(Checked16, WhatFitsIsUnchanged) {
  for (const int value : {0, 1, -1, 32767, -32768}) EXPECT_EQ(checked16(value), value);
}

TEST(Checked16, WhatDoesNotFitIsAnOverflow) {
  for (const int value : {32768, -32769, 65536, 65537, std::numeric_limits<int>::max(),
                          std::numeric_limits<int>::min()}) {
    std::optional<ErrorNumber> error;
    try {
      checked16(value);
    } catch (const RunTimeError& thrown) {
      error = thrown.number();
    }
    EXPECT_EQ(error, ErrorNumber::overflow) << value;
  }
}

}  // namespace
}  // namespace quillbox
