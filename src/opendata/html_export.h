#pragma once

#include <string>

#include "opendata/export_text.h"
#include "records/record_texts.h"

namespace quillbox {

/// Writes a page of the collection, deleted items aside: what it comes to as bars, and a table of
/// its items to filter and order. One file of HTML without outside parts, to look at, light or
/// dark, also on a telephone, and to print. Every text is escaped. `title` is UTF-8.
void exportHtml(const Export& from, const std::string& title, const RecordTexts& texts,
                TextSink& to);

}  // namespace quillbox
