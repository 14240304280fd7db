#pragma once

#include <string_view>

#include "opendata/values.h"
#include "platform/open_files.h"

namespace quillbox {

/// Gives a deleted item its first text back, as writing the item does. A DataError when there is no
/// such item, when it is not deleted, and when the text is empty, the marker itself or one that
/// does not fit.
///
/// False when nothing else is left of the item: deleting it has made zeros of every other byte.
bool undeleteItem(OpenFiles& files, const CollectionFile& collection, const Values& values,
                  int item, std::string_view text, const StoreRules& rules);

}  // namespace quillbox
