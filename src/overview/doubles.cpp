#include "overview/doubles.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "platform/ascii.h"
#include "records/app_state.h"
#include "text/folding.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr const Field* kMusic[] = {musicField("Artist"), musicField("Album")};
constexpr const Field* kVideo[] = {videoField("Label")};
constexpr const Field* kSoftware[] = {softwareField("DiskLabel")};
constexpr const Field* kComics[] = {comicField("BookTitle"), comicField("ComicTitle")};
constexpr const Field* kBooks[] = {bookField("Author"), bookField("Title")};
// Without the folder: files are moved, and the loader also knows them by name.
constexpr const Field* kMediaFiles[] = {mediaFileField("FileName")};

struct TellingRow {
  EditorForm editor;
  std::span<const Field* const> fields;
};
constexpr TellingRow kTelling[] = {
    {EditorForm::music, kMusic},   {EditorForm::video, kVideo}, {EditorForm::software, kSoftware},
    {EditorForm::comics, kComics}, {EditorForm::books, kBooks}, {EditorForm::wave, kMediaFiles},
};

constexpr std::string_view kArticles[] = {"the",  "a",   "an", "der", "die", "das", "ein",
                                          "eine", "le",  "la", "les", "un",  "une", "el",
                                          "los",  "las", "il", "lo",  "gli"};
constexpr std::string_view kArticleWithApostrophe = "l";

bool isWordCharacter(char c) { return isSmallLetter(c) || isDigit(c); }

/// A run of letters and digits, and what is around it.
struct Word {
  std::string_view text;
  bool followsComma;
  bool hasApostrophe;  ///< after it
};

std::vector<Word> wordsOf(std::string_view folded) {
  std::vector<Word> words;
  bool comma = false;
  for (std::size_t at = 0; at < folded.size();) {
    if (!isWordCharacter(folded[at])) {
      comma = comma || folded[at] == ',';
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < folded.size() && isWordCharacter(folded[end])) ++end;
    const bool apostrophe = end < folded.size() && folded[end] == '\'';
    words.push_back({folded.substr(at, end - at), comma, apostrophe});
    comma = false;
    at = end;
  }
  return words;
}

bool isArticle(const Word& word, bool isLast) {
  if (word.text == kArticleWithApostrophe) return word.hasApostrophe;
  return std::ranges::find(kArticles, word.text) != std::end(kArticles) &&
         (!isLast || word.followsComma);
}

/// Two adjacent numbers remain two.
void appendWord(std::string& text, std::string_view word) {
  if (!text.empty() && isDigit(text.back()) && isDigit(word.front())) text += ' ';
  text += word;
}

}  // namespace

std::span<const Field* const> tellingFields(const CollectionKind& kind) {
  return rowOf<kTelling>(kind.editor).fields;
}

std::string withoutTrimmings(std::string_view text) {
  const std::string all = folded(text);
  const std::vector<Word> words = wordsOf(all);
  std::string left;
  for (const Word& word : words)
    if (!isArticle(word, &word == &words.back())) appendWord(left, word.text);
  if (!left.empty()) return left;
  for (const Word& word : words) appendWord(left, word.text);
  if (!left.empty()) return left;
  left = all;
  std::erase(left, ' ');
  return left;
}

void Doubles::take(int item, std::span<const std::byte> record) {
  constexpr char betweenFields = '\n';
  const auto at = static_cast<std::size_t>(item - 1);
  if (at >= keys_.size()) keys_.resize(at + 1);
  keys_[at].clear();
  if (isDeleted(kind_, record)) return;
  std::string key;
  bool isBlank = true;
  for (const Field* field : tellingFields(kind_)) {
    const std::string told = withoutTrimmings(readable(textOf(*field, record)));
    isBlank = isBlank && told.empty();
    key.append(told) += betweenFields;
  }
  if (!isBlank) keys_[at] = std::move(key);
}

void Doubles::cutTo(int count) {
  keys_.resize(std::min(keys_.size(), static_cast<std::size_t>(std::max(count, 0))));
}

std::vector<std::vector<int>> Doubles::groups() const {
  std::unordered_map<std::string_view, std::size_t> placeOf;
  std::vector<std::vector<int>> groups;
  for (std::size_t at = 0; at < keys_.size(); ++at) {
    if (keys_[at].empty()) continue;
    const auto [place, isNew] = placeOf.try_emplace(keys_[at], groups.size());
    if (isNew) groups.emplace_back();
    groups[place->second].push_back(static_cast<int>(at) + 1);
  }
  std::erase_if(groups, [](const std::vector<int>& group) { return group.size() < 2; });
  return groups;
}

}  // namespace quillbox
