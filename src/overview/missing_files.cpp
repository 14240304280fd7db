#include "overview/missing_files.h"

#include <algorithm>

#include "platform/paths.h"
#include "platform/run_time_error.h"
#include "records/media_file_record.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

constexpr const Field* kName = mediaFileField("FileName");
constexpr const Field* kFolder = mediaFileField("FilePath");

std::string_view text(const Field* field, std::span<const std::byte> record) {
  return readable(textOf(*field, record));
}

/// Whether the text may differ from the file system's: cut, or with a character lost.
bool isDoubtful(const Field* field, std::span<const std::byte> record) {
  const std::string_view held = text(field, record);
  return held.size() == field->width || held.find('?') != std::string_view::npos;
}

}  // namespace

std::optional<std::string> mediaFilePath(std::span<const std::byte> record) {
  const std::string folder = toUtf8(text(kFolder, record));
  const std::string name = toUtf8(text(kName, record));
  if (name.empty() || !isFullPath(folder)) return std::nullopt;
  return joinPath(folder, name);
}

MediaFileIs lookForMediaFile(FileSystem& files, std::span<const std::byte> record) {
  const auto path = mediaFilePath(record);
  if (!path) return MediaFileIs::unknown;
  try {
    if (files.exists(*path)) return MediaFileIs::there;
  } catch (const RunTimeError&) {
    return MediaFileIs::unknown;
  }
  return isDoubtful(kName, record) || isDoubtful(kFolder, record) ? MediaFileIs::unknown
                                                                  : MediaFileIs::gone;
}

bool MissingFiles::hasFiles(const CollectionKind& kind) { return kind.editor == EditorForm::wave; }

void MissingFiles::take(int item, std::span<const std::byte> record) {
  const auto at = static_cast<std::size_t>(item - 1);
  if (at >= found_.size()) found_.resize(at + 1);
  found_[at].reset();
  if (hasFiles(kind_) && !isDeleted(kind_, record)) found_[at] = lookForMediaFile(files_, record);
}

void MissingFiles::cutTo(int count) {
  found_.resize(std::min(found_.size(), static_cast<std::size_t>(std::max(count, 0))));
}

std::vector<int> MissingFiles::gone() const {
  std::vector<int> gone;
  for (std::size_t at = 0; at < found_.size(); ++at)
    if (found_[at] == MediaFileIs::gone) gone.push_back(static_cast<int>(at) + 1);
  return gone;
}

int MissingFiles::unknown() const {
  return static_cast<int>(std::ranges::count(found_, std::optional(MediaFileIs::unknown)));
}

}  // namespace quillbox
