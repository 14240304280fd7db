#include "printing/export.h"

#include <span>

#include "platform/run_time_error.h"
#include "platform/text_writer.h"
#include "records/collection_store.h"
#include "records/record_reader.h"
#include "text/padding.h"

namespace quillbox {
namespace {

/// What is written for an item.
enum class ExportedAs { linePerEntry, nothing, number };

struct ExportRules {
  EditorForm editor;
  ExportedAs items = ExportedAs::linePerEntry;
  std::span<const Field* const> fields = {};  ///< at the beginning of each line
  const Field* list = nullptr;                ///< its entries are at the end of the lines
};

constexpr const Field* kMusicStart[] = {musicField("Artist"), musicField("Album")};
constexpr const Field* kVideoStart[] = {videoField("Label")};
constexpr const Field* kSoftwareStart[] = {softwareField("DiskLabel")};
constexpr const Field* kComicStart[] = {comicField("BookTitle"), comicField("ComicTitle")};

constexpr ExportRules kRules[] = {
    {.editor = EditorForm::music, .fields = kMusicStart, .list = musicField("Songs")},
    {.editor = EditorForm::video, .fields = kVideoStart, .list = videoField("Movies")},
    {.editor = EditorForm::software, .fields = kSoftwareStart, .list = softwareField("Programs")},
    {.editor = EditorForm::comics, .fields = kComicStart, .list = comicField("Notes")},
    {.editor = EditorForm::books, .items = ExportedAs::nothing},
    {.editor = EditorForm::wave, .items = ExportedAs::number},
};

/// An entry is filled unless it begins with a zero byte; one of blanks is an empty field. Returns
/// the number of filled entries.
int writeEntries(TextWriter& file, const ExportRules& rules, std::span<const std::byte> record) {
  std::string start = "\"";
  for (const Field* field : rules.fields)
    start.append(readable(textOf(*field, record))).append("\",\"");
  int lines = 0;
  for (std::size_t entry = 0; entry < rules.list->count; ++entry) {
    const std::string_view text = textOf(*rules.list, record, entry);
    if (isUnwritten(text)) continue;
    file.write(start);
    file.write(readable(text));
    file.write("\"\r\n");
    ++lines;
  }
  return lines;
}

}  // namespace

std::optional<std::string> exportName(const CollectionKind& kind) {
  if (kind.editor == EditorForm::books) return "export.txt";
  return std::nullopt;
}

int exportCollection(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
                     const std::string& path) {
  int lines = 0;
  const ExportRules& rules = rowOf<kRules>(kind.editor);
  refuseToReplaceCollection(files, collection, path);
  TextWriter text(files, path, file_number::exportFile);
  if (collection.Count > 0) {
    RecordFile file(files, collection.currentPath, kind.recordLength, OpenMode::read);
    const std::vector<std::byte> blank = blankRecord(kind);
    RecordReader reader(file, collection.Count, recordNumberOf(1), blank);
    for (int item = 1; item <= collection.Count; ++item) {
      const auto record = reader.next();
      if (rules.items == ExportedAs::number) throw RunTimeError(ErrorNumber::typeMismatch);
      if (rules.items == ExportedAs::linePerEntry) lines += writeEntries(text, rules, record);
    }
  }
  text.close();
  return lines;
}

}  // namespace quillbox
