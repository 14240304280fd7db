#pragma once

#include <string>

#include "opendata/export_text.h"

namespace quillbox {

/// Makes a database (SQLite 3) of the collection at `path`; what was there before is replaced when
/// the new one is whole. A RunTimeError when it cannot be written.
///
/// Table `items` has a row for each item, deleted ones included: its number, whether it is
/// deleted, and every field by its name. Texts are UTF-8, amounts whole ten-thousandths, choices
/// the words of their lists (their place where there is no word, NULL for none), dates ISO 8601.
/// Table `entries` has the filled entries of the items' lists, `collection` what the header says.
/// Views show what people ask for: `catalogue`, `loans`, `worth_by_type` and the like.
void exportSqlite(const Export& from, const std::string& path);

}  // namespace quillbox
