#include "records/field.h"

#include <algorithm>
#include <bit>
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
  const auto length = std::min(text.size(), bytes.size());
  std::ranges::copy(std::as_bytes(std::span(text).first(length)), bytes.begin());
  std::ranges::fill(bytes.subspan(length), std::byte{' '});
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
  std::ranges::fill(record, std::byte{0});
  for (const Field& field : fields)
    for (std::size_t entry = 0; field.type == FieldType::text && entry < field.count; ++entry)
      setText(field, record, "", entry);
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  // A word at a time, as padding is much of every record and page.
  using Word = std::uint64_t;
  constexpr Word blanks = 0x2020'2020'2020'2020;
  constexpr int bitsOfCharacter = 8;
  constexpr bool lastIsHigh = std::endian::native == std::endian::little;
  while (text.size() >= sizeof(Word)) {
    Word end;
    std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
    const Word others = end ^ blanks;
    if (others != 0) {
      const int bits = lastIsHigh ? std::countl_zero(others) : std::countr_zero(others);
      return text.substr(0, text.size() - static_cast<std::size_t>(bits / bitsOfCharacter));
    }
    text.remove_suffix(sizeof end);
  }
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view withoutBlanksAround(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view()
                                         : withoutTrailingBlanks(text.substr(first));
}

std::string_view upToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace quillbox
