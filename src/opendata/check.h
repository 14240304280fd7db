#pragma once

#include <functional>
#include <string>

#include "opendata/values.h"
#include "platform/file_system.h"

namespace quillbox {

/// Called for each problem with an item; `item` is 0 for a problem with the file itself.
using Finding = std::function<void(int item, const std::string& what)>;

/// Checks everything that can be wrong with the file of a collection: its size against its count,
/// and the files beside it.
void checkFile(FileSystem& files, const CollectionFile& collection, const Finding& finding);

/// Checks everything that can be wrong with an item: texts with control characters or with
/// something after a zero byte, flags other than 0 and 1, choices outside their lists, invalid
/// dates, sizes that are not numbers. Deleted items are not checked.
void checkItem(const CollectionKind& kind, const Values& values, int item,
               std::span<const std::byte> record, const Finding& finding);

}  // namespace quillbox
