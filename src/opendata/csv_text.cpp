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
  scan::Word quote = 0;
  scan::Word separator = 0;
  scan::Word beyondAscii = 0;
  scan::eachEight(text, [&](scan::Word eight) {
    quote |= scan::anyIs(eight, '"');
    separator |= scan::anyIs(eight, ',') | scan::anyIs(eight, ';') | scan::anyIsControl(eight);
    beyondAscii |= scan::anyIsBeyondAscii(eight);
  });
  return {quote != 0, separator != 0, beyondAscii != 0};
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
