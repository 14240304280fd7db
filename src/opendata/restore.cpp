#include "opendata/restore.h"

#include <vector>

#include "opendata/data_error.h"
#include "opendata/replacement.h"
#include "platform/file_paths.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

/// The backup as a collection; a DataError when it is not whole.
CollectionFile wholeBackup(FileSystem& files, const CollectionKind& kind, const std::string& path) {
  const CollectionFile backup = readCollectionFile(files, path, kind);
  if (!backup.endsExactly())
    throw DataError(path + " is not a whole collection of " + std::string(kind.words.items));
  return backup;
}

CollectionFile chosenBackup(FileSystem& files, const std::string& path,
                            std::optional<BesideKind> which) {
  const CollectionKind& kind = kindOfPath(path);
  std::vector<CollectionFile> whole;
  std::string why;
  for (const auto& [besideKind, name] : filesBeside(files, path)) {
    const bool isBackup =
        besideKind == BesideKind::sortBackup || besideKind == BesideKind::upgradeBackup;
    if (!isBackup || (which && *which != besideKind)) continue;
    try {
      whole.push_back(wholeBackup(files, kind, name));
    } catch (const DataError& error) {
      why = error.what();
    }
  }
  if (whole.empty()) throw DataError(why.empty() ? "there is no backup beside it" : why);
  if (whole.size() > 1)
    throw DataError("there are two backups, " + whole[0].path + " and " + whole[1].path +
                    "; say which with --from");
  return whole.front();
}

/// Gives the former file the first free name.
std::string keep(FileSystem& files, const std::string& from, const std::string& file) {
  for (int number = 1;; ++number) {
    std::string name = earlierName(file);
    if (number > 1) name += std::to_string(number);
    try {
      files.rename(from, name);
      return name;
    } catch (RunTimeError& error) {
      constexpr int enough = 1000;
      if (error.number() == ErrorNumber::fileAlreadyExists && number < enough) continue;
      error.addNote("The collection is put back; what it was before is kept as " + from);
      throw;
    }
  }
}

}  // namespace

Restored restoreCollection(FileSystem& files, const std::string& path,
                           std::optional<BesideKind> which) {
  const CollectionFile backup = chosenBackup(files, path, which);
  const std::string file = fileBehind(files, path);
  Restored restored{backup.path, backup.count};
  if (!files.exists(file)) {
    files.rename(backup.path, file);
    return restored;
  }
  // The backup may be the only durable copy of what it holds.
  files.open(backup.path, OpenMode::read)->flush();
  files.exchange(backup.path, file);
  restored.keptAs = keep(files, backup.path, file);
  return restored;
}

}  // namespace quillbox
