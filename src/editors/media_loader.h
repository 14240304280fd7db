#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop.h"
#include "printing/board.h"
#include "records/collection_store.h"

namespace quillbox {

/// What the folder loader of one media-file kind looks for.
struct LoaderRow {
  const char* title;   ///< of the open dialog
  const char* filter;  ///< of the open dialog; the patterns behind its "|" choose the files
  bool saysWhenEmpty;  ///< a folder without such files is reported
};

/// The loader of a media-file kind, by its code 1 to 4.
const LoaderRow& loaderRow(int mediaCode);

/// The patterns of a filter's first pair, at most ten.
std::vector<std::string> loaderPatterns(std::string_view filter);

/// The plain, visible files of a folder that match, pattern by pattern, in the folder's own order.
std::vector<std::string> filesToLoad(FileSystem& files, const std::string& folder,
                                     const std::vector<std::string>& patterns);

/// Adds an item for each of the files `names` in `folder` whose name no item has yet. A name is
/// compared as it would be stored, capitals distinct, and regardless of its folder; deleted items
/// are not reused. Run-time error 6 when the collection is full; everything added so far is kept
/// then, and after any other failure.
void loadFiles(AppState& state, const CollectionKind& kind, const std::string& folder,
               const std::vector<std::string>& names, Board& board);

}  // namespace quillbox
