#include "opendata/csv_text.h"

#include <cstring>

#include "opendata/text_scan.h"
#include "text/padding.h"

namespace quillbox {
namespace {

constexpr char kGuard = '\'';

/// Not 0 at the separators of any dialect, so that the file reads the same whatever separator a
/// reader assumes.
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
  char* const behindQuote = to + 1;
  scan::Block separator{};
  scan::Block care{};
  scan::copyBlocks(behindQuote, text, stored, [&](const scan::Block& block) {
    separator |= isSeparator(block);
    care |= scan::is(block, '"') | scan::isControl(block) | scan::isBeyondAscii(block);
  });
  if (scan::any(care)) return nullptr;
  if (!text.starts_with(' ') && !scan::any(separator)) {
    std::memmove(to, behindQuote, text.size());
    return to + text.size();
  }
  *to = '"';
  behindQuote[text.size()] = '"';
  return behindQuote + text.size() + 1;
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
