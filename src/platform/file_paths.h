#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace quillbox {

/// `path` from the root folder on, for later use whatever the current folder is by then. Where ".."
/// follows a folder, the system is asked where that leads: behind a link it is not what the text
/// says. A folder that is not there stays in the path, so that opening it fails.
std::string fullPathOnDisk(FileSystem& files, const std::string& path);

/// The name that is no link itself which `path` leads to, links followed one after the other. There
/// need be no file of that name.
std::string fileBehind(FileSystem& files, const std::string& path);

/// True for a folder that can be looked into.
bool isFolder(FileSystem& files, const std::string& path);

/// What is done with a file that has the backup's name.
enum class OldBackup { stopsTheWork, isDeleted };

/// A file that has been moved out of the way.
struct MovedFile {
  std::string path;    ///< free now; behind the links that lead there
  std::string backup;  ///< the full path it has now
};

/// Where moveToBackup keeps a collection.
struct BackupNames {
  std::string ofPath;  ///< the name it takes
  std::string ofFile;  ///< the name it falls back on, where that one is on another file system
};

/// The names of the backup of a collection: `path` is its full path, `file` what that leads to.
BackupNames backupNames(FileSystem& files, const std::string& path, const std::string& file,
                        std::string_view ending);

/// Renames the file that the full path of a collection leads to to the backup's name of that path,
/// see backupPath. Where the two lie on different file systems it stays in its own folder, its own
/// name cut at its first dot instead.
///
/// Run-time error 58, and nothing is done, when the backup's name is taken and that stops the work,
/// or when it is one of the names that lead to the file. Otherwise what has that name, a link
/// itself, is deleted after the file was flushed to the disk.
MovedFile moveToBackup(FileSystem& files, const std::string& path, std::string_view ending,
                       OldBackup old);

}  // namespace quillbox
