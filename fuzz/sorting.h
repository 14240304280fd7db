#pragma once

#include "fuzz/memory_files.h"
#include "records/app_state.h"
#include "records/kinds.h"

namespace quillbox::fuzz {

/// Sorts the open collection by every key and requires that no item is lost, whatever happens.
void sortAndRequireEveryItem(AppState& state, MemoryFiles& files, const CollectionKind& kind);

}  // namespace quillbox::fuzz
