#include "opendata/undelete.h"

#include <algorithm>
#include <string>

#include "opendata/data_error.h"
#include "platform/checked16.h"
#include "records/collection_store.h"
#include "text/padding.h"

namespace quillbox {

bool undeleteItem(OpenFiles& files, const CollectionFile& collection, const Values& values,
                  int item, std::string_view text, const StoreRules& rules) {
  if (collection.isOfOlderType())
    throw DataError(
        "the collection is of an older file type; Quillbox upgrades it when it opens it");
  if (item < 1 || item > collection.count)
    throw DataError("there is no item " + std::to_string(item) + ", the last one is " +
                    std::to_string(collection.count));
  OpenCollection open;
  open.currentPath = collection.path;
  open.Count = checked16(collection.count);
  CollectionStore store(files, open, *collection.kind);
  std::vector<std::byte> record = store.ReadRecord(item);
  if (!isDeleted(*collection.kind, record))
    throw DataError("item " + std::to_string(item) + " is not deleted");
  if (withoutBlanksAround(text).empty()) throw DataError("the text is empty");
  values.store(values.columns().front(), record, text, rules);
  if (isDeleted(*collection.kind, record)) throw DataError("the text is the deleted marker");
  store.WriteRecord(item, record, collection.count);
  const auto rest = std::span(record).subspan(collection.kind->fields.front().width);
  return std::ranges::any_of(rest, [](std::byte byte) { return byte != std::byte{0}; });
}

}  // namespace quillbox
