#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "fuzz/input.h"
#include "opendata/data_error.h"
#include "opendata/export_text.h"
#include "opendata/import.h"
#include "records/kinds.h"
#include "support/memory_files.h"
#include "support/opendata_support.h"

namespace quillbox::fuzz {

inline constexpr const char* kFuzzedPath = "/collection";

/// A small collection of that kind, with one deleted item.
std::string collectionToFuzz(const CollectionKind& kind);

/// Imports the data into the collection with `read`. If it is refused, the collection must be
/// unchanged; otherwise it must be whole, importing its export must change nothing, and so must
/// importing the data again if all its rows have numbers.
template <typename Read>
void bringIn(Input input, const Read& read) {
  const auto kinds = collectionKinds();
  const CollectionKind& kind = kinds[input.byte() % kinds.size()];
  const std::string path = std::string(kFuzzedPath) + "." + std::string(kind.extension);
  const std::string data(input.rest());
  test::MemoryFiles files;
  const std::string before = collectionToFuzz(kind);
  files.put(path, before);

  const auto once = [&](const std::string& text, bool isJson) -> std::optional<ImportResult> {
    const CollectionFile collection = readCollectionFile(files, path);
    const Values values(collection);
    test::ToldChanges watcher;
    const std::string now = files.bytes(path);
    try {
      Import import(files, collection, values, {}, watcher);
      test::TextSource source(text);
      read(source, collection, values, import, isJson);
      const ImportResult result = import.finish();
      require((result.wrong > 0) == (watcher.wrongs > 0), "what is wrong is told");
      const bool isWritten = result.wrong == 0 && result.changed + result.added > 0;
      require(isWritten || files.bytes(path) == now, "what changes nothing writes nothing");
      return result;
    } catch (const DataError&) {
      require(files.bytes(path) == now, "what is refused writes nothing");
      return {};
    }
  };
  const auto result = once(data, true);
  require(!files.exists(unfinishedName(path)), "nothing unfinished is left");
  if (!result || result->wrong > 0) return;
  const CollectionFile collection = readCollectionFile(files, path);
  require(collection.endsExactly(), "the collection is whole");
  if (result->added == 0) require(once(data, true)->changed == 0, "the same again is nothing");

  const Values values(collection);
  test::KeptText csv;
  exportCsv({files, collection, values}, csv, CsvFor::spreadsheets);
  const auto back = once(csv.kept, false);
  require(back && back->wrong + back->changed + back->added == 0,
          "an export comes back as nothing");
}

}  // namespace quillbox::fuzz
