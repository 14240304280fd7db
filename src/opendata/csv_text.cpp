#include "opendata/csv_text.h"

#include <array>

namespace quillbox {
namespace {

constexpr char kGuard = '\'';

/// What makes quotes necessary: separators of any dialect among them, so that a file is read the
/// same whatever a reader takes for its separator.
constexpr std::array<bool, 256> kNeedsQuotes = [] {
  std::array<bool, 256> table{};
  for (const char c : {',', ';', '\t', '"', '\r', '\n'})
    table[static_cast<unsigned char>(c)] = true;
  return table;
}();

bool needsQuotes(std::string_view text) {
  if (text.empty()) return false;
  bool found = text.front() == ' ' || text.back() == ' ';
  for (const char c : text) found |= kNeedsQuotes[static_cast<unsigned char>(c)];
  return found;
}

}  // namespace

void appendCsvField(std::string& line, std::string_view text) {
  if (!needsQuotes(text)) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
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
