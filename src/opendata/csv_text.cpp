#include "opendata/csv_text.h"

#include "opendata/text_scan.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr char kGuard = '\'';

/// Not 0 in the places of separators of any dialect, so that a file is read the same whatever a
/// reader takes for its separator.
scan::Block isSeparator(const scan::Block& block) {
  return scan::is(block, ',') | scan::is(block, ';');
}

}  // namespace

void appendCsvField(std::string& line, std::string_view text) {
  scan::Block quote{};
  scan::Block care{};
  scan::eachBlock(text, [&](const scan::Block& block) {
    quote |= scan::is(block, '"');
    care |= scan::is(block, '"') | isSeparator(block) | scan::isControl(block);
  });
  const bool hasBlanksAround = !text.empty() && (text.front() == ' ' || text.back() == ' ');
  if (!scan::any(care) && !hasBlanksAround) {
    line += text;
    return;
  }
  line += '"';
  while (scan::any(quote)) {
    const auto place = text.find('"');
    if (place == std::string_view::npos) break;
    line.append(text.substr(0, place + 1)) += '"';
    text.remove_prefix(place + 1);
  }
  line += text;
  line += '"';
}

char* writePlainCsvField(char* to, std::string_view stored) {
  const std::string_view text = withoutTrailingBlanks(stored);
  scan::Block separator{};
  scan::Block care{};
  scan::eachBlockOf(text, stored, [&](const scan::Block& block, std::size_t /*at*/) {
    separator |= isSeparator(block);
    care |= scan::is(block, '"') | scan::isControl(block) | scan::isBeyondAscii(block);
  });
  if (scan::any(care)) return nullptr;
  const std::size_t quotes = text.starts_with(' ') || scan::any(separator) ? 1 : 0;
  *to = '"';
  to += quotes;
  scan::copy(to, text, stored);
  to += text.size();
  *to = '"';
  return to + quotes;
}

bool needsGuard(std::string_view text) {
  const auto first = text.find_first_not_of(kGuard);
  return first != std::string_view::npos &&
         std::string_view("=+-@\t\r\n").find(text[first]) != std::string_view::npos;
}

std::string_view withoutGuard(std::string_view text) {
  if (text.starts_with(kGuard) && needsGuard(text)) text.remove_prefix(1);
  return text;
}

}  // namespace quillbox
