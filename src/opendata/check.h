#pragma once

#include <functional>
#include <string>

#include "opendata/values.h"
#include "platform/file_system.h"

namespace quillbox {

/// Takes what is wrong with an item; with the file itself where the item is 0.
using Finding = std::function<void(int item, const std::string& what)>;

/// Looks for everything that can be wrong with the file of a collection: its size against its
/// count, and what lies beside it.
void checkFile(FileSystem& files, const CollectionFile& collection, const Finding& finding);

/// Looks for everything that can be wrong with an item: texts with control characters or with
/// something behind a zero byte, flags other than 0 and 1, places beyond their lists, dates that
/// are none, sizes that are no number. A deleted item is not looked at.
void checkItem(const CollectionKind& kind, const Values& values, int item,
               std::span<const std::byte> record, const Finding& finding);

}  // namespace quillbox
