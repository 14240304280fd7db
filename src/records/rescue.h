#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/file_system.h"
#include "records/kinds.h"

/// Collections that a sort has left under their backup's name alone: every sort of books, and one
/// that was cut off before it wrote.
namespace quillbox {

/// A collection that lies under its backup's name only. Both are full paths.
struct LostCollection {
  std::string path;    ///< as it was known
  std::string file;    ///< the name to give back: `path`, or where the links there lead
  std::string backup;  ///< the name it has
  std::int16_t count;  ///< items in it
};

/// Looks for a collection whose full path is known but leads to nothing. Found is what has its
/// backup's name if that is a whole collection of the kind: the file ends where by its header and
/// the kind's record length the last item ends, or lacks nothing but that item. Kinds that have the
/// same record length cannot be told apart; whoever knows the path knows which it is.
///
/// Nothing is changed. What cannot be read is not found.
std::optional<LostCollection> findLost(FileSystem& files, const CollectionKind& kind,
                                       const std::string& path);

/// Gives the collection its own name back. Run-time error 58, and nothing is done, when something
/// has that name by now, be it a link.
void putBack(FileSystem& files, const LostCollection& lost);

}  // namespace quillbox
