#include "records/rescue.h"

#include <array>
#include <memory>

#include "platform/file_paths.h"
#include "platform/run_time_error.h"
#include "records/header_record.h"

namespace quillbox {
namespace {

bool endsAt(File& file, std::uint64_t end) {
  std::array<std::byte, 1> byte{};
  return file.readAt(end - 1, byte) == 1 && file.readAt(end, byte) == 0;
}

/// The number of items in a complete collection of that kind; nothing when it is not one.
std::optional<std::int16_t> countIn(File& file, const CollectionKind& kind) {
  HeaderRecord header;
  if (file.readAt(0, bytesOf(header)) < sizeof header) return std::nullopt;
  const std::int16_t count = header.Count;
  if (count < 0) return std::nullopt;
  const auto recordsEnd = [&](int records) {
    // Before the first item is written, the file is the header alone.
    const std::size_t end = static_cast<std::size_t>(records) * kind.recordLength;
    return endsAt(file, end) || (records == kHeaderRecordNumber && endsAt(file, sizeof header));
  };
  const int records = recordNumberOf(count);
  const bool isWhole = recordsEnd(records) || (count > 0 && recordsEnd(records - 1));
  return isWhole ? std::optional(count) : std::nullopt;
}

}  // namespace

std::optional<LostCollection> findLost(FileSystem& files, const CollectionKind& kind,
                                       const std::string& path) {
  std::optional<LostCollection> found;
  ignoringErrors([&] {
    if (files.exists(path)) return;
    const std::string file = fileBehind(files, path);
    const auto [ofPath, ofFile] = backupNames(files, path, file, "bak");
    for (const std::string& backup : {ofPath, ofFile}) {
      if (found || !files.exists(backup)) continue;
      const auto count = countIn(*files.open(backup, OpenMode::read), kind);
      if (count) found = LostCollection{path, file, backup, *count};
    }
  });
  return found;
}

void putBack(FileSystem& files, const LostCollection& lost) {
  files.rename(lost.backup, lost.file);
}

}  // namespace quillbox
