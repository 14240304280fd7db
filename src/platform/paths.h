#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// How a platform writes a path.
struct PathRules {
  std::string_view separators;  ///< what parts names; the first one joins them
  bool hasDrives;               ///< "C:" and "\\server\share" tell where a path begins
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

/// The file name of what is made from `path`: its own without its last ending, and `ending`
/// instead. Empty when nothing stands before that ending.
std::string nameWithEnding(std::string_view path, std::string_view ending);

/// Whether a file name matches a pattern of "*" (any run) and "?" (any one character), capitals and
/// small letters alike.
bool matchesPattern(std::string_view name, std::string_view pattern);

/// The last three characters of `path` in capitals: what tells a collection's kind. No dot is
/// needed; a shorter path gives all of itself.
std::string extensionOf(std::string_view path);

/// The name a collection is kept under while it is rewritten: `path` up to and including its first
/// "." (one in a folder's name counts), then `ending`. A path without "." gives `ending` alone, a
/// file in the current folder.
std::string backupPath(std::string_view path, std::string_view ending);

/// `folder` and `name` with one separator between them, so an empty folder is the root folder.
std::string joinPath(std::string_view folder, std::string_view name,
                     const PathRules& rules = kPlatformPaths);

/// True when `path` names a drive or starts at the root folder; where there are drives, both.
bool isFullPath(std::string_view path, const PathRules& rules = kPlatformPaths);

/// `path` below `currentFolder`, with "." and ".." resolved. A path on another drive than the
/// current folder's, but not from its root folder on, stays below the folder that the system
/// remembers for that drive.
std::string fullPath(std::string_view path, std::string_view currentFolder,
                     const PathRules& rules = kPlatformPaths);

}  // namespace quillbox
