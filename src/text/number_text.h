#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillbox {

/// Amounts are whole ten-thousandths. In text they have "." in every locale, no grouping, no
/// trailing zeros and no exponent: 0.5, 12, -1.25.
inline constexpr int kAmountScale = 4;

/// A whole number in decimal, with one blank before it when it is not negative.
std::string numberText(int number);
void appendNumberText(std::string& text, int number);

/// The amount in decimal, "-" before a negative one.
std::string plainAmount(std::int64_t tenThousandths);

/// The same, with one blank before an amount that is not negative.
std::string signedAmount(std::int64_t tenThousandths);

/// A number of bytes, for example, in decimal without an exponent: 15 digits, or more if more
/// precede the point. Other values are "nan", "inf" and "-inf".
std::string realText(double number);

/// The number that `text` begins with, as an amount: leading blanks, a sign, digits with at most
/// one point, an exponent; any other character ends it. Without a number the result is 0. Rounded
/// to four places, an exact half to the even one; run-time error 6 outside the range of an amount.
std::int64_t leadingAmount(std::string_view text);

/// The number that `text` begins with, as a 16-bit whole number, an exact half rounded to the even
/// one; run-time error 6 outside 16 bits.
std::int16_t leadingWhole(std::string_view text);

/// All of `text` as a 16-bit number, with blanks around it allowed; a fraction is rounded to the
/// nearest whole number, an exact half to the even one. Run-time error 13 when it is no number, 6
/// when it is outside 16 bits.
std::int16_t wholeNumber(std::string_view text);

}  // namespace quillbox
