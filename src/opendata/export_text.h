#pragma once

#include "opendata/csv_text.h"
#include "opendata/progress.h"
#include "opendata/streams.h"
#include "opendata/values.h"
#include "platform/file_system.h"

namespace quillbox {

/// What is exported.
struct Export {
  FileSystem& files;
  const CollectionFile& collection;
  const Values& values;
  Progress progress = {};

  /// The number of items to export: those in the file. If the last item of a whole collection is
  /// missing, it is blank.
  int items() const { return collection.isWhole() ? collection.count : collection.itemsThere(); }

  void tell(int done) const {
    if (progress) progress(done, items());
  }
};

/// Writes every value of every item, even deleted ones, as CSV (RFC 4180, UTF-8): a header of
/// column names, a row for each item. Memory does not depend on the size of the collection.
void exportCsv(const Export& from, TextSink& to, CsvFor reader);

/// The same as one JSON object with kind, version and items, one line for each item. Empty entries
/// at the end of a list are left out. docs/quillbox-collection.schema.json describes it.
void exportJson(const Export& from, TextSink& to);

}  // namespace quillbox
