#include "growth.h"

#include <functional>

#include "listings.h"
#include "loads.h"
#include "opendata.h"
#include "overviews.h"
#include "searches.h"

namespace quillbox::bench {
namespace {

namespace fs = std::filesystem;

struct Case {
  const char* name;
  std::function<Pair(const fs::path& workFolder, const Sized& collection)> time;
};

const Case kCases[] = {
    {"search, reads", [](const auto&, const Sized& full) { return timeSearchBesideReading(full); }},
    {"all items, reads", [](const auto&, const Sized& full) { return timeReadingAll(full); }},
    {"listing", timeListing},
    {"export", timeExport},
    {"all as CSV", timeCsv},
    {"all as JSON", timeJson},
    {"all as SQLite", timeSqlite},
    {"import, reads", timeImport},
    {"load folder", [](const fs::path& folder,
                       const Sized& full) { return timeLoads(folder, full.items, 0).time; }},
};

}  // namespace

std::vector<Growth> timeGrowth(const fs::path& workFolder) {
  std::vector<Growth> all;
  for (const Case& timed : kCases) all.push_back({timed.name, {}});
  for (const int size : kGrowthSizes) {
    const Sized collection = makeFullCollection(workFolder / "Growth.MCS", size);
    for (std::size_t i = 0; i < all.size(); ++i)
      all[i].pairs.push_back(kCases[i].time(workFolder, collection));
  }
  return all;
}

}  // namespace quillbox::bench
