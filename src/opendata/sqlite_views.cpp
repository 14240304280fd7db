#include "opendata/sqlite_views.h"

#include <algorithm>

#include "overview/loans.h"
#include "overview/summary.h"
#include "platform/ascii.h"

namespace quillbox {
namespace {

constexpr std::string_view kUnit = " / 10000.0";

std::string quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

/// A view of the items' fields in readable form.
std::string catalogueOf(const CollectionKind& kind) {
  std::string text = "CREATE VIEW catalogue AS SELECT item";
  for (const Field& field : kind.fields) {
    if (field.name == "Reserved") continue;
    text += ", ";
    if (field.count > 1)
      text +=
          "(SELECT group_concat(text, char(10)) FROM (SELECT text FROM entries"
          " WHERE entries.item = items.item ORDER BY position)) AS ";
    text += quoted(field.name);
    if (field.type == FieldType::money)
      text.append(kUnit).append(" AS ").append(quoted(field.name));
  }
  return text + " FROM items WHERE deleted = 0;\n";
}

std::string sumOf(const Field& field, std::string_view name) {
  std::string text = ", total(" + quoted(field.name) + ")";
  if (field.type == FieldType::money) text += kUnit;
  return text.append(" AS ").append(name);
}

std::string groupingView(const CollectionKind& kind, const Grouping& grouping) {
  const PriceFields prices = priceFieldsOf(kind);
  std::string name(grouping.field->name == "MediaType" ? "Type" : grouping.field->name);
  std::ranges::transform(name, name.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  });
  std::string text = "CREATE VIEW ";
  text.append(prices.worth == nullptr ? "items_by_" : "worth_by_")
      .append(name)
      .append(" AS SELECT ");
  text += quoted(grouping.field->name) + ", count(*) AS items";
  if (prices.worth != nullptr) text += sumOf(*prices.cost, "cost") + sumOf(*prices.worth, "worth");
  return text + " FROM items WHERE deleted = 0 GROUP BY 1 ORDER BY items DESC, 1;\n";
}

}  // namespace

std::string viewsOf(const CollectionKind& kind) {
  std::string text = catalogueOf(kind);
  if (Loans::hasLoans(kind))
    text +=
        "CREATE VIEW loans AS SELECT Borrower, Artist, Album, DateLoaned, DueDate, BookLoaned, item"
        " FROM items WHERE deleted = 0 AND CurrLoaned <> 0 ORDER BY Borrower, item;\n";
  for (const Grouping& grouping : groupingsOf(kind))
    if (grouping.by == Grouping::By::entry || grouping.by == Grouping::By::text)
      text += groupingView(kind, grouping);
  return text;
}

}  // namespace quillbox
