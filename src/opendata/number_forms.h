#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers and dates as open data writes them: the same in every place, and read strictly, as a
/// number that is only begun would be stored as another one. Blanks around them are no matter.
namespace quillbox {

/// An amount with a point and four places: 12.5000.
void appendAmount(std::string& text, std::int64_t tenThousandths);

/// The amount that a text is; nothing is 0. A DataError for what is none, what has more than four
/// places, and what is out of range. A comma before the decimals is taken only where it is allowed.
std::int64_t amountIn(std::string_view text, bool decimalComma);

/// The 16-bit whole number that a text is, an empty one being 0; nothing for anything else.
std::optional<std::int16_t> wholeNumberIn(std::string_view text);

/// A flag as a number; true, false, yes and no are understood. A DataError for anything else.
std::int16_t flagOf(std::string_view text);

/// ISO 8601: 2000-01-01, with T18:00:00 behind it unless it is midnight; the number where the days
/// are no date.
std::string isoDate(double days);

/// The date that such a text is, a blank allowed for the T, or month/day/year. A DataError
/// for anything else.
double dateIn(std::string_view text);

/// The shortest decimal that is read back as the same number, without an exponent as far as that is
/// readable.
std::string shortestReal(double number);

/// The number that a text is, an empty one being 0. A DataError for what is none, or not finite.
double realIn(std::string_view text);

}  // namespace quillbox
