#include "opendata/import.h"

#include <algorithm>
#include <charconv>

#include "opendata/data_error.h"
#include "records/collection_store.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr int kMostItems = INT16_MAX;
constexpr int kMostWrong = 100;

}  // namespace

CollectionFile collectionToMake(const std::string& path) {
  const CollectionKind& kind = kindOfPath(path);
  HeaderRecord none{};
  return {path, &kind, none, 0, kind.recordLength, kind.fields, 0};
}

Import::Import(FileSystem& files, const CollectionFile& collection, const Values& values,
               const ImportOptions& options, ImportWatcher& watcher)
    : files_(files),
      collection_(collection),
      values_(values),
      options_(options),
      watcher_(watcher),
      target_(files, collection.path),
      empty_(values.emptyRecord()),
      seen_(static_cast<std::size_t>(kMostItems) + 1),
      changed_(seen_.size()),
      count_(collection.count) {
  if (options.makesNew) return;
  reader_.emplace(files, collection);
}

/// Checked when the first new row comes.
bool Import::isAnyFree() {
  for (int item = 1; item <= collection_.count; ++item)
    if (isFreePlace(*collection_.kind, reader_->read(item))) return true;
  return false;
}

void Import::wrong(const std::string& place, const std::string& why) {
  ++result_.wrong;
  watcher_.wrong(place, why);
  if (result_.wrong == kMostWrong) throw DataError("there is too much wrong to go on");
}

void Import::row(const Row& row) {
  watcher_.read(++result_.rows);
  std::optional<int> item;
  try {
    item = itemOf(row);
  } catch (const DataError& error) {
    return wrong(row.place, error.what());
  }
  if (options_.makesNew) item.reset();
  const auto before = item ? reader_->read(*item) : std::span<const std::byte>(empty_);
  record_.assign(before.begin(), before.end());
  const bool isChanged = storeCells(row, item, before);
  try {
    checkDeleted(row);
  } catch (const DataError& error) {
    return wrong(row.place, error.what());
  }
  if (!item) {
    ++result_.added;
    return add(record_);
  }
  if (!isChanged) return;
  ++result_.changed;
  changed_[static_cast<std::size_t>(*item)] = true;
  begin();
  writeItem(*item, record_);
}

/// The item with the row's number; nothing for a new one.
std::optional<int> Import::itemOf(const Row& row) {
  const std::string_view text = row.number ? withoutBlanksAround(*row.number) : std::string_view();
  if (text.empty()) return std::nullopt;
  int item = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), item);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size() || item < 1)
    throw DataError("\"" + std::string(text) + "\" is no item number");
  const int last = options_.makesNew ? kMostItems : collection_.count;
  if (item > last)
    throw DataError("there is no item " + std::to_string(item) + ", the last one is " +
                    std::to_string(last));
  const auto at = static_cast<std::size_t>(item);
  if (seen_[at]) throw DataError("item " + std::to_string(item) + " is there twice");
  seen_[at] = true;
  return item;
}

bool Import::storeCells(const Row& row, std::optional<int> item,
                        std::span<const std::byte> before) {
  StoreRules rules = options_.store;
  rules.decimalComma = row.decimalComma;
  bool isChanged = false;
  for (const Cell& cell : row.cells) {
    try {
      if (!values_.store(*cell.column, record_, cell.text, rules)) continue;
    } catch (const DataError& error) {
      wrong(row.place + ", " + cell.column->name, error.what());
      continue;
    }
    isChanged = true;
    if (item)
      watcher_.changed(*item, *cell.column, values_.text(*cell.column, before),
                       values_.text(*cell.column, record_));
  }
  return isChanged;
}

void Import::checkDeleted(const Row& row) const {
  if (row.isDeleted && *row.isDeleted != isDeleted(*collection_.kind, record_))
    throw DataError("\"deleted\" is not what the marker in " + values_.columns().front().name +
                    " says");
}

/// A row that may take a deleted place waits until all rows are known, because one of them may
/// change that place.
void Import::add(std::vector<std::byte> record) {
  if (!mayHold_) mayHold_ = !options_.makesNew && isAnyFree();
  if (*mayHold_) {
    held_.push_back(std::move(record));
    return;
  }
  if (++count_ > kMostItems)
    throw DataError("too many items: a collection has at most " + std::to_string(kMostItems));
  begin();
  watcher_.added(count_, record);
  writeItem(count_, record);
}

void Import::placeHeldRows() {
  mayHold_ = false;
  int place = 0;
  const auto nextFree = [&] {
    while (++place <= collection_.count)
      if (!changed_[static_cast<std::size_t>(place)] &&
          isFreePlace(*collection_.kind, reader_->read(place)))
        return true;
    return false;
  };
  for (std::vector<std::byte>& record : held_) {
    if (place > collection_.count || !nextFree()) {
      add(std::move(record));
      continue;
    }
    begin();
    watcher_.added(place, record);
    writeItem(place, record);
  }
  held_.clear();
}

/// Prepares the new file before the first change.
void Import::begin() {
  if (hasBegun_) return;
  hasBegun_ = true;
  if (collection_.isOfOlderType())
    throw DataError(
        "the collection is of an older file type; Quillbox upgrades it when it opens it");
  if (!collection_.isWhole())
    throw DataError("the file ends at item " + std::to_string(collection_.itemsThere()) + " of " +
                    std::to_string(collection_.count) + "; it was left alone");
  if (options_.dryRun) return;
  if (options_.makesNew) return target_.beginEmpty();
  target_.beginWithCopy();
  // The missing part of the last item is blank; a gap would be zeros.
  if (collection_.count > collection_.itemsThere()) {
    const std::vector<std::byte> blank = blankRecord(*collection_.kind);
    writeItem(collection_.count, blank);
  }
}

void Import::writeItem(int item, std::span<const std::byte> record) {
  if (options_.dryRun || result_.wrong > 0) return;
  target_.write(static_cast<std::uint64_t>(item) * collection_.recordLength, record);
}

/// As the editor does when it writes items.
void Import::writeHeader() {
  const EditingRules& rules = collection_.kind->rules;
  const bool isAdded = count_ > collection_.count;
  if (!isAdded && !rules.itemWritesRewriteTheHeader && !options_.makesNew) return;
  const HeaderRecord header = makeHeader(count_, rules.fileType);
  target_.write(0, bytesOf(header));
}

ImportResult Import::finish() {
  if (result_.wrong == 0) placeHeldRows();
  if (options_.makesNew && !hasBegun_) begin();  // a collection without items is valid
  if (result_.wrong > 0 || !target_.hasBegun()) return result_;
  writeHeader();
  result_.keptAs = target_.finish();
  return result_;
}

}  // namespace quillbox
