#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers and dates in open data: the same in every locale, and parsed strictly, because a partly
/// parsed number would be stored as another one. Blanks around them are ignored.
namespace quillbox {

/// An amount with a point and four decimals: 12.5000.
void appendAmount(std::string& text, std::int64_t tenThousandths);

/// The amount in a text; an empty text is 0. A DataError for anything else, for more than four
/// decimals, and when it is out of range. A decimal comma is accepted only if allowed.
std::int64_t amountIn(std::string_view text, bool decimalComma);

/// The 16-bit whole number in a text, 0 for an empty one; nothing for anything else.
std::optional<std::int16_t> wholeNumberIn(std::string_view text);

/// A flag as a number; true, false, yes and no are accepted. A DataError for anything else.
std::int16_t flagOf(std::string_view text);

/// ISO 8601: 2000-01-01, followed by T18:00:00 unless it is midnight; the number if it is no valid
/// date.
std::string isoDate(double days);

/// The date in such a text, with a blank allowed for the T, or as month/day/year. A DataError for
/// anything else.
double dateIn(std::string_view text);

/// The shortest decimal that is read back as the same number, without an exponent where that is
/// readable.
std::string shortestReal(double number);

/// The number in a text, 0 for an empty one. A DataError for anything else, or if not finite.
double realIn(std::string_view text);

}  // namespace quillbox
