#pragma once

#include <string_view>

#include "opendata/values.h"
#include "platform/open_files.h"

namespace quillbox {

/// Gives a deleted item its first text back, written as any item is. A DataError when there is no
/// such item, when it is not deleted, and when the text is empty, is the marker itself or does not
/// fit.
///
/// False when nothing else of the item is left: deleting it has set all other bytes to zero.
bool undeleteItem(OpenFiles& files, const CollectionFile& collection, const Values& values,
                  int item, std::string_view text, const StoreRules& rules);

}  // namespace quillbox
