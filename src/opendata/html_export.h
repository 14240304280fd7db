#pragma once

#include <string>

#include "opendata/export_text.h"
#include "records/record_texts.h"

namespace quillbox {

/// Writes a page of the collection without deleted items: its totals as bars, and a table of its
/// items that can be filtered and sorted. One HTML file without external parts, for screens, light
/// or dark, for phones, and for printing. All texts are escaped. `title` is UTF-8.
void exportHtml(const Export& from, const std::string& title, const RecordTexts& texts,
                TextSink& to);

}  // namespace quillbox
