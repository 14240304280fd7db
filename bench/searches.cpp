#include "searches.h"

#include <functional>
#include <stdexcept>
#include <vector>

#include "database.h"
#include "measuring.h"
#include "median.h"
#include "platform/disk_file_system.h"
#include "records/collection_store.h"
#include "records/entered.h"
#include "sortsearch/search_engine.h"
#include "text/padding.h"

namespace quillbox::bench {
namespace {

constexpr int kSearchRounds = 31;

/// What a user types to find exactly this record: all texts except the songs, and its flags.
std::vector<Entered> allTextsOf(const MusicRecord& record) {
  std::vector<Entered> inputs;
  for (const Field& field : kMusicFields) {
    if (field.type == FieldType::text && field.count == 1)
      inputs.push_back(
          {&field, std::string(withoutTrailingBlanks(textOf(field, bytesOf(record)))), 0});
    if (field.type == FieldType::flag)
      inputs.push_back({&field, {}, wholeOf(field, bytesOf(record))});
  }
  return inputs;
}

/// The same condition for the database.
std::string statementFor(const std::vector<Entered>& inputs, std::vector<std::string>& arguments) {
  std::string statement = "SELECT * FROM music WHERE 1";
  for (const Entered& input : inputs) {
    statement.append(" AND ").append(input.field->name).append(" = ");
    if (input.field->type == FieldType::flag) {
      statement.append(std::to_string(input.whole));
    } else {
      statement.append("?");
      arguments.push_back(input.text);
    }
  }
  return statement.append(" LIMIT 1");
}

MusicRecord lastOf(const Sized& collection) {
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = collection.path;
  MusicRecord last{};
  CollectionStore(state.files, state, music())
      .ReadRecord(static_cast<std::int16_t>(collection.items - 1), bytesOf(last));
  return last;
}

MusicRecord noneOf(const Sized& collection) {
  MusicRecord none = lastOf(collection);
  none.BarCode = "on no sleeve";
  return none;
}

/// Times a search beside `peer`, which returns whether it found the item, too.
Pair timeOne(const Sized& collection, const std::vector<Entered>& inputs, bool isThere,
             const std::function<bool()>& peer) {
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = collection.path;
  state.Count = static_cast<std::int16_t>(collection.items);
  const CollectionKind& kind = music();
  NoBoard board;
  std::vector<double> ours;
  std::vector<double> peers;
  bool agree = true;
  for (int round = 0; round < kSearchRounds; ++round) {
    ours.push_back(milliseconds([&] {
      const Query query(kind, inputs, "M/d/yy");
      agree &= findItem(state.files, state, kind, query, board).has_value() == isThere;
    }));
    peers.push_back(milliseconds([&] { agree &= peer() == isThere; }));
  }
  if (!agree) throw std::runtime_error("the searches found different items");
  return {median(ours), median(peers)};
}

Pair timeBesideDatabase(const Sized& collection, const std::string& database,
                        const MusicRecord& wanted, bool isThere) {
  const std::vector<Entered> inputs = allTextsOf(wanted);
  std::vector<std::string> arguments;
  const std::string statement = statementFor(inputs, arguments);
  return timeOne(collection, inputs, isThere,
                 [&] { return Database(database).run(statement, arguments) == 1; });
}

}  // namespace

SearchFigures timeSearches(const std::filesystem::path& workFolder, const Sized& collection) {
  const std::string database = workFolder / "Full.db";
  Database::make(database, collection.path);
  readFromDisk(database);
  return {timeBesideDatabase(collection, database, noneOf(collection), false),
          timeBesideDatabase(collection, database, lastOf(collection), true)};
}

Pair timeSearchBesideReading(const Sized& collection) {
  return timeOne(collection, allTextsOf(noneOf(collection)), false, [&] {
    readThrough(collection.path);
    return false;
  });
}

}  // namespace quillbox::bench
