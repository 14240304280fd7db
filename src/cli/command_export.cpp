#include "cli/commands.h"
#include "opendata/data_error.h"
#include "opendata/export_text.h"
#include "platform/paths.h"
#include "platform/run_time_error.h"
#include "platform/text_writer.h"

namespace quillbox {
namespace {

/// A text file that takes the place of what was there.
class FileSink : public TextSink {
 public:
  FileSink(OpenFiles& files, const std::string& path)
      : writer_(files, path, file_number::exportFile) {}
  void write(std::string_view text) override { writer_.write(text); }
  void close() { writer_.close(); }

 private:
  TextWriter writer_;
};

void exportAs(const ExportOptions& options, const Export& from, TextSink& to) {
  if (options.format == "json") return exportJson(from, to);
  exportCsv(from, to, options.forSpreadsheet ? CsvFor::spreadsheets : CsvFor::programs);
}

/// What is made from a collection must never cost one.
void refuseToReplaceCollections(FileSystem& files, const ExportOptions& options) {
  if (files.isSameFile(options.output, options.file))
    throw RunTimeError(ErrorNumber::fileAlreadyOpen, options.output);
  if (kindOfExtension(extensionOf(options.output)) != nullptr)
    throw DataError(options.output + " is the name of a collection; nothing is written there");
}

}  // namespace

int runExport(Console& console, const ExportOptions& options) {
  return console.guarded(options.file, [&]() -> int {
    const CollectionFile collection = readCollectionFile(console.disk(), options.file);
    const std::vector<std::string> mediaTypes = ownMediaTypes(console, *collection.kind);
    const Values values(collection, mediaTypes);
    const Export from{console.disk(), collection, values, console.progressOf(options.file)};
    if (options.output.empty()) {
      exportAs(options, from, console.out());
    } else {
      refuseToReplaceCollections(console.disk(), options);
      FileSink sink(console.files(), options.output);
      exportAs(options, from, sink);
      sink.close();
    }
    if (collection.isWhole()) return kDone;
    console.complain(options.file, "the file ends at item " + std::to_string(from.items()) +
                                       " of " + std::to_string(collection.count) +
                                       "; what is there is exported");
    return kFoundOrRefused;
  });
}

}  // namespace quillbox
