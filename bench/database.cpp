#include "database.h"

#include <sqlite3.h>

#include <stdexcept>

#include "collections.h"
#include "platform/disk_file_system.h"
#include "records/collection_store.h"
#include "text/padding.h"

namespace quillbox::bench {
namespace {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

void check(int result, sqlite3* connection) {
  if (result != SQLITE_OK && result != SQLITE_DONE && result != SQLITE_ROW)
    throw std::runtime_error(sqlite3_errmsg(connection));
}

Statement prepare(sqlite3* connection, const std::string& text) {
  sqlite3_stmt* statement = nullptr;
  check(sqlite3_prepare_v2(connection, text.c_str(), -1, &statement, nullptr), connection);
  return Statement(statement);
}

/// Calls `use` for each column of the table, in order.
template <typename Use>
void forEachColumn(const Use& use) {
  for (const Field& field : kMusicFields)
    for (std::size_t entry = 0; entry < field.count; ++entry) use(field, entry);
}

std::string insertStatement() {
  std::string text = "INSERT INTO music VALUES (";
  forEachColumn([&](const Field&, std::size_t) { text += "?,"; });
  text.back() = ')';
  return text;
}

std::string createStatement() {
  std::string text = "CREATE TABLE music (";
  forEachColumn([&](const Field& field, std::size_t entry) {
    text.append(field.name);
    if (field.count > 1) text.append(std::to_string(entry + 1));
    text.append(",");
  });
  text.back() = ')';
  return text;
}

void bindField(sqlite3_stmt* statement, int at, const Field& field, std::size_t entry,
               std::span<const std::byte> record) {
  if (field.type == FieldType::text) {
    const auto text = withoutTrailingBlanks(textOf(field, record, entry));
    sqlite3_bind_text(statement, at, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  } else if (field.type == FieldType::money) {
    sqlite3_bind_int64(statement, at, moneyOf(field, record));
  } else {
    sqlite3_bind_int(statement, at, wholeOf(field, record));
  }
}

}  // namespace

void Database::Close::operator()(sqlite3* connection) const { sqlite3_close(connection); }

Database::Database(const std::string& path) {
  sqlite3* connection = nullptr;
  const int result = sqlite3_open(path.c_str(), &connection);
  connection_.reset(connection);
  check(result, connection);
}

void Database::make(const std::string& path, const std::string& collection) {
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = collection;
  CollectionStore store(state.files, state, music());
  const int count = store.ReadHeader().Count;

  Database database(path);
  database.run(createStatement());
  database.run("BEGIN");
  const Statement insert = prepare(database.connection_.get(), insertStatement());
  for (int item = 1; item <= count; ++item) {
    store.ReadRecord(item, bytesOf(state.music));
    int at = 1;
    forEachColumn([&](const Field& field, std::size_t entry) {
      bindField(insert.get(), at++, field, entry, bytesOf(state.music));
    });
    check(sqlite3_step(insert.get()), database.connection_.get());
    sqlite3_reset(insert.get());
  }
  database.run("COMMIT");
}

int Database::run(const std::string& statement, const std::vector<std::string>& arguments) {
  const Statement prepared = prepare(connection_.get(), statement);
  for (int at = 1; const std::string& argument : arguments)
    sqlite3_bind_text(prepared.get(), at++, argument.c_str(), -1, SQLITE_STATIC);
  int rows = 0;
  int result = sqlite3_step(prepared.get());
  for (; result == SQLITE_ROW; result = sqlite3_step(prepared.get())) {
    ++rows;
    for (int column = 0; column < sqlite3_column_count(prepared.get()); ++column)
      sqlite3_column_text(prepared.get(), column);
  }
  check(result, connection_.get());
  return rows;
}

}  // namespace quillbox::bench
