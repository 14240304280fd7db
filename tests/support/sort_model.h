#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/board.h"
#include "platform/run_time_error.h"
#include "records/app_state.h"
#include "sortsearch/sort_engine.h"
#include "support/failing_files.h"
#include "support/model_kinds.h"
#include "support/recording_board.h"
#include "support/test_folder.h"

namespace quillbox::test {

/// The bytes of an item with these keys, numbers in decimal; every other byte is `filler`.
inline std::string sortItem(const ModelKind& kind, const std::vector<std::string>& keys,
                            char filler = '.') {
  std::string item(kind.recordLength, filler);
  for (std::size_t key = 0; key < keys.size(); ++key) {
    const KeyPlace& place = kind.keys[key];
    std::string value = place.isNumber() ? wholeBytes(std::stoi(keys[key])) : keys[key];
    value.resize(place.width, ' ');
    item.replace(place.offset, place.width, value);
  }
  return item;
}

/// An item with that first key, otherwise like all others.
inline std::string named(const ModelKind& kind, const std::string& first, char filler) {
  std::vector<std::string> keys(kind.keys.size(), "5");
  keys.front() = first;
  return sortItem(kind, keys, filler);
}

/// The filler of each item, which identifies it.
inline std::string fillersOf(const ModelKind& kind, std::string_view collection) {
  std::string fillers;
  for (std::size_t end = 2 * kind.recordLength; end <= collection.size(); end += kind.recordLength)
    fillers += collection[end - 1];
  return fillers;
}

/// The parts of a header besides `Count`.
struct SortHeader {
  int fileType = 1;
  std::string_view version = "1.71    ";
};

/// The bytes of a collection as a sort writes it.
inline std::string sortFile(const ModelKind& kind, const std::vector<std::string>& items,
                            const SortHeader& header = {}) {
  std::string bytes = wholeBytes(static_cast<int>(items.size())) + wholeBytes(header.fileType);
  bytes.append(header.version);
  if (!items.empty()) bytes.resize(kind.recordLength);
  for (const std::string& item : items) bytes += item;
  return bytes;
}

/// The sort step by step, on whole records in slots from 1. Slow, and the reference for the real
/// one.
class SortModel {
 public:
  SortModel(const ModelKind& kind, const std::vector<std::string>& items)
      : count(static_cast<int>(items.size())),
        kind_(kind),
        slots_(items.size() + 3, std::string(kind.recordLength, '\0')) {
    std::ranges::copy(items, slots_.begin() + 1);
  }

  void compact() {
    for (int i = 1; i <= count; ++i) {
      if (!isBlank(i)) continue;
      for (int j = i; j <= count; ++j) slot(j) = slot(j + 1);
    }
    const int bound = count;
    count = 0;
    for (int i = 1; i <= bound; ++i)
      if (!isBlank(i)) ++count;
  }

  /// The passes for one key.
  void passes(const KeyPlace& key) {
    bool swapped = true;
    while (swapped) {
      told.push_back(std::string("caption: ") + key.passCaption);
      told.push_back("line: Sorting " + std::to_string(count) + ". Please wait...");
      swapped = false;
      for (int i = 1; i <= count; ++i) {
        if (!isGreater(key, slot(i), slot(i + 1))) continue;
        std::swap(slot(i), slot(i + 1));
        swapped = true;
      }
    }
  }

  /// From reading to the last slot, as for a kind that does not end the program.
  void run(const std::vector<bool>& ticked) {
    read();
    compact();
    for (std::size_t key = kind_.keys.size(); key-- > 0;) passesIf(ticked, key);
    compact();
    told.emplace_back("caption: Writing File...");
  }

  /// The same as far as books get.
  void runToTheEndOfTheProgram(const std::vector<bool>& ticked) {
    read();
    compact();
    for (const std::size_t key : {3U, 2U, 1U}) passesIf(ticked, key);
  }

  /// The records that count, in the order in which they are written.
  std::vector<std::string> items() const {
    return {slots_.begin() + 1, slots_.begin() + 1 + count};
  }

  int count;
  std::vector<std::string> told;  ///< to the board, between opening and closing

 private:
  std::string& slot(int number) { return slots_.at(static_cast<std::size_t>(number)); }
  bool isBlank(int number) { return slot(number).front() == '\0'; }

