#include "text/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

/// A decimal number as written: digits * 10^exponent.
struct Decimal {
  bool negative = false;
  std::string digits;  // no leading zeros; empty is 0
  int exponent = 0;
  bool anyDigit = false;
  std::size_t length = 0;  // characters read, leading blanks included
};

/// A number's text, with a blank before it unless it begins with "-".
std::string withLeadingBlank(std::string number) {
  if (number.front() != '-') number.insert(0, 1, ' ');
  return number;
}

/// Exponents are limited to this; anything beyond is 0 or an overflow anyway.
constexpr int kExponentLimit = 100'000'000;

Decimal readDecimal(std::string_view text) {
  Decimal number;
  std::size_t at = 0;
  const auto next = [&](std::size_t ahead = 0) {
    return at + ahead < text.size() ? text[at + ahead] : '\0';
  };
  while (next() == ' ') ++at;
  if (next() == '-' || next() == '+') number.negative = text[at++] == '-';
  bool point = false;
  for (; isDigit(next()) || (next() == '.' && !point); ++at) {
    if (next() == '.') {
      point = true;
      continue;
    }
    number.anyDigit = true;
    if (next() != '0' || !number.digits.empty()) number.digits += next();
    if (point) --number.exponent;
  }
  if (!number.anyDigit) return number;
  const bool exponentSign = next(1) == '-' || next(1) == '+';
  if ((next() == 'e' || next() == 'E') && isDigit(next(exponentSign ? 2 : 1))) {
    const bool negative = next(1) == '-';
    at += exponentSign ? 2 : 1;
    int exponent = 0;
    for (; isDigit(next()); ++at)
      exponent = std::min(exponent * 10 + (next() - '0'), kExponentLimit);
    number.exponent += negative ? -exponent : exponent;
  }
  number.length = at;
  return number;
}

/// The number times 10^scale as a whole number, an exact half rounded to the even one.
std::int64_t scaled(const Decimal& number, int scale) {
  constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  constexpr int mostDigits = 19;
  if (number.digits.empty()) return 0;
  const int exponent = number.exponent + scale;
  const int wholeDigits = static_cast<int>(number.digits.size()) + exponent;
  if (wholeDigits > mostDigits) throw RunTimeError(ErrorNumber::overflow);
  std::uint64_t whole = 0;
  for (int i = 0; i < wholeDigits; ++i) {
    const auto place = static_cast<std::size_t>(i);
    const char digit = place < number.digits.size() ? number.digits[place] : '0';
    whole = whole * 10 + static_cast<std::uint64_t>(digit - '0');
  }
  if (exponent < 0 && wholeDigits >= 0) {
    const std::string_view rest =
        std::string_view(number.digits).substr(static_cast<std::size_t>(wholeDigits));
    const bool exactHalf =
        rest.front() == '5' && rest.find_first_not_of('0', 1) == std::string_view::npos;
    if (rest.front() >= '5' && (!exactHalf || whole % 2 == 1)) ++whole;
  }
  if (whole > limit + (number.negative ? 1 : 0)) throw RunTimeError(ErrorNumber::overflow);
  return static_cast<std::int64_t>(number.negative ? 0 - whole : whole);
}

std::int16_t whole16(const Decimal& number) {
  const std::int64_t whole = scaled(number, 0);
  if (whole < INT16_MIN || whole > INT16_MAX) throw RunTimeError(ErrorNumber::overflow);
  return static_cast<std::int16_t>(whole);
}

}  // namespace

std::string numberText(int number) {
  std::string text;
  appendNumberText(text, number);
  return text;
}

void appendNumberText(std::string& text, int number) {
  std::array<char, 16> written{' '};
  char* const digits = written.data() + 1;
  const char* const end = std::to_chars(digits, written.data() + written.size(), number).ptr;
  const char* const start = number < 0 ? digits : written.data();
  text.append(start, end);
}

std::string realText(double number) {
  if (!std::isfinite(number)) return std::isnan(number) ? "nan" : number < 0 ? "-inf" : "inf";
  if (number == 0) return "0";
  constexpr int digits = 15;
  const auto written = [number](std::chars_format format, int places) {
    std::array<char, 400> text{};  // up to 309 digits before the point, or 338 after it
    char* const begin = text.data();
    return std::string(begin,
                       std::to_chars(begin, begin + text.size(), number, format, places).ptr);
  };
  const std::string rounded = written(std::chars_format::scientific, digits - 1);
  const int exponent = std::stoi(rounded.substr(rounded.find('e') + 1));
  const int places = std::max(digits - 1 - exponent, 0);
  std::string text = written(std::chars_format::fixed, places);
  if (places > 0) text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string plainAmount(std::int64_t tenThousandths) {
  const bool negative = tenThousandths < 0;
  const auto bits = static_cast<std::uint64_t>(tenThousandths);
  std::string digits = std::to_string(negative ? 0 - bits : bits);
  if (digits.size() <= kAmountScale) digits.insert(0, kAmountScale + 1 - digits.size(), '0');
  digits.insert(digits.size() - kAmountScale, 1, '.');
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.back() == '.') digits.pop_back();
  if (negative) digits.insert(0, 1, '-');
  return digits;
}

std::string signedAmount(std::int64_t tenThousandths) {
  return withLeadingBlank(plainAmount(tenThousandths));
}

std::int64_t leadingAmount(std::string_view text) {
  return scaled(readDecimal(text), kAmountScale);
}

std::int16_t leadingWhole(std::string_view text) { return whole16(readDecimal(text)); }

std::int16_t wholeNumber(std::string_view text) {
  const Decimal number = readDecimal(text);
  const bool onlyNumber = text.find_first_not_of(' ', number.length) == std::string_view::npos;
  if (!number.anyDigit || !onlyNumber) throw RunTimeError(ErrorNumber::typeMismatch);
  return whole16(number);
}

}  // namespace quillbox
