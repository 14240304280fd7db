#pragma once

#include <optional>
#include <string>

#include "opendata/beside.h"
#include "opendata/collection_file.h"

namespace quillbox {

struct Restored {
  std::string from;         ///< the backup's name
  int count;                ///< items in it
  std::string keptAs = {};  ///< where the collection is that was there; empty when none was
};

/// Puts a collection back from the backup of a sort or an upgrade. The backup must be a whole
/// collection of the kind that the path tells. What has the collection's name is kept: it gets that
/// name with "~" behind it, or "~2" and so on where that is taken.
///
/// A DataError when there is no backup, when none of them is whole, and when there are two and
/// `which` does not say which is meant. Until the backup has the name nothing is changed.
Restored restoreCollection(FileSystem& files, const std::string& path,
                           std::optional<BesideKind> which = {});

}  // namespace quillbox
