#include "opendata/csv_reader.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "opendata/csv_text.h"
#include "opendata/data_error.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr std::size_t kChunk = 65'536;
constexpr std::size_t kLongestRecord = 16'777'216;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::array<char, 3> kSeparators = {',', ';', '\t'};

bool isLineEnd(char c) { return c == '\n' || c == '\r'; }

}  // namespace

void CsvReader::readMore() {
  // What was returned is dropped; the rest moves to the front.
  if (at_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + at_, filled_ - at_);
    filled_ -= at_;
    at_ = 0;
  }
  if (filled_ > kLongestRecord) throw DataError("a record that does not end");
  buffer_.resize(std::max(buffer_.size(), std::min(2 * filled_, kLongestRecord) + kChunk));
  // All of it, however little arrives at once: the record is parsed again from its beginning.
  while (filled_ < buffer_.size() && !atEnd_) {
    const std::size_t read = source_.read(std::span(buffer_).subspan(filled_));
    filled_ += read;
    atEnd_ = read == 0;
  }
}

void CsvReader::begin() {
  begun_ = true;
  while (!atEnd_ && filled_ < kChunk) readMore();
  const std::string_view start(buffer_.data(), filled_);
  if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF"))
    throw DataError("the text is UTF-16; save it as UTF-8");
  if (start.starts_with(kByteOrderMark)) at_ = kByteOrderMark.size();
  const std::string_view text = start.substr(at_);
  constexpr std::string_view told = "sep=";
  const std::size_t place = told.size();
  if (text.size() > place && text.starts_with(told) &&
      (text.size() == place + 1 || isLineEnd(text[place + 1]))) {
    separator_ = text[place];
    at_ += place + 1;
  } else {
    separator_ = mostOftenSeparator();
  }
}

char CsvReader::mostOftenSeparator() {
  std::array<int, kSeparators.size()> times{};
  bool isQuoted = false;
  for (std::size_t at = at_; at < filled_; ++at) {
    const char c = buffer_[at];
    if (c == '"') isQuoted = !isQuoted;
    if (isQuoted) continue;
    if (isLineEnd(c)) break;
    for (std::size_t i = 0; i < times.size(); ++i)
      if (c == kSeparators.at(i)) ++times.at(i);
  }
  return kSeparators.at(static_cast<std::size_t>(std::ranges::max_element(times) - times.begin()));
}

bool CsvReader::next(std::vector<std::string_view>& fields) {
  if (!begun_) begin();
  fields.clear();
  for (;;) {
    const Found found = scan();
    if (found == Found::moreNeeded) {
      readMore();
      continue;
    }
    if (found == Found::nothing) return false;
    ++record_;
    at_ = next_;
    const bool isEmptyLine = pieces_.size() == 1 && pieces_.front().begin == pieces_.front().end;
    if (isEmptyLine) continue;
    for (const Piece& piece : pieces_) fields.push_back(textOf(piece));
    return true;
  }
}

/// Finds the fields of the record at `at_`, changing nothing.
CsvReader::Found CsvReader::scan() {
  pieces_.clear();
  std::size_t at = at_;
  if (at == filled_) return atEnd_ ? Found::nothing : Found::moreNeeded;
  for (;;) {
    if (at < filled_ && buffer_[at] == '"') {
      if (!scanQuoted(at)) return Found::moreNeeded;
    } else {
      const std::size_t begin = at;
      while (at < filled_ && buffer_[at] != separator_ && !isLineEnd(buffer_[at])) ++at;
      pieces_.push_back({begin, at, false});
    }
    // Needed to see whether a line feed follows a carriage return.
    if (at + 1 >= filled_ && !atEnd_) return Found::moreNeeded;
    if (at < filled_ && buffer_[at] == separator_) {
      ++at;
      continue;
    }
    if (at < filled_ && buffer_[at] == '\r' && at + 1 < filled_ && buffer_[at + 1] == '\n') ++at;
    next_ = std::min(at + 1, filled_);
    return Found::record;
  }
}

