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

/// What is open, and where in it the user is. It changes last: what opens, searches, sorts, lists
/// or loads works on copies, and an editor takes the result over when nothing can fail any more.
struct OpenCollection {
  std::string currentPath;     ///< full path, in the platform's bytes
  std::int16_t kindCode = 0;   ///< of the open collection; tells the media-file kinds apart
  bool newCollection = false;  ///< tells an editor to make its file

  std::int16_t Count = 0;    ///< items, deleted ones included
  std::int16_t CurRec = 0;   ///< item shown; 0: nothing, kNewItem: a new item
  std::int16_t ListPos = 0;  ///< the second position, from which list pages step

  // The record buffers, one of each kind: the last item shown, or the form as last stored. Zero
  // bytes at first. They outlive their collection.
  MusicRecord music{};
  VideoRecord video{};
  SoftwareRecord software{};
  ComicRecord comic{};
  BookRecord book{};
  MediaFileRecord mediaFile{};
};

/// The application-wide state: one set, shared by all forms, for as long as the program runs.
struct AppState : OpenCollection {
  explicit AppState(FileSystem& fileSystem) : files(fileSystem) {}

  OpenFiles files;
  std::string dataFolder;  ///< where new collections are made; empty is the root folder
};

}  // namespace quillbox
