// Any bytes as JSON to import into a collection.

#include "fuzz/data_input.h"
#include "opendata/csv_reader.h"
#include "opendata/json_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillbox;
  fuzz::bringIn({data, size}, [](ByteSource& source, const CollectionFile& collection,
                                 const Values& values, RowSink& sink, bool isFuzzed) {
    if (isFuzzed)
      readJson(source, *collection.kind, values, sink);
    else
      readCsv(source, values, sink);
  });
  return 0;
}
