#include "items.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <span>
#include <stdexcept>

#include "collections.h"
#include "listings.h"
#include "measuring.h"
#include "median.h"
#include "platform/disk_file_system.h"
#include "printing/export.h"
#include "records/collection_store.h"

namespace quillbox::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kItemRounds = 31;
constexpr int kTimes = 500;  // in each round
constexpr off_t kLength = sizeof(MusicRecord);

Pair timeInTurn(const std::function<void()>& quillbox, const std::function<void()>& peer) {
  constexpr double microsecondsPerMillisecond = 1e3;
  const auto time = [](const std::function<void()>& work) {
    return milliseconds([&] {
             for (int i = 0; i < kTimes; ++i) work();
           }) *
           microsecondsPerMillisecond / kTimes;
  };
  std::vector<double> ours;
  std::vector<double> peers;
  for (int round = 0; round < kItemRounds; ++round) {
    ours.push_back(time(quillbox));
    peers.push_back(time(peer));
  }
  return {median(ours), median(peers)};
}

void onFile(const char* path, int flags, const std::function<bool(int descriptor)>& work) {
  const int descriptor = ::open(path, flags | O_CLOEXEC);
  const bool done = descriptor >= 0 && work(descriptor);
  ::close(descriptor);
  if (!done) throw std::runtime_error("a system call failed");
}

template <typename Bytes>
bool readAll(int descriptor, Bytes bytes, off_t offset) {
  return ::pread(descriptor, bytes.data(), bytes.size(), offset) ==
         static_cast<ssize_t>(bytes.size());
}

template <typename Bytes>
bool writeAll(int descriptor, Bytes bytes, off_t offset) {
  return ::pwrite(descriptor, bytes.data(), bytes.size(), offset) ==
         static_cast<ssize_t>(bytes.size());
}

/// A collection of a kind with every text filled in.
void makeFilledCollection(const CollectionKind& kind, const std::string& path) {
  DiskFileSystem fileSystem;
  AppState state(fileSystem);
  state.currentPath = path;
  CollectionStore(state.files, state, kind)
      .WriteHeader(kItems, kind.rules.fileType, OpenMode::create);
  std::vector<std::byte> record(kind.recordLength);
  RecordFile file(state.files, path, kind.recordLength, OpenMode::update);
  for (int item = 1; item <= kItems; ++item) {
    fillBlank(kind.fields, record);
    for (const Field& field : kind.fields)
      for (std::size_t entry = 0; field.type == FieldType::text && entry < field.count; ++entry)
        setText(field, record, "A line of some length, number " + std::to_string(item), entry);
    file.write(recordNumberOf(item), record);
  }
  file.close();
  readFromDisk(path);
}

}  // namespace

ItemFigures timeItems(const std::string& collection) {
  DiskFileSystem fileSystem;
  AppState state(fileSystem);
  state.currentPath = collection;
  state.Count = kItems;
  CollectionStore store(state.files, state, music());
  const char* path = collection.c_str();
  HeaderRecord header = store.ReadHeader();
  MusicRecord record{};
  store.ReadRecord(kItems / 2, bytesOf(record));

  ItemFigures figures;
  figures.open = timeInTurn(
      [&] {
        header = store.ReadHeader();
        store.ReadRecord(1, bytesOf(state.music));
      },
      [&] {
        onFile(path, O_RDONLY, [&](int file) { return readAll(file, bytesOf(header), 0); });
        onFile(path, O_RDONLY,
               [&](int file) { return readAll(file, bytesOf(state.music), kLength); });
      });
  figures.write = timeInTurn([&] { store.WriteRecord(kItems / 2, bytesOf(record), kItems); },
                             [&] {
                               onFile(path, O_RDWR, [&](int file) {
                                 return writeAll(file, bytesOf(header), 0) &&
                                        writeAll(file, bytesOf(record), kLength * (kItems / 2));
                               });
                             });
  return figures;
}

std::vector<ExportFigures> timeExports(const fs::path& workFolder) {
  std::vector<ExportFigures> all;
  for (const char* extension : {"VCS", "SCS", "CCS"}) {
    const CollectionKind& kind = *kindOfExtension(extension);
    const std::string collection = workFolder / (std::string("Export.") + extension);
    const std::string path = workFolder / "Export.txt";
    makeFilledCollection(kind, collection);
    DiskFileSystem files;
    AppState state(files);
    state.currentPath = collection;
    state.Count = kItems;
    all.push_back({std::string("export ") + extension,
                   timeBesideWriting([&] { exportCollection(state.files, state, kind, path); },
                                     path, [&] { readThrough(collection); })});
    fs::remove(collection);
  }
  return all;
}

}  // namespace quillbox::bench