/// Parses a field in quotes; false when its end has not been read yet.
bool CsvReader::scanQuoted(std::size_t& at) {
  const std::size_t begin = at + 1;
  bool hasQuotes = false;
  std::size_t end = begin;
  for (;;) {
    const void* const quote = std::memchr(buffer_.data() + end, '"', filled_ - end);
    if (quote == nullptr) {
      if (atEnd_)
        throw DataError("row " + std::to_string(record_ + 1) + ": quotes that do not end");
      return false;
    }
    end = static_cast<std::size_t>(static_cast<const char*>(quote) - buffer_.data());
    if (end + 1 >= filled_ && !atEnd_) return false;
    if (end + 1 >= filled_ || buffer_[end + 1] != '"') break;
    hasQuotes = true;
    end += 2;
  }
  pieces_.push_back({begin, end, hasQuotes});
  at = end + 1;
  if (at < filled_ && buffer_[at] != separator_ && !isLineEnd(buffer_[at]))
    throw DataError("row " + std::to_string(record_ + 1) + ": text behind closing quotes");
  return true;
}

/// The text, with doubled quotes reduced to single ones in place.
std::string_view CsvReader::textOf(const Piece& piece) {
  char* const begin = buffer_.data() + piece.begin;
  const char* const end = buffer_.data() + piece.end;
  if (!piece.hasQuotes) return {begin, end};
  char* out = begin;
  for (const char* in = begin; in != end; ++in) {
    *out++ = *in;
    if (*in == '"') ++in;  // the second of a pair
  }
  return {begin, out};
}

namespace {

class CsvRows {
 public:
  CsvRows(ByteSource& source, const Values& values) : reader_(source), values_(values) {}

  void readInto(RowSink& sink) {
    if (!reader_.next(fields_)) throw DataError("there is no header");
    readHeader();
    while (reader_.next(fields_)) sink.row(rowOfFields());
  }

 private:
  void readHeader() {
    for (std::string_view name : fields_) {
      // A guarded header means that the texts below are guarded as well.
      if (name.starts_with('\'')) {
        areGuarded_ = true;
        name.remove_prefix(1);
      }
      const std::string wanted(withoutBlanksAround(name));
      const DataColumn* const column = values_.find(wanted);
      const bool isNumber = column == nullptr && isItemColumn(wanted);
      if (column == nullptr && !isNumber) throw DataError("unknown column \"" + wanted + "\"");
      const bool isTwice =
          isNumber ? numberAt_.has_value() : std::ranges::find(columns_, column) != columns_.end();
      if (isTwice) throw DataError("the column \"" + wanted + "\" is there twice");
      if (isNumber) numberAt_ = columns_.size();
      columns_.push_back(column);
    }
    if (columns_.size() == (numberAt_ ? 1U : 0U)) throw DataError("no column but the number");
    row_.decimalComma = reader_.separator() != ',';
  }

  static bool isItemColumn(std::string_view name) {
    return name.size() == kItemColumn.size() &&
           (name == kItemColumn || name == "item" || name == "ITEM");
  }

  const Row& rowOfFields() {
    row_.place = "row " + std::to_string(reader_.record());
    if (fields_.size() != columns_.size())
      throw DataError(row_.place + ": " + std::to_string(fields_.size()) +
                      " fields where the header has " + std::to_string(columns_.size()));
    row_.cells.clear();
    row_.number.reset();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const DataColumn* const column = columns_[i];
      if (column == nullptr) {
        row_.number = fields_[i];
        continue;
      }
      const bool isText =
          column->field->type == FieldType::text || column->field->type == FieldType::choice;
      row_.cells.push_back({column, areGuarded_ && isText ? withoutGuard(fields_[i]) : fields_[i]});
    }
    return row_;
  }

  CsvReader reader_;
  const Values& values_;
  std::vector<std::string_view> fields_;
  std::vector<const DataColumn*> columns_;  // null: the number
  std::optional<std::size_t> numberAt_;
  bool areGuarded_ = false;
  Row row_;
};

}  // namespace

void readCsv(ByteSource& source, const Values& values, RowSink& sink) {
  CsvRows(source, values).readInto(sink);
}

}  // namespace quillbox
