#pragma once

#include <array>
#include <initializer_list>
#include <iterator>
#include <random>
#include <span>
#include <string>
#include <string_view>

#include "support/model_bytes.h"

namespace quillbox::test {

/// Texts that are typed, and that are in records: similar, with characters that are easily lost.
/// All characters of records, which the screen shows unchanged. Only the first is empty.
inline const auto kModelTexts = std::to_array<std::string>(
    {"", "a", "A", "b", "apple", "Apple", "\xE9t\xE9", "\xC9T\xC9", " lead", "trail ", "1/2/98",
     "0 days", "12", "DELETED", "DETELED", " DETELED", "DELETED ", "[*] & co",
     "a text that is longer than any of the fields that it may be typed into, be it a folder or a "
     "description, of which the longest has room for 128"});

/// The random numbers of a run; the same seed gives the same numbers everywhere.
class Lots {
 public:
  explicit Lots(unsigned seed) : random_(seed) {}

  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  bool oneIn(int many) { return below(many) == 0; }

  template <typename Values>
  const auto& of(const Values& values) {
    return *(std::begin(values) + below(static_cast<int>(std::size(values))));
  }
  template <typename Value>
  Value of(std::initializer_list<Value> values) {
    return *(values.begin() + below(static_cast<int>(values.size())));
  }

 private:
  std::mt19937 random_;
};

/// The table of texts to type into a number box.
inline std::span<const TypedNumber> typedNumbers(Is is) {
  if (is == Is::date) return kDates;
  if (is == Is::whole) return kWholes;
  return kAmounts;
}

inline std::string randomField(Lots& lots, const ModelInput& input) {
  switch (input.is) {
    case Is::text:
    case Is::padded:
      return fixedText(lots.of(kModelTexts), input.width);
    case Is::flag:
      return littleEndian(lots.of({0, 1, 0, 1, -1, 2}), 2);
    case Is::choice:
      return littleEndian(lots.oneIn(8) ? lots.of({-1, -7, 99}) : lots.below(input.choices), 2);
    case Is::date:
      return littleEndian(lots.of(kShownDates).number, input.width);
    case Is::amount:
    case Is::signedAmount:
    case Is::whole:
      break;
  }
  return littleEndian(lots.of(typedNumbers(input.is)).number, input.width);
}

/// A random item: written, deleted, or never written.
inline std::string randomItem(Lots& lots, const ModelKind& kind) {
  std::string item(kind.recordLength, '\0');
  if (lots.oneIn(10)) return item;
  for (std::size_t byte = kind.isMedia() ? 192 : kind.reservedOffset;
       byte < (kind.isMedia() ? 200 : kind.recordLength); ++byte)
    item[byte] = static_cast<char>(lots.below(256));
  for (const ModelInput& input : kind.inputs)
    putBytes(item, input.offset, randomField(lots, input));
  const int filled = lots.of({0, 5, 10});  // of ten
  for (int entry = 0; entry < kind.list.entries; ++entry)
    putBytes(item, kind.list.offset + static_cast<std::size_t>(entry) * ModelList::kWidth,
             fixedText(lots.below(10) < filled ? lots.of(std::span(kModelTexts).subspan(1)) : "",
                       ModelList::kWidth));
  if (lots.oneIn(6)) putBytes(item, 0, fixedText(std::string(kind.marker()), kind.markerWidth()));
  return item;
}

/// A random collection: with none, some or more items than it counts, sometimes truncated. For
/// music also one of the older type, whose records end before the bar code.
inline std::string randomCollection(Lots& lots, const ModelKind& kind) {
  const int items = lots.below(7);
  const int count = items == 0 && lots.oneIn(4) ? -2 : items - (items > 0 && lots.oneIn(6) ? 1 : 0);
  const int fileType = kind.isMusic() ? lots.of({5, 5, 5, 5, 6, 1, 4, 4}) : lots.of({1, 1, 4, 0});
  const std::size_t length = kind.isMusic() && fileType == 4 ? kOldMusicLength : kind.recordLength;
  std::string bytes = littleEndian(count, 2) + littleEndian(fileType, 2) +
                      lots.of<std::string>({"1.71    ", "0.9     "});
  if (items > 0 || lots.oneIn(2)) bytes.resize(length, lots.of({'\0', '='}));
  for (int item = 0; item < items; ++item) bytes += randomItem(lots, kind).substr(0, length);
  if (items > 0 && lots.oneIn(12))
    bytes.resize(bytes.size() -
                 static_cast<std::size_t>(lots.below(static_cast<int>(length + length / 2))));
  return bytes;
}

}  // namespace quillbox::test
