#pragma once

#include <string>

#include "records/app_state.h"
#include "records/collection_store.h"

namespace quillbox {

/// What opening a music collection found.
enum class MusicFileState {
  current,     ///< of the current file type
  upgradable,  ///< of file type 4, to be upgraded before anything is read
  refused,     ///< older than that; nothing may be loaded
};

/// Looks the collection at the current path up, makes it (no items, current file type) when there
/// is none, and takes `Count` from its header; a negative count is 0.
MusicFileState openMusicFile(AppState& state, CollectionStore& store);

/// Rewrites the type-4 collection at the current path as a current one. The old file stays beside
/// it, complete, under its backup name (a file of that name is deleted first).
///
/// Items 1 to `Count` - 1 are carried over, through the record buffer: the last one is not, and
/// `MediaType` keeps whatever the buffer held, `Genre` becomes -1 and `BarCode` a reminder. A
/// failure half-way leaves a partly written file beside the complete backup.
void upgradeMusicFile(AppState& state);

}  // namespace quillbox
