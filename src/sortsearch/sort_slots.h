#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "records/field.h"

namespace quillbox {

/// The items of a collection in memory, in slots numbered from 1, followed by two all-zero sentinel
/// slots. Only the records' numbers move between the slots; the records themselves stay in place.
class SortSlots {
 public:
  /// Slots for `count` items, 0 to 32765, each of `recordLength` zero bytes.
  SortSlots(int count, std::size_t recordLength);

  /// The number of slots in use; those after it are still compared and moved.
  int count() const { return count_; }

  /// The record in a slot, to be filled before anything moves.
  std::span<std::byte> record(int slot);

  /// Removes blank slots: those whose `test` field begins with a zero byte. Of adjacent ones only
  /// every second is removed, because the slot that moves up is not checked again; `count` becomes
  /// the number of slots that are not blank, wherever they are, so four adjacent blank slots lose
  /// the items at the end. Items marked as deleted stay.
  void compact(const Field& test);

  /// Exchanges neighbours whose `key` is out of order, including the first sentinel, from slot 1
  /// on, and repeats until nothing was exchanged; `onRepetition` is called at the start of each
  /// pass. Texts compare in capitals, byte by byte, with their padding; others as signed numbers.
  /// So a blank slot moves to the front, and an item after the others.
  void exchangeSort(const Field& key, const std::function<void()>& onRepetition);

 private:
  using Number = std::uint16_t;  // of a record, from 0; the last one is for both sentinels

  std::span<const std::byte> bytes(Number record) const;
  std::vector<std::uint16_t> ranks(const Field& key) const;

  std::size_t recordLength_;
  int count_;
  std::vector<std::byte> records_;
  std::vector<Number> slots_;  // slot 1 first
};

}  // namespace quillbox
