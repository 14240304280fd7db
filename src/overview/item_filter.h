#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "overview/item_index.h"
#include "text/folding.h"

namespace quillbox {

/// The items of an index that match: every word typed occurs somewhere in the item, even inside a
/// word; case and accents are ignored. Without words every item matches.
class ItemFilter {
 public:
  /// The index must outlive the filter.
  explicit ItemFilter(const ItemIndex& index) : index_(index) {}

  /// Searches for the words of `text` (Windows-1252) from now on. If they are stricter than the
  /// words before, only the items found so far are searched.
  void setWords(std::string_view text);

  /// Whether deleted items can match; initially they cannot.
  void showDeleted(bool shown);

  /// Only these items (in rising order) can match from now on, or all of them again: the items
  /// behind a bar of a summary.
  void setOnly(std::optional<std::vector<int>> items);

  /// The index has read more items: checks the new ones.
  void readOn();

  /// The index has taken an item.
  void take(int item);

  /// The index has started again, or has fewer items: checks everything again.
  void start();

  /// The matching items among those read, in rising order.
  const std::vector<int>& items() const { return items_; }

  bool isWanted(int item) const;

  /// Whether anything besides deleted items is left out.
  bool isActive() const { return !words_.empty() || only_.has_value(); }

  /// Where the words occur in a displayed text: the bytes to be drawn bold.
  std::vector<TextRange> matchesIn(std::string_view text) const { return wordRanges(text, words_); }

 private:
  /// A word and the position of its rarest character, which is searched for.
  struct Needle {
    std::string_view word;
    std::size_t rarest;
  };

  void takeAll();
  std::vector<Needle> needles() const;
  bool meets(int item, const std::vector<Needle>& needles) const;

  const ItemIndex& index_;
  std::vector<std::string> words_;
  std::optional<std::vector<int>> only_;
  bool showsDeleted_ = false;
  int looked_ = 0;  // items 1 to this one have been checked
  std::vector<int> items_;
};

}  // namespace quillbox
