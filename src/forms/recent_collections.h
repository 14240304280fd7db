#pragma once

#include <QSettings>
#include <QString>
#include <string>
#include <vector>

namespace quillbox {

/// A collection that was open before.
struct RecentCollection {
  std::string path;  ///< a full path in the platform's bytes; its extension is that of a kind
  int count = 0;     ///< the number of items when it was last opened or left

  bool operator==(const RecentCollection&) const = default;
};

/// The collections opened last, kept in a settings file. What is damaged or cannot be read counts
/// as not set; what cannot be written lasts until the program ends.
class RecentCollections {
 public:
  static constexpr int kMost = 8;

  /// The file and its folder need not exist. The file may contain other settings.
  explicit RecentCollections(const QString& settingsFile);

  /// The collections, most recent first, limited in number and without repetitions. They may no
  /// longer exist.
  std::vector<RecentCollection> all() const;

  /// A collection is open now. A path that is not full, or of no kind, is not stored.
  void opened(const std::string& path, int count);

  /// A collection that may be in the list was left with this number of items.
  void left(const std::string& path, int count);

  void remove(const std::string& path);

 private:
  void keep(const std::vector<RecentCollection>& recents);

  QSettings settings_;
};

}  // namespace quillbox
