#include "sortsearch/sort_engine.h"

#include <algorithm>
#include <optional>
#include <string>

#include "platform/checked16.h"
#include "platform/file_paths.h"
#include "records/header_record.h"
#include "records/record_file.h"
#include "records/record_reader.h"
#include "sortsearch/sort_slots.h"
#include "text/number_text.h"

namespace quillbox {
namespace {

/// One sort, from the renamed file to the new one.
class Sort {
 public:
  Sort(OpenFiles& files, const OpenCollection& collection, const MovedFile& moved,
       const CollectionKind& kind, const SortRules& rules, Board& board)
      : files_(files),
        collection_(collection),
        moved_(moved),
        kind_(kind),
        rules_(rules),
        board_(board) {}

  std::int16_t run(const std::vector<bool>& ticked) {
    // A slot without a number is never compared.
    constexpr int sentinels = 2;
    if (collection_.Count + sentinels > INT16_MAX)
      throw RunTimeError(ErrorNumber::overflow, collection_.currentPath);
    SortSlots slots(collection_.Count, kind_.recordLength);
    const HeaderRecord header = read(slots);
    slots.compact(kind_.fields.front());
    sort(slots, ticked);
    slots.compact(kind_.fields.front());
    write(header, slots);
    return checked16(slots.count());
  }

 private:
  HeaderRecord read(SortSlots& slots) {
    RecordFile file(files_, moved_.backup, kind_.recordLength, OpenMode::read, rules_.fileNumber);
    HeaderRecord header;
    file.read(kHeaderRecordNumber, bytesOf(header));
    const std::vector<std::byte> blank = blankRecord(kind_);
    RecordReader reader(file, slots.count(), recordNumberOf(1), blank);
    for (int item = 1; item <= slots.count(); ++item) {
      showReading(item, slots.count());
      const auto record = reader.next();
      // The library's version for ranges copies constant bytes one at a time.
      std::copy(record.begin(), record.end(), slots.record(item).begin());
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
    board_.progress(0, 0);  // the number of repetitions is unknown
  }

  void write(const HeaderRecord& before, SortSlots& slots) {
    if (rules_.showsProgress) board_.setBoardCaption("Writing File...");
    HeaderRecord header = before;
    header.Count = checked16(slots.count());
    makeRecordFile(files_, moved_.path, kind_.recordLength, {moved_.backup}, rules_.fileNumber,
                   [&](RecordFile& file) {
                     file.write(kHeaderRecordNumber, bytesOf(header));
                     for (int item = 1; item <= slots.count(); ++item)
                       file.write(recordNumberOf(item), slots.record(item));
                     file.flush();
                   });
  }

  OpenFiles& files_;
  const OpenCollection& collection_;
  const MovedFile& moved_;
  const CollectionKind& kind_;
  const SortRules& rules_;
  Board& board_;
};

}  // namespace

std::int16_t sortCollection(OpenFiles& files, const OpenCollection& collection,
                            const CollectionKind& kind, const std::vector<bool>& ticked,
                            Board& board) {
  return sortCollection(files, collection, kind, sortRulesOf(kind), ticked, board);
}

std::int16_t sortCollection(OpenFiles& files, const OpenCollection& collection,
                            const CollectionKind& kind, const SortRules& rules,
                            const std::vector<bool>& ticked, Board& board) {
  FileSystem& disk = files.fileSystem();
  files.close(file_number::collection);
  const MovedFile moved =
      moveToBackup(disk, collection.currentPath, "bak", OldBackup::stopsTheWork);
  std::int16_t count = 0;
  std::optional<OpenBoard> open;
  if (rules.showsProgress) open.emplace(board, "Reading File...");
  try {
    count = Sort(files, collection, moved, kind, rules, board).run(ticked);
  } catch (RunTimeError& error) {
    error.addNote("The collection is now under its backup's name:\n" + moved.backup);
    throw;
  }
  disk.remove(moved.backup);
  return count;
}

void finishSort(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind) {
  if (!sortRulesOf(kind).leavesFileOpen) return;
  files.open(file_number::collection, collection.currentPath, OpenMode::update);
  File& file = files.file(file_number::collection);
  HeaderRecord header;
  file.readAt(0, bytesOf(header));
  file.writeAt(0, bytesOf(header));
}

}  // namespace quillbox
