#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillbox {

enum class FieldType {
  text,    ///< Windows-1252 characters padded with blanks
  flag,    ///< WholeNumber, 0 or 1
  choice,  ///< WholeNumber, 0-based place in a drop-down list, -1 for none
  money,   ///< Money
  whole,   ///< WholeNumber, an amount in whole units
  date,    ///< Real, days since 30 December 1899 and the part of a day
  size,    ///< Real, bytes
};

/// One field of a record: the descriptor that editors, sort and search share.
struct Field {
  std::string_view name;
  FieldType type;
  std::size_t offset;                              ///< bytes from the start of the record
  std::size_t width;                               ///< bytes of one entry
  std::size_t count = 1;                           ///< entries, stored back to back
  std::span<const std::string_view> choices = {};  ///< the built-in list of a choice

  /// The same field of the same kind of record, wherever its descriptor is.
  friend constexpr bool operator==(const Field& one, const Field& other) {
    return one.name == other.name && one.type == other.type && one.offset == other.offset &&
           one.width == other.width && one.count == other.count;
  }
};

/// All `width` characters of an entry.
std::string_view textOf(const Field& field, std::span<const std::byte> record,
                        std::size_t entry = 0);

/// Stores `text` into an entry, cut or padded with blanks to the width.
void setText(const Field& field, std::span<std::byte> record, std::string_view text,
             std::size_t entry = 0);

/// A flag, a choice or a whole number.
std::int16_t wholeOf(const Field& field, std::span<const std::byte> record);
void setWhole(const Field& field, std::span<std::byte> record, std::int16_t value);

/// An amount in ten-thousandths.
std::int64_t moneyOf(const Field& field, std::span<const std::byte> record);
void setMoney(const Field& field, std::span<std::byte> record, std::int64_t tenThousandths);

/// A date or a size.
double realOf(const Field& field, std::span<const std::byte> record);
void setReal(const Field& field, std::span<std::byte> record, double value);

/// Makes `record` the blank record: blanks in texts, zeros elsewhere. (A record of zero bytes is
/// different: it is what a buffer holds before anything was read.)
void fillBlank(std::span<const Field> fields, std::span<std::byte> record);

/// The field of that name, at compile time; an unknown name does not compile.
consteval const Field& fieldNamed(std::span<const Field> fields, std::string_view name) {
  for (const Field& field : fields)
    if (field.name == name) return field;
  throw "no field of that name";
}

/// True when the fields follow one another without gaps and make up exactly `length` bytes.
consteval bool coversRecord(std::span<const Field> fields, std::size_t length) {
  std::size_t end = 0;
  for (const Field& field : fields) {
    if (field.offset != end) return false;
    end += field.width * field.count;
  }
  return end == length;
}

}  // namespace quillbox
