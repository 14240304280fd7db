#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/open_files.h"

namespace quillbox {

/// The user's own list of music media types, looked for in the current folder.
inline constexpr std::string_view kMediaTypeFileName = "QBX Music.ini";

struct MediaTypeList {
  std::vector<std::string> entries;  ///< Windows-1252
  bool corrupt = false;              ///< the file's first line is wrong; it may be deleted
};

MediaTypeList builtInMediaTypes();

/// The built-in list, its tail replaced by the user's entries when there is a file. The file is
/// only read. Throws a RunTimeError when it is there and cannot be read.
MediaTypeList readMediaTypes(FileSystem& files);

/// The same for the file's bytes.
MediaTypeList mediaTypesFrom(std::string_view fileBytes);

}  // namespace quillbox
