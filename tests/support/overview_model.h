#pragma once

#include <algorithm>
#include <bit>
#include <initializer_list>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/record_texts.h"
#include "support/family_files.h"
#include "support/memory_files.h"
#include "support/model_bytes.h"
#include "support/model_kinds.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/windows1252.h"

/// The expected results of reading all items at once, computed independently and as plainly as
/// possible, and random items for it.
namespace quillbox::test {

inline constexpr std::string_view kOverviewDates = "M/d/yy";

inline RecordTexts overviewTexts() { return {builtInChoice, std::string(kOverviewDates)}; }

inline std::span<const std::byte> recordOf(const std::string& item) {
  return std::as_bytes(std::span(item));
}

/// Characters that are changed by folding, as they are read.
struct ModelFolding {
  std::string_view from;  ///< several, a blank between one and the next
  std::string_view to;
};
inline constexpr ModelFolding kModelFoldings[] = {
    {"À Á Â Ã Ä Å à á â ã ä å ª", "a"},
    {"Æ æ", "ae"},
    {"Ç ç", "c"},
    {"Ð ð", "d"},
    {"È É Ê Ë è é ê ë", "e"},
    {"ƒ", "f"},
    {"Ì Í Î Ï ì í î ï", "i"},
    {"Ñ ñ", "n"},
    {"Ò Ó Ô Õ Ö Ø ò ó ô õ ö ø º", "o"},
    {"Œ œ", "oe"},
    {"Š š", "s"},
    {"ß", "ss"},
    {"Þ þ", "th"},
    {"™", "tm"},
    {"Ù Ú Û Ü ù ú û ü", "u"},
    {"Ÿ Ý ý ÿ", "y"},
    {"Ž ž", "z"},
    {"¹", "1"},
    {"²", "2"},
    {"³", "3"},
    {"‚ ‘ ’ ‹ › ´", "'"},
    {"„ “ ” « »", "\""},
    {"– — \u00AD", "-"},
    {"…", "..."},
};

inline std::string modelFolded(char character) {
  const int code = static_cast<unsigned char>(character);
  if (code < 0x20 || code == 0x7F || code == 0xA0) return " ";
  if (character >= 'A' && character <= 'Z') return std::string(1, static_cast<char>(code + 0x20));
  const std::string utf8 = toUtf8(std::string(1, character));
  for (const ModelFolding& folding : kModelFoldings)
    if (code >= 0x80 && folding.from.find(utf8) != std::string_view::npos)
      return std::string(folding.to);
  return std::string(1, character);
}

inline std::string modelFolded(std::string_view text) {
  static const std::vector<std::string> table = [] {
    std::vector<std::string> all;
    for (int code = 0; code <= 255; ++code) all.push_back(modelFolded(static_cast<char>(code)));
    return all;
  }();
  std::string folded;
  for (const char character : text) folded += table[static_cast<unsigned char>(character)];
  return folded;
}

inline std::vector<std::string> modelWords(const std::string& folded) {
  std::vector<std::string> words(1);
  for (const char c : folded)
    if (c != ' ')
      words.back() += c;
    else
      words.emplace_back();
  std::erase(words, "");
  return words;
}

/// Less than 0, 0 or more: natural order.
inline int modelCompared(const std::string& a, const std::string& b) {
  const auto parts = [](const std::string& text) {
    std::vector<std::string> all;
    for (const char c : modelFolded(text)) {
      const bool isDigit = c >= '0' && c <= '9';
      const bool goesOn = isDigit && !all.empty() &&
                          all.back().find_first_not_of("0123456789") == std::string::npos;
      if (goesOn)
        all.back() += c;
      else
        all.emplace_back(1, c);
    }
    return all;
  };
  const auto before = [](const std::string& one, const std::string& other) {
    const bool oneIsNumber = one.front() >= '0' && one.front() <= '9';
    const bool otherIsNumber = other.front() >= '0' && other.front() <= '9';
    const auto unsignedOf = [](const std::string& text) {
      return static_cast<unsigned char>(text.front());
    };
    if (oneIsNumber != otherIsNumber)
      return (oneIsNumber ? '0' : unsignedOf(one)) < (otherIsNumber ? '0' : unsignedOf(other));
    if (!oneIsNumber) return unsignedOf(one) < unsignedOf(other);
    const auto digits = [](const std::string& number) {
      return number.substr(std::min(number.find_first_not_of('0'), number.size()));
    };
    const std::string first = digits(one);
    const std::string second = digits(other);
    return first.size() != second.size() ? first.size() < second.size() : first < second;
  };
  const auto partsOfA = parts(a);
  const auto partsOfB = parts(b);
  if (std::ranges::lexicographical_compare(partsOfA, partsOfB, before)) return -1;
  if (std::ranges::lexicographical_compare(partsOfB, partsOfA, before)) return 1;
  const auto capitals = [](const std::string& text) {
    std::vector<int> codes;
    for (const char c : text) codes.push_back(capitalOfByte(c));
    return codes;
  };
  return capitals(a) < capitals(b) ? -1 : capitals(b) < capitals(a) ? 1 : 0;
}

inline std::string textIn(const std::string& item, std::size_t offset, std::size_t width) {
  return withoutEndBlanks(upToZero(item.substr(offset, width)));
}

inline bool modelDeleted(const ModelKind& kind, const std::string& item) {
  return withoutEndBlanks(item.substr(0, kind.markerWidth())) == kind.marker();
}

/// The word of a choice; nothing if the list has no such entry.
inline std::string modelChoice(const ModelKind& kind, const ModelInput& input, int index) {
  for (const Field& field : kind.row().fields)
    if (field.offset == input.offset && index >= 0 && index < input.choices)
      return std::string(field.choices[static_cast<std::size_t>(index)]);
  return {};
}

/// What an input of the form shows, a tick as "Yes" or nothing.
inline std::string modelShown(const ModelKind& kind, const ModelInput& input,
                              const std::string& item) {
  if (input.isText()) return textIn(item, input.offset, input.width);
  const std::int64_t number = numberAt(item, input.offset, input.width);
  switch (input.is) {
    case Is::flag:
      return number != 0 ? "Yes" : "";
    case Is::choice:
      return modelChoice(kind, input, static_cast<int>(number));
    case Is::date:
      return dateText(std::bit_cast<double>(number), kOverviewDates);
    case Is::whole:
      return std::to_string(number);
    default:
      return plainAmount(number);
  }
}

/// Every text by which an item can be found.
inline std::vector<std::string> modelTexts(const ModelKind& kind, const std::string& item) {
  constexpr std::size_t sizeOfMediaFile = 192;
  std::vector<std::string> texts;
  for (const ModelInput& input : kind.inputs)
    if (input.is != Is::flag) texts.push_back(modelShown(kind, input, item));
  for (int entry = 0; entry < kind.list.entries; ++entry)
    texts.push_back(textIn(item,
                           kind.list.offset + static_cast<std::size_t>(entry) * ModelList::kWidth,
                           ModelList::kWidth));
  if (kind.isMedia())
    texts.push_back(realText(std::bit_cast<double>(numberAt(item, sizeOfMediaFile, 8))));
  return texts;
}

inline bool modelMeets(const ModelKind& kind, const std::string& item, const std::string& typed) {
  const auto texts = modelTexts(kind, item);
  return std::ranges::all_of(modelWords(modelFolded(typed)), [&](const std::string& word) {
    return std::ranges::any_of(texts, [&](const std::string& text) {
      return modelFolded(text).find(word) != std::string::npos;
    });
  });
}

/// Items that have much in common, and some with random bytes.
class OverviewItems {
 public:
  explicit OverviewItems(const ModelKind& kind, unsigned seed = 1)
      : kind_(kind), random_(seed * 100 + static_cast<unsigned>(kind.code)) {}

