#include "cli/commands.h"
#include "opendata/csv_reader.h"
#include "opendata/data_error.h"
#include "opendata/json_reader.h"
#include "opendata/json_text.h"
#include "platform/run_time_error.h"

namespace quillbox {
namespace {

std::string itemsOf(int number) {
  return std::to_string(number) + (number == 1 ? " item" : " items");
}

/// Reports each change as it comes, as text or as one JSON object.
class Plan : public ImportWatcher {
 public:
  Plan(Console& console, const ImportCommand& command, const Values& values)
      : console_(console),
        command_(command),
        values_(values),
        empty_(values.emptyRecord()),
        progress_(console.progressOf(command.input)) {
    if (command.asJson) console.print("{\"changes\":[");
  }

  void changed(int item, const DataColumn& column, const std::string& before,
               const std::string& after) override {
    if (!command_.asJson)
      return console_.print("item " + std::to_string(item) + ": " + column.name + ": " +
                            jsonString(before) + " -> " + jsonString(after) + "\n");
    begin(item, "changed");
    console_.print(",\"column\":" + jsonString(column.name) + ",\"before\":" + jsonString(before) +
                   ",\"after\":" + jsonString(after) + "}");
  }

  void added(int item, std::span<const std::byte> record) override {
    std::string told;
    for (const DataColumn& column : values_.columns()) {
      const std::string text = values_.text(column, record);
      if (text == values_.text(column, empty_)) continue;
      if (!told.empty()) told += command_.asJson ? "," : ", ";
      told += command_.asJson ? jsonString(column.name) + ":" : column.name + ": ";
      told += jsonString(text);
    }
    if (!command_.asJson)
      return console_.print("item " + std::to_string(item) + ": added: " + told + "\n");
    begin(item, "added");
    console_.print(",\"values\":{" + told + "}}");
  }

  void wrong(const std::string& place, const std::string& why) override {
    console_.complain(command_.input, place + ": " + why);
  }

  void read(int rows) override {
    if (progress_) progress_(rows, 0);
  }

  void end(const ImportResult& result) {
    if (command_.asJson)
      return console_.print("\n],\"rows\":" + std::to_string(result.rows) +
                            ",\"changed\":" + std::to_string(result.changed) +
                            ",\"added\":" + std::to_string(result.added) +
                            ",\"wrong\":" + std::to_string(result.wrong) +
                            ",\"written\":" + (isWritten(result) ? "true" : "false") +
                            ",\"keptAs\":" + jsonString(result.keptAs) + "}\n");
    if (result.wrong > 0) return;
    if (result.changed + result.added == 0)
      return console_.print(command_.options.makesNew && !command_.options.dryRun
                                ? "a collection without items is made\n"
                                : "nothing to change\n");
    console_.print(std::string(command_.options.dryRun ? "would be " : "") +
                   itemsOf(result.changed) + " changed, " + itemsOf(result.added) + " added\n");
    if (!result.keptAs.empty())
      console_.print("the collection as it was is kept as " + result.keptAs + "\n");
  }

 private:
  bool isWritten(const ImportResult& result) const {
    return result.wrong == 0 && !command_.options.dryRun &&
           (result.changed + result.added > 0 || command_.options.makesNew);
  }

  void begin(int item, const std::string& what) {
    console_.print((isFirst_ ? "\n{\"item\":" : ",\n{\"item\":") + std::to_string(item) +
                   ",\"what\":" + jsonString(what));
    isFirst_ = false;
  }

  Console& console_;
  const ImportCommand& command_;
  const Values& values_;
  const std::vector<std::byte> empty_;
  const Progress progress_;
  bool isFirst_ = true;
};

}  // namespace

int runImport(Console& console, const ImportCommand& command) {
  return console.guarded(command.file, [&]() -> int {
    FileSystem& disk = console.disk();
    const CollectionFile collection = command.options.makesNew
                                          ? collectionToMake(command.file)
                                          : readCollectionFile(disk, command.file);
    const std::vector<std::string> mediaTypes = ownMediaTypes(console, *collection.kind);
    const Values values(collection, mediaTypes);
    const auto read = [&](Import& import) {
      return console.guarded(command.input, [&]() -> int {
        const auto source = openSource(disk, command.input);
        PeekedSource peeked(*source);
        const bool isJson =
            command.format.empty() ? peeked.firstCharacter() == '{' : command.format == "json";
        if (isJson)
          readJson(peeked, *collection.kind, values, import);
        else
          readCsv(peeked, values, import);
        return kDone;
      });
    };
    if (command.options.makesNew && disk.exists(command.file))
      throw RunTimeError(ErrorNumber::fileAlreadyExists, command.file);
    Plan plan(console, command, values);
    Import import(disk, collection, values, command.options, plan);
    ImportResult result;
    result.wrong = 1;
    if (read(import) == kDone) result = import.finish();
    plan.end(result);
    if (result.wrong == 0) return kDone;
    console.complain(command.file, "nothing was written");
    return kFoundOrRefused;
  });
}

}  // namespace quillbox
