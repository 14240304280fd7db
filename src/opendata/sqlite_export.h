#pragma once

#include <string>

#include "opendata/export_text.h"

namespace quillbox {

/// Creates a database (SQLite 3) of the collection at `path`; an existing file is replaced once the
/// new one is complete. A RunTimeError when it cannot be written.
///
/// Table `items` has a row for each item, including deleted ones: its number, whether it is
/// deleted, and every field by its name. Texts are UTF-8, amounts whole ten-thousandths, choices
/// the words of their lists (the index where there is no word, NULL for none), dates ISO 8601.
/// Table `entries` has the filled entries of the items' lists, `collection` the header. Views
/// answer common questions: `catalogue`, `loans`, `worth_by_type` and others.
void exportSqlite(const Export& from, const std::string& path);

}  // namespace quillbox
