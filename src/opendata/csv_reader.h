#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "opendata/rows.h"
#include "opendata/streams.h"

namespace quillbox {

/// Reads comma-separated values as in RFC 4180 and as spreadsheets write them: with a byte-order
/// mark, a first line "sep=;", semicolons or tabs for commas (whichever is most frequent in the
/// first record), line ends of any kind, even within quotes, where they are kept. Empty lines are
/// skipped. Only one record is in memory.
class CsvReader {
 public:
  explicit CsvReader(ByteSource& source) : source_(source) {}

  /// The next record; false at the end. The texts are valid until the next call. A DataError for
  /// quotes that are never closed, or closed in the middle of a field, and for UTF-16.
  bool next(std::vector<std::string_view>& fields);

  /// The number of the record read last, counted from 1 as spreadsheets count rows.
  int record() const { return record_; }

  char separator() const { return separator_; }

 private:
  struct Piece {
    std::size_t begin;
    std::size_t end;
    bool hasQuotes;  // doubled ones
  };
  enum class Found { record, nothing, moreNeeded };

  void begin();
  char mostOftenSeparator();
  void readMore();
  Found scan();
  bool endOfField(std::size_t& at, std::size_t begin);
  bool scanQuoted(std::size_t& at);
  std::string_view textOf(const Piece& piece);

  ByteSource& source_;
  std::string buffer_;
  std::size_t filled_ = 0;
  std::size_t at_ = 0;  // the part not returned yet
  std::size_t next_ = 0;
  bool atEnd_ = false;
  bool begun_ = false;
  char separator_ = ',';
  int record_ = 0;
  std::vector<Piece> pieces_;
};

/// Reads a CSV file with a header of column names and passes on its rows. A DataError for a header
/// with an unknown or repeated column or with none, and for a row with another number of fields.
void readCsv(ByteSource& source, const Values& values, RowSink& sink);

}  // namespace quillbox
