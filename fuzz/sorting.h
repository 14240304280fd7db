#pragma once

#include "records/app_state.h"
#include "records/kinds.h"
#include "support/memory_files.h"

namespace quillbox::fuzz {

using test::MemoryFiles;

/// Sorts the open collection by every key and requires that no item is lost, whatever happens.
void sortAndRequireEveryItem(AppState& state, MemoryFiles& files, const CollectionKind& kind);

}  // namespace quillbox::fuzz
