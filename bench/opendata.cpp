#include "opendata.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include "listings.h"
#include "measuring.h"
#include "median.h"
#include "opendata/csv_reader.h"
#include "opendata/export_text.h"
#include "opendata/import.h"
#include "opendata/sqlite_export.h"
#include "platform/disk_file_system.h"
#include "platform/text_writer.h"

namespace quillbox::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kOpenDataRounds = 5;

class ToFile : public TextSink {
 public:
  ToFile(OpenFiles& files, const std::string& path)
      : writer_(files, path, file_number::exportFile) {}
  void write(std::string_view text) override { writer_.write(text); }
  void close() { writer_.close(); }

 private:
  TextWriter writer_;
};

class FromFile : public ByteSource {
 public:
  FromFile(FileSystem& files, const std::string& path) : file_(files.open(path, OpenMode::read)) {}
  std::size_t read(std::span<char> into) override {
    const std::size_t got = file_->readAt(at_, std::as_writable_bytes(into));
    at_ += got;
    return got;
  }

 private:
  std::unique_ptr<File> file_;
  std::uint64_t at_ = 0;
};

class NoWatcher : public ImportWatcher {
 public:
  void changed(int, const DataColumn&, const std::string&, const std::string&) override {}
  void added(int, std::span<const std::byte>) override {}
  void wrong(const std::string& place, const std::string& why) override {
    throw std::runtime_error(place + ": " + why);
  }
};

/// Calls `use` with what an export needs.
template <typename Use>
void withExport(const Sized& collection, const Use& use) {
  DiskFileSystem files;
  const CollectionFile file = readCollectionFile(files, collection.path);
  const Values values(file);
  use(Export{files, file, values});
}

void toCsv(const Sized& collection, const std::string& path) {
  withExport(collection, [&](const Export& from) {
    OpenFiles files(from.files);
    ToFile sink(files, path);
    exportCsv(from, sink, CsvFor::programs);
    sink.close();
  });
}

void toJson(const Sized& collection, const std::string& path) {
  withExport(collection, [&](const Export& from) {
    OpenFiles files(from.files);
    ToFile sink(files, path);
    exportJson(from, sink);
    sink.close();
  });
}

void toSqlite(const Sized& collection, const std::string& path) {
  withExport(collection, [&](const Export& from) { exportSqlite(from, path); });
}

void dryRun(const Sized& collection, const std::string& csv) {
  withExport(collection, [&](const Export& from) {
    NoWatcher watcher;
    ImportOptions options;
    options.dryRun = true;
    Import import(from.files, from.collection, from.values, options, watcher);
    FromFile source(from.files, csv);
    readCsv(source, from.values, import);
    const ImportResult result = import.finish();
    if (result.rows != collection.items || result.changed != 0)
      throw std::runtime_error("not the same");
  });
}

/// A database's rows in memory, to be inserted into another one directly.
class Rows {
 public:
  explicit Rows(const std::string& path) {
    sqlite3* database = nullptr;
    check(sqlite3_open(path.c_str(), &database));
    database_.reset(database);
    for (const char* table : {"items", "entries"}) load(table);
  }

  void insertInto(const std::string& path) const {
    sqlite3* opened = nullptr;
    check(sqlite3_open(path.c_str(), &opened));
    const std::unique_ptr<sqlite3, Close> database(opened);
    run(opened,
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
        "PRAGMA locking_mode = EXCLUSIVE; BEGIN");
    for (const Table& table : tables_) run(opened, table.create);
    for (const Table& table : tables_) insert(opened, table);
    run(opened, "COMMIT");
  }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  struct Free {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
  };
  struct Table {
    std::string create;
    std::string insert;
    int columns;
    std::vector<std::unique_ptr<sqlite3_value, Free>> values;
  };

