#include <algorithm>

#include "cli/commands.h"
#include "cli/opened.h"
#include "cli/table.h"
#include "opendata/rows.h"
#include "overview/columns.h"
#include "overview/item_order.h"
#include "text/folding.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// What can be listed, searched and ordered by: a value, all entries of a list, the number.
struct Listed {
  std::string name;
  std::vector<const DataColumn*> columns;  // none: the number
};

class ItemList {
 public:
  ItemList(Console& console, const ListCommand& command)
      : console_(console), command_(command), opened_(console, command.file) {}

  void run() {
    const std::vector<Listed> listed = columnsToList();
    const std::vector<int> items = inOrder(wantedItems());
    Table table(headsOf(listed));
    ItemReader reader(console_.disk(), opened_.collection());
    for (const int item : items) {
      const auto record = reader.readFull(item);
      std::vector<std::string> row;
      for (const Listed& one : listed)
        row.push_back(one.columns.empty() ? std::to_string(item) : textOf(one, record));
      table.add(std::move(row));
    }
    if (command_.asJson)
      console_.print(table.json() + "\n");
    else
      console_.print(command_.asTsv ? table.tabSeparated()
                                    : table.aligned(console_.showsColours()));
  }

 private:
  Listed named(const std::string& name) const {
    const auto isSame = [&](std::string_view other) {
      return inCapitals(fromUtf8(name)) == inCapitals(other);
    };
    if (isSame(kItemColumn)) return {std::string(kItemColumn), {}};
    Listed found{name, {}};
    for (const DataColumn& column : opened_.values().columns())
      if (isSame(column.name) || isSame(column.field->name)) found.columns.push_back(&column);
    if (found.columns.empty()) throw WrongUse("there is no field \"" + name + "\"");
    const DataColumn& first = *found.columns.front();
    found.name = found.columns.size() > 1 ? std::string(first.field->name) : first.name;
    return found;
  }

  std::vector<Listed> columnsToList() const {
    std::vector<Listed> listed;
    for (const std::string& name : command_.columns) listed.push_back(named(name));
    if (!listed.empty()) return listed;
    listed.push_back(named(std::string(kItemColumn)));
    for (const Column& column : columnsOf(opened_.kind()))
      if (column.shownAtFirst) listed.push_back(named(std::string(column.field->name)));
    return listed;
  }

  std::vector<Table::Head> headsOf(const std::vector<Listed>& listed) const {
    std::vector<Table::Head> heads;
    for (const Listed& one : listed) {
      const FieldType type =
          one.columns.empty() ? FieldType::whole : one.columns.front()->field->type;
      const bool isNumber =
          type == FieldType::whole || type == FieldType::money || type == FieldType::size;
      heads.push_back({one.name, isNumber});
    }
    return heads;
  }

  /// The filled entries of a list, one after another.
  std::string textOf(const Listed& one, std::span<const std::byte> record) const {
    std::string text;
    for (const DataColumn* column : one.columns) {
      const std::string value = opened_.values().text(*column, record);
      if (!text.empty() && !value.empty()) text += " / ";
      text += value;
    }
    return text;
  }

  struct Condition {
    Listed listed;
    std::string folded;
  };

  std::vector<Condition> conditions() const {
    std::vector<Condition> conditions;
    for (const std::string& where : command_.where) {
      const auto sign = where.find('=');
      if (sign == std::string::npos) throw WrongUse("\"" + where + "\" is not FIELD=TEXT");
      conditions.push_back(
          {named(where.substr(0, sign)), folded(fromUtf8(where.substr(sign + 1)))});
    }
    return conditions;
  }

  std::vector<int> wantedItems() const {
    const std::vector<Condition> all = conditions();
    std::vector<int> items;
    opened_.readItems([&](int item, std::span<const std::byte> record) {
      if (isDeleted(opened_.kind(), record) && !command_.withDeleted) return;
      const auto meets = [&](const Condition& condition) {
        const std::string text = condition.listed.columns.empty()
                                     ? std::to_string(item)
                                     : textOf(condition.listed, record);
        if (condition.folded.empty()) return text.empty();
        return folded(fromUtf8(text)).find(condition.folded) != std::string::npos;
      };
      if (std::ranges::all_of(all, meets)) items.push_back(item);
    });
    return items;
  }

  /// By the last key first, so that each sort keeps the order of the keys after it.
  std::vector<int> inOrder(std::vector<int> items) const {
    for (auto key = command_.sort.rbegin(); key != command_.sort.rend(); ++key) {
      std::string name = *key;
      constexpr std::string_view down = ":down";
      const bool isDown = name.ends_with(down);
      if (isDown) name.resize(name.size() - down.size());
      const Listed by = named(name);
      if (by.columns.empty()) {
        std::ranges::sort(items);
        if (isDown) std::ranges::reverse(items);
        continue;
      }
      items =
          orderedBy(*by.columns.front()->field, isDown ? Direction::down : Direction::up, items);
    }
    return items;
  }

  std::vector<int> orderedBy(const Field& field, Direction direction,
                             const std::vector<int>& items) const {
    ItemOrder order(*columnOf(opened_.kind(), field), opened_.texts(kIsoDates));
    ItemReader reader(console_.disk(), opened_.collection());
    for (std::size_t at = 0; at < items.size(); ++at)
      order.take(static_cast<int>(at) + 1, reader.readFull(items[at]));
    std::vector<int> ordered;
    for (const int place : order.order(direction))
      ordered.push_back(items[static_cast<std::size_t>(place) - 1]);
    return ordered;
  }

  Console& console_;
  const ListCommand& command_;
  Opened opened_;
};

}  // namespace

int runList(Console& console, const ListCommand& command) {
  return console.guarded(command.file, [&] {
    ItemList(console, command).run();
    return kDone;
  });
}

}  // namespace quillbox
