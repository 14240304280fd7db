#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "overview/columns.h"
#include "overview/item_reading.h"

namespace quillbox {

/// What is kept of a collection while all its items are shown: for each item the folded texts that
/// find-as-you-type searches, without padding, and at most 64 bytes besides (exactly 12). What a
/// list shows is read from the file.
///
/// Items are numbered from 1.
class ItemIndex {
 public:
  /// Files and collection as for ItemReading. `texts` is kept, and used while reading.
  ItemIndex(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
            RecordTexts texts);

  /// Discards everything and begins at item 1 of `count`: for another collection, or a sorted one.
  void start(int count);

  /// Items were added at the end, or there are fewer now.
  void setCount(int count);

  /// Continues until `stop` returns true or all is read; see ItemReading.
  ReadState readOn(const ItemReading::Stop& stop);

  /// One item was written or deleted: `record` is what the file now has. An item not read yet will
  /// be read later, with its contents at that time; one past the last raises the count.
  void take(int item, std::span<const std::byte> record);

  const CollectionKind& kind() const { return kind_; }
  ReadState state() const { return reading_.state(); }
  const std::optional<RunTimeError>& failure() const { return reading_.failure(); }
  int count() const { return reading_.count(); }
  int countInFile() const { return reading_.countInFile(); }

  /// Items 1 to this one have been read.
  int readItems() const { return reading_.readItems(); }

  /// The number of deleted items among them.
  int deletedItems() const { return deleted_; }

  // For an item that has been read:

  /// By its kind's marker.
  bool isDeleted(int item) const { return entry(item).deleted; }

  /// All its texts as columns show them, including list entries, without ticks: folded, separated
  /// by blanks. Valid until the index changes.
  std::string_view foldedText(int item) const {
    const Entry& at = entry(item);
    return {blocks_[at.start / kBlockBytes].get() + at.start % kBlockBytes, at.length};
  }

  /// How often a character occurs in the folded texts, approximately.
  std::uint32_t frequency(char folded) const {
    return frequencies_[static_cast<unsigned char>(folded)];
  }

  /// Bytes of folded texts, including unused space after them.
  std::size_t textBytes() const { return blocks_.size() * kBlockBytes; }

 private:
  struct Entry {
    std::uint32_t start;  // in the blocks, end to end
    std::uint16_t length;
    std::uint16_t room;  // the bytes reserved for it there
    bool deleted;
  };
  static_assert(sizeof(Entry) <= 64);

  // No item is split between blocks, and none is ever moved to make room.
  static constexpr std::size_t kBlockBytes = 1U << 20U;

  const Entry& entry(int item) const { return entries_[static_cast<std::size_t>(item - 1)]; }
  std::string_view fold(std::span<const std::byte> record);
  std::uint32_t place(std::size_t length);
  void put(Entry& entry, std::span<const std::byte> record);
  void cutTo(int count);

  const CollectionKind& kind_;
  RecordTexts texts_;
  ItemReading reading_;
  std::vector<Entry> entries_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t used_ = 0;  // in the last block
  std::vector<char> folding_;
  std::array<std::uint32_t, 256> frequencies_{};
  int deleted_ = 0;
};

}  // namespace quillbox
