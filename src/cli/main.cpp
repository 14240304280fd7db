#include <CLI/CLI.hpp>
#include <clocale>
#include <functional>
#include <sstream>

#include "cli/commands.h"
#include "platform/disk_file_system.h"
#include "records/version.h"

namespace quillbox {
namespace {

constexpr const char* kFile = "A collection";

/// Reports an error in the command itself.
int wrongUse(Console& console, const std::string& why) {
  console.complain({}, why);
  return kWrongUse;
}

/// The commands, their options, and the parsed values.
class CommandLine {
 public:
  explicit CommandLine(Console& console) : console_(console) {
    app_.name("quillbox-cli");
    app_.require_subcommand(1);
    app_.set_version_flag("--version", endingWithVersion("quillbox-cli "),
                          "Print the version and end");
    app_.set_help_flag("-h,--help", "Print this and end");
    app_.footer(
        "A path that begins with a dash comes behind --. Exit status: 0, 1 when something was "
        "found\n"
        "or refused, 2 for a wrong command.");
    addInfo();
    addExport();
    addImport();
    addCheck();
    addRestore();
    addList();
    addOverview("loans", "Tell who has what", runLoans);
    addOverview("doubles", "Tell what is there more than once", runDoubles);
    addOverview("summary", "Tell how many items there are and what they come to", runSummary);
    addSort();
    addUndelete();
  }

  int run(int argc, const char* const* argv) {
    try {
      app_.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return endWith(error);
    }
    return run_();
  }

 private:
  /// Prints the requested help or version, or reports the error.
  int endWith(const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream ignored;
    if (app_.exit(error, out, ignored) == 0) {
      console_.print(out.str());
      return kDone;
    }
    // An unknown argument explains more than what is missing because of it.
    const std::vector<std::string> unknown = app_.remaining(true);
    const std::string why =
        unknown.empty() ? error.what() : "\"" + unknown.front() + "\" is unknown";
    return wrongUse(console_, why + "; --help tells what there is");
  }

  CLI::App& command(const std::string& name, const std::string& what, std::function<int()> run) {
    CLI::App& added = *app_.add_subcommand(name, what);
    added.callback([this, run = std::move(run)] { run_ = run; });
    return added;
  }

  void addFile(CLI::App& to, std::string& file) { to.add_option("FILE", file, kFile)->required(); }
  void addFiles(CLI::App& to) { to.add_option("FILE", files_, "Collections")->required(); }
  void addJson(CLI::App& to) { to.add_flag("--json", asJson_, "Write JSON"); }

  void addInfo() {
    CLI::App& info = command("info", "Tell what a file is and what lies beside it",
                             [this] { return runInfo(console_, files_, asJson_); });
    addFiles(info);
    addJson(info);
  }

  void addExport() {
    CLI::App& to = command("export", "Write every field of every item", [this] {
      if (export_.output == "-") export_.output.clear();
      if (export_.format == "sqlite" && export_.output.empty())
        return wrongUse(console_, "export --format sqlite needs --output");
      if (export_.forSpreadsheet && export_.format != "csv")
        return wrongUse(console_, "--for-spreadsheet is for csv");
      return runExport(console_, export_);
    });
    addFile(to, export_.file);
    to.add_option("-f,--format", export_.format, "csv (the default), json, sqlite or html")
        ->check(CLI::IsMember({"csv", "json", "sqlite", "html"}));
    to.add_option("-o,--output", export_.output,
                  "A file to write; standard output unless given, or where it is -");
    to.add_flag("--for-spreadsheet", export_.forSpreadsheet,
                "csv: write texts so that no spreadsheet takes them for formulas");
  }

