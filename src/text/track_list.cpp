#include "text/track_list.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace quillbox {
namespace {

constexpr std::string_view kDigits = "0123456789";

// UTF-8 of what can separate the parts of a line, besides ASCII. A no-break space, an object
// replacement character and a byte-order mark may come with copied text.
constexpr std::array<std::string_view, 5> kBlanks = {" ", "\t", "\xC2\xA0", "\xEF\xBF\xBC",
                                                     "\xEF\xBB\xBF"};
constexpr std::array<std::string_view, 4> kDashes = {"-", "\xE2\x80\x93", "\xE2\x80\x94",
                                                     "\xE2\x88\x92"};
constexpr std::array<std::string_view, 6> kLineBreaks = {"\n", "\r",           "\v",
                                                         "\f", "\xE2\x80\xA8", "\xE2\x80\xA9"};

template <std::size_t size>
std::size_t lengthAtStart(std::string_view text, const std::array<std::string_view, size>& any) {
  for (const std::string_view one : any)
    if (text.starts_with(one)) return one.size();
  return 0;
}

template <std::size_t size>
std::size_t lengthAtEnd(std::string_view text, const std::array<std::string_view, size>& any) {
  for (const std::string_view one : any)
    if (text.ends_with(one)) return one.size();
  return 0;
}

bool takeBlanks(std::string_view& text) {
  const std::size_t before = text.size();
  while (const std::size_t length = lengthAtStart(text, kBlanks)) text.remove_prefix(length);
  return text.size() < before;
}

bool takeBlanksAtEnd(std::string_view& text) {
  const std::size_t before = text.size();
  while (const std::size_t length = lengthAtEnd(text, kBlanks)) text.remove_suffix(length);
  return text.size() < before;
}

std::string_view withoutBlanks(std::string_view text) {
  takeBlanks(text);
  takeBlanksAtEnd(text);
  return text;
}

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t begin = 0;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t length = lengthAtStart(text.substr(at), kLineBreaks);
    if (at < text.size() && length == 0) {
      ++at;
      continue;
    }
    const std::string_view line = withoutBlanks(text.substr(begin, at - begin));
    if (!line.empty()) lines.push_back(line);
    at += std::max<std::size_t>(length, 1);
    begin = at;
  }
  return lines;
}

/// A number before a title.
struct Numbered {
  int number;
  bool isMarked;           ///< by more than a blank
  std::string_view title;  ///< the rest of the line
};

std::optional<Numbered> numberOf(std::string_view line) {
  constexpr std::size_t longest = 3;  // four digits are a year
  const std::size_t digits = std::min(line.find_first_not_of(kDigits), line.size());
  if (digits == 0 || digits > longest) return std::nullopt;
  Numbered found{0, line.front() == '0', line.substr(digits)};
  for (const char digit : line.substr(0, digits)) found.number = 10 * found.number + (digit - '0');

  bool isApart = found.title.starts_with('\t');
  found.isMarked |= isApart;
  isApart |= takeBlanks(found.title);
  std::size_t mark = lengthAtStart(found.title, kDashes);
  if (mark == 0 && std::string_view(".):").find(found.title.substr(0, 1)) != std::string_view::npos)
    mark = 1;
  if (mark > 0 && !found.title.empty()) {
    found.isMarked = true;
    found.title.remove_prefix(mark);
    isApart = takeBlanks(found.title);
  }
  if (!isApart || found.title.empty()) return std::nullopt;
  return found;
}

/// The whole text is "4:05" or "1:04:05".
bool isLength(std::string_view text) {
  constexpr std::size_t most = 3;  // hours, minutes, seconds
  std::size_t parts = 0;
  for (;;) {
    const std::size_t digits = std::min(text.find_first_not_of(kDigits), text.size());
    const bool isFirst = parts == 0;
    if (isFirst ? digits < 1 || digits > 3 : digits != 2 || text.front() > '5') return false;
    text.remove_prefix(digits);
    if (++parts > most) return false;
    if (text.empty()) return parts > 1;
    if (text.front() != ':') return false;
    text.remove_prefix(1);
  }
}

/// Without the dots that lead to a length; three of them end a title.
std::string_view withoutLeader(std::string_view title) {
  constexpr std::size_t fewest = 4;
  std::string_view before = title;
  while (before.ends_with('.')) before.remove_suffix(1);
  return title.size() - before.size() >= fewest ? withoutBlanks(before) : title;
}

/// A title without the length after it and the dots before that; nothing when it has no length.
std::optional<std::string_view> withoutLength(std::string_view line) {
  const std::size_t begin = line.find_last_not_of("0123456789:()[]") + 1;
  std::string_view length = line.substr(begin);
  std::string_view title = line.substr(0, begin);
  if (!takeBlanksAtEnd(title)) return std::nullopt;
  const bool isInBrackets = length.size() > 2 && ((length.front() == '(' && length.back() == ')') ||
                                                  (length.front() == '[' && length.back() == ']'));
  if (isInBrackets) length = length.substr(1, length.size() - 2);
  if (!isLength(length)) return std::nullopt;
  std::string_view before = title;
  if (const std::size_t dash = lengthAtEnd(before, kDashes)) {
    before.remove_suffix(dash);
    if (takeBlanksAtEnd(before)) title = before;
  }
  title = withoutLeader(title);
  if (title.empty()) return std::nullopt;
  return title;
}

bool isMost(std::size_t some, std::size_t all) { return 2 * some > all; }

void dropNumbers(std::vector<std::string_view>& lines) {
  constexpr std::size_t fewestUnmarked = 3;  // two lines may begin with numbers by chance
  std::size_t marked = 0;
  bool marksRise = true;
  bool countsAll = lines.size() >= fewestUnmarked;
  int lastMarked = 0;
  int line = 0;
  for (const std::string_view text : lines) {
    ++line;
    const auto found = numberOf(text);
    countsAll = countsAll && found && found->number == line;
    if (!found || !found->isMarked) continue;
    ++marked;
    marksRise = marksRise && (found->number > lastMarked || found->number == 1);
    lastMarked = found->number;
  }
  const bool dropsMarked = isMost(marked, lines.size()) && marksRise;
  if (!dropsMarked && !countsAll) return;
  for (std::string_view& text : lines)
    if (const auto found = numberOf(text); found && (countsAll || found->isMarked))
      text = found->title;
}

void dropLengths(std::vector<std::string_view>& lines) {
  const auto hasLength = [](std::string_view line) { return withoutLength(line).has_value(); };
  const auto some = static_cast<std::size_t>(std::ranges::count_if(lines, hasLength));
  if (!isMost(some, lines.size())) return;
  for (std::string_view& line : lines) line = withoutLength(line).value_or(line);
}

}  // namespace

bool hasLineBreaks(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at)
    if (lengthAtStart(text.substr(at), kLineBreaks) > 0) return true;
  return false;
}

std::vector<std::string> trackTitles(std::string_view text) {
  std::vector<std::string_view> lines = linesOf(text);
  if (lines.size() > 1) {
    dropNumbers(lines);
    dropLengths(lines);
  }
  std::vector<std::string> titles(lines.begin(), lines.end());
  for (std::string& title : titles) std::ranges::replace(title, '\t', ' ');
  return titles;
}

}  // namespace quillbox
