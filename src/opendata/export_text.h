#pragma once

#include "opendata/csv_text.h"
#include "opendata/progress.h"
#include "opendata/streams.h"
#include "opendata/values.h"
#include "platform/file_system.h"

namespace quillbox {

/// What is exported, and from where.
struct Export {
  FileSystem& files;
  const CollectionFile& collection;
  const Values& values;
  Progress progress = {};

  /// How many items are exported: those that there are. What a whole collection lacks of its last
  /// item is blank.
  int items() const { return collection.isWhole() ? collection.count : collection.itemsThere(); }

  void tell(int done) const {
    if (progress) progress(done, items());
  }
};

/// Writes every value of every item, deleted ones included, as CSV (RFC 4180, UTF-8): a header of
/// column names, a row for each item. Memory does not depend on the size of the collection.
void exportCsv(const Export& from, TextSink& to, CsvFor reader);

/// The same as one JSON object with kind, version and items, a line for each item. A list ends with
/// its last entry that is not empty. docs/quillbox-collection.schema.json describes it.
void exportJson(const Export& from, TextSink& to);

}  // namespace quillbox
