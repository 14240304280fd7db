#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "records/collection_store.h"

namespace quillbox {

/// Where Next leads from `position`, by the stepping rule of the store's kind; the record there is
/// read into `into`. Nothing when no item is shown. Does not look at `Count`: beyond it shows what
/// is on disk, and then blank records. Run-time error 6 past the last 16-bit position.
std::optional<std::int16_t> nextItem(CollectionStore& store, std::int16_t position,
                                     std::span<std::byte> into);

/// Called when Previous has read every item of the collection without finding one that is not
/// deleted; false gives up, true reads them all again.
using LapCallback = std::function<bool()>;

/// Where Previous leads from `position`, by the stepping rule of the store's kind; the record
/// there is read into `into`. From below item 1 it sets out from `count`; with skipping, going back
/// past item 1 wraps round to `count`. Nothing when the collection is empty or `onLap` gave up.
std::optional<std::int16_t> previousItem(CollectionStore& store, std::int16_t position,
                                         std::int16_t count, std::span<std::byte> into,
                                         const LapCallback& onLap);

}  // namespace quillbox
