#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace quillbox {

/// `path` as a full path, for later use whatever the current folder is by then. Where ".." follows
/// a folder, the system resolves it: after a link it is not what the text suggests. A folder that
/// does not exist stays in the path, so that opening it fails.
std::string fullPathOnDisk(FileSystem& files, const std::string& path);

/// The name that `path` leads to when all links are followed; it is no link itself. There need be
/// no file of that name.
std::string fileBehind(FileSystem& files, const std::string& path);

/// True for a folder that can be read.
bool isFolder(FileSystem& files, const std::string& path);

/// What happens to a file that has the backup's name.
enum class OldBackup { stopsTheWork, isDeleted };

/// A file that has been moved out of the way.
struct MovedFile {
  std::string path;    ///< free now; where the links lead
  std::string backup;  ///< its full path now
};

/// Where moveToBackup puts a collection.
struct BackupNames {
  std::string ofPath;  ///< the name it gets
  std::string ofFile;  ///< used when that one is on another file system
};

/// The names of a collection's backup: `path` is its full path, `file` the file that this leads to.
BackupNames backupNames(FileSystem& files, const std::string& path, const std::string& file,
                        std::string_view ending);

/// Moves the file that the full path of a collection leads to out of the way, to the backup name of
/// that path, see backupPath. If that is on another file system, the file stays in its own folder,
/// under its own name cut at the first dot.
///
/// Run-time error 58, with nothing done, when the backup's name is taken and `stopsTheWork` is
/// given, when it is one of the names that lead to the file, or when what has it is listed in other
/// capitals. Otherwise whatever has that name (a link itself) is deleted, after the file was
/// flushed to the disk.
MovedFile moveToBackup(FileSystem& files, const std::string& path, std::string_view ending,
                       OldBackup old);

}  // namespace quillbox
