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
  bool corrupt = false;              ///< the file's first line is wrong; the file may be deleted
};

MediaTypeList builtInMediaTypes();

/// The built-in list, its end replaced by the user's entries if there is a file. The file is only
/// read. Throws a RunTimeError when it exists and cannot be read.
MediaTypeList readMediaTypes(FileSystem& files);

/// The same from the bytes of the file.
MediaTypeList mediaTypesFrom(std::string_view fileBytes);

}  // namespace quillbox
