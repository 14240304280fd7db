#include "support/music_files.h"

#include <cstring>
#include <stdexcept>

#include "platform/checked16.h"
#include "records/version.h"

namespace quillbox::test {

MusicRecord album(std::string_view artist, std::string_view title) {
  MusicRecord record;
  fillBlank(kMusicFields, bytesOf(record));
  record.Artist = artist;
  record.Album = title;
  return record;
}

std::string musicFile(std::initializer_list<MusicRecord> items) {
  return musicFile(static_cast<int>(items.size()), music_file_type::current, items);
}

std::string musicFile(int count, int fileType, std::initializer_list<MusicRecord> items,
                      std::size_t recordLength) {
  HeaderRecord header;
  header.Count = checked16(count);
  header.FileType = checked16(fileType);
  header.Version = kVersionText;
  std::string bytes((items.size() + 1) * recordLength, '\0');
  std::memcpy(bytes.data(), &header, sizeof header);
  std::size_t at = recordLength;
  for (const MusicRecord& item : items) {
    std::memcpy(bytes.data() + at, &item, recordLength);
    at += recordLength;
  }
  return bytes;
}

HeaderRecord headerOf(std::string_view file) {
  HeaderRecord header;
  if (file.size() < sizeof header) throw std::out_of_range("no header");
  std::memcpy(&header, file.data(), sizeof header);
  return header;
}

MusicRecord itemOf(std::string_view file, int n) {
  MusicRecord item;
  const auto at = static_cast<std::size_t>(n) * sizeof item;
  if (file.size() < at + sizeof item) throw std::out_of_range("no such item");
  std::memcpy(&item, file.data() + at, sizeof item);
  return item;
}

}  // namespace quillbox::test
