#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "overview/item_index.h"
#include "text/folding.h"

namespace quillbox {

/// The items of an index that are wanted: every word that was typed occurs somewhere in the item,
/// capitals and accents aside, be it in the middle of a word. Without words every item is wanted.
class ItemFilter {
 public:
  /// The index must outlive the filter.
  explicit ItemFilter(const ItemIndex& index) : index_(index) {}

  /// Looks for the words of `text` (Windows-1252) from now on. Where they ask for more than the
  /// words before, only the items that met those are looked at.
  void setWords(std::string_view text);

  /// Whether deleted items may be wanted, too; they are not at first.
  void showDeleted(bool shown);

  /// Only these items (in rising order) may be wanted from now on, or every one again: what a bar
  /// of a summary stands for.
  void setOnly(std::optional<std::vector<int>> items);

  /// The index has read on: looks at what is new.
  void readOn();

  /// The index has taken an item.
  void take(int item);

  /// The index has started anew, or has fewer items: looks at everything again.
  void start();

  /// The items that are wanted, of those that were read, in rising order.
  const std::vector<int>& items() const { return items_; }

  bool isWanted(int item) const;

  /// Whether anything is left out but deleted items.
  bool isActive() const { return !words_.empty() || only_.has_value(); }

  /// Where the words occur in a text that is shown: bytes of it, to be drawn bold.
  std::vector<TextRange> matchesIn(std::string_view text) const { return wordRanges(text, words_); }

 private:
  /// A word and the place in it of its rarest character, by which it is looked for.
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
  int looked_ = 0;  // the items 1 to this one were looked at
  std::vector<int> items_;
};

}  // namespace quillbox
