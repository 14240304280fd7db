#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "opendata/collection_file.h"
#include "records/field.h"

namespace quillbox {

/// A named value of an item: a field, or one entry of a list.
struct DataColumn {
  const Field* field;
  std::size_t entry;  ///< 0 unless the field is a list
  std::string name;   ///< "Artist", "Song 12"
};

/// What happens to a text that a field cannot hold unchanged.
struct StoreRules {
  bool cut = false;           ///< too long: its beginning is stored; otherwise refused
  bool replace = false;       ///< for characters without a byte "?" is stored; otherwise refused
  bool decimalComma = false;  ///< an amount may have a decimal comma
};

/// The named values of a collection's items as texts (UTF-8), in both directions.
///
/// A text is the readable part. Amounts have a point and four decimals; flags and whole numbers are
/// numbers, flags nearly always 0 or 1; choices are the words of their lists, empty for none, and
/// numbers where no word leads back; dates are ISO 8601, in local time without a zone, or numbers
/// where they are no valid date; a size is the shortest number that is read back as the same.
class Values {
 public:
  /// `musicMediaTypes` (Windows-1252) replaces the built-in list unless it is empty.
  explicit Values(const CollectionFile& collection,
                  std::span<const std::string> musicMediaTypes = {});

  /// Every value except reserved bytes, in record order, the entries of a list one after another.
  const std::vector<DataColumn>& columns() const { return columns_; }

  /// The column of that name, ignoring case, or nullptr.
  const DataColumn* find(std::string_view name) const;

  /// Adds the text of a value.
  void append(std::string& text, const DataColumn& column, std::span<const std::byte> record) const;
  std::string text(const DataColumn& column, std::span<const std::byte> record) const;

  /// Stores the value of a text. False, with no byte changed, if the record already has that value;
  /// so whatever the record holds that no text can express is kept. A DataError when the field
  /// cannot hold it.
  bool store(const DataColumn& column, std::span<std::byte> record, std::string_view text,
             const StoreRules& rules) const;

  /// An empty record, as a new item begins: no choice made, the date that stands for none.
  std::vector<std::byte> emptyRecord() const;

  /// The words of a choice (Windows-1252).
  const std::vector<std::string>& wordsOf(const Field& field) const;

 private:
  void appendChoice(std::string& text, const Field& field, std::int16_t place) const;
  std::vector<std::string> textsOfChoice(const Field& field) const;
  std::size_t numberOf(const Field& field) const;
  std::int16_t choiceOf(const Field& field, std::string_view text) const;

  std::span<const Field> fields_;
  std::size_t recordLength_;
  std::vector<DataColumn> columns_;
  std::vector<std::vector<std::string>> words_;        // for each field that is a choice
  std::vector<std::vector<std::string>> choiceTexts_;  // the same as open data has them
};

/// The name of one entry of a list: for "Songs" it is "Song".
std::string_view entryName(const Field& list);

/// True for a text of ASCII characters only.
bool isAscii(std::string_view text);

}  // namespace quillbox
