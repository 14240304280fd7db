#include "platform/file_paths.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/ascii.h"
#include "platform/paths.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

/// The number of links that a system follows.
constexpr std::size_t kMostLinks = 40;

/// The folder is empty when the path has none.
struct Place {
  std::string folder;
  std::string name;
};

/// Split as the platform does it, because these are its own names.
Place placeOf(const std::string& path) {
  const auto last = path.find_last_of(kPlatformPaths.separators);
  if (last == std::string::npos) return {"", path};
  return {path.substr(0, last + 1), path.substr(last + 1)};
}

bool holdsDotDot(const std::string& folder) {
  return std::string("/").append(folder).find("/../") != std::string::npos;
}

/// The path and each name its links lead through; the last one is no link. A cycle of links gives
/// the same error as opening it.
std::vector<std::string> namesBehind(FileSystem& files, const std::string& path) {
  std::vector<std::string> names = {path};
  while (const auto target = files.linkTarget(names.back())) {
    if (names.size() > kMostLinks) throw RunTimeError(ErrorNumber::pathFileAccess, path);
    names.push_back(*target);
  }
  return names;
}

/// Whether both are the same name in the same folder, on a disk that may ignore case.
bool isSameName(FileSystem& files, const std::string& a, const std::string& b) {
  const Place placeA = placeOf(a);
  const Place placeB = placeOf(b);
  const auto folder = [](const Place& place) { return place.folder.empty() ? "." : place.folder; };
  return std::ranges::equal(placeA.name, placeB.name, {}, asciiCapital, asciiCapital) &&
         files.isSameFile(folder(placeA), folder(placeB));
}

class Move {
 public:
  Move(FileSystem& files, const std::string& path, OldBackup old)
      : files_(files), names_(namesBehind(files, path)), old_(old) {}

  const std::string& file() const { return names_.back(); }

  void to(const std::string& backup) {
    try {
      return files_.rename(file(), backup);
    } catch (const RunTimeError& error) {
      const bool inTheWay = error.number() == ErrorNumber::fileAlreadyExists;
      if (!inTheWay || old_ == OldBackup::stopsTheWork || leadsThrough(backup) || !isListed(backup))
        throw;
    }
    // The old backup may be the only durable copy of what the file holds.
    files_.open(file(), OpenMode::read)->flush();
    files_.remove(backup);
    files_.rename(file(), backup);
  }

  /// False when the file is on another file system.
  bool reaches(const std::string& backup) {
    try {
      to(backup);
      return true;
    } catch (const RunTimeError& error) {
      if (error.number() != ErrorNumber::differentDrive) throw;
    }
    // Within one file system, renaming would have reported it.
    if (old_ == OldBackup::stopsTheWork && (files_.linkTarget(backup) || files_.exists(backup)))
      throw RunTimeError(ErrorNumber::fileAlreadyExists, backup);
    return false;
  }

 private:
  bool leadsThrough(const std::string& backup) {
    return std::ranges::any_of(
        names_, [&](const std::string& name) { return isSameName(files_, name, backup); });
  }

  /// False for a file whose name differs in capitals: on a disk that ignores case, a sort of
  /// another collection may have left it.
  bool isListed(const std::string& backup) {
    const Place place = placeOf(backup);
    return std::ranges::count(files_.list(place.folder), place.name, &FolderEntry::name) > 0;
  }

  FileSystem& files_;
  std::vector<std::string> names_;
  OldBackup old_;
};

}  // namespace

std::string fullPathOnDisk(FileSystem& files, const std::string& path) {
  if (isFullPath(path)) return path;
  const auto [folder, name] = placeOf(path);
  if (!holdsDotDot(folder)) return fullPath(path, files.currentFolder());
  try {
    return joinPath(files.resolvedFolder(folder), name);
  } catch (const RunTimeError&) {
    return joinPath(files.currentFolder(), path);
  }
}

std::string fileBehind(FileSystem& files, const std::string& path) {
  return namesBehind(files, path).back();
}

bool isFolder(FileSystem& files, const std::string& path) {
  try {
    files.list(path);
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

BackupNames backupNames(FileSystem& files, const std::string& path, const std::string& file,
                        std::string_view ending) {
  std::string ofPath = backupPath(path, ending);
  if (!isFullPath(ofPath)) ofPath = fullPath(ofPath, files.currentFolder());
  const auto [folder, name] = placeOf(file);
  return {std::move(ofPath), folder + backupPath(name, ending)};
}

MovedFile moveToBackup(FileSystem& files, const std::string& path, std::string_view ending,
                       OldBackup old) {
  Move move(files, path, old);
  const auto [ofPath, ofFile] = backupNames(files, path, move.file(), ending);
  if (move.reaches(ofPath)) return {move.file(), ofPath};
  move.to(ofFile);
  return {move.file(), ofFile};
}

}  // namespace quillbox
