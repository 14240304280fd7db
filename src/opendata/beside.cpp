#include "opendata/beside.h"

#include <algorithm>

#include "opendata/replacement.h"
#include "platform/file_paths.h"

namespace quillbox {

std::vector<BesideFile> filesBeside(FileSystem& files, const std::string& path) {
  const std::string full = fullPathOnDisk(files, path);
  const std::string file = fileBehind(files, full);
  std::vector<BesideFile> found;
  const auto look = [&](BesideKind kind, const std::string& name) {
    const auto isName = [&](const BesideFile& other) {
      return other.path == name || files.isSameFile(other.path, name);
    };
    if (files.exists(name) && !files.isSameFile(name, file) && std::ranges::none_of(found, isName))
      found.push_back({kind, name});
  };
  for (const auto& [kind, ending] :
       {std::pair(BesideKind::sortBackup, "bak"), std::pair(BesideKind::upgradeBackup, "BAK")}) {
    const BackupNames names = backupNames(files, full, file, ending);
    look(kind, names.ofPath);
    look(kind, names.ofFile);
  }
  look(BesideKind::earlier, earlierName(file));
  look(BesideKind::unfinished, unfinishedName(file));
  return found;
}

std::string_view besideText(BesideKind kind) {
  switch (kind) {
    case BesideKind::sortBackup:
      return "backup of a sort";
    case BesideKind::upgradeBackup:
      return "backup of an upgrade";
    case BesideKind::earlier:
      return "what an import has replaced";
    case BesideKind::unfinished:
      break;
  }
  return "left by an import that was cut off";
}

}  // namespace quillbox
