#include "fuzz/sorting.h"

#include <algorithm>
#include <cstring>

#include "fuzz/collection_input.h"
#include "platform/paths.h"
#include "records/header_record.h"
#include "sortsearch/sort_engine.h"
#include "text/windows1252.h"

namespace quillbox::fuzz {
namespace {

enum class Outcome { sorted, failed, programEnded };

Outcome sortByEveryKey(AppState& state, const CollectionKind& kind) {
  const std::vector<bool> ticked(sortRulesOf(kind).keys.size(), true);
  NoBoard board;
  try {
    state.Count = sortCollection(state.files, state, kind, ticked, board);
  } catch (const RunTimeError&) {
    return Outcome::failed;
  } catch (const ProgramEnd&) {
    return Outcome::programEnded;
  }
  finishSort(state.files, state, kind);
  state.files.closeAll();
  return Outcome::sorted;
}

/// Sorting drops blank items, and some others with them: the tests of its model cover that, not
/// random input.
bool hasBlankItem(const std::vector<std::string>& items) {
  return std::ranges::any_of(items, [](const std::string& item) { return item.front() == '\0'; });
}

/// Nothing is new, and nothing is duplicated.
bool isPartOf(std::vector<std::string> some, std::vector<std::string> all) {
  std::ranges::sort(some);
  std::ranges::sort(all);
  return std::ranges::includes(all, some);
}

std::string firstKeyOf(const CollectionKind& kind, const std::string& item) {
  const Field& key = *sortRulesOf(kind).keys.front().field;
  return inCapitals(textOf(key, std::as_bytes(std::span(item))));
}

void requireSorted(const CollectionKind& kind, const std::vector<std::string>& before,
                   const std::vector<std::string>& after) {
  require(isPartOf(after, before), "sorting makes no items");
  if (hasBlankItem(before)) return;
  require(after.size() == before.size(), "sorting loses no item");
  for (std::size_t i = 1; i < after.size(); ++i)
    require(firstKeyOf(kind, after[i - 1]) <= firstKeyOf(kind, after[i]), "items are in order");
}

}  // namespace

void sortAndRequireEveryItem(AppState& state, MemoryFiles& files, const CollectionKind& kind) {
  const std::string backup = backupPath(state.currentPath, "bak");
  const std::string before = files.bytes(state.currentPath);
  const std::int16_t count = state.Count;
  const Outcome outcome = sortByEveryKey(state, kind);
  const auto holdsAll = [&](const std::string& path) {
    return files.exists(path) && files.bytes(path) == before;
  };
  if (outcome != Outcome::sorted) {
    require(holdsAll(backup) != holdsAll(state.currentPath), "one file is as it was");
    require(files.exists(backup) != files.exists(state.currentPath), "and the only one");
    require(state.Count == count, "the count is left alone");
    // The user restores its name.
    if (files.exists(backup)) files.rename(backup, state.currentPath);
    return;
  }
  require(!files.exists(backup), "no backup stays");
  auto items = wholeItems(before, kind.recordLength, count);
  const std::size_t end = (items.size() + 1) * kind.recordLength;
  const bool lacksTheLast =
      items.size() + 1 == static_cast<std::size_t>(count) && before.size() <= end;
  if (lacksTheLast) {  // it is blank then
    const auto blank = blankRecord(kind);
    items.emplace_back(reinterpret_cast<const char*>(blank.data()), blank.size());
  }
  require(items.size() == static_cast<std::size_t>(count), "only whole items are sorted");
  const std::string& after = files.bytes(state.currentPath);
  const auto sorted = wholeItems(after, kind.recordLength, state.Count);
  require(sorted.size() == static_cast<std::size_t>(state.Count), "the file holds its items");
  HeaderRecord header{};
  std::memcpy(&header, after.data(), sizeof header);
  require(header.Count == state.Count, "the header counts them");
  requireSorted(kind, items, sorted);
}

}  // namespace quillbox::fuzz