  void read() {
    for (int item = 1; item <= count; ++item)
      told.push_back("line: Reading " + std::to_string(item) + " of " + std::to_string(count) +
                     "...");
  }

  void passesIf(const std::vector<bool>& ticked, std::size_t key) {
    if (kind_.alwaysSorted || ticked.at(key)) passes(kind_.keys[key]);
  }

  static int capital(char character) {
    const int code = static_cast<unsigned char>(character);
    if (code >= 'a' && code <= 'z') return code - 0x20;
    if (code == 0x9A || code == 0x9C || code == 0x9E) return code - 0x10;
    if (code == 0xFF) return 0x9F;
    if (code >= 0xE0 && code != 0xF7) return code - 0x20;
    return code;
  }

  static int number(const std::string& record, std::size_t offset) {
    const int bits = static_cast<unsigned char>(record[offset]) +
                     256 * static_cast<unsigned char>(record[offset + 1]);
    return bits < 32768 ? bits : bits - 65536;
  }

  static bool isGreater(const KeyPlace& key, const std::string& a, const std::string& b) {
    if (key.isNumber()) return number(a, key.offset) > number(b, key.offset);
    for (std::size_t at = key.offset; at < key.offset + key.width; ++at)
      if (capital(a[at]) != capital(b[at])) return capital(a[at]) > capital(b[at]);
    return false;
  }

  const ModelKind& kind_;
  std::vector<std::string> slots_;  // the first one is not used
};

/// A collection on disk, its sort, and the result.
class SortFixture {
 protected:
  /// Creates the collection and no backup. The header record is completely filled.
  void put(const ModelKind& kind, const std::vector<std::string>& items,
           const SortHeader& header = {}) {
    kind_ = &kind;
    std::string bytes = sortFile(kind, items, header);
    bytes.resize(std::max(bytes.size(), kind.recordLength));
    std::fill(bytes.begin() + 12, bytes.begin() + static_cast<std::ptrdiff_t>(kind.recordLength),
              '=');
    putBytes(folder_.path("things." + std::string(kind.extension)), bytes);
    state_.Count = static_cast<std::int16_t>(items.size());
  }
  void putBytes(const std::string& path, const std::string& bytes) {
    state_.currentPath = path;
    old_ = bytes;
    std::filesystem::remove(backup_);
    writeFile(path, bytes);
  }

  /// Items with these names, with fillers from "a" on.
  void putNamed(const ModelKind& kind, const std::vector<std::string>& names) {
    std::vector<std::string> items;
    items.reserve(names.size());
    char filler = 'a';
    for (const std::string& name : names) items.push_back(named(kind, name, filler++));
    put(kind, items);
  }

  void sort(const std::vector<bool>& ticked) {
    state_.Count = sortCollection(state_.files, state_, kind_->row(), ticked, board_);
  }
  void finish() { finishSort(state_.files, state_, kind_->row()); }

  /// The message of a sort that fails; empty when it does not.
  std::string messageOf(const std::vector<bool>& ticked) {
    try {
      sort(ticked);
    } catch (const RunTimeError& error) {
      return error.message();
    }
    return {};
  }

  bool endsProgram(const std::vector<bool>& ticked) {
    try {
      sort(ticked);
    } catch (const ProgramEnd&) {
      return true;
    }
    return false;
  }

  static std::string noteOf(const std::string& backup) {
    return "\n\nThe collection is now under its backup's name:\n" + backup;
  }

  std::string file() const { return readFile(state_.currentPath); }
  std::string fillers() const { return fillersOf(*kind_, file()); }

  void expectOnlyTheCollection(const std::string& bytes) const {
    EXPECT_TRUE(file() == bytes);
    EXPECT_FALSE(std::filesystem::exists(backup_));
  }
  void expectOnlyTheBackup() const {
    EXPECT_FALSE(std::filesystem::exists(state_.currentPath));
    EXPECT_TRUE(readFile(backup_) == old_);
  }
  void expectNothingOpen() const {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  TestFolder folder_;
  std::string backup_ = folder_.path("things.bak");
  FailingFiles files_;
  AppState state_{files_};
  RecordingBoard board_;
  const ModelKind* kind_ = nullptr;
  std::string old_;  ///< the collection before it is sorted
};

}  // namespace quillbox::test