  void addImport() {
    CLI::App& from = command("import", "Bring csv or json back in", [this] {
      import_.asJson = asJson_;
      return runImport(console_, import_);
    });
    addFile(from, import_.file);
    from.add_option("IN", import_.input, "csv or json; - is standard input")->required();
    from.add_option("-f,--format", import_.format, "csv or json; told by the contents unless given")
        ->check(CLI::IsMember({"csv", "json"}));
    from.add_flag("-n,--dry-run", import_.options.dryRun, "Tell what would change, write nothing");
    from.add_flag("--new", import_.options.makesNew,
                  "Make the collection; every row is a new item");
    addStoreRules(from, import_.options.store);
    addJson(from);
  }

  static void addStoreRules(CLI::App& to, StoreRules& rules) {
    to.add_flag("--cut", rules.cut, "Cut texts that are too long");
    to.add_flag("--replace", rules.replace, "Store ? for characters that the file cannot hold");
  }

  void addCheck() {
    CLI::App& check = command("check", "Look for everything that can be wrong",
                              [this] { return runCheck(console_, files_, asJson_); });
    addFiles(check);
    addJson(check);
  }

  void addRestore() {
    CLI::App& restore = command("restore", "Put a collection back from its backup", [this] {
      std::optional<BesideKind> from;
      if (from_ == "sort") from = BesideKind::sortBackup;
      if (from_ == "upgrade") from = BesideKind::upgradeBackup;
      return runRestore(console_, file_, from);
    });
    addFile(restore, file_);
    restore.add_option("--from", from_, "Whose backup, where there are two: sort or upgrade")
        ->check(CLI::IsMember({"sort", "upgrade"}));
  }

  void addList() {
    CLI::App& list = command("list", "Print items as a table", [this] {
      list_.asJson = asJson_;
      return runList(console_, list_);
    });
    addFile(list, list_.file);
    list.add_option("-w,--where", list_.where,
                    "FIELD=TEXT: items that hold the text there, capitals and accents aside")
        ->allow_extra_args(false);
    list.add_option("-s,--sort", list_.sort, "A field to order by; FIELD:down for downwards")
        ->allow_extra_args(false);
    list.add_option("-c,--columns", list_.columns, "Fields to print, with commas between them")
        ->delimiter(',')
        ->allow_extra_args(false);
    list.add_flag("--deleted", list_.withDeleted, "Deleted items, too");
    list.add_flag("--tsv", list_.asTsv, "Tabs between the columns");
    addJson(list);
  }

  void addOverview(const char* name, const char* what,
                   int (*tell)(Console& console, const Files& files, bool asJson)) {
    CLI::App& overview =
        command(name, what, [this, tell] { return tell(console_, files_, asJson_); });
    addFiles(overview);
    addJson(overview);
  }

  void addSort() {
    CLI::App& sort =
        command("sort", "Sort as the program does", [this] { return runSort(console_, sort_); });
    addFile(sort, sort_.file);
    sort.add_option("-b,--by", sort_.keys, "Fields to sort by, the keys of the program's own form")
        ->required();
  }

  void addUndelete() {
    CLI::App& undelete = command("undelete", "Give a deleted item its first text back",
                                 [this] { return runUndelete(console_, undelete_); });
    addFile(undelete, undelete_.file);
    undelete.add_option("N", undelete_.item, "The number of the item")->required();
    undelete.add_option("--text", undelete_.text, "Its first text: artist, label, title ...")
        ->required();
    addStoreRules(undelete, undelete_.store);
  }

  Console& console_;
  CLI::App app_{
      "Takes private collections out of Quillbox's files, brings them back, and looks after them."};
  std::function<int()> run_;
  Files files_;
  std::string file_;
  std::string from_;
  bool asJson_ = false;
  ExportOptions export_;
  ImportCommand import_;
  ListCommand list_;
  SortCommand sort_;
  UndeleteCommand undelete_;
};

}  // namespace
}  // namespace quillbox

int main(int argc, char** argv) {
  using namespace quillbox;
  std::setlocale(LC_TIME, "");  // for the date form
  DiskFileSystem fileSystem;
  OpenFiles files(fileSystem);
  Console console(files);
  const int status = CommandLine(console).run(argc, argv);
  return console.flush() ? status : kFoundOrRefused;
}
