#include "overview/item_index.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "text/folding.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr char kBetweenTexts = ' ';  // never part of a word
constexpr std::size_t kLongest = UINT16_MAX;

/// Frequencies are counted in one of so many items: a rough figure is enough.
constexpr std::size_t kCountedStep = 8;

}  // namespace

ItemIndex::ItemIndex(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
                     RecordTexts texts)
    : kind_(kind), texts_(std::move(texts)), reading_(files, collection, kind) {}

void ItemIndex::start(int count) {
  entries_.clear();
  blocks_.clear();
  used_ = 0;
  frequencies_.fill(0);
  deleted_ = 0;
  reading_.start(count);
}

void ItemIndex::setCount(int count) {
  reading_.setCount(count);
  cutTo(reading_.readItems());
}

void ItemIndex::cutTo(int count) {
  for (; static_cast<int>(entries_.size()) > count; entries_.pop_back())
    if (entries_.back().deleted) --deleted_;
}

ReadState ItemIndex::readOn(const ItemReading::Stop& stop) {
  return reading_.readOn(
      [this](int, std::span<const std::byte> record) { put(entries_.emplace_back(), record); },
      stop);
}

void ItemIndex::take(int item, std::span<const std::byte> record) {
  if (item > reading_.count()) reading_.setCount(item);
  if (item <= reading_.readItems()) {
    put(entries_[static_cast<std::size_t>(item - 1)], record);
  } else if (item == reading_.readItems() + 1) {
    put(entries_.emplace_back(), record);
    reading_.skip();
  }
}

void ItemIndex::put(Entry& entry, std::span<const std::byte> record) {
  const std::string_view text = fold(record);
  if (text.size() > entry.room) {
    entry.start = place(text.size());
    entry.room = static_cast<std::uint16_t>(text.size());
  }
  entry.length = static_cast<std::uint16_t>(text.size());
  std::copy(text.begin(), text.end(),
            blocks_[entry.start / kBlockBytes].get() + entry.start % kBlockBytes);
  const bool wasDeleted = std::exchange(entry.deleted, quillbox::isDeleted(kind_, record));
  deleted_ += static_cast<int>(entry.deleted) - static_cast<int>(wasDeleted);
  if (entries_.size() % kCountedStep == 1)
    for (const char c : text) ++frequencies_[static_cast<unsigned char>(c)];
}

std::uint32_t ItemIndex::place(std::size_t length) {
  if (blocks_.empty() || used_ + length > kBlockBytes) {
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlockBytes));
    used_ = 0;
  }
  const std::size_t start = (blocks_.size() - 1) * kBlockBytes + used_;
  used_ += length;
  return static_cast<std::uint32_t>(start);
}

/// The folded texts of a record, valid until the next call.
std::string_view ItemIndex::fold(std::span<const std::byte> record) {
  std::size_t length = 0;
  const auto add = [&](std::string_view text) {
    if (text.empty()) return;
    const std::size_t most = length + 1 + kMostFolded * text.size();
    if (folding_.size() < most) folding_.resize(most);
    if (length > 0) folding_[length++] = kBetweenTexts;
    length = static_cast<std::size_t>(foldInto(folding_.data() + length, text) - folding_.data());
  };
  for (const Column& column : columnsOf(kind_)) {
    const Field& field = *column.field;
    if (column.kind == ColumnKind::tick) continue;
    if (field.type == FieldType::text)
      for (std::size_t entry = 0; entry < field.count; ++entry)
        add(readable(textOf(field, record, entry)));
    else
      add(columnText(column, record, texts_));
  }
  return {folding_.data(), std::min(length, kLongest)};
}

}  // namespace quillbox
