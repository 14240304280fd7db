#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

/// Dates are kept as days since 30 December 1899; the part of a day is the time of day.
///
/// `shortDate` is the system's short date form in the letters d, dd, M, MM, MMM, yy and yyyy with
/// blanks and signs of ASCII standing for themselves: "M/d/yy", "dd.MM.yyyy". A form with anything
/// else in it (other letters, digits, quotes, marks that no record can hold), or without a day, a
/// month or a year, counts as "yyyy-MM-dd". Texts are ASCII, so they are the same in a record.

/// The date in the system's short form; a year that two digits would not bring back is shown with
/// four. A time of day that is not midnight follows after a blank (13:30 or 13:30:05). A number
/// that is no date of the years 100 to 9999 is an empty text.
std::string dateText(double date, std::string_view shortDate);

/// The date that `text` is: the system's short form, its variants with two- and four-digit years,
/// year-month-day, or month/day/year, with a time of day behind a blank if there is one. Two-digit
/// years 30 to 99 are in the 1900s, 00 to 29 in the 2000s. Run-time error 13 for anything else.
double dateOf(std::string_view text, std::string_view shortDate);

/// The same, and nothing for anything else.
std::optional<double> dateIn(std::string_view text, std::string_view shortDate);

/// The year of a date that `dateText` shows; nothing of a number that is none.
std::optional<int> yearOf(double date);

}  // namespace quillbox
