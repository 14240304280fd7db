#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace quillbox {

/// Files that may be beside a collection.
enum class BesideKind {
  sortBackup,     ///< during a sort, and after one that was interrupted
  upgradeBackup,  ///< music of the older type, before its upgrade
  earlier,        ///< what an import has replaced
  unfinished,     ///< left by an import that was interrupted
};

struct BesideFile {
  BesideKind kind;
  std::string path;
};

/// The files beside a collection, whether or not the collection itself exists.
std::vector<BesideFile> filesBeside(FileSystem& files, const std::string& path);

/// A description of such a file.
std::string_view besideText(BesideKind kind);

}  // namespace quillbox
