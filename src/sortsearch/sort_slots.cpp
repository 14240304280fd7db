#include "sortsearch/sort_slots.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <string_view>

#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

constexpr int kSentinels = 2;
constexpr unsigned kBitsOfASlot = 16;

/// Less, equal or greater than 0.
int compareKeys(const Field& key, std::span<const std::byte> a, std::span<const std::byte> b) {
  if (key.type != FieldType::text) return wholeOf(key, a) - wholeOf(key, b);
  const std::string_view textA = textOf(key, a);
  const std::string_view textB = textOf(key, b);
  for (std::size_t i = 0; i < textA.size(); ++i) {
    const auto byteA = static_cast<unsigned char>(capitalOf(textA[i]));
    const auto byteB = static_cast<unsigned char>(capitalOf(textB[i]));
    if (byteA != byteB) return byteA - byteB;
  }
  return 0;
}

/// One pass over the unsorted part. A key is its slot's rank and, so that no two are equal and
/// equal ones keep their order, the original slot. Returns where the last exchange was, or 0: from
/// there on everything is in its final place.
std::size_t exchangeNeighbours(std::span<std::uint32_t> keys) {
  std::size_t last = 0;
  std::uint32_t carried = keys.front();  // the greatest so far, moving up
  for (std::size_t i = 1; i < keys.size(); ++i) {
    const std::uint32_t next = keys[i];
    const bool exchange = carried > next;
    last = exchange ? i : last;  // selected, not branched to: nothing to mispredict
    keys[i - 1] = exchange ? next : carried;
    carried = exchange ? carried : next;
  }
  keys.back() = carried;
  return last;
}

}  // namespace

SortSlots::SortSlots(int count, std::size_t recordLength)
    : recordLength_(recordLength),
      count_(count),
      records_(static_cast<std::size_t>(count + 1) * recordLength),
      slots_(static_cast<std::size_t>(count + kSentinels), static_cast<Number>(count)) {
  assert(count >= 0 && count <= INT16_MAX - kSentinels);
  std::iota(slots_.begin(), slots_.end() - kSentinels, Number{0});
}

std::span<std::byte> SortSlots::record(int slot) {
  const Number number = slots_.at(static_cast<std::size_t>(slot - 1));
  return std::span(records_).subspan(number * recordLength_, recordLength_);
}

std::span<const std::byte> SortSlots::bytes(Number record) const {
  return std::span(records_).subspan(record * recordLength_, recordLength_);
}

void SortSlots::compact(const Field& test) {
  const auto isBlank = [&](Number record) { return isUnwritten(textOf(test, bytes(record))); };
  const auto end = slots_.begin() + count_;
  for (auto slot = slots_.begin(); slot < end; ++slot)
    if (isBlank(*slot)) std::copy(slot + 1, end + 1, slot);
  count_ = static_cast<int>(std::count_if(slots_.begin(), end, std::not_fn(isBlank)));
}

void SortSlots::exchangeSort(const Field& key, const std::function<void()>& onRepetition) {
  std::vector<std::uint32_t> keys(static_cast<std::size_t>(count_) + 1);
  const std::vector<std::uint16_t> rank = ranks(key);
  for (std::uint32_t slot = 0; slot < keys.size(); ++slot)
    keys[slot] = (std::uint32_t{rank[slot]} << kBitsOfASlot) | slot;
  std::size_t unsorted = keys.size();
  do {
    onRepetition();
    unsorted = exchangeNeighbours(std::span(keys).first(unsorted));
  } while (unsorted > 0);

  const std::vector<Number> before = slots_;
  for (std::size_t slot = 0; slot < keys.size(); ++slot)
    slots_[slot] = before[keys[slot] & ((1U << kBitsOfASlot) - 1)];
}

/// The rank of each slot's key among all keys, including the sentinel's; equal keys have equal
/// ranks. A comparison then is one of two numbers.
std::vector<std::uint16_t> SortSlots::ranks(const Field& key) const {
  const auto compare = [&](std::uint16_t a, std::uint16_t b) {
    return compareKeys(key, bytes(slots_[a]), bytes(slots_[b]));
  };
  std::vector<std::uint16_t> inOrder(static_cast<std::size_t>(count_) + 1);
  std::iota(inOrder.begin(), inOrder.end(), std::uint16_t{0});
  std::ranges::sort(inOrder, [&](auto a, auto b) { return compare(a, b) < 0; });

  std::vector<std::uint16_t> rank(inOrder.size());
  std::uint16_t current = 0;
  for (std::size_t i = 0; i < inOrder.size(); ++i) {
    if (i > 0 && compare(inOrder[i - 1], inOrder[i]) != 0) ++current;
    rank[inOrder[i]] = current;
  }
  return rank;
}

}  // namespace quillbox
