#include "opendata/values.h"

#include <algorithm>
#include <bit>

#include "opendata/data_error.h"
#include "opendata/number_forms.h"
#include "opendata/text_scan.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// The video editor's value for an empty date: 1 January 1980.
constexpr double kNoDate = 29221;

constexpr std::int16_t kNoChoice = -1;

/// Bytes that are reserved.
bool isReserved(const Field& field) { return field.name == "Reserved"; }

bool sameInCapitals(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, capitalOf, capitalOf);
}

/// The bytes that a text is stored as.
std::string bytesToStore(const Field& field, std::string_view text, const StoreRules& rules) {
  std::string bytes = fromUtf8(text);
  const bool isHeld = toUtf8(bytes) == text && bytes.find('\0') == std::string::npos;
  if (!isHeld) {
    if (!isUtf8(text) && !rules.replace) throw DataError("the text is not UTF-8");
    if (!rules.replace) throw DataError("a character that the file cannot hold");
    std::ranges::replace(bytes, '\0', '?');
  }
  if (bytes.size() > field.width && !rules.cut)
    throw DataError("too long: " + std::to_string(bytes.size()) + " characters where " +
                    std::to_string(field.width) + " fit");
  return bytes;
}

bool storeText(const DataColumn& column, std::span<std::byte> record, std::string_view text,
               const StoreRules& rules) {
  text = withoutTrailingBlanks(text);
  const Field& field = *column.field;
  const std::string_view stored = readable(textOf(field, record, column.entry));
  if (stored == text && isAscii(text)) return false;
  const std::string bytes = bytesToStore(field, text, rules);
  if (stored == readable(std::string_view(bytes).substr(0, field.width))) return false;
  setText(field, record, bytes, column.entry);
  return true;
}

/// Stores a value if it differs.
template <typename Value, typename Stored, typename Set>
bool storeValue(Value value, Stored stored, const Set& set) {
  if (value == stored) return false;
  set(value);
  return true;
}

bool storeReal(const Field& field, std::span<std::byte> record, double value, bool isSame) {
  if (isSame) return false;
  setReal(field, record, value);
  return true;
}

}  // namespace

std::string_view entryName(const Field& list) {
  std::string_view name = list.name;
  if (name.ends_with('s')) name.remove_suffix(1);
  return name;
}

bool isAscii(std::string_view text) {
  scan::Block found{};
  scan::eachBlock(text, [&](const scan::Block& block) { found |= scan::isBeyondAscii(block); });
  return !scan::any(found);
}

Values::Values(const CollectionFile& collection, std::span<const std::string> musicMediaTypes)
    : fields_(collection.fields), recordLength_(collection.recordLength), words_(fields_.size()) {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const Field& field = fields_[i];
    for (std::size_t entry = 0; !isReserved(field) && entry < field.count; ++entry) {
      std::string name(field.count == 1 ? field.name : entryName(field));
      if (field.count > 1) name.append(" ").append(std::to_string(entry + 1));
      columns_.push_back({&field, entry, std::move(name)});
    }
    const bool isOwnList = collection.kind->editor == EditorForm::music &&
                           field.name == "MediaType" && !musicMediaTypes.empty();
    if (isOwnList)
      words_[i].assign(musicMediaTypes.begin(), musicMediaTypes.end());
    else
      words_[i].assign(field.choices.begin(), field.choices.end());
    choiceTexts_.push_back(textsOfChoice(field));
  }
}

const DataColumn* Values::find(std::string_view name) const {
  for (const DataColumn& column : columns_)
    if (sameInCapitals(column.name, name)) return &column;
  return nullptr;
}

std::size_t Values::numberOf(const Field& field) const {
  return static_cast<std::size_t>(&field - fields_.data());
}

const std::vector<std::string>& Values::wordsOf(const Field& field) const {
  return words_.at(numberOf(field));
}