  std::size_t below(std::size_t bound) { return random_() % bound; }

  template <typename Value>
  Value pick(std::initializer_list<Value> values) {
    return *(values.begin() + below(values.size()));
  }

  std::string text() {
    std::string text;
    for (std::size_t words = below(4); words > 0; --words)
      text += pick<const char*>({"The ",
                                 "the ",
                                 "a ",
                                 "Vol. ",
                                 "2 ",
                                 "10 ",
                                 "007 ",
                                 "7 ",
                                 "caf\xE9 ",
                                 "CAFE ",
                                 "Stra\xDF"
                                 "e ",
                                 "strasse, ",
                                 "\xC6on ",
                                 "Die ",
                                 "l'",
                                 "12/31/99 ",
                                 "1998 ",
                                 "1/1/80 ",
                                 "31.12.1997 ",
                                 "!!! ",
                                 "AC/DC ",
                                 "Wall",
                                 ", ",
                                 "\x93wall\x94 ",
                                 "ab",
                                 "b ",
                                 "\x8Cuvre "});
    return text;
  }

  std::string item() {
    std::string item(kind_.recordLength, ' ');
    const bool anyBytes = below(6) == 0;
    for (char& c : item)
      if (anyBytes) c = static_cast<char>(random_());
    if (!anyBytes) fill(item);
    if (below(6) == 0)
      putBytes(item, 0, fixedText(std::string(kind_.marker()), kind_.markerWidth()));
    return item;
  }

