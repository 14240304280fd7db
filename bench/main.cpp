// Compares Quillbox with the minimum that the same work takes: bench [--runs N]
//
// It is not a test: a missed goal is printed, and only what could not be run is a failure.

#include <array>
#include <charconv>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

#include "collections.h"
#include "growth.h"
#include "items.h"
#include "listings.h"
#include "loads.h"
#include "measuring.h"
#include "opendata.h"
#include "overviews.h"
#include "searches.h"
#include "sorts.h"
#include "starts.h"
#include "steps.h"
#include "temporary_folder.h"

namespace {

using namespace quillbox::bench;

constexpr int kFewestRuns = 15;

template <typename... Values>
std::string formatted(const char* format, Values... values) {
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

void printRow(const std::string& name, const std::string& quillbox, const std::string& peer,
              const std::string& ratio, const std::string& goal) {
  std::printf("%-18s | %17s | %13s | %10s | %s\n", name.c_str(), quillbox.c_str(), peer.c_str(),
              ratio.c_str(), goal.c_str());
}

std::string goalText(const std::string& goal, bool met) {
  return goal + (met ? ", met" : ", MISSED");
}

/// `format` is for the two medians, divided by `unit`.
void printRatio(const char* name, const Pair& pair, const char* format, double unit,
                double mostAllowed) {
  const double ratio = pair.quillbox / pair.peer;
  printRow(name, formatted(format, pair.quillbox / unit), formatted(format, pair.peer / unit),
           formatted("%.3f", ratio),
           goalText(formatted("ratio <= %.2f", mostAllowed), ratio <= mostAllowed));
}

void printHeader(const std::string& collection, int runs) {
  std::printf("Build type: %s\n", QUILLBOX_BUILD_TYPE);
#ifndef __OPTIMIZE__
  std::printf("WARNING: not optimised; these figures say nothing about the program.\n");
#endif
  std::printf("step, skip: median of %d repetitions, both sides in random order\n",
              kStepRepetitions);
  std::printf(
      "load:       %d files into a catalogue of %d items; the peer appends them one by one\n",
      kFilesToLoad, kItemsBefore);
  std::printf("search:     all texts of an item of the collection below, one of them wrong\n");
  std::printf(
      "all items:  beside filling a full-text table; a key of the filter beside asking it\n");
  std::printf("sort:       by all five keys; the peer exchanges whole records in memory\n");
  std::printf("export:     VCS, SCS, CCS beside reading the collection, too\n");
  std::printf("start:      median of %d runs after %d warm-ups, in turn\n", runs, kWarmUps);
  std::printf("collection: %d items, %.1f MiB (for skip %d of them deleted)\n\n", kItems,
              static_cast<double>(std::filesystem::file_size(collection)) / kBytesPerMib,
              kDeletedItems);
  std::fflush(stdout);
}

void printSort(const SortFigures& sort) {
  constexpr double fewestTimes = 50;
  constexpr int fewestItemsOfTheGoal = 2'000;  // with fewer, flushing to the disk dominates
  const std::string name = "sort " + std::to_string(sort.items);
  const double times = sort.exchange.peer / sort.exchange.quillbox;
  const bool hasGoal = sort.items >= fewestItemsOfTheGoal;
  printRow(name, formatted("%.1f ms", sort.exchange.quillbox),
           formatted(sort.estimated ? "~ %.0f ms" : "%.0f ms", sort.exchange.peer),
           formatted("1 : %.0f", times),
           hasGoal ? goalText(formatted("1 : %.0f", fewestTimes), times >= fewestTimes) : "none");
  printRow(name + ", db", formatted("%.1f ms", sort.exchange.quillbox),
           formatted("%.1f ms", sort.database),
           formatted("%.3f", sort.exchange.quillbox / sort.database), "none");
}

void printSortMemory(const SortFigures& largest) {
  constexpr double mostMemory = 1.15;
  const double ratio = largest.memory / largest.fileSize;
  printRow("sort, memory", formatted("%.2f MiB", largest.memory),
           formatted("%.2f MiB file", largest.fileSize), formatted("%.3f", ratio),
           goalText(formatted("ratio <= %.2f", mostMemory), ratio <= mostMemory));
}

void printAtMost(const char* name, const Pair& pair, double mostMilliseconds) {
  printRow(name, formatted("%.2f ms", pair.quillbox), formatted("%.2f ms", pair.peer),
           formatted("%.3f", pair.quillbox / pair.peer),
           goalText(formatted("<= %.0f ms", mostMilliseconds), pair.quillbox <= mostMilliseconds));
}

void printOverviews(const OverviewFigures& overviews) {
  constexpr double mostForAPiece = 20;
  constexpr double mostForAKey = 50;
  constexpr double mostBesideTexts = 64.0 * kItems / kBytesPerMib;
  printRow("all items, read", formatted("%.1f ms", overviews.open.quillbox),
           formatted("%.0f ms", overviews.open.peer),
           formatted("%.3f", overviews.open.quillbox / overviews.open.peer), "none");
  printRow(
      "  longest piece", formatted("%.2f ms", overviews.longestPiece), "", "",
      goalText(formatted("<= %.0f ms", mostForAPiece), overviews.longestPiece <= mostForAPiece));
  const double beside = overviews.memory - overviews.texts;
  printRow("  memory", formatted("%.2f MiB", overviews.memory),
           formatted("%.2f MiB texts", overviews.texts), formatted("%+.2f MiB", beside),
           goalText(formatted("<= +%.0f MiB", mostBesideTexts), beside <= mostBesideTexts));
  printAtMost("filter, first key", overviews.firstKey, mostForAKey);
  printAtMost("filter, rare word", overviews.rareWord, mostForAKey);
  printAtMost("filter, no such", overviews.missingWord, mostForAKey);
  printRatio("order by a column", overviews.order, "%.1f ms", 1, 1);
}

/// All measurements of one run.
struct Figures {
  StepTimes steps;
  ItemFigures items;
  LoadFigures loads;
  StartFigures starts;
  Pair search;  ///< milliseconds, of one that finds nothing
  SearchFigures searches;
  OverviewFigures overviews;
  ListingFigures listings;
  Pair pdf;  ///< milliseconds
  std::vector<ExportFigures> exports;
  std::vector<SortFigures> sorts;
  OpenDataFigures openData;
};

void printOpenData(const OpenDataFigures& figures) {
  constexpr double mostAllowedForCsv = 3;
  constexpr double mostAllowedForJson = 4;
  constexpr double mostAllowedForSqlite = 1.3;
  constexpr double fewestRowsASecond = 100'000;
  printRatio("all as CSV", figures.csv, "%.0f ms", 1, mostAllowedForCsv);
  printRatio("all as JSON", figures.json, "%.0f ms", 1, mostAllowedForJson);
  printRatio("all as SQLite", figures.sqlite, "%.0f ms", 1, mostAllowedForSqlite);
  constexpr double millisecondsASecond = 1000;
  const double rowsASecond = kItems / (figures.import.quillbox / millisecondsASecond);
  printRow("import, dry run", formatted("%.0f rows/s", rowsASecond), "", "",
           goalText(formatted(">= %.0f", fewestRowsASecond), rowsASecond >= fewestRowsASecond));
  printRow("all out, memory", formatted("%.2f MiB", figures.exportMemory),
           formatted("%.0f MiB text", figures.csvMib), "", "none");
  printRow("import, memory", formatted("%.2f MiB", figures.importMemory),
           formatted("%.0f MiB text", figures.csvMib), "", "none");
}

void printTable(const Figures& figures) {
  constexpr double mostAllowedForReading = 1.3;
  constexpr double mostAllowedForStart = 1.1;
  constexpr double mostMibAllowed = 12;
  constexpr double nsPerUs = 1e3;
  constexpr double nsPerMs = 1e6;
  printRow("case", "Quillbox (median)", "peer (median)", "ratio", "goal");
  printRow("------------------", "-----------------", "-------------", "----------",
           "----------------------");
  printRatio("open", figures.items.open, "%.2f us", 1, mostAllowedForReading);
  printRatio("write item", figures.items.write, "%.2f us", 1, mostAllowedForReading);
  printRatio("step", figures.steps.step, "%.3f us", nsPerUs, mostAllowedForReading);
  printRatio("skip", figures.steps.skip, "%.2f ms", nsPerMs, mostAllowedForReading);
  constexpr double mostAllowedForLoading = 1.5;
  printRatio("load folder", figures.loads.time, "%.1f ms", 1, mostAllowedForLoading);
  printRow("load, memory", formatted("%.2f MiB", figures.loads.memory), "", "", "none");
  constexpr double mostAllowedForSearching = 0.5;
  constexpr double mostAllowedBesideReading = 1.15;
  printRatio("search, reads", figures.search, "%.1f ms", 1, mostAllowedBesideReading);
  printRatio("search, miss", figures.searches.miss, "%.1f ms", 1, mostAllowedForSearching);
  printRatio("search, hit", figures.searches.hit, "%.1f ms", 1, mostAllowedForSearching);
  printOverviews(figures.overviews);
  for (const SortFigures& sort : figures.sorts) printSort(sort);
  printSortMemory(figures.sorts.back());
  constexpr double mostAllowedForListing = 5;
  constexpr double mostAllowedForExport = 1.5;
  constexpr double mostAllowedForOtherExports = 2;
  printRatio("listing", figures.listings.listing, "%.0f ms", 1, mostAllowedForListing);
  constexpr double mostAllowedForPdf = 2;
  printRatio("listing, PDF", figures.pdf, "%.0f ms", 1, mostAllowedForPdf);
  printRatio("export", figures.listings.exporting, "%.0f ms", 1, mostAllowedForExport);
  for (const auto& [kind, time] : figures.exports)
    printRatio(kind.c_str(), time, "%.0f ms", 1, mostAllowedForOtherExports);
  printRow("listing, memory", formatted("%.2f MiB", figures.listings.listingMemory),
           formatted("%.0f MiB text", figures.listings.listedMib), "", "none");
  printRow("export, memory", formatted("%.2f MiB", figures.listings.exportMemory),
           formatted("%.0f MiB text", figures.listings.exportedMib), "", "none");
  printOpenData(figures.openData);
  printRatio("start, time", {figures.starts.time.quillbox, figures.starts.timeOfPlainForm},
             "%.2f ms", 1, mostAllowedForStart);
  const double more = figures.starts.memory.quillbox - figures.starts.memory.peer;
  printRow("start, memory", formatted("%.2f MiB", figures.starts.memory.quillbox),
           formatted("%.2f MiB", figures.starts.memory.peer), formatted("%+.2f MiB", more),
           goalText(formatted("<= +%.0f MiB", mostMibAllowed), more <= mostMibAllowed));
  printRow("start, empty form", formatted("%.2f ms", figures.starts.time.quillbox),
           formatted("%.2f ms", figures.starts.time.peer),
           formatted("%.3f", figures.starts.time.quillbox / figures.starts.time.peer), "none");
  printRow("start, box shown", formatted("%.2f ms", figures.starts.timeWithBox),
           formatted("%.2f ms", figures.starts.time.peer),
           formatted("%.3f", figures.starts.timeWithBox / figures.starts.time.peer),
           formatted("none (%.2f MiB)", figures.starts.memoryWithBox));
}

void printGrowth(const std::vector<Growth>& all) {
  std::printf("\n%-18s", "growth");
  for (const int size : kGrowthSizes) std::printf(" | %20d", size);
  std::printf("\n");
  for (const Growth& row : all) {
    std::printf("%-18s", row.name);
    for (const Pair& pair : row.pairs)
      std::printf(" | %9.2f ms, %6.2f", pair.quillbox, pair.quillbox / pair.peer);
    std::printf("\n");
  }
}

void runAll(int runs) {
  const TemporaryFolder folder;
  const std::string deleted = folder.path() / "Deleted.MCS";
  const Sized full = makeFullCollection(folder.path() / "Full.MCS");
  makeDeletedCollection(deleted);
  printHeader(full.path, runs);

  Figures figures;
  figures.steps = timeSteps(full.path, deleted);
  figures.items = timeItems(full.path);
  figures.loads = timeLoads(folder.path(), kFilesToLoad, kItemsBefore);
  const auto programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  figures.starts = timeStarts(programs, folder.path(), full.path, runs);
  // After the starts, because memory is measured by a process that must still be small.
  figures.search = timeSearchBesideReading(full);
  figures.searches = timeSearches(folder.path(), full);
  figures.overviews = timeOverviews(folder.path(), full);
  figures.listings = timeListings(folder.path(), full);
  figures.pdf = timePdf(programs, folder.path(), full.path);
  figures.exports = timeExports(folder.path());
  figures.openData = timeOpenData(folder.path(), full);
  figures.sorts = timeSorts(folder.path());
  printTable(figures);
  printGrowth(timeGrowth(folder.path()));
}

/// The number after --runs; 0 when the command line is not valid.
int runsOf(int argc, char** argv) {
  if (argc == 1) return kFewestRuns;
  if (argc != 3 || std::string_view(argv[1]) != "--runs") return 0;
  const std::string_view text = argv[2];
  int runs = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), runs);
  const bool understood = error == std::errc() && end == text.data() + text.size() && runs > 0;
  return understood ? runs : 0;
}

}  // namespace

int main(int argc, char** argv) {
  const int runs = runsOf(argc, argv);
  if (runs == 0) {
    std::fprintf(stderr,
                 "Usage: bench [--runs N]\n"
                 "N is how many starts of each program are counted, usually %d.\n",
                 kFewestRuns);
    return 2;
  }
  try {
    runAll(runs);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 1;
  }
  return 0;
}
