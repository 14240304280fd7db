#pragma once

#include <cstddef>

#include "records/field_types.h"

namespace quillbox {

/// The start of file record 1, the same in every kind of collection. Only these 12 bytes are ever
/// written there.
struct HeaderRecord {
  WholeNumber Count;     // the highest item number ever used, including deleted items
  WholeNumber FileType;  // version of the layout
  FixedText<8> Version;  // version of the program that last wrote the header
};
static_assert(sizeof(HeaderRecord) == 12 && alignof(HeaderRecord) == 1);
static_assert(offsetof(HeaderRecord, Version) == 4);

/// The file record of the header, and of item `n`.
inline constexpr int kHeaderRecordNumber = 1;
constexpr int recordNumberOf(int item) { return item + kHeaderRecordNumber; }

/// Versions of a music file. Every other kind has only type 1.
namespace music_file_type {
inline constexpr int madeByDialog = 1;  // until the first item is written
inline constexpr int upgradable = 4;
inline constexpr int current = 5;
}  // namespace music_file_type

}  // namespace quillbox
