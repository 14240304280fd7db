#include "opendata/json_text.h"

#include <array>

namespace quillbox {
namespace {

constexpr std::array<bool, 256> kIsEscaped = [] {
  std::array<bool, 256> table{};
  for (std::size_t c = 0; c < ' '; ++c) table[c] = true;
  table['"'] = table['\\'] = table[0x7F] = true;
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
    json += text.substr(from, at - from);
    appendEscaped(json, text[at]);
    from = at + 1;
  }
  json += text.substr(from);
  json += '"';
}

}  // namespace quillbox
