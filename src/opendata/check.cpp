#include "opendata/check.h"

#include <algorithm>
#include <cmath>

#include "opendata/beside.h"
#include "text/date_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

bool isControl(char c) {
  constexpr unsigned char firstPrinted = 0x20;
  constexpr unsigned char remove = 0x7F;
  const auto code = static_cast<unsigned char>(c);
  return code < firstPrinted || code == remove;
}

std::string textTrouble(std::string_view text) {
  const std::string_view shown = upToNul(text);
  if (std::ranges::any_of(shown, isControl)) return "control characters";
  const auto hidden = text.substr(shown.size()).find_first_not_of(std::string_view("\0 ", 2));
  return hidden == std::string_view::npos ? ""
                                          : "characters behind a zero byte, which nothing shows";
}

/// What is wrong with a value; empty if nothing is.
std::string troubleOf(const Values& values, const DataColumn& column,
                      std::span<const std::byte> record) {
  const Field& field = *column.field;
  switch (field.type) {
    case FieldType::text:
      return textTrouble(textOf(field, record, column.entry));
    case FieldType::flag: {
      const int flag = wholeOf(field, record);
      return flag == 0 || flag == 1 ? "" : std::to_string(flag) + ", neither 0 nor 1";
    }
    case FieldType::choice: {
      const int place = wholeOf(field, record);
      const auto last = static_cast<int>(values.wordsOf(field).size()) - 1;
      return place >= -1 && place <= last ? ""
                                          : "place " + std::to_string(place) +
                                                " of a list from 0 to " + std::to_string(last);
    }
    case FieldType::date:
      return dateText(realOf(field, record), {}).empty() ? "not a date" : "";
    case FieldType::size: {
      const double size = realOf(field, record);
      return std::isfinite(size) && size >= 0 ? "" : "not a size";
    }
    case FieldType::money:
    case FieldType::whole:
      break;
  }
  return {};
}

void checkSize(const CollectionFile& collection, const Finding& finding) {
  if (collection.header.Count < 0)
    finding(0, "the count is " + std::to_string(collection.header.Count));
  if (!collection.isWhole()) {
    const int there = collection.itemsThere();
    finding(0, "the file ends at item " + std::to_string(there) + " of " +
                   std::to_string(collection.count));
    if (there > 0 && collection.size % collection.recordLength != 0) finding(there, "is cut off");
  }
  const std::uint64_t end =
      static_cast<std::uint64_t>(collection.count + 1) * collection.recordLength;
  if (collection.size > end)
    finding(0, std::to_string(collection.size - end) + " bytes behind the last item");
}

}  // namespace

void checkFile(FileSystem& files, const CollectionFile& collection, const Finding& finding) {
  checkSize(collection, finding);
  for (const auto& [kind, path] : filesBeside(files, collection.path))
    if (kind == BesideKind::sortBackup || kind == BesideKind::unfinished ||
        (kind == BesideKind::upgradeBackup && !collection.isWhole()))
      finding(0, std::string(besideText(kind)) + " beside it: " + path);
}

void checkItem(const CollectionKind& kind, const Values& values, int item,
               std::span<const std::byte> record, const Finding& finding) {
  if (isDeleted(kind, record)) return;
  for (const DataColumn& column : values.columns()) {
    const std::string trouble = troubleOf(values, column, record);
    if (!trouble.empty()) finding(item, column.name + ": " + trouble);
  }
}

}  // namespace quillbox
