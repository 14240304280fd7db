#include "opendata/export_text.h"

#include <algorithm>

#include "opendata/json_text.h"
#include "opendata/number_forms.h"
#include "opendata/rows.h"
#include "opendata/sink_buffer.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Space for the quotes of a text.
constexpr std::size_t kQuotes = 2;

/// Writes a stored text with one of the functions for plain texts; false when it is not plain.
template <typename Write>
bool addPlain(SinkBuffer& to, const DataColumn& column, std::span<const std::byte> record,
              const Write& write) {
  const std::string_view stored = textOf(*column.field, record, column.entry);
  const char* const end = write(to.roomFor(stored.size() + kQuotes), stored);
  if (end != nullptr) to.endAt(end);
  return end != nullptr;
}

class CsvExport {
 public:
  CsvExport(const Export& from, TextSink& to, CsvFor reader)
      : from_(from), csv_(to), guards_(reader == CsvFor::spreadsheets) {}

  void run() {
    // The apostrophe in the header tells a reader that there may be more below.
    if (guards_) csv_ += '\'';
    csv_ += kItemColumn;
    for (const DataColumn& column : from_.values.columns()) (csv_ += ',') += column.name;
    csv_ += kLineEnd;
    ItemReader reader(from_.files, from_.collection);
    for (int item = 1; item <= from_.items(); ++item) {
      addItem(item, reader.read(item));
      from_.tell(item);
    }
    csv_.flush();
  }

 private:
  void addItem(int item, std::span<const std::byte> record) {
    csv_ += std::to_string(item);
    for (const DataColumn& column : from_.values.columns()) {
      csv_ += ',';
      addValue(column, record);
    }
    csv_ += kLineEnd;
  }

  void addValue(const DataColumn& column, std::span<const std::byte> record) {
    const FieldType type = column.field->type;
    const bool isText = type == FieldType::text;
    if (isText && !guards_ && addPlain(csv_, column, record, writePlainCsvField)) return;
    text_.clear();
    from_.values.append(text_, column, record);
    if (isText || type == FieldType::choice) {
      if (guards_ && needsGuard(text_)) text_.insert(0, 1, '\'');
      field_.clear();
      appendCsvField(field_, text_);
      csv_ += field_;
    } else {
      csv_ += text_;
    }
  }

  const Export& from_;
  SinkBuffer csv_;
  bool guards_;
  std::string text_;
  std::string field_;
};

class JsonExport {
 public:
  JsonExport(const Export& from, TextSink& to) : from_(from), json_(to) {}

  void run() {
    const CollectionFile& collection = from_.collection;
    json_ += "{\"kind\":";
    addString(kindName(*collection.kind));
    json_ += ",\"version\":";
    addString(toUtf8(readable(collection.header.Version.view())));
    json_ += ",\"fileType\":" + std::to_string(collection.header.FileType) + ",\"items\":[";
    ItemReader reader(from_.files, collection);
    for (int item = 1; item <= from_.items(); ++item) {
      json_ += item == 1 ? "\n" : ",\n";
      addItem(item, reader.read(item));
      from_.tell(item);
    }
    json_ += "\n]}\n";
    json_.flush();
  }

 private:
  void addString(std::string_view text) {
    string_.clear();
    appendJsonString(string_, text);
    json_ += string_;
  }

  void addItem(int item, std::span<const std::byte> record) {
    json_ += "{\"item\":" + std::to_string(item);
    if (isDeleted(*from_.collection.kind, record)) json_ += ",\"deleted\":true";
    const auto& columns = from_.values.columns();
    for (std::size_t i = 0; i < columns.size(); i += columns[i].field->count) {
      const Field& field = *columns[i].field;
      ((json_ += ",\"") += field.name) += "\":";
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
    if (addPlain(json_, column, record, writePlainJsonString)) return;
    text_.clear();
    from_.values.append(text_, column, record);
    addString(text_);
  }

  /// Numbers stay numbers, flags of 0 and 1 become true and false, no choice becomes null.
  void addValue(const DataColumn& column, std::span<const std::byte> record) {
    const Field& field = *column.field;
    if (field.type == FieldType::text) return addText(column, record);
    text_.clear();
    from_.values.append(text_, column, record);
    switch (field.type) {
      case FieldType::text:  // handled above
      case FieldType::date:
        return addString(text_);
      case FieldType::flag:
        json_ += text_ == "0" ? "false" : text_ == "1" ? "true" : std::string_view(text_);
        return;
      case FieldType::choice:
        if (text_.empty())
          json_ += "null";
        else if (wholeNumberIn(text_))
          json_ += text_;
        else
          addString(text_);
        return;
      case FieldType::money:
      case FieldType::whole:
        json_ += text_;
        return;
      case FieldType::size:
        if (text_.find_first_of("ni") == std::string::npos)  // neither nan nor inf
          json_ += text_;
        else
          addString(text_);
        return;
    }
  }

  const Export& from_;
  SinkBuffer json_;
  std::string text_;
  std::string string_;
};

}  // namespace

void exportCsv(const Export& from, TextSink& to, CsvFor reader) {
  CsvExport(from, to, reader).run();
}

void exportJson(const Export& from, TextSink& to) { JsonExport(from, to).run(); }

}  // namespace quillbox
