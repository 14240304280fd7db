#pragma once

#include <cstdint>
#include <string>

#include "platform/open_files.h"
#include "records/book_record.h"
#include "records/comic_record.h"
#include "records/media_file_record.h"
#include "records/music_record.h"
#include "records/software_record.h"
#include "records/video_record.h"

namespace quillbox {

/// `CurRec` while the form holds a new item that is not in the file yet.
inline constexpr std::int16_t kNewItem = -1;

/// What is open, and the user's position in it. It changes last: all work is done on copies, and an
/// editor stores the result when nothing can fail any more.
struct OpenCollection {
  std::string currentPath;     ///< full path, in the platform's bytes
  std::int16_t kindCode = 0;   ///< identifies the media-file kinds
  bool newCollection = false;  ///< the editor must create its file

  std::int16_t Count = 0;    ///< items, deleted ones included
  std::int16_t CurRec = 0;   ///< the item on the form; 0: nothing, kNewItem: a new item
  std::int16_t ListPos = 0;  ///< the second position, which list pages step from

  // The record buffers, one for each kind: the item read last, or the form as last stored.
  // Initially zero bytes. They outlive their collection.
  MusicRecord music{};
  VideoRecord video{};
  SoftwareRecord software{};
  ComicRecord comic{};
  BookRecord book{};
  MediaFileRecord mediaFile{};
};

/// The state of the application: one object, shared by all forms, for as long as the program runs.
struct AppState : OpenCollection {
  explicit AppState(FileSystem& fileSystem) : files(fileSystem) {}

  OpenFiles files;
  std::string dataFolder;  ///< where new collections are created; empty is the root folder
};

}  // namespace quillbox
