#include "opendata/html_export.h"

#include <algorithm>

#include "opendata/html_parts.h"
#include "opendata/html_text.h"
#include "opendata/number_forms.h"
#include "overview/columns.h"
#include "overview/summary.h"
#include "text/date_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostBars = 12;  // in a grouping; the rest becomes one bar
constexpr std::size_t kAtOnce = 32'768;

/// A bar ready to be drawn.
struct DrawnBar {
  std::string label;  // UTF-8
  int items;
};

class HtmlExport {
 public:
  HtmlExport(const Export& from, const std::string& title, const RecordTexts& texts, TextSink& to)
      : from_(from),
        kind_(*from.collection.kind),
        title_(title),
        texts_(texts),
        to_(to),
        summary_(kind_, texts) {}

  void run() {
    lookAtAll();
    addHead();
    addBars();
    addTable();
    html_.append("<script>").append(html::script).append("</script>\n</body>\n</html>\n");
    write();
  }

 private:
  void write() {
    to_.write(html_);
    html_.clear();
  }

  /// The totals, and which columns have any values.
  void lookAtAll() {
    std::vector<const Column*> empty;
    for (const Column& column : columnsOf(kind_)) empty.push_back(&column);
    ItemReader reader(from_.files, from_.collection);
    for (int item = 1; item <= from_.items(); ++item) {
      const auto record = reader.readFull(item);
      summary_.take(item, record);
      if (isDeleted(kind_, record)) continue;
      std::erase_if(empty, [&](const Column* column) { return hasValue(*column, record); });
    }
    for (const Column& column : columnsOf(kind_))
      if (std::ranges::find(empty, &column) == empty.end()) columns_.push_back(&column);
  }

  bool hasValue(const Column& column, std::span<const std::byte> record) const {
    const std::string text = columnText(column, record, texts_);
    return !text.empty() && text != "0";
  }

  void addText(std::string_view record) { appendHtml(html_, toUtf8(record)); }

  void addHead() {
    html_ +=
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
        "style-src 'unsafe-inline'; script-src 'unsafe-inline'\">\n<title>";
    appendHtml(html_, title_);
    html_.append("</title>\n<style>").append(html::style);
    addNamesForNarrowScreens();
    html_ += "</style>\n</head>\n<body>\n<h1>";
    appendHtml(html_, title_);
    html_ += "</h1>\n<p>";
    const SummaryFigures figures = summary_.figures();
    appendHtml(html_, itemsText(kind_, figures.totals.items));
    if (priceFieldsOf(kind_).worth != nullptr)
      html_ += ", paid " + figures.totals.cost.text() + ", worth " + figures.totals.worth.text();
    html_ += "</p>\n";
  }

  /// Where a row becomes a block, each cell shows its column's name.
  void addNamesForNarrowScreens() {
    html_ += "@media (max-width: 45rem) {\n";
    for (std::size_t i = 0; i < columns_.size(); ++i)
      html_.append("  td:nth-child(")
          .append(std::to_string(i + 2))
          .append(")::before { content: \"")
          .append(columns_[i]->name)
          .append("\"; }\n");
    html_ += "}\n";
  }

  void addBars() {
    html_ += "<div class=\"bars\">\n";
    for (const BarGroup& group : summary_.figures().groups) addGroup(group);
    html_ += "</div>\n";
  }

  void addGroup(const BarGroup& group) {
    std::vector<DrawnBar> bars;
    int others = 0;
    const bool showsAll = group.grouping->by == Grouping::By::year;
    for (const Bar& bar : group.bars) {
      if (showsAll || bars.size() < kMostBars || group.bars.size() == kMostBars + 1)
        bars.push_back({toUtf8(bar.label), bar.totals.items});
      else
        others += bar.totals.items;
    }
    if (others > 0) bars.push_back({"(others)", others});
    if (bars.empty()) return;
    html_ += "<figure>\n<figcaption>";
    appendHtml(html_, group.grouping->name);
    html_ += "</figcaption>\n";
    addDrawing(bars, group.grouping->name);
    html_ += "</figure>\n";
  }

