#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "records/field.h"

namespace quillbox {

/// The items of a collection in memory, in slots numbered from 1, with two all-zero sentinel slots
/// behind them. What moves between the slots is the records' numbers; the records themselves stay
/// where they were read to.
class SortSlots {
 public:
  /// Slots for `count` items, 0 to 32765, each of `recordLength` zero bytes.
  SortSlots(int count, std::size_t recordLength);

  /// How many slots count; those behind it are still compared and moved.
  int count() const { return count_; }

  /// The record in a slot. It is filled before anything is moved.
  std::span<std::byte> record(int slot);

  /// Takes blank slots out: those whose `test` field begins with a zero byte. Of adjacent ones only
  /// every second goes, because the slot that moves up is not looked at again; `count` becomes the
  /// number of slots that are not blank, wherever they lie, so that four adjacent blank slots cost
  /// the items at the end. Items marked as deleted stay.
  void compact(const Field& test);

  /// Exchanges neighbours whose `key` is out of order, the first sentinel included, from slot 1 on
  /// and again and again until nothing was exchanged; `onRepetition` is called at the start of each
  /// repetition. Texts compare in capitals, byte by byte, with their padding; others as signed
  /// numbers. A blank slot thus travels to the front, and an item behind the others.
  void exchangeSort(const Field& key, const std::function<void()>& onRepetition);

 private:
  using Number = std::uint16_t;  // of a record, from 0; the last is the sentinels'

  std::span<const std::byte> bytes(Number record) const;
  std::vector<std::uint16_t> ranks(const Field& key) const;

  std::size_t recordLength_;
  int count_;
  std::vector<std::byte> records_;
  std::vector<Number> slots_;  // slot 1 first
};

}  // namespace quillbox
