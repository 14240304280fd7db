#pragma once

#include <string>

#include "records/kinds.h"

namespace quillbox {

/// The statements that make the views of a kind's database: the catalogue without deleted items
/// and with amounts in units, who has what (music), and what items come to by each grouping.
std::string viewsOf(const CollectionKind& kind);

}  // namespace quillbox