void Values::append(std::string& text, const DataColumn& column,
                    std::span<const std::byte> record) const {
  const Field& field = *column.field;
  switch (field.type) {
    case FieldType::text: {
      const std::string_view stored = readable(textOf(field, record, column.entry));
      if (isAscii(stored))
        text += stored;
      else
        text += toUtf8(stored);
      return;
    }
    case FieldType::flag:
    case FieldType::whole:
      text += std::to_string(wholeOf(field, record));
      return;
    case FieldType::choice:
      return appendChoice(text, field, wholeOf(field, record));
    case FieldType::money:
      return appendAmount(text, moneyOf(field, record));
    case FieldType::date:
      text += isoDate(realOf(field, record));
      return;
    case FieldType::size:
      text += shortestReal(realOf(field, record));
      return;
  }
}

std::string Values::text(const DataColumn& column, std::span<const std::byte> record) const {
  std::string text;
  append(text, column, record);
  return text;
}

void Values::appendChoice(std::string& text, const Field& field, std::int16_t place) const {
  const auto& texts = choiceTexts_.at(numberOf(field));
  if (place >= 0 && static_cast<std::size_t>(place) < texts.size())
    text += texts[static_cast<std::size_t>(place)];
  else if (place != kNoChoice)
    text += std::to_string(place);
}

/// A word stands for its index only if it leads back to it: a user's list may contain a word twice,
/// or one that reads as a number.
std::vector<std::string> Values::textsOfChoice(const Field& field) const {
  std::vector<std::string> texts;
  for (const std::string& word : wordsOf(field)) {
    const auto place = static_cast<std::int16_t>(texts.size());
    const std::string text = toUtf8(word);
    bool leadsBack = false;
    try {
      leadsBack = choiceOf(field, text) == place;
    } catch (const DataError&) {
      // It does not.
    }
    texts.push_back(leadsBack ? text : std::to_string(place));
  }
  return texts;
}

std::int16_t Values::choiceOf(const Field& field, std::string_view text) const {
  if (withoutBlanksAround(text).empty()) return kNoChoice;
  if (const auto place = wholeNumberIn(text)) return *place;
  const std::string wanted = fromUtf8(withoutBlanksAround(text));
  const auto& words = wordsOf(field);
  for (std::size_t place = 0; place < words.size(); ++place)
    if (sameInCapitals(words[place], wanted)) return static_cast<std::int16_t>(place);
  throw DataError("no entry of the list");
}

bool Values::store(const DataColumn& column, std::span<std::byte> record, std::string_view text,
                   const StoreRules& rules) const {
  const Field& field = *column.field;
  const auto setWholeTo = [&](std::int16_t value) { setWhole(field, record, value); };
  switch (field.type) {
    case FieldType::text:
      return storeText(column, record, text, rules);
    case FieldType::flag:
      return storeValue(flagOf(text), wholeOf(field, record), setWholeTo);
    case FieldType::choice:
      return storeValue(choiceOf(field, text), wholeOf(field, record), setWholeTo);
    case FieldType::whole: {
      const auto value = wholeNumberIn(text);
      if (!value) throw DataError("no whole number from -32768 to 32767");
      return storeValue(*value, wholeOf(field, record), setWholeTo);
    }
    case FieldType::money:
      return storeValue(amountIn(text, rules.decimalComma), moneyOf(field, record),
                        [&](std::int64_t value) { setMoney(field, record, value); });
    case FieldType::date: {
      const double stored = realOf(field, record);
      if (isoDate(stored) == text) return false;
      const double date = withoutBlanksAround(text).empty() ? kNoDate : dateIn(text);
      return storeReal(field, record, date, isoDate(date) == isoDate(stored));
    }
    case FieldType::size: {
      const double stored = realOf(field, record);
      if (shortestReal(stored) == text) return false;
      const double size = realIn(text);
      return storeReal(field, record, size, size == stored);
    }
  }
  return false;
}

std::vector<std::byte> Values::emptyRecord() const {
  std::vector<std::byte> record(recordLength_);
  fillBlank(fields_, record);
  for (const Field& field : fields_) {
    if (field.type == FieldType::choice) setWhole(field, record, kNoChoice);
    if (field.type == FieldType::date) setReal(field, record, kNoDate);
  }
  return record;
}

}  // namespace quillbox
