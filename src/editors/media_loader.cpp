#include "editors/media_loader.h"

#include <algorithm>
#include <array>
#include <span>
#include <unordered_set>

#include "platform/checked16.h"
#include "platform/paths.h"
#include "records/collection_store.h"
#include "records/record_file.h"
#include "records/version.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

constexpr std::array<LoaderRow, 4> kLoaders = {{
    {"Wave Collection", "Wave Files (*.WAV)|*.WAV", true},
    {"MIDI Collection", "MIDI Files (*.MID)|*.MID", true},
    {"Graphics Collection",
     "Graphics Files (*.JPG,*.GIF,*.BMP,*.TIF,*.RLE)|*.JPG;*.GIF;*.BMP;*.TIF;*.RLE", false},
    {"MPEG Layer3(MP3) Audio Collection", "MPEG Files (*.MP3)|*.MP3", false},
}};

constexpr std::size_t kMostPatterns = 10;

/// New items are written so many at a time. When a header cannot be written, what it counts is in
/// doubt for no more items than these.
constexpr std::size_t kItemsAtOnce = 8;

/// The names of all items, as stored.
using Names = std::unordered_set<std::string>;

Names namesOf(RecordFile& file, int count) {
  constexpr int kAtOnce = kRecordBlockBytes / sizeof(MediaFileRecord);
  Names names;
  std::vector<MediaFileRecord> block;
  for (int item = 1; item <= count; item += kAtOnce) {
    // Items that the file is too short for have no names.
    block.assign(static_cast<std::size_t>(std::min(kAtOnce, count - item + 1)), {});
    file.readRecords(recordNumberOf(item), std::as_writable_bytes(std::span(block)));
    for (const MediaFileRecord& record : block)
      names.emplace(withoutTrailingBlanks(record.FileName.view()));
  }
  return names;
}

/// Writes items after the last one, then the header that counts them: it never counts an item that
/// is not written.
void append(RecordFile& file, HeaderRecord& header, std::span<const MediaFileRecord> items,
            LoadedFiles& loaded) {
  const auto added = static_cast<int>(items.size());
  header.Count = checked16(loaded.count + added);
  file.writeRecords(recordNumberOf(loaded.count + 1), std::as_bytes(items));
  file.write(kHeaderRecordNumber, bytesOf(header));
  loaded.count = header.Count;
  loaded.added += added;
}

/// The same. If it fails, the items are written one at a time, to keep as many as possible.
void appendAllOrSome(RecordFile& file, HeaderRecord& header, std::span<const MediaFileRecord> items,
                     LoadedFiles& loaded) {
  try {
    append(file, header, items, loaded);
  } catch (const RunTimeError&) {
    for (std::size_t item = 0; item < items.size(); ++item)
      append(file, header, items.subspan(item, 1), loaded);
    throw;
  }
}

void addFiles(RecordFile& file, const CollectionKind& kind, const std::string& folder,
              const std::vector<std::string>& names, Board& board, LoadedFiles& loaded) {
  HeaderRecord header;
  file.read(kHeaderRecordNumber, bytesOf(header));
  loaded.count = std::max<std::int16_t>(header.Count, 0);
  header.FileType = kind.rules.fileType;
  header.Version = kVersionText;
  Names known = namesOf(file, loaded.count);

  std::vector<MediaFileRecord> items;
  const int total = static_cast<int>(names.size());
  for (int done = 0; const std::string& name : names) {
    board.print(name);
    board.progress(++done, total);
    MediaFileRecord record;
    record.FileName = fromUtf8(name);
    if (!known.emplace(withoutTrailingBlanks(record.FileName.view())).second) {
      ++loaded.alreadyThere;
      continue;
    }
    record.FilePath = fromUtf8(folder);
    record.FileSize = 0;  // never filled in
    record.Description = "";
    items.push_back(record);
    if (items.size() < kItemsAtOnce) continue;
    appendAllOrSome(file, header, items, loaded);
    items.clear();
  }
  if (!items.empty()) appendAllOrSome(file, header, items, loaded);
}

}  // namespace

const LoaderRow& loaderRow(int mediaCode) {
  return kLoaders.at(static_cast<std::size_t>(mediaCode - 1));
}

std::vector<std::string> loaderPatterns(std::string_view filter) {
  std::vector<std::string> patterns;
  filter.remove_prefix(std::min(filter.find('|') + 1, filter.size()));
  while (!filter.empty() && patterns.size() < kMostPatterns) {
    const auto end = std::min(filter.find(';'), filter.size());
    patterns.emplace_back(filter.substr(0, end));
    filter.remove_prefix(std::min(end + 1, filter.size()));
  }
  return patterns;
}

std::vector<std::string> filesToLoad(FileSystem& files, const std::string& folder,
                                     const std::vector<std::string>& patterns) {
  const std::vector<FolderEntry> entries = files.list(folder);
  std::vector<std::string> names;
  for (const std::string& pattern : patterns)
    for (const FolderEntry& entry : entries)
      if (entry.isPlainFile && !entry.name.starts_with('.') && matchesPattern(entry.name, pattern))
        names.push_back(entry.name);
  return names;
}

LoadedFiles loadFiles(OpenFiles& files, const OpenCollection& collection,
                      const CollectionKind& kind, const std::string& folder,
                      const std::vector<std::string>& names, Board& board) {
  LoadedFiles loaded{.count = collection.Count};
  try {
    RecordFile file(files, collection.currentPath, kind.recordLength, OpenMode::update);
    addFiles(file, kind, folder, names, board, loaded);
    file.close();
  } catch (const RunTimeError& error) {
    loaded.failure = error;
    // A partly written header may already count the last item.
    ignoringErrors([&] { loaded.count = CollectionStore(files, collection, kind).readCount(); });
  }
  return loaded;
}

}  // namespace quillbox
