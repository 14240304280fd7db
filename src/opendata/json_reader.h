#pragma once

#include "opendata/rows.h"
#include "opendata/streams.h"

namespace quillbox {

/// Reads a collection as JSON, as exportJson writes it, and hands over its items, one at a time. A
/// list that is shorter than its field ends in empty entries. A DataError for what is no JSON, no
/// collection, of another kind, or has an unknown name or one twice.
void readJson(ByteSource& source, const CollectionKind& kind, const Values& values, RowSink& sink);

}  // namespace quillbox
