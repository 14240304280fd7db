#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/file_system.h"
#include "records/kinds.h"

/// Collections that a sort has left under their backup names only: every sort of books does, and
/// one that was interrupted before it wrote.
namespace quillbox {

/// A collection that exists only under its backup's name. Both are full paths.
struct LostCollection {
  std::string path;    ///< the path it is known by
  std::string file;    ///< the name to restore: `path`, or where the links there lead
  std::string backup;  ///< its name now
  std::int16_t count;  ///< items in it
};

/// Looks for a collection whose full path is known but leads to nothing. It is found if the file
/// with its backup's name is a complete collection of the kind: by its header and the kind's record
/// length, the file ends with the last item, or lacks only that item. Kinds of the same record
/// length cannot be distinguished; the caller knows the kind from the path.
///
/// Nothing is changed. What cannot be read is not found.
std::optional<LostCollection> findLost(FileSystem& files, const CollectionKind& kind,
                                       const std::string& path);

/// Gives the collection its own name back. Run-time error 58, with nothing done, when that name is
/// taken by now, even by a link.
void putBack(FileSystem& files, const LostCollection& lost);

}  // namespace quillbox
