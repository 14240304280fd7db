#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "support/model_kinds.h"
#include "support/typed_numbers.h"

/// Records of the model as plain bytes, and the texts they are shown as.
namespace quillbox::test {

/// The contents of a control: a text and its number, 0 or 1 for a check box, the index in a list.
struct Held {
  std::string text = {};
  std::int64_t number = 0;
  int error = 0;            ///< of storing it
  std::size_t padding = 0;  ///< blanks at the end of the text that are padding
};

inline std::string withoutEndBlanks(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

inline std::string trimmedOf(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : withoutEndBlanks(text.substr(first));
}

inline std::string fixedText(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

inline void putBytes(std::string& record, std::size_t offset, const std::string& bytes) {
  record.replace(offset, bytes.size(), bytes);
}

inline std::string littleEndian(std::int64_t number, std::size_t width) {
  std::string bytes;
  const auto bits = static_cast<std::uint64_t>(number);
  for (std::size_t byte = 0; byte < width; ++byte)
    bytes += static_cast<char>(bits >> (8 * byte) & 0xFFU);
  return bytes;
}

/// The signed number in `width` bytes.
inline std::int64_t numberAt(std::string_view record, std::size_t offset, std::size_t width) {
  std::uint64_t bits = 0;
  for (std::size_t byte = width; byte-- > 0;)
    bits = bits << 8U | static_cast<unsigned char>(record[offset + byte]);
  return width == 2 ? static_cast<std::int16_t>(bits) : static_cast<std::int64_t>(bits);
}

inline std::string upToZero(const std::string& text) {
  return text.substr(0, std::min(text.find('\0'), text.size()));
}

inline std::string amountText(std::int64_t tenThousandths) {
  const std::int64_t size = tenThousandths < 0 ? -tenThousandths : tenThousandths;
  std::string text = std::to_string(size / 10'000);
  std::string places = std::to_string(10'000 + size % 10'000).substr(1);
  places.erase(places.find_last_not_of('0') + 1);
  if (!places.empty()) text += "." + places;
  return tenThousandths < 0 ? "-" + text : text;
}

/// A date cut off by the end of the file keeps its lowest bytes, which are next to nothing: it is
/// shown, and stored again, as day zero.
inline std::int64_t dateTaken(std::int64_t days) {
  constexpr double nextToNothing = 1e-9;
  return std::bit_cast<double>(days) < nextToNothing ? 0 : days;
}

inline std::string dateShown(std::int64_t days) {
  days = dateTaken(days);
  for (const TypedNumber& date : kShownDates)
    if (date.number == days) return date.text;
  return "a date that is not in the table";
}

/// How an input shows a record; `before` is its contents before.
inline Held heldOf(const ModelInput& input, const std::string& record, const Held& before) {
  const std::string bytes = record.substr(input.offset, input.width);
  const std::int64_t number = input.isText() ? 0 : numberAt(record, input.offset, input.width);
  switch (input.is) {
    case Is::text:
      return {withoutEndBlanks(upToZero(bytes))};
    case Is::padded: {
      const std::string text = upToZero(bytes);
      return {text, 0, 0, text.size() - withoutEndBlanks(text).size()};
    }
    case Is::amount:
      return {amountText(number), number};
    case Is::signedAmount:
      return {(number < 0 ? "" : " ") + amountText(number), number};
    case Is::whole:
      return {std::to_string(number), number};
    case Is::date:
      return {dateShown(number), dateTaken(number)};
    case Is::flag:
      return {"", number != 0 ? 1 : 0};
    case Is::choice:
      return number < input.choices ? Held{"", std::max<std::int64_t>(number, -1)} : before;
  }
  return {};
}

inline Held emptyOf(const ModelInput& input) { return {"", input.is == Is::choice ? -1 : 0}; }

/// The bytes that a control stores into its field.
inline std::string storedBytes(const ModelInput& input, const Held& held) {
  return input.isText() ? fixedText(held.text, input.width)
                        : littleEndian(held.number, input.width);
}

inline int capitalOfByte(char character) {
  const int code = static_cast<unsigned char>(character);
  if (code == 0x9A || code == 0x9C || code == 0x9E) return code - 0x10;
  if (code == 0xFF) return 0x9F;
  const bool isSmall =
      (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
  return isSmall ? code - 0x20 : code;
}

inline bool sameInCapitals(const std::string& a, const std::string& b) {
  return std::ranges::equal(a, b, {}, capitalOfByte, capitalOfByte);
}

inline std::string errorText(int number, const std::string& file = {}) {
  std::string text = "Run-time error '" + std::to_string(number) + "':\n\n";
  text += number == 6    ? "Overflow"
          : number == 13 ? "Type mismatch"
          : number == 55 ? "File already open"
                         : "Bad record number";
  return file.empty() ? text : text + "\n" + file;
}

}  // namespace quillbox::test
