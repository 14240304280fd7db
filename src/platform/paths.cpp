#include "platform/paths.h"

#include <algorithm>
#include <vector>

#include "platform/ascii.h"

namespace quillbox {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool isOneOf(std::string_view characters, char c) {
  return characters.find(c) != std::string_view::npos;
}

bool namesDrive(std::string_view path) {
  return path.size() > 1 && isLetter(path[0]) && path[1] == ':';
}

bool areAlike(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char one, char other) { return asciiCapital(one) == asciiCapital(other); });
}

/// What a path is relative to.
struct Root {
  std::string_view place;  ///< a drive or a share; empty for the current one
  bool isRooted = false;   ///< from the root folder, not the current one
  std::string_view below;  ///< the rest of the path
};

/// The length of "\\server\share"; 0 when the path begins with no share.
std::size_t shareLength(std::string_view path, std::string_view separators) {
  const bool begins = path.size() > 2 && isOneOf(separators, path[0]) &&
                      isOneOf(separators, path[1]) && !isOneOf(separators, path[2]);
  if (!begins) return 0;
  const auto share = path.find_first_of(separators, 2);
  if (share == std::string_view::npos || share + 1 == path.size())
    return std::min(share, path.size());
  return std::min(path.find_first_of(separators, share + 1), path.size());
}

Root rootOf(std::string_view path, const PathRules& rules) {
  std::size_t length = 0;
  bool isShare = false;
  if (rules.hasDrives) {
    length = namesDrive(path) ? 2 : shareLength(path, rules.separators);
    isShare = length > 2;
  }
  const std::string_view below = path.substr(length);
  const bool isRooted = isShare || (!below.empty() && isOneOf(rules.separators, below.front()));
  return {path.substr(0, length), isRooted, below};
}

/// Adds the names of `root` one after the other; ".." takes one away.
void addNames(std::vector<std::string_view>& names, const Root& root, std::string_view separators) {
  std::string_view path = root.below;
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of(separators), path.size());
    const std::string_view name = path.substr(0, end);
    if (name == ".." && !names.empty() && names.back() != "..") {
      names.pop_back();
    } else if (name == ".." && root.isRooted) {
      // There is nothing above the root folder.
    } else if (!name.empty() && name != ".") {
      names.push_back(name);
    }
    path.remove_prefix(std::min(end + 1, path.size()));
  }
}

}  // namespace

std::string_view fileNameOf(std::string_view path) {
  const auto last = path.find_last_of(kSeparators);
  return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string_view folderOf(std::string_view path) {
  const auto last = path.find_last_of(kSeparators);
  if (last == std::string_view::npos) return {};
  const bool isRoot = last == 0 || (last == 2 && namesDrive(path));
  return path.substr(0, isRoot ? last + 1 : last);
}

std::string nameWithEnding(std::string_view path, std::string_view ending) {
  std::string_view name = fileNameOf(path);
  name = name.substr(0, name.find_last_of('.'));
  if (name.empty()) return {};
  return std::string(name).append(".").append(ending);
}

bool matchesPattern(std::string_view name, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t star = std::string_view::npos;  // the last "*" so far, and where its run ends
  std::size_t runEnd = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      runEnd = at;
    } else if (in < pattern.size() &&
               (pattern[in] == '?' || asciiCapital(pattern[in]) == asciiCapital(name[at]))) {
      ++in;
      ++at;
    } else if (star != std::string_view::npos) {
      in = star + 1;
      at = ++runEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

std::string extensionOf(std::string_view path) {
  constexpr std::size_t length = 3;
  std::string extension(path.size() > length ? path.substr(path.size() - length) : path);
  for (char& c : extension) c = asciiCapital(c);
  return extension;
}

std::string backupPath(std::string_view path, std::string_view ending) {
  const auto dot = path.find('.');
  const auto kept = dot == std::string_view::npos ? std::string_view() : path.substr(0, dot + 1);
  return std::string(kept).append(ending);
}

std::string joinPath(std::string_view folder, std::string_view name, const PathRules& rules) {
  std::string path(folder);
  if (path.empty() || !isOneOf(rules.separators, path.back())) path += rules.separators.front();
  return path.append(name);
}

bool isFullPath(std::string_view path, const PathRules& rules) {
  const Root root = rootOf(path, rules);
  return rules.hasDrives ? root.isRooted && !root.place.empty()
                         : root.isRooted || namesDrive(path) || path.starts_with('\\');
}

std::string fullPath(std::string_view path, std::string_view currentFolder,
                     const PathRules& rules) {
  Root root = rootOf(path, rules);
  const Root current = rootOf(currentFolder, rules);
  std::vector<std::string_view> names;
  if (root.place.empty() || areAlike(root.place, current.place)) {
    if (!root.isRooted) {
      addNames(names, current, rules.separators);
      root.isRooted = current.isRooted;
    }
    root.place = current.place;
  }
  addNames(names, root, rules.separators);

  const char separator = rules.separators.front();
  std::string full(root.place);
  if (root.isRooted) full += separator;
  for (const std::string_view name : names) full.append(name).push_back(separator);
  // A path written as a folder remains one.
  const std::string_view last = root.below.substr(root.below.find_last_of(rules.separators) + 1);
  const bool isFolder = names.empty() || last.empty() || last == "." || last == "..";
  if (!isFolder) full.pop_back();
  return full;
}

}  // namespace quillbox
