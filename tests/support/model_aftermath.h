#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "support/editor_model.h"

/// What may be on the disk after a file operation has failed.
namespace quillbox::test {

/// The bytes of the header that are written.
inline constexpr std::size_t kHeaderWidth = 12;

inline std::optional<std::string> bytesIn(const ModelDisk& disk, const std::string& path) {
  const auto found = disk.find(path);
  return found == disk.end() ? std::nullopt : std::optional(found->second);
}

inline const ModelKind* kindOfFile(const std::string& path) {
  for (const ModelKind& kind : kModelKinds)
    if (sameInCapitals(path.substr(path.rfind('.') + 1), kind.extension)) return &kind;
  return nullptr;
}

/// Whether some pieces of a collection are old and all others new: its header and its records,
/// which are written as a whole, or half of them where a write was cut short. The header may count
/// any of the items to be added.
inline bool isBetween(std::string now, std::string old, std::string fresh, std::size_t length,
                      bool isShort) {
  const auto [least, most] = std::minmax({old.size(), fresh.size()});
  if (now.size() < least || now.size() > most) return false;
  const std::size_t size = std::max(most, kHeaderWidth);
  for (std::string* bytes : {&now, &old, &fresh}) bytes->resize(size);

  const auto isPieceBetween = [&](std::size_t at, std::size_t width) {
    const std::string piece = now.substr(at, width);
    const std::string before = old.substr(at, width);
    const std::string after = fresh.substr(at, width);
    if (piece == before || piece == after) return true;
    return isShort && piece == after.substr(0, width / 2) + before.substr(width / 2);
  };
  const auto isHeaderBetween = [&] {
    const std::int64_t counted = numberAt(now, 0, 2);
    if (counted > numberAt(old, 0, 2) && counted < numberAt(fresh, 0, 2))
      putBytes(fresh, 0, now.substr(0, 2));
    return isPieceBetween(0, kHeaderWidth);
  };
  if (!isHeaderBetween()) return false;
  for (std::size_t at = kHeaderWidth; at < size;) {
    const std::size_t end = std::min((at / length + 1) * length, size);
    if (!isPieceBetween(at, end - at)) return false;
    at = end;
  }
  return true;
}

/// The files before an action that failed, as it should have left them, and as they are.
struct Aftermath {
  const ModelDisk& before;
  const ModelDisk& after;
  const ModelDisk& now;
  bool isShort;                 ///< failed writes wrote half
  const std::string& replaced;  ///< the user allowed overwriting this one

  void expectNothingLost() const {
    ModelDisk all = before;
    all.insert(after.begin(), after.end());
    all.insert(now.begin(), now.end());
    for (const auto& [path, bytes] : all)
      EXPECT_TRUE(isExplained(path)) << path << " is neither as it was nor as it was to be";
  }

  /// The backup name under which the unchanged collection is, if any.
  std::optional<std::string> keptAs(const std::string& path) const {
    for (const char* ending : {"bak", "BAK"})
      if (const std::string backup = withEnding(path, ending);
          before.contains(path) && bytesIn(now, backup) == before.at(path))
        return backup;
    return std::nullopt;
  }

  bool isExplained(const std::string& path) const {
    const auto old = bytesIn(before, path);
    const auto fresh = bytesIn(after, path);
    const auto found = bytesIn(now, path);
    if (found == old || found == fresh) return true;
    if (isBackup(path)) return !found || isKeptCollection(path);
    const ModelKind* kind = kindOfFile(path);
    // What is made from a collection may be incomplete.
    if (kind == nullptr) return found && fresh && fresh->starts_with(*found);
    const auto between = [&](const std::string& from) {
      return isBetween(*found, from, fresh.value_or(""), kind->recordLength, isShort);
    };
    if (keptAs(path) || path == replaced) return !found || between("");
    return found && between(old.value_or(""));
  }

 private:
  static bool isBackup(const std::string& path) {
    return sameInCapitals(path.substr(path.rfind('.') + 1), "bak");
  }

  /// The only file of a collection that is being rewritten, or the second one.
  bool isKeptCollection(const std::string& backup) const {
    return std::ranges::any_of(before, [&](const auto& file) {
      return kindOfFile(file.first) != nullptr && keptAs(file.first) == backup;
    });
  }
};

}  // namespace quillbox::test
