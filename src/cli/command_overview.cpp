// Commands that read all items: loans, doubles, summary.

#include <algorithm>

#include "cli/commands.h"
#include "cli/opened.h"
#include "cli/table.h"
#include "opendata/data_error.h"
#include "opendata/json_text.h"
#include "overview/doubles.h"
#include "overview/loans.h"
#include "overview/summary.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// Runs a command on each file; its JSON output is an array of objects, each with its file. `run`
/// returns the rest of the object, or prints text and returns nothing.
template <typename Run>
int withEach(Console& console, const Files& files, bool asJson, const Run& run) {
  int status = kDone;
  bool isFirst = true;
  if (asJson) console.print("[");
  for (const std::string& file : files) {
    const int ended = console.guarded(file, [&]() -> int {
      const Opened opened(console, file);
      int found = kDone;
      const std::string text = run(opened, found);
      if (asJson)
        console.print((isFirst ? "\n{\"file\":" : ",\n{\"file\":") + jsonString(file) + text + "}");
      else
        console.print((files.size() > 1 ? file + "\n" : "") + text);
      isFirst = false;
      return found;
    });
    status = std::max(status, ended);
  }
  if (asJson) console.print("\n]\n");
  return status;
}

std::string loansOf(Console& console, const Opened& opened, bool asJson) {
  if (!Loans::hasLoans(opened.kind())) throw DataError("only music has loans");
  Loans loans(opened.kind(), shortDateForm());
  opened.readItems([&](int item, auto record) { loans.take(item, record); });
  Table table({{"Borrower"},
               {"Item", true},
               {"Artist"},
               {"Album"},
               {"Since"},
               {"Due"},
               {"Overdue"},
               {"Booklet"}});
  bool isAny = false;
  for (const BorrowerLoans& borrower : loans.byBorrower())
    for (const Loan& loan : borrower.loans) {
      isAny = true;
      table.add({toUtf8(borrower.name), std::to_string(loan.item), toUtf8(loan.artist),
                 toUtf8(loan.album), toUtf8(loan.since), toUtf8(loan.due),
                 loan.isOverdue(today()) ? "overdue" : "", loan.withBooklet ? "with booklet" : ""});
    }
  if (asJson) return ",\"loans\":" + table.json();
  return isAny ? table.aligned(console.showsColours()) : "nothing is on loan\n";
}

/// The fields that identify an item, as text.
std::string tellingText(const Opened& opened, std::span<const std::byte> record) {
  std::string text;
  for (const Field* field : tellingFields(opened.kind())) {
    if (!text.empty()) text += ", ";
    text += toUtf8(readable(textOf(*field, record)));
  }
  return text;
}

std::string doublesOf(Console& console, const Opened& opened, bool asJson, int& found) {
  Doubles doubles(opened.kind());
  opened.readItems([&](int item, auto record) { doubles.take(item, record); });
  const auto groups = doubles.groups();
  ItemReader reader(console.disk(), opened.collection());
  std::string text;
  for (const auto& group : groups) {
    if (asJson) text += text.empty() ? "\n[" : ",\n[";
    for (const int item : group) {
      const std::string telling = tellingText(opened, reader.readFull(item));
      if (asJson)
        text += std::string(text.ends_with('[') ? "" : ",") + "{\"item\":" + std::to_string(item) +
                ",\"text\":" + jsonString(telling) + "}";
      else
        text += "item " + std::to_string(item) + ": " + printable(telling) + "\n";
    }
    text += asJson ? "]" : "\n";
  }
  if (!groups.empty()) found = kFoundOrRefused;
  if (asJson) return ",\"doubles\":[" + text + "]";
  return groups.empty() ? "nothing is there twice\n" : text;
}

std::string summaryAsText(Console& console, const Opened& opened, const SummaryFigures& figures) {
  const bool hasPrices = priceFieldsOf(opened.kind()).worth != nullptr;
  std::string text = itemsText(opened.kind(), figures.totals.items);
  if (figures.deleted > 0) text += " and " + std::to_string(figures.deleted) + " deleted";
  if (hasPrices)
    text += ", paid " + figures.totals.cost.text() + ", worth " + figures.totals.worth.text();
  text += "\n";
  for (const BarGroup& group : figures.groups) {
    std::vector<Table::Head> heads = {{std::string(group.grouping->name)}, {"Items", true}};
    if (hasPrices) heads.insert(heads.end(), {{"Paid", true}, {"Worth", true}});
    Table table(heads);
    for (const Bar& bar : group.bars) {
      std::vector<std::string> row = {toUtf8(bar.label), std::to_string(bar.totals.items)};
      if (hasPrices) row.insert(row.end(), {bar.totals.cost.text(), bar.totals.worth.text()});
      table.add(std::move(row));
    }
    text += "\n" + table.aligned(console.showsColours());
  }
  return text;
}

std::string totalsAsJson(const Totals& totals, bool hasPrices) {
  std::string json = "\"items\":" + std::to_string(totals.items);
  if (hasPrices) json += ",\"paid\":" + totals.cost.text() + ",\"worth\":" + totals.worth.text();
  return json;
}

std::string summaryAsJson(const Opened& opened, const SummaryFigures& figures) {
  const bool hasPrices = priceFieldsOf(opened.kind()).worth != nullptr;
  std::string json = "," + totalsAsJson(figures.totals, hasPrices) +
                     ",\"deleted\":" + std::to_string(figures.deleted) + ",\"groups\":[";
  for (const BarGroup& group : figures.groups) {
    json += (json.ends_with('[') ? "\n{\"by\":" : ",\n{\"by\":") +
            jsonString(group.grouping->name) + ",\"bars\":[";
    for (const Bar& bar : group.bars)
      json += (json.ends_with('[') ? "{\"label\":" : ",{\"label\":") +
              jsonString(toUtf8(bar.label)) + "," + totalsAsJson(bar.totals, hasPrices) + "}";
    json += "]}";
  }
  return json + "]";
}

}  // namespace

int runLoans(Console& console, const Files& files, bool asJson) {
  return withEach(console, files, asJson, [&](const Opened& opened, int& /*found*/) {
    return loansOf(console, opened, asJson);
  });
}

int runDoubles(Console& console, const Files& files, bool asJson) {
  return withEach(console, files, asJson, [&](const Opened& opened, int& found) {
    return doublesOf(console, opened, asJson, found);
  });
}

int runSummary(Console& console, const Files& files, bool asJson) {
  return withEach(console, files, asJson, [&](const Opened& opened, int& /*found*/) {
    Summary summary(opened.kind(), opened.texts(shortDateForm()));
    opened.readItems([&](int item, auto record) { summary.take(item, record); });
    const SummaryFigures figures = summary.figures();
    return asJson ? summaryAsJson(opened, figures) : summaryAsText(console, opened, figures);
  });
}

}  // namespace quillbox
