#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

/// Dates are days since 30 December 1899; the fraction of a day is the time of day.
///
/// `shortDate` is the system's short date form in the letters d, dd, M, MM, MMM, yy and yyyy, with
/// blanks and ASCII signs standing for themselves: "M/d/yy", "dd.MM.yyyy". A form with anything
/// else in it (other letters, digits, quotes, characters that records cannot hold), or without a
/// day, a month or a year, counts as "yyyy-MM-dd". The texts are ASCII, so they are the same in a
/// record.

/// The date in the system's short form, with a four-digit year if two digits would not be read back
/// as the same year. A time of day other than midnight follows after a blank (13:30 or 13:30:05).
/// Outside the years 100 to 9999 the text is empty.
std::string dateText(double date, std::string_view shortDate);

/// The date in `text`: in the system's short form, its variants with two- and four-digit years,
/// year-month-day, or month/day/year, optionally followed by a blank and a time of day. Two-digit
/// years 30 to 99 are in the 1900s, 00 to 29 in the 2000s. Run-time error 13 for anything else.
double dateOf(std::string_view text, std::string_view shortDate);

/// The same, but nothing instead of an error.
std::optional<double> dateIn(std::string_view text, std::string_view shortDate);

/// The year of a date as `dateText` shows it; nothing where that shows nothing.
std::optional<int> yearOf(double date);

}  // namespace quillbox
