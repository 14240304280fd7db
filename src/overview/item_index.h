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

/// What is held of a collection while all its items are shown: of each item the folded texts that
/// find-as-you-type looks in, without padding, and not more than 64 bytes beside them (12, to be
/// exact). What a list shows it reads from the file.
///
/// Items are numbered from 1.
class ItemIndex {
 public:
  /// Files and collection as those of ItemReading. The texts are kept, and asked while reading.
  ItemIndex(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
            RecordTexts texts);

  /// Forgets everything and begins at item 1 of `count`: another collection, or one that was
  /// sorted.
  void start(int count);

  /// Items were added behind the last, or there are fewer now.
  void setCount(int count);

  /// Reads on until `stop` says so or all is read; see ItemReading.
  ReadState readOn(const ItemReading::Stop& stop);

  /// One item was written or deleted: `record` is what the file holds of it now. An item that was
  /// not read yet will be, and says then what it is; one behind the last raises the count.
  void take(int item, std::span<const std::byte> record);

  const CollectionKind& kind() const { return kind_; }
  ReadState state() const { return reading_.state(); }
  const std::optional<RunTimeError>& failure() const { return reading_.failure(); }
  int count() const { return reading_.count(); }
  int countInFile() const { return reading_.countInFile(); }

  /// The items 1 to this one are known.
  int readItems() const { return reading_.readItems(); }

  /// How many of them are deleted.
  int deletedItems() const { return deleted_; }

  // Of an item that was read:

  /// By the marker of its kind.
  bool isDeleted(int item) const { return entry(item).deleted; }

  /// All its texts as columns show them, list entries too, ticks not: folded, a blank between one
  /// and the next. Valid until anything of the index changes.
  std::string_view foldedText(int item) const {
    const Entry& at = entry(item);
    return {blocks_[at.start / kBlockBytes].get() + at.start % kBlockBytes, at.length};
  }

  /// How often a character occurs in the folded texts, more or less.
  std::uint32_t frequency(char folded) const {
    return frequencies_[static_cast<unsigned char>(folded)];
  }

  /// Bytes of folded texts, unused room at their ends included.
  std::size_t textBytes() const { return blocks_.size() * kBlockBytes; }

 private:
  struct Entry {
    std::uint32_t start;  // in the blocks, end to end
    std::uint16_t length;
    std::uint16_t room;  // bytes that are its own there
    bool deleted;
  };
  static_assert(sizeof(Entry) <= 64);

  // No item lies in two blocks, and none is ever moved to make room.
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
  std::size_t used_ = 0;  // of the last block
  std::vector<char> folding_;
  std::array<std::uint32_t, 256> frequencies_{};
  int deleted_ = 0;
};

}  // namespace quillbox
