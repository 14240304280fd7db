#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "records/collection_store.h"

namespace quillbox {

/// The item after `position` by the stepping rule of the store's kind; its record is read into
/// `into`. Nothing when no item is shown. Ignores `Count`: past it come the records that are in the
/// file, then blank ones. Run-time error 6 past the last 16-bit position.
std::optional<std::int16_t> nextItem(CollectionStore& store, std::int16_t position,
                                     std::span<std::byte> into);

/// Called when Previous has read every item of the collection and found only deleted ones; false
/// gives up, true reads them all again.
using LapCallback = std::function<bool()>;

/// The item before `position` by the stepping rule of the store's kind; its record is read into
/// `into`. From below item 1 it starts at `count`; with skipping, going back past item 1 wraps
/// round to `count`. Nothing when the collection is empty or `onLap` gave up.
std::optional<std::int16_t> previousItem(CollectionStore& store, std::int16_t position,
                                         std::int16_t count, std::span<std::byte> into,
                                         const LapCallback& onLap);

}  // namespace quillbox
