#include "cli/table.h"

#include <algorithm>

#include "opendata/json_text.h"

namespace quillbox {
namespace {

/// The number of UTF-8 characters: bytes that are not continuation bytes.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

}  // namespace

std::string printable(std::string text) {
  constexpr unsigned char remove = 0x7F;
  constexpr char firstOfC1 = '\xC2';  // followed by 80 to 9F
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto code = static_cast<unsigned char>(text[at]);
    if (code < ' ' || code == remove) text[at] = ' ';
    if (text[at] != firstOfC1 || at + 1 == text.size()) continue;
    if (static_cast<unsigned char>(text[at + 1]) < 0xA0U) text.replace(at, 2, " ");
  }
  return text;
}

void Table::add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }

std::string Table::aligned(bool boldHeads) const {
  std::vector<std::size_t> widths;
  for (const Head& head : heads_) widths.push_back(widthOf(head.name));
  std::vector<std::vector<std::string>> shown;
  for (const auto& row : rows_) {
    auto& line = shown.emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) {
      line.push_back(printable(row[i]));
      widths[i] = std::max(widths[i], widthOf(line.back()));
    }
  }
  std::string text;
  const auto addLine = [&](const auto& textAt) {
    std::string line;
    for (std::size_t i = 0; i < heads_.size(); ++i) {
      const std::string& cell = textAt(i);
      const std::string padding(widths[i] - widthOf(cell), ' ');
      if (i > 0) line += "  ";
      line += heads_[i].toTheRight ? padding + cell : cell + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  };
  if (boldHeads) text += "\033[1m";
  addLine([&](std::size_t i) -> const std::string& { return heads_[i].name; });
  if (boldHeads) text.insert(text.size() - 1, "\033[0m");
  for (const auto& row : shown)
    addLine([&](std::size_t i) -> const std::string& { return row[i]; });
  return text;
}

std::string Table::tabSeparated() const {
  std::string text;
  for (std::size_t i = 0; i < heads_.size(); ++i) text += (i > 0 ? "\t" : "") + heads_[i].name;
  text += '\n';
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? "\t" : "") + printable(row[i]);
    text += '\n';
  }
  return text;
}

std::string Table::json() const {
  std::string json = "[";
  for (std::size_t at = 0; at < rows_.size(); ++at) {
    json += at > 0 ? ",\n{" : "\n{";
    for (std::size_t i = 0; i < heads_.size(); ++i) {
      if (i > 0) json += ',';
      appendJsonString(json, heads_[i].name);
      json += ':';
      appendJsonString(json, rows_[at][i]);
    }
    json += '}';
  }
  return json + "\n]";
}

}  // namespace quillbox
