#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace quillbox {

/// What may lie beside a collection.
enum class BesideKind {
  sortBackup,     ///< while a sort runs, and after one that was cut off
  upgradeBackup,  ///< music of the older type, as it was
  earlier,        ///< what an import has replaced
  unfinished,     ///< what an import that was cut off has left
};

struct BesideFile {
  BesideKind kind;
  std::string path;
};

/// What lies beside a collection, whether or not there is one under its own name.
std::vector<BesideFile> filesBeside(FileSystem& files, const std::string& path);

/// What such a file is, in words.
std::string_view besideText(BesideKind kind);

}  // namespace quillbox
