#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/console.h"
#include "opendata/beside.h"
#include "opendata/import.h"

/// The commands of the command-line program. Each returns its exit status; errors are reported on
/// standard error with the file's name.
namespace quillbox {

using Files = std::vector<std::string>;

int runInfo(Console& console, const Files& files, bool asJson);

struct ExportOptions {
  std::string file;
  std::string format = "csv";  ///< csv, json, sqlite, html
  std::string output;          ///< empty: standard output
  bool forSpreadsheet = false;
};
int runExport(Console& console, const ExportOptions& options);

struct ImportCommand {
  std::string file;
  std::string input;
  std::string format;  ///< csv, json, or empty to detect it
  ImportOptions options;
  bool asJson = false;
};
int runImport(Console& console, const ImportCommand& command);

int runCheck(Console& console, const Files& files, bool asJson);

int runRestore(Console& console, const std::string& file, std::optional<BesideKind> from);

struct SortCommand {
  std::string file;
  std::vector<std::string> keys;
};
int runSort(Console& console, const SortCommand& command);

struct UndeleteCommand {
  std::string file;
  int item = 0;
  std::string text;
  StoreRules store;
};
int runUndelete(Console& console, const UndeleteCommand& command);

struct ListCommand {
  std::string file;
  std::vector<std::string>
      where;  ///< FIELD=TEXT; an item must match each, ignoring case and accents
  std::vector<std::string> sort;     ///< FIELD or FIELD:down, the most important first
  std::vector<std::string> columns;  ///< empty: the number and the identifying fields
  bool withDeleted = false;
  bool asTsv = false;
  bool asJson = false;
};
int runList(Console& console, const ListCommand& command);

int runLoans(Console& console, const Files& files, bool asJson);

/// kFoundOrRefused when there are doubles.
int runDoubles(Console& console, const Files& files, bool asJson);

int runSummary(Console& console, const Files& files, bool asJson);

/// The user's own media types of music, from the current folder; empty if there are none.
std::vector<std::string> ownMediaTypes(Console& console, const CollectionKind& kind);

}  // namespace quillbox
