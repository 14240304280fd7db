#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "opendata/csv_reader.h"
#include "opendata/data_error.h"
#include "opendata/import.h"
#include "opendata/streams.h"

namespace quillbox::test {

/// The data error of a call; "nothing" when there is none.
template <typename Call>
std::string dataErrorOf(const Call& call) {
  try {
    call();
  } catch (const DataError& error) {
    return error.what();
  }
  return "nothing";
}

/// A source for a text that returns a given number of bytes at a time.
class TextSource : public ByteSource {
 public:
  explicit TextSource(std::string text, std::size_t atOnce = 1'000'000)
      : text_(std::move(text)), atOnce_(atOnce) {}

  std::size_t read(std::span<char> into) override {
    const std::size_t taken = text_.copy(into.data(), std::min(into.size(), atOnce_), at_);
    at_ += taken;
    return taken;
  }

 private:
  std::string text_;
  std::size_t atOnce_;
  std::size_t at_ = 0;
};

/// A sink that keeps what is written.
class KeptText : public TextSink {
 public:
  void write(std::string_view text) override { kept.append(text); }
  std::string kept;
};

/// Records what an import reports.
class ToldChanges : public ImportWatcher {
 public:
  std::vector<std::string> told;
  int wrongs = 0;

  void changed(int item, const DataColumn& column, const std::string& before,
               const std::string& after) override {
    told.push_back(std::to_string(item) + " " + column.name + ": " + before + " > " + after);
  }
  void added(int item, std::span<const std::byte> /*record*/) override {
    told.push_back(std::to_string(item) + " added");
  }
  void wrong(const std::string& place, const std::string& why) override {
    told.push_back(place + ": " + why);
    ++wrongs;
  }
};

/// Imports a CSV text into the collection at `path`.
inline ImportResult importCsv(FileSystem& files, const std::string& path, const std::string& csv,
                              const ImportOptions& options, ImportWatcher& watcher) {
  const CollectionFile collection =
      options.makesNew ? collectionToMake(path) : readCollectionFile(files, path);
  const Values values(collection);
  Import import(files, collection, values, options, watcher);
  TextSource source(csv);
  readCsv(source, values, import);
  return import.finish();
}

}  // namespace quillbox::test
