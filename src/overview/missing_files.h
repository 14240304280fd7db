#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "records/kinds.h"

namespace quillbox {

/// The path of a media-file item: a full path in the platform's bytes. Nothing if the item lacks a
/// name, or its folder is no full path.
std::optional<std::string> mediaFilePath(std::span<const std::byte> record);

enum class MediaFileIs {
  there,
  gone,
  unknown,  ///< the item has no path, or the file system cannot tell
};

/// Looks for the file of an item. A missing file is unknown if the name or the folder fills its
/// field or has a "?": it may have been cut, or have lost a character that records cannot hold.
/// Never throws a RunTimeError.
MediaFileIs lookForMediaFile(FileSystem& files, std::span<const std::byte> record);

/// The items whose files no longer exist. An ItemReading that passes the items can stop after each
/// one, because a network folder may be slow. Deleted items are ignored.
class MissingFiles {
 public:
  static bool hasFiles(const CollectionKind& kind);

  MissingFiles(FileSystem& files, const CollectionKind& kind) : files_(files), kind_(kind) {}

  /// Adds an item, or replaces it.
  void take(int item, std::span<const std::byte> record);

  /// Keeps only the items up to `count`.
  void cutTo(int count);

  /// The items whose files are gone, in order.
  std::vector<int> gone() const;

  /// The number of items whose files are unknown.
  int unknown() const;

 private:
  FileSystem& files_;
  const CollectionKind& kind_;
  std::vector<std::optional<MediaFileIs>> found_;
};

}  // namespace quillbox
