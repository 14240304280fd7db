#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "records/choice_lists.h"
#include "records/field.h"
#include "records/field_types.h"

namespace quillbox {

/// One book: 224 bytes in a .BCS file. See docs/file-format.md.
struct BookRecord {
  FixedText<50> Author;
  FixedText<50> Title;
  FixedText<50> Publisher;
  WholeNumber Genre;
  WholeNumber MediaType;
  FixedText<50> Notes;
  FixedText<20> Reserved;  // never shown, set or cleared: kept from the last record read
};
static_assert(sizeof(BookRecord) == 224 && alignof(BookRecord) == 1);
static_assert(std::is_trivially_copyable_v<BookRecord>);
static_assert(offsetof(BookRecord, Genre) == 150);
static_assert(offsetof(BookRecord, Reserved) == 204);

inline constexpr auto kBookFields = std::to_array<Field>({
    {"Author", FieldType::text, offsetof(BookRecord, Author), 50},
    {"Title", FieldType::text, offsetof(BookRecord, Title), 50},
    {"Publisher", FieldType::text, offsetof(BookRecord, Publisher), 50},
    {"Genre", FieldType::choice, offsetof(BookRecord, Genre), 2, 1, choices::bookGenre},
    {"MediaType", FieldType::choice, offsetof(BookRecord, MediaType), 2, 1, choices::bookMediaType},
    {"Notes", FieldType::text, offsetof(BookRecord, Notes), 50},
    {"Reserved", FieldType::text, offsetof(BookRecord, Reserved), 20},
});
static_assert(coversRecord(kBookFields, sizeof(BookRecord)));

consteval const Field* bookField(std::string_view name) { return &fieldNamed(kBookFields, name); }

}  // namespace quillbox
