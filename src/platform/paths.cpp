#include "platform/paths.h"

#include <filesystem>

namespace quillbox {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool isSeparator(char c) { return kSeparators.find(c) != std::string_view::npos; }

char capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string_view fileNameOf(std::string_view path) {
  const auto last = path.find_last_of(kSeparators);
  return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string_view folderOf(std::string_view path) {
  const auto last = path.find_last_of(kSeparators);
  if (last == std::string_view::npos) return {};
  return path.substr(0, last == 0 ? 1 : last);
}

bool matchesPattern(std::string_view name, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t star = std::string_view::npos;  // the last "*" met, and where its run ends now
  std::size_t runEnd = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      runEnd = at;
    } else if (in < pattern.size() &&
               (pattern[in] == '?' || capital(pattern[in]) == capital(name[at]))) {
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
  for (char& c : extension) c = capital(c);
  return extension;
}

std::string backupPath(std::string_view path, std::string_view ending) {
  const auto dot = path.find('.');
  const auto kept = dot == std::string_view::npos ? std::string_view() : path.substr(0, dot + 1);
  return std::string(kept).append(ending);
}

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (path.empty() || path.back() != kFolderSeparator) path += kFolderSeparator;
  return path.append(name);
}

bool isFullPath(std::string_view path) {
  const bool namesDrive = path.size() > 1 && path[1] == ':';
  return namesDrive || (!path.empty() && isSeparator(path.front()));
}

std::string fullPath(std::string_view path, std::string_view currentFolder) {
  return (std::filesystem::path(currentFolder) / path).lexically_normal().string();
}

}  // namespace quillbox
