#pragma once

#include <string>

#include "records/kinds.h"

namespace quillbox {

/// The statements that create the views of a kind's database: the catalogue without deleted items
/// and with amounts in units, the loans (music), and totals by each grouping.
std::string viewsOf(const CollectionKind& kind);

}  // namespace quillbox
