#include "opendata/html_text.h"

namespace quillbox {

void appendHtml(std::string& html, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default: {
        const bool isControl = static_cast<unsigned char>(c) < ' ' || c == 0x7F;
        html += isControl && c != '\n' ? ' ' : c;
      }
    }
  }
}

}  // namespace quillbox
