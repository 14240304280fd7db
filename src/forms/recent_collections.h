#pragma once

#include <QSettings>
#include <QString>
#include <string>
#include <vector>

namespace quillbox {

/// A collection that was open before.
struct RecentCollection {
  std::string path;  ///< full, in the platform's bytes; its extension is that of a kind
  int count = 0;     ///< items when it was last opened or left

  bool operator==(const RecentCollection&) const = default;
};

/// The collections that were opened last, kept in a settings file. Whatever cannot be read there,
/// or is damaged, is as if never kept; what cannot be written is forgotten at the program's end.
class RecentCollections {
 public:
  static constexpr int kMost = 8;

  /// The file, and the folder it is in, need not exist. It may hold other settings, too.
  explicit RecentCollections(const QString& settingsFile);

  /// At most so many, none of them twice, the one opened last first. Whether they are still there
  /// nobody has looked.
  std::vector<RecentCollection> all() const;

  /// A collection is open now. A path that is not full, or of no kind, is not kept.
  void opened(const std::string& path, int count);

  /// One that may be among them is left with so many items.
  void left(const std::string& path, int count);

  void remove(const std::string& path);

 private:
  void keep(const std::vector<RecentCollection>& recents);

  QSettings settings_;
};

}  // namespace quillbox
