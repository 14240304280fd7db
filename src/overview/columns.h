#pragma once

#include <span>
#include <string>
#include <string_view>

#include "records/kinds.h"
#include "records/record_texts.h"

namespace quillbox {

/// What a column shows, which decides how it is aligned and ordered.
enum class ColumnKind {
  text,    ///< natural order
  choice,  ///< the word; natural order
  tick,    ///< "Yes" or nothing; by value
  number,  ///< an amount, a whole number or a size; by value
  date,    ///< by value if it is one; a date that is typed freely may be any text
  list,    ///< the number of filled entries; by that number
};

/// A column of a list of all items of a kind.
struct Column {
  std::string_view name;  ///< of its input on the form, without access key and colon
  const Field* field;
  ColumnKind kind;
  bool shownAtFirst = false;  ///< one of the few that identify an item of the kind

  constexpr bool isNumeric() const {
    return kind == ColumnKind::number || kind == ColumnKind::date || kind == ColumnKind::list;
  }
};

/// A column for each visible field of the kind: the form's inputs in their order, then what is on
/// no form: lists, and the size of a media file.
std::span<const Column> columnsOf(const CollectionKind& kind);

/// The column of a field; nullptr for one that is never shown.
const Column* columnOf(const CollectionKind& kind, const Field& field);

/// A field's value as the editor shows it, without blanks at its end: Windows-1252. An amount is
/// plain, without the blank that some forms put before it.
std::string columnText(const Column& column, std::span<const std::byte> record,
                       const RecordTexts& texts);

/// The filled entries of a list.
int filledEntries(const Field& list, std::span<const std::byte> record);

}  // namespace quillbox
