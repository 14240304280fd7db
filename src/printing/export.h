#pragma once

#include <optional>
#include <string>

#include "records/app_state.h"
#include "records/kinds.h"

namespace quillbox {

/// The fixed name of a kind's export file, in the current folder; nothing when the user is asked
/// for a name.
std::optional<std::string> exportName(const CollectionKind& kind);

/// Writes the open collection to the text file `path`, replacing it, and returns the number of
/// lines: one line of quoted fields, separated by commas, for each filled entry of each item's
/// list, including deleted items. Texts are record characters; quotes in them are not doubled.
/// Run-time error 55 when `path` is the collection itself, 63 when the collection is shorter than
/// its `Count` by more than its last item, which is blank then.
///
/// Books leave the file empty. So do media files, which end in run-time error 13 at the first item:
/// the line is parsed as a number, which a quoted name never is (D203 of docs/decisions.md).
int exportCollection(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
                     const std::string& path);

}  // namespace quillbox
