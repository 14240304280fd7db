#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "records/choice_lists.h"
#include "records/field.h"
#include "records/field_types.h"

namespace quillbox {

/// One tape or disc: 678 bytes in a .VCS file. See docs/file-format.md.
struct VideoRecord {
  FixedText<50> Label;  // also carries the deleted marker
  WholeNumber Commercial;
  std::array<FixedText<50>, 10> Movies;
  FixedText<50> Publisher;
  WholeNumber MediaType;
  Money PurPrice;
  Money CurrPrice;
  Real AquireDate;
  FixedText<50> Notes;
};
static_assert(sizeof(VideoRecord) == 678 && alignof(VideoRecord) == 1);
static_assert(std::is_trivially_copyable_v<VideoRecord>);
static_assert(offsetof(VideoRecord, Movies) == 52);
static_assert(offsetof(VideoRecord, Publisher) == 552);
static_assert(offsetof(VideoRecord, PurPrice) == 604);
static_assert(offsetof(VideoRecord, AquireDate) == 620);
static_assert(offsetof(VideoRecord, Notes) == 628);

inline constexpr auto kVideoFields = std::to_array<Field>({
    {"Label", FieldType::text, offsetof(VideoRecord, Label), 50},
    {"Commercial", FieldType::flag, offsetof(VideoRecord, Commercial), 2},
    {"Movies", FieldType::text, offsetof(VideoRecord, Movies), 50, 10},
    {"Publisher", FieldType::text, offsetof(VideoRecord, Publisher), 50},
    {"MediaType", FieldType::choice, offsetof(VideoRecord, MediaType), 2, 1,
     choices::videoMediaType},
    {"PurPrice", FieldType::money, offsetof(VideoRecord, PurPrice), 8},
    {"CurrPrice", FieldType::money, offsetof(VideoRecord, CurrPrice), 8},
    {"AquireDate", FieldType::date, offsetof(VideoRecord, AquireDate), 8},
    {"Notes", FieldType::text, offsetof(VideoRecord, Notes), 50},
});
static_assert(coversRecord(kVideoFields, sizeof(VideoRecord)));

consteval const Field* videoField(std::string_view name) { return &fieldNamed(kVideoFields, name); }

}  // namespace quillbox