  void addDrawing(const std::vector<DrawnBar>& bars, std::string_view name) {
    constexpr int width = 400;
    constexpr int height = 22;
    constexpr int labelWidth = 176;
    constexpr int barWidth = 180;
    const int most = std::ranges::max_element(bars, {}, &DrawnBar::items)->items;
    html_ += "<svg viewBox=\"0 0 " + std::to_string(width) + " " +
             std::to_string(height * static_cast<int>(bars.size())) +
             "\" role=\"img\" aria-label=\"";
    appendHtml(html_, name);
    for (const DrawnBar& bar : bars) {
      html_ += ", ";
      appendHtml(html_, bar.label);
      html_ += ": " + std::to_string(bar.items);
    }
    html_ += "\">\n";
    int top = 0;
    for (const DrawnBar& bar : bars) {
      const int length = std::max(1, barWidth * bar.items / std::max(most, 1));
      html_ += "<text x=\"0\" y=\"" + std::to_string(top + 16) + "\">";
      appendHtml(html_, shortened(bar.label));
      html_ += "</text><rect x=\"" + std::to_string(labelWidth) + "\" y=\"" +
               std::to_string(top + 4) + "\" width=\"" + std::to_string(length) +
               "\" height=\"15\" rx=\"2\"/><text x=\"" + std::to_string(labelWidth + length + 6) +
               "\" y=\"" + std::to_string(top + 16) + "\">" + std::to_string(bar.items) +
               "</text>\n";
      top += height;
    }
    html_ += "</svg>\n";
  }

  /// As much of a label as fits.
  static std::string shortened(const std::string& label) {
    constexpr std::size_t room = 21;
    std::size_t characters = 0;
    for (std::size_t at = 0; at < label.size(); ++at) {
      const bool isStart = (static_cast<unsigned char>(label[at]) & 0xC0U) != 0x80U;
      if (isStart && ++characters > room) return label.substr(0, at) + "\xE2\x80\xA6";
    }
    return label;
  }

  void addTable() {
    html_ +=
        "<div class=\"tools\"><label>Filter <input id=\"filter\" type=\"search\"></label>"
        "<output id=\"count\" for=\"filter\"></output></div>\n"
        "<div class=\"wide\"><table>\n<thead><tr><th class=\"n\" scope=\"col\">"
        "<button type=\"button\">#</button></th>";
    for (const Column* column : columns_) {
      html_ += isNumber(*column) ? "<th class=\"n\" scope=\"col\">" : "<th scope=\"col\">";
      html_ += "<button type=\"button\">";
      appendHtml(html_, column->name);
      html_ += "</button></th>";
    }
    html_ += "</tr></thead>\n<tbody>\n";
    ItemReader reader(from_.files, from_.collection);
    for (int item = 1; item <= from_.items(); ++item) {
      const auto record = reader.readFull(item);
      if (!isDeleted(kind_, record)) addRow(item, record);
      from_.tell(item);
      if (html_.size() > kAtOnce) write();
      from_.tell(item);
    }
    html_ += "</tbody>\n</table></div>\n";
  }

  /// Dates that are typed freely count as texts here.
  static bool isNumber(const Column& column) {
    return column.isNumeric() && column.field->type != FieldType::text;
  }

  void addRow(int item, std::span<const std::byte> record) {
    const std::string number = std::to_string(item);
    html_ += "<tr><td class=\"n\" data-v=\"" + number + "\">" + number + "</td>";
    for (const Column* column : columns_) {
      if (column->kind == ColumnKind::list)
        addList(*column->field, record);
      else
        addCell(*column, record);
    }
    html_ += "</tr>\n";
  }

  void addCell(const Column& column, std::span<const std::byte> record) {
    html_ += "<td";
    if (column.kind == ColumnKind::text) html_ += " class=\"t\"";
    if (isNumber(column)) html_ += " class=\"n\" data-v=\"" + valueOf(*column.field, record) + "\"";
    html_ += '>';
    addText(columnText(column, record, texts_));
    html_ += "</td>";
  }

  /// A number to sort by.
  static std::string valueOf(const Field& field, std::span<const std::byte> record) {
    switch (field.type) {
      case FieldType::money:
        return std::to_string(moneyOf(field, record));
      case FieldType::date:
      case FieldType::size:
        return shortestReal(realOf(field, record));
      default:
        return std::to_string(wholeOf(field, record));
    }
  }

  void addList(const Field& list, std::span<const std::byte> record) {
    const int filled = filledEntries(list, record);
    html_ += "<td>";
    if (filled > 0) {
      html_ += "<details><summary>" + std::to_string(filled) + "</summary><ol>";
      for (std::size_t entry = 0; entry < list.count; ++entry) {
        const std::string_view text = readable(textOf(list, record, entry));
        if (text.empty()) continue;
        html_ += "<li value=\"" + std::to_string(entry + 1) + "\">";
        addText(text);
        html_ += "</li>";
      }
      html_ += "</ol></details>";
    }
    html_ += "</td>";
  }

  const Export& from_;
  const CollectionKind& kind_;
  const std::string& title_;
  const RecordTexts& texts_;
  TextSink& to_;
  Summary summary_;
  std::vector<const Column*> columns_;
  std::string html_;
};

}  // namespace

void exportHtml(const Export& from, const std::string& title, const RecordTexts& texts,
                TextSink& to) {
  HtmlExport(from, title, texts, to).run();
}

}  // namespace quillbox
