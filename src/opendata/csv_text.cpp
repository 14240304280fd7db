#include "opendata/csv_text.h"

#include "opendata/text_scan.h"

namespace quillbox {
namespace {

constexpr char kGuard = '\'';

/// What is in a text that asks for care. Separators of any dialect count, so that a file is read
/// the same whatever a reader takes for its separator, and so do all control characters.
struct Found {
  bool quote;
  bool separator;
  bool beyondAscii;
};

Found foundIn(std::string_view text) {
  scan::Block quote{};
  scan::Block separator{};
  scan::Block beyondAscii{};
  scan::eachBlock(text, [&](const scan::Block& block) {
    quote |= scan::is(block, '"');
    separator |= scan::is(block, ',') | scan::is(block, ';') | scan::isControl(block);
    beyondAscii |= scan::isBeyondAscii(block);
  });
  return {scan::any(quote), scan::any(separator), scan::any(beyondAscii)};
}

void appendField(std::string& line, std::string_view text, const Found& found) {
  const bool hasBlanksAround = !text.empty() && (text.front() == ' ' || text.back() == ' ');
  if (!found.quote && !found.separator && !hasBlanksAround) {
    line += text;
    return;
  }
  line += '"';
  while (found.quote) {
    const auto quote = text.find('"');
    if (quote == std::string_view::npos) break;
    line.append(text.substr(0, quote + 1)) += '"';
    text.remove_prefix(quote + 1);
  }
  line += text;
  line += '"';
}

}  // namespace

void appendCsvField(std::string& line, std::string_view text) {
  appendField(line, text, foundIn(text));
}

bool appendAsciiCsvField(std::string& line, std::string_view text) {
  const Found found = foundIn(text);
  if (found.beyondAscii) return false;
  appendField(line, text, found);
  return true;
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
