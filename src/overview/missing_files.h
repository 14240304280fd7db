#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "records/kinds.h"

namespace quillbox {

/// Where the file of an item of a media-file kind lies: a full path in the platform's bytes.
/// Nothing where the item does not say: without a name, or with a folder that is no full path.
std::optional<std::string> mediaFilePath(std::span<const std::byte> record);

enum class MediaFileIs {
  there,
  gone,
  unknown,  ///< the item does not say where it lies, or it cannot be asked for
};

/// Looks for the file of an item. A file that is not there is unknown where name or folder fill
/// their field or have a "?": they may have been cut, or have lost a character that records cannot
/// hold. Never throws a RunTimeError.
MediaFileIs lookForMediaFile(FileSystem& files, std::span<const std::byte> record);

/// The items whose files are not there any more. An ItemReading that hands the items over can stop
/// after each one: a folder far away may take its time. Deleted items are not looked at.
class MissingFiles {
 public:
  static bool hasFiles(const CollectionKind& kind);

  MissingFiles(FileSystem& files, const CollectionKind& kind) : files_(files), kind_(kind) {}

  /// Takes an item, again if it was taken before.
  void take(int item, std::span<const std::byte> record);

  /// There are only so many items now.
  void cutTo(int count);

  /// Those that are gone, in order.
  std::vector<int> gone() const;

  /// How many there are of which nothing can be said.
  int unknown() const;

 private:
  FileSystem& files_;
  const CollectionKind& kind_;
  std::vector<std::optional<MediaFileIs>> found_;
};

}  // namespace quillbox
