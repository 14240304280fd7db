#include "collections.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <numeric>
#include <random>
#include <stdexcept>
#include <vector>

#include "platform/disk_file_system.h"
#include "records/collection_store.h"
#include "records/music_record.h"

namespace quillbox::bench {
namespace {

/// `words` and a number, so that no two items are alike.
std::string numbered(const char* words, int number) {
  return std::string(words).append(" ").append(std::to_string(number));
}

MusicRecord makeItem(int item) {
  MusicRecord record;
  record.Artist = numbered("The Harbour Street Quintet", item % 700);
  record.Album = numbered("Evenings by the Water, Volume", item);
  record.RecordCo = numbered("Lamplight Recordings", item % 40);
  for (int number = 1; auto& song : record.Songs)
    song = numbered("Slow Waltz for a Long Winter, Part", number++);
  record.AquireDate = "14/03/1998";
  record.AquireCost = 129'900 + item;
  record.CurrCost = 175'000 + item;
  record.HasBook = 1;
  record.MediaType = static_cast<std::int16_t>(item % 8);
  record.CurrLoaned = 1;
  record.Borrower = "A neighbour across the landing";
  record.DateLoaned = "2/11/1999";
  record.DueDate = "30/11/1999";
  record.BookLoaned = 1;
  record.Notes = "Small scratch on side two, sleeve as new";
  record.Genre = static_cast<std::int16_t>(item % 15);
  record.BarCode = numbered("0 12345 67890", item);
  return record;
}

bool isBetweenFirstAndLast(int item) { return item > 1 && item < kItems; }

void makeCollection(const std::string& path, int count,
                    const std::function<MusicRecord(int item)>& itemAt) {
  const CollectionKind& kind = music();
  DiskFileSystem fileSystem;
  AppState state(fileSystem);
  state.currentPath = path;
  CollectionStore(state.files, state, kind)
      .WriteHeader(count, kind.rules.fileType, OpenMode::create);

  // Not item by item through the store, which would scan for a deleted slot each time.
  RecordFile file(state.files, path, kind.recordLength, OpenMode::update);
  for (int item = 1; item <= count; ++item) file.write(recordNumberOf(item), bytesOf(itemAt(item)));
  file.flush();  // nothing is left to be written while something is timed
  file.close();
  readFromDisk(path);
}

}  // namespace

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void readThrough(const std::string& path) {
  std::vector<std::byte> part(kRecordBlockBytes);
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  ssize_t got = descriptor < 0 ? -1 : 1;
  while (got > 0) got = ::read(descriptor, part.data(), part.size());
  ::close(descriptor);
  if (got < 0) throw std::runtime_error("could not read " + path);
}

void readFromDisk(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool isDropped = descriptor >= 0 && ::fsync(descriptor) == 0 &&
                         ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED) == 0;
  ::close(descriptor);
  if (!isDropped) throw std::runtime_error("could not drop " + path);
  readThrough(path);
}

Sized makeFullCollection(const std::string& path, int count) {
  makeCollection(path, count, makeItem);
  return {path, count};
}

void makeMixedCollection(const std::string& path, int count) {
  std::vector<int> order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), 1);
  std::shuffle(order.begin(), order.end(), std::minstd_rand(1));
  makeCollection(path, count,
                 [&](int item) { return makeItem(order[static_cast<std::size_t>(item - 1)]); });
}

void makeDeletedCollection(const std::string& path) {
  makeCollection(path, kItems, [](int item) {
    MusicRecord record = makeItem(item);
    if (isBetweenFirstAndLast(item)) record.Artist = music().rules.deletion.marker;
    return record;
  });
}

}  // namespace quillbox::bench
