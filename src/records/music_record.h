#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "records/choice_lists.h"
#include "records/field.h"
#include "records/field_types.h"

namespace quillbox {

inline constexpr std::size_t kSongs = 40;

/// One album, tape or disc: 2372 bytes in a .MCS file of type 5. See docs/file-format.md.
struct MusicRecord {
  FixedText<50> Artist;  // also carries the deleted marker
  FixedText<50> Album;
  FixedText<50> RecordCo;
  std::array<FixedText<50>, kSongs> Songs;
  FixedText<20> AquireDate;  // dates are free text, as typed
  Money AquireCost;
  Money CurrCost;
  WholeNumber HasBook;
  WholeNumber MediaType;
  WholeNumber CurrLoaned;
  FixedText<50> Borrower;
  FixedText<20> DateLoaned;
  FixedText<20> DueDate;
  WholeNumber BookLoaned;
  FixedText<50> Notes;
  WholeNumber Genre;
  FixedText<36> BarCode;  // not in files of type 4
};
static_assert(sizeof(MusicRecord) == 2372 && alignof(MusicRecord) == 1);
static_assert(std::is_trivially_copyable_v<MusicRecord>);
static_assert(offsetof(MusicRecord, Songs) == 150);
static_assert(offsetof(MusicRecord, AquireDate) == 2150);
static_assert(offsetof(MusicRecord, AquireCost) == 2170);
static_assert(offsetof(MusicRecord, HasBook) == 2186);
static_assert(offsetof(MusicRecord, MediaType) == 2188);
static_assert(offsetof(MusicRecord, Borrower) == 2192);
static_assert(offsetof(MusicRecord, BookLoaned) == 2282);
static_assert(offsetof(MusicRecord, Genre) == 2334);
static_assert(offsetof(MusicRecord, BarCode) == 2336);

/// A record of a type-4 file is a MusicRecord that ends before `BarCode`.
inline constexpr std::size_t kMusicRecordType4Length = offsetof(MusicRecord, BarCode);
static_assert(kMusicRecordType4Length == 2336);

inline constexpr auto kMusicFields = std::to_array<Field>({
    {"Artist", FieldType::text, offsetof(MusicRecord, Artist), 50},
    {"Album", FieldType::text, offsetof(MusicRecord, Album), 50},
    {"RecordCo", FieldType::text, offsetof(MusicRecord, RecordCo), 50},
    {"Songs", FieldType::text, offsetof(MusicRecord, Songs), 50, kSongs},
    {"AquireDate", FieldType::text, offsetof(MusicRecord, AquireDate), 20},
    {"AquireCost", FieldType::money, offsetof(MusicRecord, AquireCost), 8},
    {"CurrCost", FieldType::money, offsetof(MusicRecord, CurrCost), 8},
    {"HasBook", FieldType::flag, offsetof(MusicRecord, HasBook), 2},
    {"MediaType", FieldType::choice, offsetof(MusicRecord, MediaType), 2, 1,
     choices::musicMediaType},
    {"CurrLoaned", FieldType::flag, offsetof(MusicRecord, CurrLoaned), 2},
    {"Borrower", FieldType::text, offsetof(MusicRecord, Borrower), 50},
    {"DateLoaned", FieldType::text, offsetof(MusicRecord, DateLoaned), 20},
    {"DueDate", FieldType::text, offsetof(MusicRecord, DueDate), 20},
    {"BookLoaned", FieldType::flag, offsetof(MusicRecord, BookLoaned), 2},
    {"Notes", FieldType::text, offsetof(MusicRecord, Notes), 50},
    {"Genre", FieldType::choice, offsetof(MusicRecord, Genre), 2, 1, choices::musicGenre},
    {"BarCode", FieldType::text, offsetof(MusicRecord, BarCode), 36},
});
static_assert(coversRecord(kMusicFields, sizeof(MusicRecord)));

/// The music field of that name, at compile time.
consteval const Field* musicField(std::string_view name) { return &fieldNamed(kMusicFields, name); }

}  // namespace quillbox
