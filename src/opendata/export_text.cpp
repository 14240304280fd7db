#include "opendata/export_text.h"

#include <algorithm>

#include "opendata/json_text.h"
#include "opendata/number_forms.h"
#include "opendata/rows.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

class CsvExport {
 public:
  CsvExport(const Export& from, TextSink& to, CsvFor reader)
      : from_(from), to_(to), guards_(reader == CsvFor::spreadsheets) {}

  void run() {
    // The apostrophe in the header tells a reader that there may be some below.
    if (guards_) line_ += '\'';
    line_ += kItemColumn;
    for (const DataColumn& column : from_.values.columns()) line_.append(",").append(column.name);
    line_ += kLineEnd;
    ItemReader reader(from_.files, from_.collection);
    for (int item = 1; item <= from_.items(); ++item) {
      addItem(item, reader.read(item));
      if (line_.size() > kAtOnce) writeLine();
      from_.tell(item);
    }
    writeLine();
  }

 private:
  static constexpr std::size_t kAtOnce = 32'768;

  void writeLine() {
    to_.write(line_);
    line_.clear();
  }

  void addItem(int item, std::span<const std::byte> record) {
    line_ += std::to_string(item);
    for (const DataColumn& column : from_.values.columns()) {
      line_ += ',';
      addValue(column, record);
    }
    line_ += kLineEnd;
  }

  void addValue(const DataColumn& column, std::span<const std::byte> record) {
    const FieldType type = column.field->type;
    if (type == FieldType::text && !guards_ &&
        appendAsciiCsvField(line_, readable(textOf(*column.field, record, column.entry))))
      return;
    if (type != FieldType::text && type != FieldType::choice)
      return from_.values.append(line_, column, record);
    text_.clear();
    from_.values.append(text_, column, record);
    if (guards_ && needsGuard(text_)) text_.insert(0, 1, '\'');
    appendCsvField(line_, text_);
  }

  const Export& from_;
  TextSink& to_;
  bool guards_;
  std::string line_;
  std::string text_;
};

class JsonExport {
 public:
  JsonExport(const Export& from, TextSink& to) : from_(from), to_(to) {}

  void run() {
    const CollectionFile& collection = from_.collection;
    json_ += "{\"kind\":";
    appendJsonString(json_, kindName(*collection.kind));
    json_ += ",\"version\":";
    appendJsonString(json_, toUtf8(readable(collection.header.Version.view())));
    json_ += ",\"fileType\":" + std::to_string(collection.header.FileType) + ",\"items\":[";
    ItemReader reader(from_.files, collection);
    for (int item = 1; item <= from_.items(); ++item) {
      json_ += item == 1 ? "\n" : ",\n";
      addItem(item, reader.read(item));
      if (json_.size() > kAtOnce) write();
      from_.tell(item);
    }
    json_ += "\n]}\n";
    write();
  }

 private:
  static constexpr std::size_t kAtOnce = 32'768;

  void write() {
    to_.write(json_);
    json_.clear();
  }

  void addItem(int item, std::span<const std::byte> record) {
    json_ += "{\"item\":" + std::to_string(item);
    if (isDeletedItem(*from_.collection.kind, record)) json_ += ",\"deleted\":true";
    const auto& columns = from_.values.columns();
    for (std::size_t i = 0; i < columns.size(); i += columns[i].field->count) {
      const Field& field = *columns[i].field;
      json_.append(",\"").append(field.name).append("\":");
      if (field.count == 1)
        addValue(columns[i], record);
      else
        addList(std::span(columns).subspan(i, field.count), record);
    }
    json_ += '}';
  }

  void addList(std::span<const DataColumn> entries, std::span<const std::byte> record) {
    while (!entries.empty() &&
           readable(textOf(*entries.back().field, record, entries.back().entry)).empty())
      entries = entries.first(entries.size() - 1);
    json_ += '[';
    for (const DataColumn& entry : entries) {
      if (entry.entry > 0) json_ += ',';
      addValue(entry, record);
    }
    json_ += ']';
  }

  void addText(const DataColumn& column, std::span<const std::byte> record) {
    const std::string_view stored = readable(textOf(*column.field, record, column.entry));
    if (isPlainJson(stored)) {
      json_ += '"';
      json_ += stored;
      json_ += '"';
      return;
    }
    text_.clear();
    from_.values.append(text_, column, record);
    appendJsonString(json_, text_);
  }

  /// Numbers are numbers, flags of 0 and 1 are true and false, and no choice is null.
  void addValue(const DataColumn& column, std::span<const std::byte> record) {
    const Field& field = *column.field;
    if (field.type == FieldType::text) return addText(column, record);
    text_.clear();
    from_.values.append(text_, column, record);
    switch (field.type) {
      case FieldType::text:  // seen to above
      case FieldType::date:
        return appendJsonString(json_, text_);
      case FieldType::flag:
        json_ += text_ == "0" ? "false" : text_ == "1" ? "true" : text_;
        return;
      case FieldType::choice:
        if (text_.empty())
          json_ += "null";
        else if (wholeNumberIn(text_))
          json_ += text_;
        else
          appendJsonString(json_, text_);
        return;
      case FieldType::money:
      case FieldType::whole:
        json_ += text_;
        return;
      case FieldType::size:
        if (text_.find_first_of("ni") == std::string::npos)  // neither nan nor inf
          json_ += text_;
        else
          appendJsonString(json_, text_);
        return;
    }
  }

  const Export& from_;
  TextSink& to_;
  std::string json_;
  std::string text_;
};

}  // namespace

void exportCsv(const Export& from, TextSink& to, CsvFor reader) {
  CsvExport(from, to, reader).run();
}

void exportJson(const Export& from, TextSink& to) { JsonExport(from, to).run(); }

}  // namespace quillbox
