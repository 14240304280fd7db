#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "records/field.h"
#include "records/field_types.h"

namespace quillbox {

/// One file on disk: 328 bytes in a .WCS, .ICS, .GCS or .MPS file. See docs/file-format.md.
struct MediaFileRecord {
  FixedText<64> FileName;   // without the folder; also has the deleted marker
  FixedText<128> FilePath;  // the folder
  Real FileSize;            // bytes; never shown, and 0 in records made by the loader
  FixedText<128> Description;
};
static_assert(sizeof(MediaFileRecord) == 328 && alignof(MediaFileRecord) == 1);
static_assert(std::is_trivially_copyable_v<MediaFileRecord>);
static_assert(offsetof(MediaFileRecord, FilePath) == 64);
static_assert(offsetof(MediaFileRecord, FileSize) == 192);
static_assert(offsetof(MediaFileRecord, Description) == 200);

inline constexpr auto kMediaFileFields = std::to_array<Field>({
    {"FileName", FieldType::text, offsetof(MediaFileRecord, FileName), 64},
    {"FilePath", FieldType::text, offsetof(MediaFileRecord, FilePath), 128},
    {"FileSize", FieldType::size, offsetof(MediaFileRecord, FileSize), 8},
    {"Description", FieldType::text, offsetof(MediaFileRecord, Description), 128},
});
static_assert(coversRecord(kMediaFileFields, sizeof(MediaFileRecord)));

consteval const Field* mediaFileField(std::string_view name) {
  return &fieldNamed(kMediaFileFields, name);
}

}  // namespace quillbox
