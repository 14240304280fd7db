#pragma once

#include "records/app_state.h"

namespace quillbox {

/// What opening a music collection found.
enum class MusicFileState {
  current,     ///< of the current file type
  upgradable,  ///< of file type 4, to be upgraded before anything is read
  refused,     ///< older than that; nothing may be loaded
};

/// Looks the collection at the current path up, makes it (no items, current file type) when there
/// is none, and takes `Count` from its header; a negative count is 0. A failure leaves `opening` as
/// it was.
MusicFileState openMusicFile(OpenFiles& files, OpenCollection& opening);

/// Rewrites the type-4 collection at the current path as a current one. The old file stays beside
/// it, complete, under its backup name (a file of that name is deleted first).
///
/// Items 1 to `Count` - 1 are carried over, through the record buffer: the last one is not, and
/// `MediaType` keeps whatever the buffer held, `Genre` becomes -1 and `BarCode` a reminder. A
/// failure half-way leaves a partly written file beside the complete backup, and `opening` as it
/// was.
void upgradeMusicFile(OpenFiles& files, OpenCollection& opening);

}  // namespace quillbox
