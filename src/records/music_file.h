#pragma once

#include "records/app_state.h"

namespace quillbox {

/// The result of opening a music collection.
enum class MusicFileState {
  current,     ///< of the current file type
  upgradable,  ///< of file type 4, which must be upgraded before anything is read
  refused,     ///< older; nothing may be loaded
};

/// Opens the collection at the current path, creates it (no items, current file type) if there is
/// none, and takes `Count` from its header; a negative count is 0. A failure leaves `opening` as it
/// was.
MusicFileState openMusicFile(OpenFiles& files, OpenCollection& opening);

/// Rewrites the type-4 collection at the current path with the current type. The old file is kept
/// complete under its backup name (a file of that name is deleted first).
///
/// Items 1 to `Count` - 1 are carried over through the record buffer: the last one is not,
/// `MediaType` keeps what the buffer held, `Genre` becomes -1 and `BarCode` a reminder. A failure
/// half-way leaves a partly written file beside the complete backup, and `opening` as it was.
void upgradeMusicFile(OpenFiles& files, OpenCollection& opening);

}  // namespace quillbox
