#include "opendata/json_text.h"

#include <array>

#include "opendata/text_scan.h"
#include "text/padding.h"

namespace quillbox {
namespace {

/// In UTF-8, the control characters 80 to 9F are this byte and then their number.
constexpr unsigned char kFirstOfC1 = 0xC2;

constexpr std::array<bool, 256> kIsEscaped = [] {
  std::array<bool, 256> table{};
  for (std::size_t c = 0; c < ' '; ++c) table[c] = true;
  table['"'] = table['\\'] = table[0x7F] = true;
  table[kFirstOfC1] = true;
  return table;
}();

void appendEscaped(std::string& json, char c) {
  constexpr std::string_view digits = "0123456789abcdef";
  switch (c) {
    case '"':
    case '\\':
      json += '\\';
      json += c;
      return;
    case '\n':
      json += "\\n";
      return;
    case '\r':
      json += "\\r";
      return;
    case '\t':
      json += "\\t";
      return;
    default: {
      const auto code = static_cast<unsigned char>(c);
      json += "\\u00";
      json += digits[code >> 4U];
      json += digits[code & 0xFU];
    }
  }
}

}  // namespace

void appendJsonString(std::string& json, std::string_view text) {
  json += '"';
  std::size_t from = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!kIsEscaped[static_cast<unsigned char>(text[at])]) continue;
    const bool mayBeC1 = static_cast<unsigned char>(text[at]) == kFirstOfC1;
    if (mayBeC1 && (at + 1 == text.size() || static_cast<unsigned char>(text[at + 1]) >= 0xA0U))
      continue;
    json += text.substr(from, at - from);
    if (mayBeC1) ++at;
    appendEscaped(json, text[at]);
    from = at + 1;
  }
  json += text.substr(from);
  json += '"';
}

std::string jsonString(std::string_view text) {
  std::string json;
  appendJsonString(json, text);
  return json;
}

char* writePlainJsonString(char* to, std::string_view stored) {
  constexpr char remove = 0x7F;
  const std::string_view text = withoutTrailingBlanks(stored);
  scan::Block care{};
  *to++ = '"';
  scan::copyBlocks(to, text, stored, [&](const scan::Block& block) {
    care |= scan::isControl(block) | scan::isBeyondAscii(block) | scan::is(block, '"') |
            scan::is(block, '\\') | scan::is(block, remove);
  });
  if (scan::any(care)) return nullptr;
  to += text.size();
  *to++ = '"';
  return to;
}

}  // namespace quillbox
