#include "opendata/sqlite_export.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "opendata/number_forms.h"
#include "opendata/replacement.h"
#include "opendata/sqlite_views.h"
#include "platform/file_paths.h"
#include "platform/run_time_error.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

ErrorNumber numberOf(int result) {
  switch (result & 0xFF) {
    case SQLITE_FULL:
      return ErrorNumber::diskFull;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return ErrorNumber::permissionDenied;
    case SQLITE_CANTOPEN:
      return ErrorNumber::pathFileAccess;
    default:
      return ErrorNumber::deviceIo;
  }
}

class Database {
 public:
  explicit Database(std::string path) : path_(std::move(path)) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path_.c_str(), &opened,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    database_.reset(opened);
    check(result);
    // No one sees the file before it is complete.
    run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE");
  }

  void run(const std::string& statements) {
    check(sqlite3_exec(database_.get(), statements.c_str(), nullptr, nullptr, nullptr));
  }

  std::unique_ptr<sqlite3_stmt, Finalize> prepare(const std::string& statement) {
    sqlite3_stmt* prepared = nullptr;
    check(sqlite3_prepare_v2(database_.get(), statement.c_str(), -1, &prepared, nullptr));
    return std::unique_ptr<sqlite3_stmt, Finalize>(prepared);
  }

  void step(sqlite3_stmt* statement) {
    check(sqlite3_step(statement));
    check(sqlite3_reset(statement));
  }

  void check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_DONE) throw RunTimeError(numberOf(result), path_);
  }

 private:
  std::string path_;
  std::unique_ptr<sqlite3, CloseDatabase> database_;
};

class SqliteExport {
 public:
  SqliteExport(const Export& from, const std::string& path)
      : from_(from), database_(path), texts_(from.values.columns().size()) {}

  void run() {
    database_.run("BEGIN");
    database_.run(tables());
    describe();
    items_ = database_.prepare(insertItem());
    if (list() != nullptr) entries_ = database_.prepare("INSERT INTO entries VALUES (?, ?, ?)");
    ItemReader reader(from_.files, from_.collection);
    for (int item = 1; item <= from_.items(); ++item) {
      addItem(item, reader.read(item));
      from_.tell(item);
    }
    database_.run(viewsOf(*from_.collection.kind));
    database_.run("COMMIT");
  }

 private:
  const Field* list() const {
    for (const Field& field : from_.collection.fields)
      if (field.count > 1) return &field;
    return nullptr;
  }

  std::string tables() const {
    std::string text =
        "CREATE TABLE collection (kind TEXT NOT NULL, version TEXT NOT NULL,"
        " fileType INTEGER NOT NULL, items INTEGER NOT NULL);\n"
        "CREATE TABLE items (item INTEGER PRIMARY KEY, deleted INTEGER NOT NULL";
    for (const DataColumn& column : from_.values.columns())
      if (column.field->count == 1)
        text.append(", \"").append(column.name).append("\" ").append(typeOf(column.field->type));
    text += ");\n";
    if (list() != nullptr)
      text +=
          "CREATE TABLE entries (item INTEGER NOT NULL REFERENCES items (item),"
          " position INTEGER NOT NULL, text TEXT NOT NULL, PRIMARY KEY (item, position))"
          " WITHOUT ROWID;\n";
    return text;
  }

  /// Without a type where a value can be a word or a number.
  static std::string_view typeOf(FieldType type) {
    switch (type) {
      case FieldType::text:
        return "TEXT NOT NULL";
      case FieldType::choice:
      case FieldType::date:
        return "";
      case FieldType::size:
        return "REAL";
      case FieldType::flag:
      case FieldType::money:
      case FieldType::whole:
        break;
    }
    return "INTEGER NOT NULL";
  }

  std::string insertItem() const {
    std::string text = "INSERT INTO items VALUES (?, ?";
    for (const DataColumn& column : from_.values.columns())
      if (column.field->count == 1) text += ", ?";
    return text + ")";
  }

