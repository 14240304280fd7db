#pragma once

#include <string>
#include <vector>

#include "editors/media_loader.h"

namespace quillbox::test {

/// Loads files, takes over the new count and only then reports the failure, as the editor does.
inline void loadAndCount(AppState& state, const CollectionKind& kind, const std::string& folder,
                         const std::vector<std::string>& names, Board& board) {
  const LoadedFiles loaded = loadFiles(state.files, state, kind, folder, names, board);
  state.Count = loaded.count;
  if (loaded.failure) throw *loaded.failure;
}

}  // namespace quillbox::test
