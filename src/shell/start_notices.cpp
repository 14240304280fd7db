#include "shell/start_notices.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "forms/recent_collections.h"
#include "platform/paths.h"

namespace quillbox {
namespace {

/// More would not leave room for the commands.
constexpr std::size_t kMostLost = 2;
constexpr std::size_t kMostMissed = 8;

std::string named(std::string_view path) { return std::string(fileNameOf(path)); }

const CollectionKind* kindOf(std::string_view path) { return kindOfExtension(extensionOf(path)); }

/// The backup's name, with its folder if that is a different one.
std::string backupName(const LostCollection& lost) {
  return folderOf(lost.backup) == folderOf(lost.path) ? named(lost.backup) : lost.backup;
}

}  // namespace

void StartNotices::notOpened(const std::string& path) {
  about_.emplace();
  about_->text = named(path) + " was not opened: ";
  bool isThere = false;
  ignoringErrors([&] { isThere = program_.shell().opens(path); });
  if (isThere) {
    about_->text += "choose Open";
    about_->button = "&Open";
    about_->press = [this, path] { program_.shell().open(path); };
  } else if (kindOf(path) == nullptr) {
    about_->text += "it is no collection";
  } else {
    about_->text += "it is not there";
    missing(path);
  }
}

void StartNotices::missing(const std::string& path) {
  if (kindOf(path) == nullptr || std::ranges::count(missed_, path) > 0) return;
  if (missed_.size() == kMostMissed) missed_.erase(missed_.begin());
  missed_.push_back(path);
}

std::vector<Notice> StartNotices::all() {
  std::vector<Notice> notices;
  if (about_) notices.push_back(*about_);
  // Only the first one has an access key.
  for (const char* button = "&Put Back"; const LostCollection& each : lost()) {
    notices.push_back(offerOf(each, button));
    button = "Put Back";
  }
  return notices;
}

/// A backup may fit several known collections of the same name: it belongs to the one opened last.
std::vector<LostCollection> StartNotices::lost() {
  std::vector<std::string> known;
  if (const RecentCollections* recents = program_.recents())
    for (const RecentCollection& recent : recents->all()) known.push_back(recent.path);
  known.insert(known.end(), missed_.begin(), missed_.end());

  std::vector<LostCollection> found;
  for (const std::string& path : known) {
    if (found.size() == kMostLost) break;
    auto lost = findLost(program_.state().files.fileSystem(), *kindOf(path), path);
    if (lost && std::ranges::count(found, lost->backup, &LostCollection::backup) == 0)
      found.push_back(std::move(*lost));
  }
  return found;
}

Notice StartNotices::offerOf(const LostCollection& lost, const char* button) {
  const std::string items = itemsText(*kindOf(lost.path), lost.count);
  const auto putItBack = [this, lost, items] {
    putBack(program_.state().files.fileSystem(), lost);
    about_ = Notice{named(lost.path) + " is back: " + items, "&Open",
                    [this, path = lost.path] { program_.shell().open(path); }};
  };
  return {named(lost.path) + " lies in " + backupName(lost) + ": " + items, button, putItBack};
}

}  // namespace quillbox