  std::vector<std::string> items(std::size_t count) {
    std::vector<std::string> items(count);
    for (std::string& item : items) item = this->item();
    return items;
  }

 private:
  void fill(std::string& item) {
    for (const ModelInput& input : kind_.inputs) {
      if (input.isText())
        putBytes(item, input.offset, field(input.width));
      else if (input.is == Is::date)
        putBytes(item, input.offset,
                 littleEndian(std::bit_cast<std::int64_t>(
                                  pick({0.0, -0.0, 29221.0, 36525.5, -657434.0, 1e300})),
                              input.width));
      else
        putBytes(item, input.offset,
                 littleEndian(pick<std::int64_t>({-1, 0, 1, 2, 3, 12'500, 20, -32'768, INT64_MAX}),
                              input.width));
    }
    for (int entry = 0; entry < kind_.list.entries; ++entry)
      putBytes(item, kind_.list.offset + static_cast<std::size_t>(entry) * ModelList::kWidth,
               field(ModelList::kWidth));
  }

  std::string field(std::size_t width) {
    if (below(8) == 0) return std::string(width, '\0');
    return fixedText(text(), width);
  }

  const ModelKind& kind_;
  std::mt19937 random_;
};

/// The bytes of a collection of these items.
inline std::string collectionOf(const ModelKind& kind, const std::vector<std::string>& items) {
  std::string bytes = familyHeader(static_cast<int>(items.size()), kind.fileType());
  bytes.resize(kind.recordLength);
  for (const std::string& item : items) bytes += item;
  return bytes;
}

/// A blank item with texts in some of its inputs.
struct InputText {
  std::string_view input;
  std::string_view text;
};
inline std::string itemWith(const ModelKind& kind, std::initializer_list<InputText> texts) {
  std::string item = familyItem(kind, "");
  for (const InputText& text : texts)
    for (const ModelInput& input : kind.inputs)
      if (input.name == text.input)
        putBytes(item, input.offset, fixedText(std::string(text.text), input.width));
  return item;
}

/// The same with a number: of an amount, a flag or a choice.
inline std::string withNumber(const ModelKind& kind, std::string item, std::string_view name,
                              std::int64_t number) {
  for (const ModelInput& input : kind.inputs)
    if (input.name == name) putBytes(item, input.offset, littleEndian(number, input.width));
  return item;
}

/// One collection in memory, not held open.
struct OverviewCollection {
  OverviewCollection(const ModelKind& kind, const std::vector<std::string>& items) {
    files.put("all", collectionOf(kind, items));
    collection.currentPath = "all";
  }

  MemoryFiles files;
  OpenFiles open{files};
  OpenCollection collection;
};

inline bool neverStop() { return false; }
inline bool stopAtOnce() { return true; }

}  // namespace quillbox::test
