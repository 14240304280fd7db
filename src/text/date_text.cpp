#include "text/date_text.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <optional>

#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "text/padding.h"

namespace quillbox {
namespace {

using namespace std::chrono;

constexpr sys_days kDayZero = year{1899} / December / 30;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr int kSecondsADay = 86'400;

// The century of a two-digit year.
constexpr int kFirstShortYear = 1930;
constexpr int kLastShortYear = 2029;

constexpr std::string_view kIso = "yyyy-MM-dd";
constexpr std::string_view kMonthDayYear = "M/d/yyyy";
constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Takes a run of the same letter, or one other character, off the front of a form.
std::string_view takePiece(std::string_view& form) {
  std::size_t length = 1;
  if (isLetter(form.front())) length = std::min(form.find_first_not_of(form.front()), form.size());
  const std::string_view piece = form.substr(0, length);
  form.remove_prefix(length);
  return piece;
}

/// A character that stands for itself in every character set and needs no quotes.
bool isPlain(char c) {
  return c >= ' ' && c <= '~' && c != '\'' && c != '"' && !isDigit(c) && !isLetter(c);
}

/// True for a form of known pieces, among them a day, a month and a year.
bool isUnderstood(std::string_view form) {
  for (const char part : {'d', 'M', 'y'})
    if (form.find(part) == std::string_view::npos) return false;
  while (!form.empty()) {
    const std::string_view piece = takePiece(form);
    if (isPlain(piece.front())) continue;
    if (piece != "d" && piece != "dd" && piece != "M" && piece != "MM" && piece != "MMM" &&
        piece != "yy" && piece != "yyyy")
      return false;
  }
  return true;
}

/// The system's form, or the default for one that is not understood. Blanks around it are dropped:
/// they could not be read back, because blanks around a text are ignored.
std::string_view usedForm(std::string_view shortDate) {
  const std::string_view form = withoutBlanksAround(shortDate);
  return isUnderstood(form) ? form : kIso;
}

/// The form with a four-digit or a two-digit year.
std::string withYear(std::string_view form, std::string_view yearPiece) {
  std::string changed;
  while (!form.empty()) {
    const std::string_view piece = takePiece(form);
    changed += piece.front() == 'y' ? yearPiece : piece;
  }
  return changed;
}

std::string number(int value, int digits) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%0*d", digits, value);
  return text.data();
}

std::string formatted(year_month_day date, std::string_view form) {
  std::string text;
  while (!form.empty()) {
    const std::string_view piece = takePiece(form);
    const int length = static_cast<int>(piece.size());
    if (piece == "MMM")
      text += kMonths.at(static_cast<unsigned>(date.month()) - 1);
    else if (piece.front() == 'M')
      text += number(static_cast<int>(static_cast<unsigned>(date.month())), length);
    else if (piece.front() == 'd')
      text += number(static_cast<int>(static_cast<unsigned>(date.day())), length);
    else if (piece == "yy")
      text += number(static_cast<int>(date.year()) % 100, length);
    else if (piece == "yyyy")
      text += number(static_cast<int>(date.year()), length);
    else
      text += piece;
  }
  return text;
}

/// Takes 1 to `most` digits off the front of `text`.
std::optional<int> takeNumber(std::string_view& text, std::size_t least, std::size_t most) {
  std::size_t length = 0;
  int value = 0;
  for (; length < most && length < text.size() && isDigit(text[length]); ++length)
    value = 10 * value + (text[length] - '0');
  if (length < least) return std::nullopt;
  text.remove_prefix(length);
  return value;
}

std::optional<int> takeMonthName(std::string_view& text) {
  for (std::size_t month = 0; month < kMonths.size(); ++month) {
    const std::string_view name = kMonths.at(month);
    bool same = text.size() >= name.size();
    for (std::size_t i = 0; same && i < name.size(); ++i)
      same = asciiCapital(text[i]) == asciiCapital(name[i]);
    if (!same) continue;
    text.remove_prefix(name.size());
    return static_cast<int>(month) + 1;
  }
  return std::nullopt;
}

int withCentury(int shortYear) {
  const int inThe1900s = 1900 + shortYear;
  return inThe1900s >= kFirstShortYear ? inThe1900s : 2000 + shortYear;
}

std::optional<sys_days> readDate(std::string_view text, std::string_view form) {
  std::optional<int> yearRead;
  std::optional<int> monthRead;
  std::optional<int> dayRead;
  while (!form.empty()) {
    const std::string_view piece = takePiece(form);
    if (piece == "MMM") {
      monthRead = takeMonthName(text);
    } else if (piece.front() == 'M') {
      monthRead = takeNumber(text, 1, 2);
    } else if (piece.front() == 'd') {
      dayRead = takeNumber(text, 1, 2);
    } else if (piece == "yy") {
      yearRead = takeNumber(text, 2, 2);
      if (yearRead) yearRead = withCentury(*yearRead);
    } else if (piece == "yyyy") {
      yearRead = takeNumber(text, 4, 4);
    } else if (text.starts_with(piece)) {
      text.remove_prefix(piece.size());
    } else {
      return std::nullopt;
    }
  }
  if (!text.empty() || !yearRead || !monthRead || !dayRead || *yearRead < kFirstYear)
    return std::nullopt;
  const year_month_day date = year{*yearRead} / *monthRead / *dayRead;
  if (!date.ok()) return std::nullopt;
  return sys_days(date);
}

/// Seconds since midnight: 13:30, 13:30:05, 1:30 PM.
std::optional<int> readTime(std::string_view text) {
  const auto hour = takeNumber(text, 1, 2);
  if (!hour || !text.starts_with(':')) return std::nullopt;
  text.remove_prefix(1);
  const auto minute = takeNumber(text, 2, 2);
  std::optional<int> second = 0;
  if (text.starts_with(':')) {
    text.remove_prefix(1);
    second = takeNumber(text, 2, 2);
  }
  if (!minute || !second || *minute > 59 || *second > 59) return std::nullopt;
  int hours = *hour;
  if (!text.empty()) {
    const bool morning = text == " AM" || text == " am";
    if ((!morning && text != " PM" && text != " pm") || hours < 1 || hours > 12)
      return std::nullopt;
    hours = hours % 12 + (morning ? 0 : 12);
  }
  if (hours > 23) return std::nullopt;
  return (hours * 60 + *minute) * 60 + *second;
}

std::optional<sys_days> readDateInAnyForm(std::string_view text, std::string_view shortDate) {
  const std::string_view system = usedForm(shortDate);
  for (const std::string_view form : {system, kMonthDayYear})
    for (const std::string_view yearPiece : {"yyyy", "yy"})
      if (const auto date = readDate(text, withYear(form, yearPiece))) return date;
  return readDate(text, kIso);
}

/// A day of the calendar and the seconds since its midnight.
struct Moment {
  year_month_day day;
  int seconds;
};

/// Nothing for a number outside the years that are shown.
std::optional<Moment> momentOf(double date) {
  constexpr double tooFar = 4e6;  // days, beyond any year that is shown
  if (!(std::abs(date) < tooFar)) return std::nullopt;
  const double wholeDays = std::trunc(date);
  int days = static_cast<int>(wholeDays);
  // The time of day counts forward from midnight, before day zero as well.
  int seconds = static_cast<int>(std::lround(std::abs(date - wholeDays) * kSecondsADay));
  if (seconds == kSecondsADay) {
    seconds = 0;
    ++days;
  }
  const year_month_day day(kDayZero + std::chrono::days(days));
  const int yearShown = static_cast<int>(day.year());
  if (yearShown < kFirstYear || yearShown > kLastYear) return std::nullopt;
  return Moment{day, seconds};
}

}  // namespace