  static void check(int result) {
    if (result != SQLITE_OK && result != SQLITE_DONE && result != SQLITE_ROW)
      throw std::runtime_error(sqlite3_errstr(result));
  }
  static void run(sqlite3* database, const std::string& text) {
    check(sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr));
  }
  static std::unique_ptr<sqlite3_stmt, Finalize> prepare(sqlite3* database,
                                                         const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr));
    return std::unique_ptr<sqlite3_stmt, Finalize>(statement);
  }

  void load(const std::string& name) {
    Table table;
    const auto schema =
        prepare(database_.get(), "SELECT sql FROM sqlite_schema WHERE name = '" + name + "'");
    check(sqlite3_step(schema.get()));
    table.create = reinterpret_cast<const char*>(sqlite3_column_text(schema.get(), 0));
    const auto rows = prepare(database_.get(), "SELECT * FROM " + name);
    table.columns = sqlite3_column_count(rows.get());
    while (sqlite3_step(rows.get()) == SQLITE_ROW)
      for (int i = 0; i < table.columns; ++i)
        table.values.emplace_back(sqlite3_value_dup(sqlite3_column_value(rows.get(), i)));
    table.insert = "INSERT INTO " + name + " VALUES (?";
    for (int i = 1; i < table.columns; ++i) table.insert += ", ?";
    table.insert += ")";
    tables_.push_back(std::move(table));
  }

  static void insert(sqlite3* database, const Table& table) {
    const auto statement = prepare(database, table.insert);
    int at = 0;
    for (const auto& value : table.values) {
      check(sqlite3_bind_value(statement.get(), ++at, value.get()));
      if (at < table.columns) continue;
      check(sqlite3_step(statement.get()));
      check(sqlite3_reset(statement.get()));
      at = 0;
    }
  }

  std::unique_ptr<sqlite3, Close> database_;
  std::vector<Table> tables_;
};

}  // namespace

Pair timeCsv(const fs::path& workFolder, const Sized& collection) {
  const std::string csv = workFolder / "Full.csv";
  return timeBesideWriting([&] { toCsv(collection, csv); }, csv);
}

Pair timeJson(const fs::path& workFolder, const Sized& collection) {
  const std::string json = workFolder / "Full.json";
  const Pair times = timeBesideWriting([&] { toJson(collection, json); }, json);
  fs::remove(json);
  return times;
}

Pair timeSqlite(const fs::path& folder, const Sized& collection) {
  const std::string ours = folder / "Ours.db";
  const std::string theirs = folder / "Theirs.db";
  toSqlite(collection, ours);
  const Rows rows(ours);
  std::vector<double> mine;
  std::vector<double> peers;
  for (int round = 0; round < kOpenDataRounds; ++round) {
    fs::remove(ours);
    fs::remove(theirs);
    mine.push_back(milliseconds([&] { toSqlite(collection, ours); }));
    peers.push_back(milliseconds([&] { rows.insertInto(theirs); }));
  }
  fs::remove(ours);
  fs::remove(theirs);
  return {median(mine), median(peers)};
}

Pair timeImport(const fs::path& workFolder, const Sized& collection) {
  const std::string csv = workFolder / "Full.csv";
  toCsv(collection, csv);
  std::vector<double> ours;
  std::vector<double> peers;
  for (int round = 0; round < kOpenDataRounds; ++round) {
    ours.push_back(milliseconds([&] { dryRun(collection, csv); }));
    peers.push_back(milliseconds([&] {
      readThrough(csv);
      readThrough(collection.path);
    }));
  }
  fs::remove(csv);
  return {median(ours), median(peers)};
}

OpenDataFigures timeOpenData(const fs::path& workFolder, const Sized& collection) {
  const std::string csv = workFolder / "Full.csv";
  OpenDataFigures figures;
  const double without = peakMib([] {});
  figures.exportMemory = peakMib([&] { toCsv(collection, csv); }) - without;
  figures.importMemory = peakMib([&] { dryRun(collection, csv); }) - without;
  constexpr double kibibyte = 1024;
  figures.csvMib = static_cast<double>(fs::file_size(csv)) / (kibibyte * kibibyte);
  figures.csv = timeCsv(workFolder, collection);
  figures.json = timeJson(workFolder, collection);
  figures.import = timeImport(workFolder, collection);
  figures.sqlite = timeSqlite(workFolder, collection);
  return figures;
}

}  // namespace quillbox::bench
