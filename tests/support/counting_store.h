#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "records/collection_store.h"

namespace quillbox::test {

/// The store of the open collection; counts new items as an editor does.
class CountingStore : public CollectionStore {
 public:
  CountingStore(AppState& state, const CollectionKind& kind)
      : CollectionStore(state.files, state, kind), state_(state) {}

  void writeNewItem(std::span<const std::byte> record) {
    state_.Count = CollectionStore::writeNewItem(slot, record).count;
  }

  std::optional<std::int16_t> slot;  ///< of an interrupted write

 private:
  AppState& state_;
};

}  // namespace quillbox::test
