#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/board.h"
#include "platform/desktop.h"
#include "platform/run_time_error.h"
#include "records/collection_store.h"

namespace quillbox {

/// What the folder loader of a media-file kind looks for.
struct LoaderRow {
  const char* title;   ///< of the open dialog
  const char* filter;  ///< of the open dialog; the patterns after its "|" select the files
  bool saysWhenEmpty;  ///< reports a folder without such files
};

/// The loader of a media-file kind, by its code 1 to 4.
const LoaderRow& loaderRow(int mediaCode);

/// The patterns of a filter's first pair, at most ten.
std::vector<std::string> loaderPatterns(std::string_view filter);

/// The plain, visible files of a folder that match, pattern by pattern, in the folder's order.
std::vector<std::string> filesToLoad(FileSystem& files, const std::string& folder,
                                     const std::vector<std::string>& patterns);

/// The result of loading.
struct LoadedFiles {
  std::int16_t count;  ///< items in the file now
  int added = 0;
  int alreadyThere = 0;
  std::optional<RunTimeError> failure =
      {};  ///< the error that ended it; run-time error 6: the collection is full
};

/// Adds an item for each of the files `names` in `folder` whose name no item has yet. Names are
/// compared as they would be stored, with case but without the folder; deleted items are not
/// reused. What was added before a failure is kept.
LoadedFiles loadFiles(OpenFiles& files, const OpenCollection& collection,
                      const CollectionKind& kind, const std::string& folder,
                      const std::vector<std::string>& names, Board& board);

}  // namespace quillbox
