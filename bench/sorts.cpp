#include "sorts.h"

#include <algorithm>
#include <stdexcept>

#include "collections.h"
#include "database.h"
#include "measuring.h"
#include "median.h"
#include "platform/disk_file_system.h"
#include "records/collection_store.h"
#include "sortsearch/sort_engine.h"
#include "sortsearch/sort_slots.h"
#include "text/windows1252.h"

namespace quillbox::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kSizes[] = {500, 2'000, 8'000, 32'765};
constexpr int kSortRounds = 3;
constexpr int kMostWholePeer = 2'000;  // beyond it the peer takes minutes
constexpr int kRepetitionsOfAnEstimate = 4;
const std::vector<bool> kAllKeys(5, true);

std::vector<MusicRecord> readAll(const std::string& path, int count) {
  DiskFileSystem files;
  OpenFiles open(files);
  RecordFile file(open, path, sizeof(MusicRecord), OpenMode::read);
  std::vector<MusicRecord> records(static_cast<std::size_t>(count));
  for (int item = 1; item <= count; ++item)
    file.read(recordNumberOf(item), bytesOf(records[static_cast<std::size_t>(item - 1)]));
  return records;
}

void sortIt(const std::string& path, int count) {
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = path;
  state.Count = static_cast<std::int16_t>(count);
  NoBoard board;
  state.Count = sortCollection(state.files, state, music(), kAllKeys, board);
}

bool isGreater(const Field& key, const MusicRecord& a, const MusicRecord& b) {
  if (key.type != FieldType::text) return wholeOf(key, bytesOf(a)) > wholeOf(key, bytesOf(b));
  return inCapitals(textOf(key, bytesOf(a))) > inCapitals(textOf(key, bytesOf(b)));
}

bool exchangeWholeRecords(const Field& key, std::vector<MusicRecord>& records) {
  bool exchanged = false;
  for (std::size_t i = 0; i + 1 < records.size(); ++i) {
    if (!isGreater(key, records[i], records[i + 1])) continue;
    const MusicRecord swap = records[i];
    records[i] = records[i + 1];
    records[i + 1] = swap;
    exchanged = true;
  }
  return exchanged;
}

/// The number of passes of each key's series, from the last key to the first.
std::vector<int> repetitionsOf(const std::vector<MusicRecord>& records) {
  SortSlots slots(static_cast<int>(records.size()), sizeof(MusicRecord));
  for (int slot = 1; slot <= slots.count(); ++slot)
    std::ranges::copy(bytesOf(records[static_cast<std::size_t>(slot - 1)]),
                      slots.record(slot).begin());
  std::vector<int> all;
  const auto keys = sortRulesOf(music()).keys;
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    int repetitions = 0;
    slots.exchangeSort(*key->field, [&] { ++repetitions; });
    all.push_back(repetitions);
  }
  return all;
}

/// The milliseconds of the peer; for a large collection only a few passes of each series are run.
double timePeer(std::vector<MusicRecord> records, bool whole) {
  const std::vector<int> repetitions = repetitionsOf(records);
  const auto keys = sortRulesOf(music()).keys;
  double taken = 0;
  for (std::size_t series = 0; series < keys.size(); ++series) {
    const Field& key = *keys[keys.size() - 1 - series].field;
    const int all = repetitions[series];
    const int run = whole ? all : std::min(all, kRepetitionsOfAnEstimate);
    const double time = milliseconds([&] {
      for (int i = 0; i < run; ++i) exchangeWholeRecords(key, records);
    });
    taken += time / run * all;
  }
  return taken;
}

SortFigures timeOne(const fs::path& folder, int count) {
  SortFigures figures;
  figures.items = count;
  const std::string mixed = folder / "Mixed.MCS";
  const std::string path = folder / "Sorted.MCS";
  makeMixedCollection(mixed, count);
  figures.fileSize = static_cast<double>(fs::file_size(mixed)) / kBytesPerMib;
  const auto fresh = [&] { fs::copy_file(mixed, path, fs::copy_options::overwrite_existing); };
  std::vector<double> ours;
  for (int round = 0; round < kSortRounds; ++round) {
    fresh();
    ours.push_back(milliseconds([&] { sortIt(path, count); }));
  }
  fresh();
  figures.memory = peakMib([&] { sortIt(path, count); }) - peakMib([] {});

  const std::string database = folder / "Mixed.db";
  fs::remove(database);
  Database::make(database, mixed);
  std::vector<double> databases;
  for (int round = 0; round < kSortRounds; ++round)
    databases.push_back(milliseconds([&] {
      const int rows = Database(database).run(
          "SELECT * FROM music ORDER BY upper(Artist), upper(Album), upper(RecordCo), MediaType, "
          "Genre");
      if (rows != count) throw std::runtime_error("not all rows came");
    }));
  figures.database = median(databases);
  figures.estimated = count > kMostWholePeer;
  figures.exchange = {median(ours), timePeer(readAll(mixed, count), !figures.estimated)};
  return figures;
}

}  // namespace

std::vector<SortFigures> timeSorts(const fs::path& workFolder) {
  // One at a time in a folder of its own, so that backups do not collide.
  std::vector<SortFigures> all;
  for (const int size : kSizes) {
    const fs::path folder = workFolder / ("sort" + std::to_string(size));
    fs::create_directory(folder);
    all.push_back(timeOne(folder, size));
    fs::remove_all(folder);
  }
  return all;
}

}  // namespace quillbox::bench
