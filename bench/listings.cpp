#include "listings.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "measuring.h"
#include "median.h"
#include "platform/disk_file_system.h"
#include "platform/printer.h"
#include "printing/export.h"
#include "printing/listing.h"

namespace quillbox::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kListingRounds = 5;

/// A sheet of paper to measure; nothing is printed on it.
class Paper : public Printer {
 public:
  void setFont(const std::string&, double) override {}
  double printableHeight() override { return 756; }
  void print(const std::string&) override {}
  void newPage() override {}
  void endDocument() override {}
  void dropDocument() override {}
};

/// A user who prints to that text file.
class ToTextFile : public Desktop {
 public:
  explicit ToTextFile(std::string name) : name_(std::move(name)) {}
  Answer messageBox(const MessageBox&) override { return Answer::ok; }
  std::optional<std::string> inputBox(const std::string&, const std::string&,
                                      const std::string& preset) override {
    return preset;
  }
  std::optional<std::string> openDialog(const FileDialog&) override { return {}; }
  std::optional<std::string> saveDialog(const FileDialog&) override { return name_; }
  std::string shortDateForm() override { return "M/d/yy"; }
  std::string todayText() override { return {}; }
  void printerSetup(const std::string&) override {}
  std::optional<PrintChoice> printDialog(const std::string&, const std::string&) override {
    return PrintChoice{true};
  }
  Printer& printer() override { return paper_; }
  void rest(int, const std::function<bool()>&) override {}
  void quit() override {}
  void endAtOnce() override {}

 private:
  std::string name_;
  Paper paper_;
};

std::string entryOf(const Field& field, int index) {
  const bool isThere = index >= 0 && index < static_cast<int>(field.choices.size());
  return isThere ? std::string(field.choices[static_cast<std::size_t>(index)]) : std::string();
}

void list(const Sized& collection, const std::string& path) {
  const CollectionKind& kind = music();
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = collection.path;
  state.Count = static_cast<std::int16_t>(collection.items);
  ToTextFile desktop(path);
  NoBoard board;
  PrintEngine engine(state, desktop, board);
  const Listing listing(kind, {entryOf, desktop.shortDateForm()});
  std::int16_t mode = print_mode::printer;
  engine.OpenPrinter(mode);
  const std::int16_t pages = composePages(state.files, state, kind, listing, mode, engine, board);
  engine.PrintOut(mode, pages, *listing.fileHeading(0));
}

void exportIt(const Sized& collection, const std::string& path) {
  DiskFileSystem files;
  AppState state(files);
  state.currentPath = collection.path;
  state.Count = static_cast<std::int16_t>(collection.items);
  exportCollection(state.files, state, music(), path);
}

void writeStraight(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  constexpr std::size_t atOnce = 64 * 1024;
  for (std::size_t at = 0; at < bytes.size(); at += atOnce) {
    const auto part = bytes.substr(at, atOnce);
    file.write(part.data(), static_cast<std::streamsize>(part.size()));
  }
  if (!file.flush()) throw std::runtime_error("could not write " + path);
}

/// Lives in another folder for a while.
class InFolder {
 public:
  explicit InFolder(const fs::path& folder) : before_(fs::current_path()) {
    fs::current_path(folder);
  }
  InFolder(const InFolder&) = delete;
  InFolder& operator=(const InFolder&) = delete;
  ~InFolder() { fs::current_path(before_); }

 private:
  fs::path before_;
};

}  // namespace

Pair timeBesideWriting(const std::function<void()>& work, const std::string& path,
                       const std::function<void()>& before) {
  std::vector<double> ours;
  std::vector<double> peers;
  const auto timed = [&](const std::function<void()>& call) {
    fs::remove(path);
    return milliseconds(call);
  };
  work();
  const std::string bytes = contentsOf(path);
  for (int round = 0; round < kListingRounds; ++round) {
    ours.push_back(timed(work));
    peers.push_back(timed([&] {
      before();
      writeStraight(path, bytes);
    }));
  }
  return {median(ours), median(peers)};
}

Pair timePdf(const fs::path& programs, const fs::path& workFolder, const std::string& collection) {
  const std::string command = "cd '" + workFolder.string() + "' && QT_QPA_PLATFORM=offscreen '" +
                              (programs / "bench_print_pdf").string() + "' '" + collection + "' " +
                              std::to_string(kItemsOnPaper);
  Pair times;
  FILE* output = ::popen(command.c_str(), "r");
  const bool understood =
      output != nullptr && std::fscanf(output, "%lf %lf", &times.quillbox, &times.peer) == 2;
  if (output == nullptr || ::pclose(output) != 0 || !understood)
    throw std::runtime_error("bench_print_pdf failed");
  return times;
}

Pair timeListing(const fs::path& workFolder, const Sized& collection) {
  const InFolder inFolder(workFolder);  // where the spool file is
  const std::string path = workFolder / "Listing.txt";
  return timeBesideWriting([&] { list(collection, path); }, path);
}

Pair timeExport(const fs::path& workFolder, const Sized& collection) {
  const std::string path = workFolder / "Export.txt";
  return timeBesideWriting([&] { exportIt(collection, path); }, path);
}

ListingFigures timeListings(const fs::path& workFolder, const Sized& collection) {
  const InFolder inFolder(workFolder);
  const std::string path = workFolder / "Listing.txt";
  const auto sizeOf = [&] { return static_cast<double>(fs::file_size(path)) / kBytesPerMib; };
  ListingFigures figures;
  const double without = peakMib([] {});
  figures.listingMemory = peakMib([&] { list(collection, path); }) - without;
  figures.listedMib = sizeOf();
  figures.exportMemory = peakMib([&] { exportIt(collection, path); }) - without;
  figures.exportedMib = sizeOf();
  figures.listing = timeListing(workFolder, collection);
  figures.exporting = timeExport(workFolder, collection);
  return figures;
}

}  // namespace quillbox::bench
