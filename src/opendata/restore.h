#pragma once

#include <optional>
#include <string>

#include "opendata/beside.h"
#include "opendata/collection_file.h"

namespace quillbox {

struct Restored {
  std::string from;         ///< the backup's name
  int count;                ///< its number of items
  std::string keptAs = {};  ///< the path of the former collection; empty when there was none
};

/// Restores a collection from the backup of a sort or an upgrade. The backup must be a whole
/// collection of the kind in the path. A file with the collection's name is kept: it gets that name
/// with "~" appended, or "~2" and so on if that is taken.
///
/// A DataError when there is no backup, when none is whole, and when there are two and `which` does
/// not choose one. Nothing is changed until the backup has the name.
Restored restoreCollection(FileSystem& files, const std::string& path,
                           std::optional<BesideKind> which = {});

}  // namespace quillbox
