// Commands that maintain a collection: check, restore, sort, undelete.

#include <algorithm>

#include "cli/commands.h"
#include "cli/opened.h"
#include "editors/media_types.h"
#include "opendata/check.h"
#include "opendata/data_error.h"
#include "opendata/json_text.h"
#include "opendata/restore.h"
#include "opendata/undelete.h"
#include "overview/doubles.h"
#include "platform/checked16.h"
#include "platform/file_paths.h"
#include "platform/run_time_error.h"
#include "sortsearch/sort_engine.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

/// Reports what is found, as text or as one JSON object for each file.
class Findings {
 public:
  Findings(Console& console, std::string file, bool asJson)
      : console_(console), file_(std::move(file)), asJson_(asJson) {}

  void take(int item, const std::string& what) {
    if (asJson_) {
      json_ += json_.empty() ? "{" : ",{";
      if (item > 0) json_ += "\"item\":" + std::to_string(item) + ",";
      json_ += "\"what\":" + jsonString(what) + "}";
    } else {
      const std::string where = item > 0 ? "item " + std::to_string(item) + ": " : "";
      console_.print(file_ + ": " + where + what + "\n");
    }
    ++found_;
  }

  int end(int items) {
    if (asJson_) {
      console_.print("{\"file\":" + jsonString(file_) + ",\"items\":" + std::to_string(items) +
                     ",\"findings\":[" + json_ + "]}");
    } else if (found_ == 0) {
      console_.print(file_ + ": " + std::to_string(items) + (items == 1 ? " item" : " items") +
                     ", nothing wrong\n");
    }
    return found_ == 0 ? kDone : kFoundOrRefused;
  }

 private:
  Console& console_;
  std::string file_;
  bool asJson_;
  std::string json_;
  int found_ = 0;
};

int checkOne(Console& console, const std::string& file, bool asJson) {
  const Opened opened(console, file);
  const CollectionFile& collection = opened.collection();
  Findings findings(console, file, asJson);
  const Finding take = [&](int item, const std::string& what) { findings.take(item, what); };
  checkFile(console.disk(), collection, take);
  Doubles doubles(opened.kind());
  opened.readItems([&](int item, auto record) {
    checkItem(opened.kind(), opened.values(), item, record, take);
    doubles.take(item, record);
  });
  for (const auto& group : doubles.groups())
    for (std::size_t i = 1; i < group.size(); ++i)
      take(group[i], "the same as item " + std::to_string(group.front()));
  return findings.end(collection.count);
}

/// A line on a terminal instead of the board.
class TerminalBoard : public NoBoard {
 public:
  TerminalBoard(Console& console, const std::string& file) : progress_(console.progressOf(file)) {}
  void progress(int done, int total) override {
    if (progress_) progress_(done, total);
  }

 private:
  Progress progress_;
};

/// Which of the keys are ticked; all names must be keys of one series.
std::vector<bool> ticksOf(const SortRules& rules, const std::vector<std::string>& names) {
  std::vector<bool> ticked(rules.keys.size(), false);
  for (const std::string& name : names) {
    const auto isNamed = [&](const SortKey& key) {
      return inCapitals(key.field->name) == inCapitals(name);
    };
    const auto key = std::ranges::find_if(rules.keys, isNamed);
    if (key == rules.keys.end()) {
      std::string known;
      for (const SortKey& other : rules.keys)
        known.append(known.empty() ? "" : ", ").append(other.field->name);
      throw WrongUse("\"" + name + "\" is no key to sort by; the keys are " + known);
    }
    ticked[static_cast<std::size_t>(key - rules.keys.begin())] = true;
  }
  return ticked;
}

}  // namespace

std::vector<std::string> ownMediaTypes(Console& console, const CollectionKind& kind) {
  if (kind.editor != EditorForm::music) return {};
  try {
    return readMediaTypes(console.disk()).entries;
  } catch (const RunTimeError& error) {
    // It must not come between users and their records.
    console.complain(error.file(), standardText(error.number()));
    return {};
  }
}

int runCheck(Console& console, const Files& files, bool asJson) {
  int status = kDone;
  bool isFirst = true;
  if (asJson) console.print("[");
  for (const std::string& file : files) {
    if (asJson) console.print(isFirst ? "\n" : ",\n");
    isFirst = false;
    int ended = console.guarded(file, [&] { return checkOne(console, file, asJson); });
    status = std::max(status, ended);
  }
  if (asJson) console.print("\n]\n");
  return status;
}

int runRestore(Console& console, const std::string& file, std::optional<BesideKind> from) {
  return console.guarded(file, [&] {
    const Restored restored =
        restoreCollection(console.disk(), fullPathOnDisk(console.disk(), file), from);
    console.print(file + ": put back from " + restored.from + ": " +
                  itemsText(kindOfPath(file), restored.count) + "\n");
    if (!restored.keptAs.empty())
      console.print("the collection as it was is kept as " + restored.keptAs + "\n");
    return kDone;
  });
}

int runSort(Console& console, const SortCommand& command) {
  return console.guarded(command.file, [&]() -> int {
    const CollectionFile collection = readCollectionFile(console.disk(), command.file);
    if (collection.isOfOlderType())
      throw DataError(
          "the collection is of an older file type; Quillbox upgrades it when it opens it");
    // All series, even for books, and then the file.
    SortRules rules = sortRulesOf(*collection.kind);
    rules.endsProgramAfter.reset();
    const std::vector<bool> ticked = ticksOf(rules, command.keys);
    OpenCollection open;
    open.currentPath = fullPathOnDisk(console.disk(), command.file);
    open.Count = checked16(collection.count);
    TerminalBoard board(console, command.file);
    const int count = sortCollection(console.files(), open, *collection.kind, rules, ticked, board);
    console.print(command.file + ": " + itemsText(*collection.kind, count) + " sorted\n");
    return kDone;
  });
}

int runUndelete(Console& console, const UndeleteCommand& command) {
  return console.guarded(command.file, [&] {
    const CollectionFile collection = readCollectionFile(console.disk(), command.file);
    const Values values(collection);
    const bool isAllThere = undeleteItem(console.files(), collection, values, command.item,
                                         command.text, command.store);
    console.print(command.file + ": item " + std::to_string(command.item) + " is back" +
                  (isAllThere ? "\n" : "; deleting it has emptied everything else\n"));
    return kDone;
  });
}

}  // namespace quillbox
