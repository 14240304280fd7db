#include "records/navigation.h"

#include "platform/checked16.h"

namespace quillbox {

std::optional<std::int16_t> nextItem(CollectionStore& store, std::int16_t position,
                                     std::span<std::byte> into) {
  if (position <= 0) return std::nullopt;
  do {
    position = checked16(position + 1);
    store.ReadRecord(position, into);
  } while (store.kind().rules.stepping == Stepping::skipsDeleted && store.isDeleted(into));
  return position;
}

std::optional<std::int16_t> previousItem(CollectionStore& store, std::int16_t position,
                                         std::int16_t count, std::span<std::byte> into,
                                         const LapCallback& onLap) {
  if (count < 1) return std::nullopt;
  const bool skips = store.kind().rules.stepping == Stepping::skipsDeleted;
  for (int read = 1;; ++read) {
    if (position < 1) position = count;
    if (position >= 2)
      position = checked16(position - 1);
    else if (skips)
      position = count;
    store.ReadRecord(position, into);
    if (!skips || !store.isDeleted(into)) return position;
    if (read % count == 0 && !onLap()) return std::nullopt;
  }
}

}  // namespace quillbox
