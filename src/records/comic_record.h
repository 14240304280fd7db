#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "records/field.h"
#include "records/field_types.h"

namespace quillbox {

/// One comic: 640 bytes in a .CCS file. See docs/file-format.md.
struct ComicRecord {
  FixedText<50> BookTitle;  // also carries the deleted marker
  FixedText<50> ComicTitle;
  std::array<FixedText<50>, 5> Notes;
  FixedText<50> Artists;
  WholeNumber Bagged;
  WholeNumber Boarded;
  FixedText<50> Heroes;
  FixedText<50> Villains;
  FixedText<50> FirstApp;
  Money PurPrice;
  Money CurrPrice;
  FixedText<20> AquireDate;  // as typed; only video stores a date as a number
  FixedText<50> Publisher;
};
static_assert(sizeof(ComicRecord) == 640 && alignof(ComicRecord) == 1);
static_assert(std::is_trivially_copyable_v<ComicRecord>);
static_assert(offsetof(ComicRecord, Artists) == 350);
static_assert(offsetof(ComicRecord, Bagged) == 400);
static_assert(offsetof(ComicRecord, FirstApp) == 504);
static_assert(offsetof(ComicRecord, PurPrice) == 554);
static_assert(offsetof(ComicRecord, Publisher) == 590);

inline constexpr auto kComicFields = std::to_array<Field>({
    {"BookTitle", FieldType::text, offsetof(ComicRecord, BookTitle), 50},
    {"ComicTitle", FieldType::text, offsetof(ComicRecord, ComicTitle), 50},
    {"Notes", FieldType::text, offsetof(ComicRecord, Notes), 50, 5},
    {"Artists", FieldType::text, offsetof(ComicRecord, Artists), 50},
    {"Bagged", FieldType::flag, offsetof(ComicRecord, Bagged), 2},
    {"Boarded", FieldType::flag, offsetof(ComicRecord, Boarded), 2},
    {"Heroes", FieldType::text, offsetof(ComicRecord, Heroes), 50},
    {"Villains", FieldType::text, offsetof(ComicRecord, Villains), 50},
    {"FirstApp", FieldType::text, offsetof(ComicRecord, FirstApp), 50},
    {"PurPrice", FieldType::money, offsetof(ComicRecord, PurPrice), 8},
    {"CurrPrice", FieldType::money, offsetof(ComicRecord, CurrPrice), 8},
    {"AquireDate", FieldType::text, offsetof(ComicRecord, AquireDate), 20},
    {"Publisher", FieldType::text, offsetof(ComicRecord, Publisher), 50},
});
static_assert(coversRecord(kComicFields, sizeof(ComicRecord)));

consteval const Field* comicField(std::string_view name) { return &fieldNamed(kComicFields, name); }

}  // namespace quillbox
