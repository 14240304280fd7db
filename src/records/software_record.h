#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "records/choice_lists.h"
#include "records/field.h"
#include "records/field_types.h"

namespace quillbox {

/// One disk: 662 bytes in a .SCS file. See docs/file-format.md.
struct SoftwareRecord {
  FixedText<50> DiskLabel;  // also carries the deleted marker
  WholeNumber Commercial;
  WholeNumber Shareware;
  WholeNumber MediaType;
  WholeNumber PurPrice;  // in whole units, unlike the prices of all other kinds
  WholeNumber CurrPrice;
  std::array<FixedText<50>, 10> Programs;
  FixedText<50> Notes;
  FixedText<50> Publisher;
  WholeNumber CDRequired;
};
static_assert(sizeof(SoftwareRecord) == 662 && alignof(SoftwareRecord) == 1);
static_assert(std::is_trivially_copyable_v<SoftwareRecord>);
static_assert(offsetof(SoftwareRecord, PurPrice) == 56);
static_assert(offsetof(SoftwareRecord, Programs) == 60);
static_assert(offsetof(SoftwareRecord, Notes) == 560);
static_assert(offsetof(SoftwareRecord, CDRequired) == 660);

inline constexpr auto kSoftwareFields = std::to_array<Field>({
    {"DiskLabel", FieldType::text, offsetof(SoftwareRecord, DiskLabel), 50},
    {"Commercial", FieldType::flag, offsetof(SoftwareRecord, Commercial), 2},
    {"Shareware", FieldType::flag, offsetof(SoftwareRecord, Shareware), 2},
    {"MediaType", FieldType::choice, offsetof(SoftwareRecord, MediaType), 2, 1,
     choices::softwareMediaType},
    {"PurPrice", FieldType::whole, offsetof(SoftwareRecord, PurPrice), 2},
    {"CurrPrice", FieldType::whole, offsetof(SoftwareRecord, CurrPrice), 2},
    {"Programs", FieldType::text, offsetof(SoftwareRecord, Programs), 50, 10},
    {"Notes", FieldType::text, offsetof(SoftwareRecord, Notes), 50},
    {"Publisher", FieldType::text, offsetof(SoftwareRecord, Publisher), 50},
    {"CDRequired", FieldType::flag, offsetof(SoftwareRecord, CDRequired), 2},
});
static_assert(coversRecord(kSoftwareFields, sizeof(SoftwareRecord)));

consteval const Field* softwareField(std::string_view name) {
  return &fieldNamed(kSoftwareFields, name);
}

}  // namespace quillbox
