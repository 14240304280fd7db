#include "overviews.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <stdexcept>
#include <vector>

#include "database.h"
#include "measuring.h"
#include "median.h"
#include "overview/item_filter.h"
#include "overview/item_index.h"
#include "overview/item_order.h"
#include "platform/disk_file_system.h"
#include "records/music_record.h"

namespace quillbox::bench {
namespace {

constexpr int kOverviewRounds = 15;

RecordTexts texts() { return {builtInChoice, "M/d/yy"}; }

/// An open collection, and its index.
struct Opened {
  explicit Opened(const Sized& sized) : items(sized.items) { collection.currentPath = sized.path; }

  void readAll() {
    index.start(items);
    if (index.readOn([] { return false; }) != ReadState::done)
      throw std::runtime_error("the collection could not be read");
  }

  int items;
  DiskFileSystem disk;
  OpenFiles files{disk};
  OpenCollection collection;
  ItemIndex index{files, collection, music(), texts()};
};

/// All texts of a row, one after another.
std::string allTexts() {
  std::string all;
  for (const Field& field : kMusicFields)
    for (std::size_t entry = 1; field.type == FieldType::text && entry <= field.count; ++entry) {
      if (!all.empty()) all.append(" || ' ' || ");
      all.append(field.name);
      if (field.count > 1) all.append(std::to_string(entry));
    }
  return all;
}

/// Fills a full-text table from the rows.
void makeTextTable(Database& database, const std::string& name, const std::string& options) {
  database.run("CREATE VIRTUAL TABLE " + name + " USING fts5(text, content='', " + options + ")");
  database.run("INSERT INTO " + name + "(rowid, text) SELECT rowid, " + allTexts() + " FROM music");
}

Pair timeInTurn(const std::function<int()>& ours, const std::function<int()>& peer, bool agree) {
  std::vector<double> times;
  std::vector<double> peers;
  for (int round = 0; round < kOverviewRounds; ++round) {
    int found = 0;
    int foundByPeer = 0;
    times.push_back(milliseconds([&] { found = ours(); }));
    peers.push_back(milliseconds([&] { foundByPeer = peer(); }));
    if (agree && found != foundByPeer)
      throw std::runtime_error("the filter and the database found different items");
  }
  return {median(times), median(peers)};
}

/// The longest of the pieces in which the panel reads, in the least disturbed round.
double longestPiece(Opened& opened) {
  using Clock = std::chrono::steady_clock;
  constexpr auto budget = std::chrono::milliseconds(kReadingPiece);
  std::vector<double> longest(kOverviewRounds);
  for (double& most : longest) {
    opened.index.start(opened.items);
    while (opened.index.state() == ReadState::unfinished)
      most = std::max(most, milliseconds([&] {
                        const auto end = Clock::now() + budget;
                        opened.index.readOn([end] { return Clock::now() >= end; });
                      }));
  }
  return *std::ranges::min_element(longest);
}

Pair timeOpening(const Sized& collection, const std::string& database) {
  std::vector<double> ours;
  for (int round = 0; round < kOverviewRounds; ++round)
    ours.push_back(milliseconds([&] { Opened(collection).readAll(); }));
  Database peer(database);
  const double filled =
      milliseconds([&] { makeTextTable(peer, "words", "tokenize='unicode61', prefix='1 2 3'"); });
  return {median(ours), filled};
}

/// Each time with a filter that has found nothing before.
Pair timeWord(const ItemIndex& index, Database& database, const std::string& word,
              const std::string& table, const std::string& match, bool agree) {
  const auto ours = [&] {
    ItemFilter filter(index);
    filter.setWords(word);
    filter.start();
    return static_cast<int>(filter.items().size());
  };
  const auto peer = [&] {
    return database.run("SELECT rowid FROM " + table + " WHERE " + table + " MATCH ?", {match});
  };
  return timeInTurn(ours, peer, agree);
}

Pair timeOrder(Opened& opened, Database& database) {
  const Column& artist = *columnOf(music(), *musicField("Artist"));
  const auto ours = [&] {
    ItemOrder order(artist, texts());
    readAllItems(opened.files, opened.collection, music(), opened.items,
                 [&](int item, std::span<const std::byte> record) { order.take(item, record); });
    return static_cast<int>(order.order(Direction::up).size());
  };
  const auto peer = [&] {
    return database.run("SELECT rowid FROM music ORDER BY Artist COLLATE NOCASE");
  };
  return timeInTurn(ours, peer, true);
}

}  // namespace

OverviewFigures timeOverviews(const std::filesystem::path& workFolder, const Sized& collection) {
  const std::string path = workFolder / "Overview.db";
  Database::make(path, collection.path);
  readFromDisk(path);
  OverviewFigures figures;
  figures.memory = peakMib([&] { Opened(collection).readAll(); }) - peakMib([] {});
  figures.open = timeOpening(collection, path);
  Database database(path);
  makeTextTable(database, "pieces", "tokenize='trigram'");
  readFromDisk(path);

  Opened opened(collection);
  figures.longestPiece = longestPiece(opened);
  figures.texts = static_cast<double>(opened.index.textBytes()) / kBytesPerMib;
  figures.firstKey = timeWord(opened.index, database, "s", "words", "s*", false);
  figures.rareWord = timeWord(opened.index, database, "31234", "pieces", "31234", true);
  figures.missingWord =
      timeWord(opened.index, database, "winterlong", "pieces", "winterlong", true);
  figures.order = timeOrder(opened, database);
  return figures;
}

Pair timeReadingAll(const Sized& collection) {
  return timeInTurn(
      [&] {
        Opened(collection).readAll();
        return 0;
      },
      [&] {
        readThrough(collection.path);
        return 0;
      },
      false);
}

}  // namespace quillbox::bench
