// Any bytes as comma-separated values to import into a collection.

#include <vector>

#include "fuzz/data_input.h"
#include "opendata/csv_reader.h"
#include "opendata/csv_text.h"

namespace quillbox::fuzz {
namespace {

using Records = std::vector<std::vector<std::string>>;

Records recordsOf(const std::string& text, std::size_t atOnce) {
  test::TextSource source(text, atOnce);
  CsvReader reader(source);
  Records records;
  std::vector<std::string_view> fields;
  while (reader.next(fields)) records.emplace_back(fields.begin(), fields.end());
  return records;
}

/// The records do not depend on the pieces they come in; written and read again they are the same.
void readRecords(const std::string& text) {
  constexpr std::size_t all = 1'000'000;
  constexpr std::size_t some = 7;
  try {
    const Records records = recordsOf(text, all);
    require(recordsOf(text, some) == records, "pieces make no difference");
    // The separator is given, because the first record may have none.
    std::string written = "sep=,\n";
    for (const auto& record : records) {
      for (std::size_t i = 0; i < record.size(); ++i) {
        if (i > 0) written += ',';
        appendCsvField(written, record[i]);
      }
      written += "\r\n";
    }
    Records kept = records;
    std::erase_if(kept, [](const auto& record) { return record.size() == 1 && record[0].empty(); });
    require(recordsOf(written, all) == kept, "records are read as they were written");
  } catch (const DataError&) {
    // Not comma-separated values.
  }
}

}  // namespace
}  // namespace quillbox::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillbox;
  fuzz::readRecords(std::string(reinterpret_cast<const char*>(data), size));
  fuzz::bringIn({data, size},
                [](ByteSource& source, const CollectionFile& /*collection*/, const Values& values,
                   RowSink& sink, bool /*isFuzzed*/) { readCsv(source, values, sink); });
  return 0;
}
