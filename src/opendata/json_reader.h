#pragma once

#include "opendata/rows.h"
#include "opendata/streams.h"

namespace quillbox {

/// Reads a collection as JSON, in the form of exportJson, and passes on its items one at a time.
/// Entries past the end of a list are empty. A DataError for text that is not JSON or no
/// collection, for one of another kind, and for an unknown or repeated name.
void readJson(ByteSource& source, const CollectionKind& kind, const Values& values, RowSink& sink);

}  // namespace quillbox
