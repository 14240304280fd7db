#include "sortsearch/sort_engine.h"

#include <algorithm>
#include <optional>
#include <string>

#include "platform/paths.h"
#include "records/header_record.h"
#include "records/number_text.h"
#include "records/record_file.h"
#include "records/record_reader.h"
#include "sortsearch/sort_slots.h"

namespace quillbox {
namespace {

/// One sort from the renamed file to the new one.
class Sort {
 public:
  Sort(AppState& state, const CollectionKind& kind, const SortRules& rules, Board& board)
      : state_(state), kind_(kind), rules_(rules), board_(board) {}

  void run(const std::string& backup, const std::vector<bool>& ticked) {
    // Nothing is compared with a slot that has no number.
    constexpr int sentinels = 2;
    if (state_.Count + sentinels > INT16_MAX)
      throw RunTimeError(ErrorNumber::overflow, state_.currentPath);
    SortSlots slots(state_.Count, kind_.recordLength);
    const HeaderRecord header = read(backup, slots);
    slots.compact(kind_.fields.front());
    sort(slots, ticked);
    slots.compact(kind_.fields.front());
    write(header, slots);
    state_.Count = checked16(slots.count());
  }

 private:
  HeaderRecord read(const std::string& backup, SortSlots& slots) {
    RecordFile file(state_.files, backup, kind_.recordLength, OpenMode::read, rules_.fileNumber);
    HeaderRecord header;
    file.read(kHeaderRecordNumber, bytesOf(header));
    const std::vector<std::byte> blank = blankRecord(kind_);
    RecordReader reader(file, slots.count(), recordNumberOf(1), blank);
    for (int item = 1; item <= slots.count(); ++item) {
      showReading(item, slots.count());
      std::ranges::copy(reader.next(), slots.record(item).begin());
    }
    return header;
  }

  void showReading(int item, int count) {
    if (!rules_.showsProgress) return;
    board_.print(std::string("Reading")
                     .append(numberText(item))
                     .append(" of")
                     .append(numberText(count))
                     .append("..."));
    board_.progress(item, count);
  }

  void sort(SortSlots& slots, const std::vector<bool>& ticked) {
    for (std::size_t key = rules_.keys.size(); key-- > 0;) {
      const SortKey& by = rules_.keys[key];
      if (by.boxCaption.empty() || ticked.at(key))
        slots.exchangeSort(*by.field, [&] { showRepetition(by, slots.count()); });
      if (rules_.endsProgramAfter == key) endProgram();
    }
  }

  void showRepetition(const SortKey& by, int count) {
    if (!rules_.showsProgress) return;
    board_.setBoardCaption(std::string(by.passCaption));
    board_.print("Sorting " + std::to_string(count) + ". Please wait...");
    board_.progress(0, 0);  // nobody knows how many repetitions there will be
  }

  void write(const HeaderRecord& before, SortSlots& slots) {
    if (rules_.showsProgress) board_.setBoardCaption("Writing File...");
    HeaderRecord header = before;
    header.Count = checked16(slots.count());
    bool made = false;
    try {
      RecordFile file(state_.files, state_.currentPath, kind_.recordLength, OpenMode::create,
                      rules_.fileNumber);
      made = true;
      file.write(kHeaderRecordNumber, bytesOf(header));
      for (int item = 1; item <= slots.count(); ++item)
        file.write(recordNumberOf(item), slots.record(item));
      file.flush();
      file.close();
    } catch (const RunTimeError&) {
      if (made) discard();
      throw;
    }
  }

  /// Half a file under the collection's name would pass for the collection.
  void discard() {
    // The failure that led here is the one to report.
    ignoringErrors([this] { state_.files.fileSystem().remove(state_.currentPath); });
  }

  AppState& state_;
  const CollectionKind& kind_;
  const SortRules& rules_;
  Board& board_;
};

}  // namespace

void sortCollection(AppState& state, const CollectionKind& kind, const std::vector<bool>& ticked,
                    Board& board) {
  const SortRules& rules = sortRulesOf(kind);
  FileSystem& files = state.files.fileSystem();
  state.files.close(file_number::collection);
  const std::string backup = fullPath(backupPath(state.currentPath, "bak"), files.currentFolder());
  files.rename(state.currentPath, backup);
  std::optional<OpenBoard> open;
  if (rules.showsProgress) open.emplace(board, "Reading File...");
  try {
    Sort(state, kind, rules, board).run(backup, ticked);
  } catch (RunTimeError& error) {
    error.addNote("The collection is now under its backup's name:\n" + backup);
    throw;
  }
  files.remove(backup);
}

void finishSort(AppState& state, const CollectionKind& kind) {
  const SortRules& rules = sortRulesOf(kind);
  if (rules.resetsListPos) state.ListPos = 1;
  if (!rules.leavesFileOpen) return;
  state.files.open(file_number::collection, state.currentPath, OpenMode::update);
  File& file = state.files.file(file_number::collection);
  HeaderRecord header;
  file.readAt(0, bytesOf(header));
  file.writeAt(0, bytesOf(header));
}

}  // namespace quillbox
