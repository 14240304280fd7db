#pragma once

#include <cstdint>
#include <string>

#include "platform/open_files.h"
#include "records/music_record.h"

namespace quillbox {

/// `CurRec` while the form holds a new item that is not in the file yet.
inline constexpr std::int16_t kNewItem = -1;

/// The application-wide state: one set, shared by all forms, for as long as the program runs.
struct AppState {
  explicit AppState(FileSystem& fileSystem) : files(fileSystem) {}

  OpenFiles files;

  std::string currentPath;     ///< full path of the open collection, in the platform's bytes
  std::string dataFolder;      ///< where new collections are made; empty is the root folder
  std::int16_t kindCode = 0;   ///< set by the open dialog and the new-collection dialog
  bool newCollection = false;  ///< tells an editor to make its file

  std::int16_t Count = 0;    ///< items of the open collection, deleted ones included
  std::int16_t CurRec = 0;   ///< item shown; 0: nothing, kNewItem: a new item
  std::int16_t ListPos = 0;  ///< the second position, from which list pages step

  /// The record buffer: the last item read, or the form as last stored. Zero bytes at first.
  MusicRecord music{};
};

}  // namespace quillbox
