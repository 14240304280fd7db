#include "loads.h"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "editors/media_loader.h"
#include "measuring.h"
#include "median.h"
#include "platform/disk_file_system.h"

namespace quillbox::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kLoadRounds = 9;

void makeFiles(const fs::path& folder, int count) {
  fs::create_directory(folder);
  for (int i = 0; i < count; ++i)
    std::ofstream(folder / ("sound number " + std::to_string(i) + ".wav"));
}

void makeCatalogue(const std::string& path, int items) {
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = path;
  const CollectionKind& kind = *kindOfExtension("WCS");
  CollectionStore(state.files, state, kind).WriteHeader(0, kind.rules.fileType, OpenMode::create);
  std::vector<std::string> names;
  for (int i = 0; i < items; ++i) names.push_back("old " + std::to_string(i) + ".wav");
  NoBoard board;
  loadFiles(state.files, state, kind, "/sounds", names, board);
}

void load(const std::string& catalogue, const std::string& folder, int itemsThen) {
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = catalogue;
  NoBoard board;
  const auto names = filesToLoad(files, folder, loaderPatterns(loaderRow(1).filter));
  const LoadedFiles loaded =
      loadFiles(state.files, state, *kindOfExtension("WCS"), folder, names, board);
  if (loaded.count != itemsThen) throw std::runtime_error("not all were loaded");
}

void listAndAppend(const std::string& catalogue, const std::string& folder, int files) {
  const int file = ::open(catalogue.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  MediaFileRecord record{};
  int appended = 0;
  for (const auto& entry : fs::directory_iterator(folder)) {
    record.FileName = entry.path().filename().string();
    record.FilePath = folder;
    if (::write(file, &record, sizeof record) == sizeof record) ++appended;
  }
  ::close(file);
  if (appended != files) throw std::runtime_error("not all were appended");
}

}  // namespace

LoadFigures timeLoads(const fs::path& workFolder, int files, int itemsBefore) {
  const std::string folder = workFolder / "sounds";
  const std::string empty = workFolder / "Empty.WCS";
  const std::string catalogue = workFolder / "Sounds.WCS";
  fs::remove_all(folder);
  makeFiles(folder, files);
  peakMib([&] { makeCatalogue(empty, itemsBefore); });  // in another process: this one stays small
  const auto fresh = [&] { fs::copy_file(empty, catalogue, fs::copy_options::overwrite_existing); };
  fresh();
  const double without = peakMib([] {});
  const double with = peakMib([&] { load(catalogue, folder, itemsBefore + files); });
  std::vector<double> ours;
  std::vector<double> peers;
  for (int round = 0; round < kLoadRounds; ++round) {
    fresh();
    ours.push_back(milliseconds([&] { load(catalogue, folder, itemsBefore + files); }));
    fresh();
    peers.push_back(milliseconds([&] { listAndAppend(catalogue, folder, files); }));
  }
  return {{median(ours), median(peers)}, with - without};
}

}  // namespace quillbox::bench