std::string dateText(double date, std::string_view shortDate) {
  const auto moment = momentOf(date);
  if (!moment) return {};
  const auto [shown, seconds] = *moment;
  const int yearShown = static_cast<int>(shown.year());

  std::string form(usedForm(shortDate));
  if (yearShown < kFirstShortYear || yearShown > kLastShortYear) form = withYear(form, "yyyy");
  std::string text = formatted(shown, form);
  if (seconds == 0) return text;
  text += ' ' + number(seconds / 3600, 1) + ':' + number(seconds / 60 % 60, 2);
  if (seconds % 60 != 0) text += ':' + number(seconds % 60, 2);
  return text;
}

std::optional<int> yearOf(double date) {
  const auto moment = momentOf(date);
  if (!moment) return std::nullopt;
  return static_cast<int>(moment->day.year());
}

double dateOf(std::string_view text, std::string_view shortDate) {
  if (const auto date = dateIn(text, shortDate)) return *date;
  throw RunTimeError(ErrorNumber::typeMismatch);
}

std::optional<double> dateIn(std::string_view text, std::string_view shortDate) {
  text = withoutBlanksAround(text);
  // A short form may contain blanks, so any blank could be the one before the time.
  for (std::size_t end = text.size(); end != std::string_view::npos;
       end = end == 0 ? std::string_view::npos : text.rfind(' ', end - 1)) {
    const auto date = readDateInAnyForm(text.substr(0, end), shortDate);
    const auto time = end == text.size() ? std::optional(0) : readTime(text.substr(end + 1));
    if (!date || !time) continue;
    const auto days = static_cast<double>((*date - kDayZero).count());
    const double part = static_cast<double>(*time) / kSecondsADay;
    return days < 0 ? days - part : days + part;
  }
  return std::nullopt;
}

}  // namespace quillbox
