#include "overview/item_filter.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillbox {
namespace {

/// Whether every item that matches `narrow` matches `wide` as well.
bool isNarrower(const std::vector<std::string>& narrow, const std::vector<std::string>& wide) {
  return std::ranges::all_of(wide, [&](const std::string& word) {
    return std::ranges::any_of(
        narrow, [&](const std::string& other) { return other.find(word) != std::string::npos; });
  });
}

/// Searches for the word by its character at `rarest`, which is fastest where that is rare.
bool contains(std::string_view text, std::string_view word, std::size_t rarest) {
  if (text.size() < word.size()) return false;
  const char* at = text.data() + rarest;
  const char* const end = at + (text.size() - word.size() + 1);
  while (at < end) {
    const void* const found = std::memchr(at, word[rarest], static_cast<std::size_t>(end - at));
    if (found == nullptr) return false;
    at = static_cast<const char*>(found);
    if (std::memcmp(at - rarest, word.data(), word.size()) == 0) return true;
    ++at;
  }
  return false;
}

}  // namespace

void ItemFilter::setWords(std::string_view text) {
  std::vector<std::string> words = foldedWords(text);
  if (words == words_) return;
  const bool narrower = isNarrower(words, words_);
  words_ = std::move(words);
  if (!narrower) return takeAll();
  const std::vector<Needle> needles = this->needles();
  std::erase_if(items_, [&](int item) { return !meets(item, needles); });
}

void ItemFilter::showDeleted(bool shown) {
  showsDeleted_ = shown;
  takeAll();
}

void ItemFilter::setOnly(std::optional<std::vector<int>> items) {
  only_ = std::move(items);
  takeAll();
}

void ItemFilter::start() { takeAll(); }

void ItemFilter::takeAll() {
  items_.clear();
  looked_ = 0;
  readOn();
}

void ItemFilter::readOn() {
  const std::vector<Needle> needles = this->needles();
  while (looked_ < index_.readItems())
    if (++looked_; meets(looked_, needles)) items_.push_back(looked_);
}

void ItemFilter::take(int item) {
  readOn();
  if (item < 1 || item > looked_) return;
  const auto at = std::ranges::lower_bound(items_, item);
  const bool was = at != items_.end() && *at == item;
  const bool is = meets(item, needles());
  if (is && !was) items_.insert(at, item);
  if (was && !is) items_.erase(at);
}

bool ItemFilter::isWanted(int item) const { return std::ranges::binary_search(items_, item); }

std::vector<ItemFilter::Needle> ItemFilter::needles() const {
  std::vector<Needle> needles;
  const auto frequency = [&](char c) { return index_.frequency(c); };
  for (const std::string& word : words_) {
    const auto rarest = std::ranges::min_element(word, {}, frequency);
    needles.push_back({word, static_cast<std::size_t>(rarest - word.begin())});
  }
  // What is most likely to be missing comes first.
  std::ranges::sort(needles, {},
                    [&](const Needle& needle) { return frequency(needle.word[needle.rarest]); });
  return needles;
}

bool ItemFilter::meets(int item, const std::vector<Needle>& needles) const {
  if (index_.isDeleted(item) && !showsDeleted_) return false;
  if (only_ && !std::ranges::binary_search(*only_, item)) return false;
  const std::string_view text = index_.foldedText(item);
  return std::ranges::all_of(
      needles, [&](const Needle& needle) { return contains(text, needle.word, needle.rarest); });
}

}  // namespace quillbox
