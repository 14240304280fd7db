#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/board.h"
#include "records/app_state.h"
#include "records/entered.h"
#include "sortsearch/search_rules.h"

namespace quillbox {

/// What to search for: a record of the kind and the conditions that the user set.
class Query {
 public:
  /// An empty text sets no condition, and neither does a list without a choice, nor the size of a
  /// file, which is on no form; a check box always does. What was typed is stored into the field as
  /// the editor stores it: run-time error 6 for a number outside its range. A date stored as a
  /// number is compared as its text in the short form `dateForm`.
  Query(const CollectionKind& kind, std::span<const Entered> inputs, std::string dateForm);

  /// Whether a record meets every condition; any flag other than 0 counts as ticked.
  bool matches(std::span<const std::byte> record) const;

 private:
  struct Condition {
    const Field* field;
    std::string text;  // what the record must have, for a text or a date
  };

  void add(const Entered& input);
  std::string_view taken(const Field& field, std::string_view typed) const;
  std::string wanted(std::string_view stored, std::string_view typed) const;
  bool meets(std::span<const std::byte> record, const Condition& condition) const;
  bool textMeets(std::string_view text, std::string_view wanted) const;

  const SearchRules& rules_;
  std::string dateForm_;
  std::vector<std::byte> record_;
  std::vector<Condition> conditions_;
};

/// An item with its record as the search read it.
struct FoundItem {
  std::int16_t item;
  std::vector<std::byte> record;
};

/// Finds the first item that matches, from item 1 on, including deleted items. Run-time error 63
/// when the file is shorter than its `Count` by more than its last item; an empty collection is not
/// even opened.
std::optional<FoundItem> findItem(OpenFiles& files, const OpenCollection& collection,
                                  const CollectionKind& kind, const Query& query, Board& board);

}  // namespace quillbox
