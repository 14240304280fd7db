#include "fuzz/data_input.h"

#include "records/collection_store.h"

namespace quillbox::fuzz {

std::string collectionToFuzz(const CollectionKind& kind) {
  constexpr int items = 3;
  const HeaderRecord header = makeHeader(items, kind.rules.fileType);
  const auto bytes = bytesOf(header);
  std::string file(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  file.resize(kind.recordLength, '\0');
  for (int item = 1; item <= items; ++item) {
    std::vector<std::byte> record = blankRecord(kind);
    setText(kind.fields.front(), record,
            item == 2 ? kind.rules.deletion.marker : std::string_view("item"));
    file.append(reinterpret_cast<const char*>(record.data()), record.size());
  }
  return file;
}

}  // namespace quillbox::fuzz
