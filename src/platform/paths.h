#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// How a platform writes a path.
struct PathRules {
  std::string_view separators;  ///< separate names; the first one joins them
  bool hasDrives;               ///< a path may begin with "C:" or "\\server\share"
};
inline constexpr PathRules kUnixPaths = {"/", false};
inline constexpr PathRules kWindowsPaths = {"\\/", true};
#ifdef _WIN32
inline constexpr PathRules kPlatformPaths = kWindowsPaths;
#else
inline constexpr PathRules kPlatformPaths = kUnixPaths;
#endif

/// The part of `path` after its last folder separator, "/" or "\" on any platform.
std::string_view fileNameOf(std::string_view path);

/// The part of `path` before its last folder separator, "/" or "\" on any platform; the root folder
/// and that of a drive keep their separator.
std::string_view folderOf(std::string_view path);

/// The name of a file made from `path`: the file name with its last ending replaced by `ending`.
/// Empty when nothing precedes that ending.
std::string nameWithEnding(std::string_view path, std::string_view ending);

/// Whether a file name matches a pattern of "*" (any run) and "?" (any one character); case is
/// ignored.
bool matchesPattern(std::string_view name, std::string_view pattern);

/// The last three characters of `path` in capitals, which identify a collection's kind. No dot is
/// needed; a shorter path is returned whole.
std::string extensionOf(std::string_view path);

/// The name a collection has while it is rewritten: `path` up to and including its first "." (one
/// in a folder's name counts), then `ending`. A path without "." gives `ending` alone, a file in
/// the current folder.
std::string backupPath(std::string_view path, std::string_view ending);

/// `folder` and `name` with one separator between them, so an empty folder is the root folder.
std::string joinPath(std::string_view folder, std::string_view name,
                     const PathRules& rules = kPlatformPaths);

/// True when `path` begins at the root folder and, where there are drives, names one.
bool isFullPath(std::string_view path, const PathRules& rules = kPlatformPaths);

/// `path` relative to `currentFolder`, with "." and ".." resolved. A path with another drive than
/// the current folder's and no root stays relative to the folder that the system remembers for that
/// drive.
std::string fullPath(std::string_view path, std::string_view currentFolder,
                     const PathRules& rules = kPlatformPaths);

}  // namespace quillbox
