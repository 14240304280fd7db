#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// The separator that Quillbox joins names with. Taking a path apart recognises "\" as well.
#ifdef _WIN32
inline constexpr char kFolderSeparator = '\\';
#else
inline constexpr char kFolderSeparator = '/';
#endif

/// The part of `path` after its last folder separator.
std::string_view fileNameOf(std::string_view path);

/// The part of `path` before its last folder separator; the root folder keeps its separator.
std::string_view folderOf(std::string_view path);

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
std::string joinPath(std::string_view folder, std::string_view name);

/// True when `path` names a drive or starts at the root folder.
bool isFullPath(std::string_view path);

/// `path` below `currentFolder`, with "." and ".." resolved.
std::string fullPath(std::string_view path, std::string_view currentFolder);

}  // namespace quillbox
