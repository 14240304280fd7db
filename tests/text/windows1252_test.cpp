#include "text/windows1252.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <string_view>

namespace quillbox {
namespace {

using namespace std::string_view_literals;

TEST(Windows1252, EveryByteSurvivesTheWayThereAndBack) {
  std::string all;
  std::set<std::string> characters;
  for (int code = 0; code <= 255; ++code) {
    const std::string byte(1, static_cast<char>(code));
    const std::string character = toUtf8(byte);
    EXPECT_TRUE(isUtf8(character)) << code;
    EXPECT_EQ(fromUtf8(character), byte) << code;
    characters.insert(character);
    all += byte;
  }
  EXPECT_EQ(characters.size(), 256U);
  EXPECT_EQ(fromUtf8(toUtf8(all)), all);
  EXPECT_EQ(toUtf8(""), "");
  EXPECT_EQ(fromUtf8(""), "");
}

TEST(Windows1252, CharactersAreThoseOfTheCodePage) {
  const struct {
    char byte;
    std::string_view utf8;
  } rows[] = {
      {'\x00', "\0"sv},
      {'A', "A"},
      {'~', "~"},
      {'\x7F', "\x7F"},
      {'\x80', "\xE2\x82\xAC"},
      {'\x82', "\xE2\x80\x9A"},
      {'\x83', "\xC6\x92"},
      {'\x84', "\xE2\x80\x9E"},
      {'\x85', "\xE2\x80\xA6"},
      {'\x86', "\xE2\x80\xA0"},
      {'\x87', "\xE2\x80\xA1"},
      {'\x88', "\xCB\x86"},
      {'\x89', "\xE2\x80\xB0"},
      {'\x8A', "\xC5\xA0"},
      {'\x8B', "\xE2\x80\xB9"},
      {'\x8C', "\xC5\x92"},
      {'\x8E', "\xC5\xBD"},
      {'\x91', "\xE2\x80\x98"},
      {'\x92', "\xE2\x80\x99"},
      {'\x93', "\xE2\x80\x9C"},
      {'\x94', "\xE2\x80\x9D"},
      {'\x95', "\xE2\x80\xA2"},
      {'\x96', "\xE2\x80\x93"},
      {'\x97', "\xE2\x80\x94"},
      {'\x98', "\xCB\x9C"},
      {'\x99', "\xE2\x84\xA2"},
      {'\x9A', "\xC5\xA1"},
      {'\x9B', "\xE2\x80\xBA"},
      {'\x9C', "\xC5\x93"},
      {'\x9E', "\xC5\xBE"},
      {'\x9F', "\xC5\xB8"},
      {'\xA0', "\xC2\xA0"},
      {'\xE9', "\xC3\xA9"},
      {'\xDF', "\xC3\x9F"},
      {'\xFF', "\xC3\xBF"},
      // Undefined in the code page.
      {'\x81', "\xC2\x81"},
      {'\x8D', "\xC2\x8D"},
      {'\x8F', "\xC2\x8F"},
      {'\x90', "\xC2\x90"},
      {'\x9D', "\xC2\x9D"},
  };
  for (const auto& row : rows) {
    const std::string byte(1, row.byte);
    EXPECT_EQ(toUtf8(byte), row.utf8);
    EXPECT_EQ(fromUtf8(row.utf8), byte) << row.utf8;
  }
}

TEST(Windows1252, ACharacterThatItCannotHoldBecomesAQuestionMark) {
  for (const std::string_view utf8 :
       {"\xC2\x80"sv,  // the control character whose byte is used by another
        "\xC2\x9F"sv, "\xC4\x80"sv, "\xCE\xA9"sv, "\xD0\x96"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv,
        "\xE6\x97\xA5"sv, "\xEF\xBB\xBF"sv, "\xEF\xBF\xBD"sv, "\xEF\xBF\xBF"sv,
        "\xF0\x90\x80\x80"sv, "\xF0\x9F\x8E\xB5"sv, "\xF4\x8F\xBF\xBF"sv}) {
    EXPECT_TRUE(isUtf8(utf8)) << utf8;
    EXPECT_EQ(fromUtf8(utf8), "?") << utf8;
  }
  EXPECT_EQ(fromUtf8("Bj\xC3\xB6rk \xE2\x99\xAB 1993"), "Bj\xF6rk ? 1993");
}

TEST(Windows1252, EachByteThatIsNoUtf8BecomesAQuestionMark) {
  const struct {
    std::string_view bytes;
    std::string_view text;
  } rows[] = {
      {"\x80"sv, "?"},  // a continuation without a beginning
      {"\xBF"sv, "?"},
      {"a\x80\x80z"sv, "a??z"},
      {"\xC3"sv, "?"},  // cut off
      {"\xE2"sv, "?"},
      {"\xE2\x82"sv, "??"},
      {"\xF0\x9F\x8E"sv, "???"},
      {"\xC3z"sv, "?z"},
      {"\xE2\x82z"sv, "??z"},
      {"\xF0\x9F\x8Ez"sv, "???z"},
      {"\xC3\xC3\xA9"sv, "?\xE9"},
      {"\xE2\xC3\xA9"sv, "?\xE9"},
      {"\xC0\x80"sv, "??"},  // longer than needed
      {"\xC0\xAF"sv, "??"},
      {"\xC1\xBF"sv, "??"},
      {"\xE0\x80\xAF"sv, "???"},
      {"\xE0\x9F\xBF"sv, "???"},
      {"\xF0\x80\x80\xAF"sv, "????"},
      {"\xF0\x8F\xBF\xBF"sv, "????"},
      {"\xED\xA0\x80"sv, "???"},  // halves of pairs
      {"\xED\xAF\xBF"sv, "???"},
      {"\xED\xB0\x80"sv, "???"},
      {"\xED\xBF\xBF"sv, "???"},
      {"\xF4\x90\x80\x80"sv, "????"},  // above the last character
      {"\xF5\x80\x80\x80"sv, "????"},
      {"\xF8\x88\x80\x80\x80"sv, "?????"},
      {"\xFC\x84\x80\x80\x80\x80"sv, "??????"},
      {"\xFE"sv, "?"},
      {"\xFF\xFF"sv, "??"},
      {"Caf\xE9"sv, "Caf?"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(fromUtf8(row.bytes), row.text);
    EXPECT_FALSE(isUtf8(row.bytes)) << row.text;
  }
}

TEST(Windows1252, WellFormedTextIsUtf8) {
  for (const std::string_view text :
       {""sv, "plain"sv, "\0"sv, "\x7F"sv, "\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv,
        "\xED\x9F\xBF"sv, "\xEE\x80\x80"sv, "\xEF\xBF\xBF"sv, "\xF0\x90\x80\x80"sv,
        "\xF4\x8F\xBF\xBF"sv, "Caf\xC3\xA9 \xE2\x82\xAC 5"sv})
    EXPECT_TRUE(isUtf8(text)) << text;
}

TEST(Windows1252, AFaultAtTheVeryEndCounts) {
  EXPECT_FALSE(isUtf8(std::string(10'000, 'x') + "\xC3"));
  EXPECT_TRUE(isUtf8(std::string(10'000, 'x') + "\xC3\xA9"));
}

TEST(Windows1252, OnlyALetterHasACapital) {
  const std::string letters =
      fromUtf8("abcdefghijklmnopqrstuvwxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšœžÿ");
  const std::string capitals =
      fromUtf8("ABCDEFGHIJKLMNOPQRSTUVWXYZÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ");
  ASSERT_EQ(letters.size(), 60U);
  ASSERT_EQ(capitals.size(), letters.size());
  std::string all;
  std::string allInCapitals;
  for (int code = 0; code <= 255; ++code) {
    const char character = static_cast<char>(code);
    const auto letter = letters.find(character);
    const char expected = letter == std::string::npos ? character : capitals[letter];
    EXPECT_EQ(toUtf8({&expected, 1}), toUtf8(std::string(1, capitalOf(character)))) << code;
    all += character;
    allInCapitals += expected;
  }
  EXPECT_EQ(inCapitals(all), allInCapitals);
  EXPECT_EQ(inCapitals(allInCapitals), allInCapitals);
}

TEST(Windows1252, ATextInCapitalsKeepsItsLengthAndWhatIsNoLetter) {
  EXPECT_EQ(inCapitals(""), "");
  EXPECT_EQ(inCapitals("  song 1.mp3 "), "  SONG 1.MP3 ");
  EXPECT_EQ(inCapitals("a\0b"sv), "A\0B"sv);
  EXPECT_EQ(toUtf8(inCapitals(fromUtf8("Straße, été, œuvre, ÷ × µ ƒ €"))),
            "STRAßE, ÉTÉ, ŒUVRE, ÷ × µ ƒ €");
}

TEST(Windows1252, RandomBytesNeverGrow) {
  std::mt19937 random(20261121);
  for (int round = 0; round < 2'000; ++round) {
    std::string bytes(random() % 40, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() % 256);
    const std::string text = fromUtf8(bytes);
    EXPECT_LE(text.size(), bytes.size());
    EXPECT_EQ(fromUtf8(toUtf8(bytes)), bytes);
    if (isUtf8(bytes)) {
      EXPECT_EQ(toUtf8(text).find("\xC2\x80"), std::string::npos);
    } else {
      EXPECT_NE(text.find('?'), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace quillbox
