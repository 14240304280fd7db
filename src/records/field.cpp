#include "records/field.h"

#include <cassert>
#include <cstdint>
#include <cstring>

#include "records/field_types.h"

namespace quillbox {
namespace {

/// The bytes of one entry. `record` may be a byte span or a const one.
template <typename Bytes>
Bytes entryOf(const Field& field, Bytes record, std::size_t entry) {
  assert(entry < field.count && field.offset + field.width * field.count <= record.size());
  return record.subspan(field.offset + entry * field.width, field.width);
}

template <typename Stored>
Stored load(const Field& field, std::span<const std::byte> record) {
  assert(field.width == sizeof(Stored));
  Stored stored;
  std::memcpy(&stored, entryOf(field, record, 0).data(), sizeof stored);
  return stored;
}

template <typename Stored>
void store(const Field& field, std::span<std::byte> record, Stored stored) {
  assert(field.width == sizeof(Stored));
  std::memcpy(entryOf(field, record, 0).data(), &stored, sizeof stored);
}

}  // namespace

std::string_view textOf(const Field& field, std::span<const std::byte> record, std::size_t entry) {
  const auto bytes = entryOf(field, record, entry);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

void setText(const Field& field, std::span<std::byte> record, std::string_view text,
             std::size_t entry) {
  const auto bytes = entryOf(field, record, entry);
  const auto length = text.copy(reinterpret_cast<char*>(bytes.data()), bytes.size());
  std::memset(bytes.data() + length, ' ', bytes.size() - length);
}

std::int16_t wholeOf(const Field& field, std::span<const std::byte> record) {
  return load<WholeNumber>(field, record);
}

void setWhole(const Field& field, std::span<std::byte> record, std::int16_t value) {
  WholeNumber stored;
  stored = value;
  store(field, record, stored);
}

std::int64_t moneyOf(const Field& field, std::span<const std::byte> record) {
  return load<Money>(field, record);
}

void setMoney(const Field& field, std::span<std::byte> record, std::int64_t tenThousandths) {
  Money stored;
  stored = tenThousandths;
  store(field, record, stored);
}

double realOf(const Field& field, std::span<const std::byte> record) {
  return load<Real>(field, record);
}

void setReal(const Field& field, std::span<std::byte> record, double value) {
  Real stored;
  stored = value;
  store(field, record, stored);
}

void fillBlank(std::span<const Field> fields, std::span<std::byte> record) {
  std::memset(record.data(), 0, record.size());
  for (const Field& field : fields)
    for (std::size_t entry = 0; field.type == FieldType::text && entry < field.count; ++entry)
      setText(field, record, "", entry);
}

}  // namespace quillbox
