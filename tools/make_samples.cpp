// Creates a sample collection from its readable source: make_samples SOURCE COLLECTION
//
// If the source is a folder, its files are loaded as by the folder loader, in the order of their
// names. Otherwise:
//
// The source is UTF-8: "#" starts a comment line, an empty line ends an item, "Field: value" names
// a field of the record, and a line "- value" is the next entry of the last list named. Fields left
// out are blank. A choice is the entry's text, or -1.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "editors/media_loader.h"
#include "platform/checked16.h"
#include "platform/disk_file_system.h"
#include "platform/paths.h"
#include "records/collection_store.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/windows1252.h"

namespace {

using namespace quillbox;

using Item = std::vector<std::byte>;

std::int16_t choiceOf(const Field& field, const std::string& value) {
  const auto found = std::ranges::find(field.choices, value);
  if (found != field.choices.end())
    return checked16(static_cast<int>(found - field.choices.begin()));
  return wholeNumber(value);
}

void setField(const Field& field, Item& item, const std::string& utf8, std::size_t entry) {
  const std::string value = fromUtf8(utf8);
  if (value.size() > field.width && field.type == FieldType::text)
    throw std::runtime_error("longer than its field: " + utf8);
  if (entry >= field.count) throw std::runtime_error("one entry too many: " + utf8);
  switch (field.type) {
    case FieldType::text:
      return setText(field, item, value, entry);
    case FieldType::flag:
      return setWhole(field, item, wholeNumber(value));
    case FieldType::choice:
      return setWhole(field, item, choiceOf(field, value));
    case FieldType::money:
      return setMoney(field, item, leadingAmount(value));
    case FieldType::whole:
      return setWhole(field, item, leadingWhole(value));
    case FieldType::date:
      return setReal(field, item, dateOf(value, "yyyy-MM-dd"));
    case FieldType::size:
      return setReal(field, item, static_cast<double>(leadingWhole(value)));
  }
}

class SourceReader {
 public:
  explicit SourceReader(const CollectionKind& kind) : kind_(kind) {}

  std::vector<Item> read(std::istream& source) {
    for (std::string line; std::getline(source, line);) takeLine(line);
    endItem();
    return std::move(items_);
  }

 private:
  void takeLine(const std::string& line) {
    if (line.starts_with('#')) return;
    if (line.empty()) return endItem();
    if (line.starts_with("- ")) return setField(*field_, item_, line.substr(2), entry_++);
    const auto colon = line.find(':');
    const auto named = std::ranges::find(kind_.fields, line.substr(0, colon), &Field::name);
    if (colon == std::string::npos || named == kind_.fields.end())
      throw std::runtime_error("no field of that name: " + line);
    if (item_.empty()) {
      item_.resize(kind_.recordLength);
      fillBlank(kind_.fields, item_);
    }
    field_ = &*named;
    entry_ = 0;
    if (colon + 2 < line.size()) setField(*field_, item_, line.substr(colon + 2), entry_++);
  }

  void endItem() {
    if (!item_.empty()) items_.push_back(std::move(item_));
    item_.clear();
  }

  const CollectionKind& kind_;
  std::vector<Item> items_;
  Item item_;  // empty between two items
  const Field* field_ = nullptr;
  std::size_t entry_ = 0;
};

void loadFolder(AppState& state, const CollectionKind& kind, const std::string& folder) {
  const LoaderRow& loader = loaderRow(kind.mediaCode);
  auto names = filesToLoad(state.files.fileSystem(), folder, loaderPatterns(loader.filter));
  std::ranges::sort(names);
  NoBoard board;
  loadFiles(state.files, state, kind, folder, names, board);
}

void makeSample(const std::string& sourcePath, const std::string& collectionPath) {
  const CollectionKind* kind = kindOfExtension(extensionOf(collectionPath));
  const bool isFolder = std::filesystem::is_directory(sourcePath);
  std::ifstream source(sourcePath);
  if (kind == nullptr || !(isFolder || source))
    throw std::runtime_error("cannot make it from " + sourcePath);
  const std::vector<Item> items = isFolder ? std::vector<Item>() : SourceReader(*kind).read(source);

  DiskFileSystem files;
  if (files.exists(collectionPath)) files.remove(collectionPath);
  AppState state(files);
  state.currentPath = collectionPath;
  CollectionStore store(state.files, state, *kind);
  store.WriteHeader(0, kind->rules.fileType, OpenMode::create);
  std::optional<std::int16_t> slot;
  for (const Item& item : items) state.Count = store.writeNewItem(slot, item).count;
  if (isFolder) loadFolder(state, *kind, sourcePath);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("Usage: make_samples SOURCE COLLECTION\n", stderr);
    return 2;
  }
  try {
    makeSample(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", argv[2], error.what());
    return 1;
  }
  return 0;
}
