#pragma once

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "records/field.h"
#include "records/field_types.h"
#include "support/model_kinds.h"

namespace quillbox::test {

/// The 12 bytes of a header that the program writes.
std::string familyHeader(int count, int fileType = 1);

/// The bytes of a blank item with those two texts.
std::string familyItem(const ModelKind& kind, std::string_view first, std::string_view other = "");

/// The bytes that Delete leaves of an item.
std::string deletedItem(const ModelKind& kind);

/// The bytes of a collection of such items; "DELETED" stands for a deleted one.
std::string familyFile(const ModelKind& kind, std::initializer_list<std::string_view> firsts);

/// The same with that `Count` in the header.
std::string familyFile(const ModelKind& kind, int count,
                       std::initializer_list<std::string_view> firsts);

/// Item `n` (from 1) of a collection's bytes, which must hold it whole.
std::string itemBytes(const ModelKind& kind, std::string_view file, int n);

/// The text field there, without the blanks that pad it.
std::string textAt(std::string_view item, std::size_t offset, std::size_t width = 50);

/// A blank record: blanks in texts, zeros elsewhere.
template <typename Record>
Record blankRecord(std::span<const Field> fields) {
  Record record;
  fillBlank(fields, bytesOf(record));
  return record;
}

/// The bytes of a collection of these records.
template <typename Record>
std::string fileOf(std::initializer_list<Record> items) {
  std::string bytes = familyHeader(static_cast<int>(items.size()));
  bytes.resize(sizeof(Record));
  for (const Record& item : items) {
    const auto record = bytesOf(item);
    bytes.append(reinterpret_cast<const char*>(record.data()), record.size());
  }
  return bytes;
}

/// Item `n` (from 1) of a collection's bytes, which must hold it whole.
template <typename Record>
Record recordIn(std::string_view file, int n) {
  Record record;
  const auto at = static_cast<std::size_t>(n) * sizeof record;
  if (file.size() < at + sizeof record) throw std::out_of_range("no such item");
  std::memcpy(&record, file.data() + at, sizeof record);
  return record;
}

}  // namespace quillbox::test
