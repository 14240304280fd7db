#include "opendata/number_forms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "opendata/data_error.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr std::string_view kIso = "yyyy-MM-dd";

bool isWord(std::string_view text, std::string_view word) {
  return std::ranges::equal(text, word, {}, asciiCapital, asciiCapital);
}

bool areDigits(std::string_view text) { return std::ranges::all_of(text, isDigit); }

}  // namespace

void appendAmount(std::string& text, std::int64_t tenThousandths) {
  constexpr std::uint64_t unit = 10'000;
  const auto bits = static_cast<std::uint64_t>(tenThousandths);
  const std::uint64_t amount = tenThousandths < 0 ? 0 - bits : bits;
  std::array<char, 24> written{};
  char* const begin = written.data();
  char* end = std::to_chars(begin, begin + written.size(), amount / unit).ptr;
  if (tenThousandths < 0) text += '-';
  text.append(begin, end);
  text += '.';
  end = std::to_chars(begin, begin + written.size(), unit + amount % unit).ptr;
  text.append(begin + 1, end);
}

std::int64_t amountIn(std::string_view text, bool decimalComma) {
  text = withoutBlanksAround(text);
  if (text.empty()) return 0;
  const bool isNegative = text.front() == '-';
  if (isNegative || text.front() == '+') text.remove_prefix(1);
  auto point = text.find('.');
  if (point == std::string_view::npos && decimalComma) point = text.find(',');
  std::string digits(text.substr(0, point));
  std::string places(point == std::string_view::npos ? "" : text.substr(point + 1));
  if (digits.size() + places.size() == 0 || !areDigits(digits) || !areDigits(places))
    throw DataError("no amount");
  while (places.size() > kAmountScale && places.back() == '0') places.pop_back();
  if (places.size() > kAmountScale) throw DataError("an amount has at most four places");
  places.resize(kAmountScale, '0');
  digits += places;
  std::uint64_t amount = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), amount);
  const std::uint64_t most = static_cast<std::uint64_t>(INT64_MAX) + (isNegative ? 1 : 0);
  if (read.ec != std::errc() || amount > most) throw DataError("the amount is out of range");
  return static_cast<std::int64_t>(isNegative ? 0 - amount : amount);
}

std::optional<std::int16_t> wholeNumberIn(std::string_view text) {
  text = withoutBlanksAround(text);
  if (text.empty()) return 0;
  if (text.front() == '+' && text.size() > 1 && isDigit(text[1])) text.remove_prefix(1);
  std::int16_t number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

std::int16_t flagOf(std::string_view text) {
  text = withoutBlanksAround(text);
  if (isWord(text, "true") || isWord(text, "yes")) return 1;
  if (isWord(text, "false") || isWord(text, "no")) return 0;
  const auto number = wholeNumberIn(text);
  if (!number) throw DataError("neither 0 nor 1");
  return *number;
}

std::string isoDate(double days) {
  std::string text = dateText(days, kIso);
  if (text.empty()) return shortestReal(days);
  const auto blank = text.find(' ');
  if (blank == std::string::npos) return text;
  // 9:05 and 9:05:30 get a leading zero.
  std::string time = text.substr(blank + 1);
  if (time.find(':') == 1) time.insert(0, 1, '0');
  if (std::ranges::count(time, ':') == 1) time += ":00";
  return text.substr(0, blank) + 'T' + time;
}

double dateIn(std::string_view text) {
  std::string date(withoutBlanksAround(text));
  constexpr std::size_t placeOfT = kIso.size();
  if (date.size() > placeOfT && date[placeOfT] == 'T') date[placeOfT] = ' ';
  try {
    return dateOf(date, kIso);
  } catch (const RunTimeError&) {
    throw DataError("not a date");
  }
}

std::string shortestReal(double number) {
  if (!std::isfinite(number)) return std::isnan(number) ? "nan" : number < 0 ? "-inf" : "inf";
  constexpr double most = 1e21;
  constexpr double least = 1e-6;
  const double size = std::abs(number);
  const bool isPlain = size == 0 || (size >= least && size < most);
  std::array<char, 64> written{};
  char* const begin = written.data();
  const auto end =
      std::to_chars(begin, begin + written.size(), number,
                    isPlain ? std::chars_format::fixed : std::chars_format::scientific);
  return {begin, end.ptr};
}

double realIn(std::string_view text) {
  text = withoutBlanksAround(text);
  if (text.empty()) return 0;
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || !std::isfinite(number))
    throw DataError("not a number");
  return number;
}

}  // namespace quillbox
