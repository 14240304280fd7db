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

/// A value of an item by its name: a field, or one entry of a list.
struct DataColumn {
  const Field* field;
  std::size_t entry;  ///< 0 unless the field is a list
  std::string name;   ///< "Artist", "Song 12"
};

/// What becomes of a text that a field cannot hold as it is.
struct StoreRules {
  bool cut = false;           ///< too long: its start is stored, otherwise refused
  bool replace = false;       ///< of characters without a byte: "?" is stored, otherwise refused
  bool decimalComma = false;  ///< an amount may have a comma before its decimals
};

/// The named values of the items of a collection as texts (UTF-8), both ways.
///
/// A text is what is readable of it. Amounts have a point and four places; flags and whole numbers
/// are numbers, flags nearly always 0 or 1; choices are the words of their lists, empty for none,
/// and numbers where there is no word that leads back; dates are ISO 8601, in local time without a
/// zone, and a number where the days are no date; a size is the shortest number that is read back
/// as the same.
class Values {
 public:
  /// `musicMediaTypes` (Windows-1252) takes the place of the built-in list unless it is empty.
  explicit Values(const CollectionFile& collection,
                  std::span<const std::string> musicMediaTypes = {});

  /// Every value but reserved bytes, in the order of the record, entries one after the other.
  const std::vector<DataColumn>& columns() const { return columns_; }

  /// The column of that name, capitals and small letters alike, or nullptr.
  const DataColumn* find(std::string_view name) const;

  /// Adds the text of a value.
  void append(std::string& text, const DataColumn& column, std::span<const std::byte> record) const;
  std::string text(const DataColumn& column, std::span<const std::byte> record) const;

  /// Stores what a text says. False, and not a byte is touched, when the value says the same
  /// already; so what a record holds that no text can say stays. A DataError when the field cannot
  /// hold it.
  bool store(const DataColumn& column, std::span<std::byte> record, std::string_view text,
             const StoreRules& rules) const;

  /// A record with nothing in it, as a new item begins: no choice made, the date that stands for
  /// none.
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
  std::vector<std::vector<std::string>> words_;        // of each field, where it is a choice
  std::vector<std::vector<std::string>> choiceTexts_;  // the same as texts for open data
};

/// The name of one entry of a list: "Songs" gives "Song".
std::string_view entryName(const Field& list);

/// True of a text of nothing but the characters of ASCII.
bool isAscii(std::string_view text);

}  // namespace quillbox
