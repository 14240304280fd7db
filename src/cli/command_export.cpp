#include "cli/commands.h"
#include "cli/opened.h"
#include "opendata/data_error.h"
#include "opendata/export_text.h"
#include "opendata/html_export.h"
#include "opendata/sqlite_export.h"
#include "platform/file_paths.h"
#include "platform/paths.h"
#include "platform/run_time_error.h"
#include "platform/text_writer.h"

namespace quillbox {
namespace {

/// A text file that replaces whatever was there.
class FileSink : public TextSink {
 public:
  FileSink(OpenFiles& files, const std::string& path)
      : writer_(files, path, file_number::exportFile) {}
  void write(std::string_view text) override { writer_.write(text); }
  void close() { writer_.close(); }

 private:
  TextWriter writer_;
};

void exportAs(const ExportOptions& options, const Opened& opened, const Export& from,
              TextSink& to) {
  if (options.format == "json") return exportJson(from, to);
  if (options.format == "html")
    return exportHtml(from, std::string(fileNameOf(options.file)), opened.texts(kIsoDates), to);
  exportCsv(from, to, options.forSpreadsheet ? CsvFor::spreadsheets : CsvFor::programs);
}

/// An export must never overwrite a collection.
void refuseToReplaceCollections(FileSystem& files, const ExportOptions& options) {
  if (files.isSameFile(options.output, options.file))
    throw RunTimeError(ErrorNumber::fileAlreadyOpen, options.output);
  // Where links lead as well.
  for (const std::string& name : {options.output, fileBehind(files, options.output)})
    if (kindOfExtension(extensionOf(name)) != nullptr)
      throw DataError(name + " is the name of a collection; nothing is written there");
}

/// Reports what was missing from a file that is too short.
int endOf(Console& console, const ExportOptions& options, const Export& from) {
  if (from.collection.isWhole()) return kDone;
  console.complain(options.file, "the file ends at item " + std::to_string(from.items()) + " of " +
                                     std::to_string(from.collection.count) +
                                     "; what is there is exported");
  return kFoundOrRefused;
}

}  // namespace

int runExport(Console& console, const ExportOptions& options) {
  return console.guarded(options.file, [&]() -> int {
    const Opened opened(console, options.file);
    const CollectionFile& collection = opened.collection();
    const Export from{console.disk(), collection, opened.values(),
                      console.progressOf(options.file)};
    if (options.output.empty()) {
      exportAs(options, opened, from, console.out());
    } else {
      refuseToReplaceCollections(console.disk(), options);
      if (options.format == "sqlite") {
        exportSqlite(from, options.output);
        return endOf(console, options, from);
      }
      FileSink sink(console.files(), options.output);
      exportAs(options, opened, from, sink);
      sink.close();
    }
    return endOf(console, options, from);
  });
}

}  // namespace quillbox
