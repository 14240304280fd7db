#include "editors/media_types.h"

#include <array>
#include <cstddef>

#include "records/choice_lists.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// A valid file replaces the built-in list from here on, including "Cart".
constexpr std::size_t kBuiltInKept = 7;

/// Takes one line off the front of `text`, without its line end; nothing else is removed.
std::string_view takeLine(std::string_view& text) {
  const auto end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// Entries written by present text editors are UTF-8, older ones Windows-1252.
std::string entryText(std::string_view bytes) {
  return isUtf8(bytes) ? fromUtf8(bytes) : std::string(bytes);
}

std::string contentsOf(File& file) {
  std::string contents;
  std::array<std::byte, 4096> piece{};
  std::size_t got = 0;
  do {
    got = file.readAt(contents.size(), piece);
    contents.append(reinterpret_cast<const char*>(piece.data()), got);
  } while (got == piece.size());
  return contents;
}

}  // namespace

MediaTypeList builtInMediaTypes() {
  return {{choices::musicMediaType.begin(), choices::musicMediaType.end()}, false};
}

MediaTypeList mediaTypesFrom(std::string_view fileBytes) {
  MediaTypeList list = builtInMediaTypes();
  if (takeLine(fileBytes) != "[MEDIA]") {
    list.corrupt = true;
    return list;
  }
  list.entries.resize(kBuiltInKept);
  while (!fileBytes.empty()) {
    const std::string_view line = takeLine(fileBytes);
    const auto comma = line.find(',');
    if (comma != std::string_view::npos && comma + 1 < line.size())
      list.entries.push_back(entryText(line.substr(comma + 1)));
  }
  return list;
}

MediaTypeList readMediaTypes(FileSystem& files) {
  const std::string name(kMediaTypeFileName);
  if (!files.exists(name)) return builtInMediaTypes();
  return mediaTypesFrom(contentsOf(*files.open(name, OpenMode::read)));
}

}  // namespace quillbox