  void describe() {
    const auto statement = database_.prepare("INSERT INTO collection VALUES (?, ?, ?, ?)");
    const CollectionFile& collection = from_.collection;
    const std::string version = toUtf8(readable(collection.header.Version.view()));
    bindText(statement.get(), 1, kindName(*collection.kind));
    bindText(statement.get(), 2, version);
    sqlite3_bind_int(statement.get(), 3, collection.header.FileType);
    sqlite3_bind_int(statement.get(), 4, collection.count);
    database_.step(statement.get());
  }

  void addItem(int item, std::span<const std::byte> record) {
    sqlite3_bind_int(items_.get(), 1, item);
    sqlite3_bind_int(items_.get(), 2, isDeleted(*from_.collection.kind, record) ? 1 : 0);
    int at = 3;
    for (const DataColumn& column : from_.values.columns())
      if (column.field->count == 1) bind(at++, column, record);
    database_.step(items_.get());
    for (const DataColumn& column : from_.values.columns())
      if (column.field->count > 1) addEntry(item, column, record);
  }

  void addEntry(int item, const DataColumn& column, std::span<const std::byte> record) {
    const std::string_view stored = readable(textOf(*column.field, record, column.entry));
    if (stored.empty()) return;
    std::string& text = texts_.front();
    text.clear();
    from_.values.append(text, column, record);
    sqlite3_bind_int(entries_.get(), 1, item);
    sqlite3_bind_int(entries_.get(), 2, static_cast<int>(column.entry) + 1);
    bindText(entries_.get(), 3, text);
    database_.step(entries_.get());
  }

  void bind(int at, const DataColumn& column, std::span<const std::byte> record) {
    sqlite3_stmt* const statement = items_.get();
    const Field& field = *column.field;
    std::string& text =
        texts_.at(static_cast<std::size_t>(&column - from_.values.columns().data()));
    text.clear();
    switch (field.type) {
      case FieldType::flag:
      case FieldType::whole:
        database_.check(sqlite3_bind_int(statement, at, wholeOf(field, record)));
        return;
      case FieldType::money:
        database_.check(sqlite3_bind_int64(statement, at, moneyOf(field, record)));
        return;
      case FieldType::size:
        database_.check(sqlite3_bind_double(statement, at, realOf(field, record)));
        return;
      case FieldType::text:
      case FieldType::choice:
      case FieldType::date:
        break;
    }
    from_.values.append(text, column, record);
    if (field.type == FieldType::choice && text.empty())
      database_.check(sqlite3_bind_null(statement, at));
    else if (field.type == FieldType::choice && wholeNumberIn(text))
      database_.check(sqlite3_bind_int(statement, at, wholeOf(field, record)));
    else if (field.type == FieldType::date && text.find('-', 1) != 4)
      database_.check(sqlite3_bind_double(statement, at, realOf(field, record)));
    else
      bindText(statement, at, text);
  }

  /// The text must stay valid until the statement has run.
  void bindText(sqlite3_stmt* statement, int at, std::string_view text) {
    database_.check(sqlite3_bind_text(statement, at, text.empty() ? "" : text.data(),
                                      static_cast<int>(text.size()), SQLITE_STATIC));
  }

  const Export& from_;
  Database database_;
  std::vector<std::string> texts_;  // for each column, while a statement needs them
  std::unique_ptr<sqlite3_stmt, Finalize> items_;
  std::unique_ptr<sqlite3_stmt, Finalize> entries_;
};

}  // namespace

void exportSqlite(const Export& from, const std::string& name) {
  FileSystem& files = from.files;
  const std::string path = fileBehind(files, name);
  const bool isThere = files.exists(path);
  // A device or a pipe would be replaced, and cannot be a database.
  if (isThere && !std::filesystem::is_regular_file(path))
    throw RunTimeError(ErrorNumber::pathFileAccess, name);
  const std::string fresh = unfinishedName(path);
  if (files.exists(fresh)) files.remove(fresh);
  try {
    SqliteExport(from, fresh).run();
    if (!isThere) return files.rename(fresh, path);
    files.exchange(fresh, path);
    files.remove(fresh);
  } catch (const RunTimeError&) {
    ignoringErrors([&] { files.remove(fresh); });
    throw;
  }
}

}  // namespace quillbox
