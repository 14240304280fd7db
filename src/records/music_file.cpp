#include "records/music_file.h"

#include <algorithm>
#include <utility>

#include "platform/file_paths.h"
#include "platform/run_time_error.h"
#include "records/header_record.h"
#include "records/record_file.h"
#include "records/version.h"

namespace quillbox {

namespace {

/// If the name is a link, the file that it leads to is created.
void makeMusicFile(OpenFiles& files, const std::string& path) {
  HeaderRecord header;
  header.Count = 0;
  header.FileType = music_file_type::current;
  header.Version = kVersionText;
  makeRecordFile(files, fileBehind(files.fileSystem(), path), sizeof(MusicRecord), {},
                 file_number::fresh,
                 [&](RecordFile& file) { file.write(kHeaderRecordNumber, bytesOf(header)); });
}

}  // namespace

MusicFileState openMusicFile(OpenFiles& files, OpenCollection& opening) {
  if (!files.fileSystem().exists(opening.currentPath)) makeMusicFile(files, opening.currentPath);
  RecordFile file(files, opening.currentPath, sizeof(MusicRecord), OpenMode::read);
  HeaderRecord header;
  file.read(kHeaderRecordNumber, bytesOf(header));
  opening.Count = std::max<std::int16_t>(header.Count, 0);
  if (header.FileType < music_file_type::upgradable) return MusicFileState::refused;
  if (header.FileType == music_file_type::upgradable) return MusicFileState::upgradable;
  return MusicFileState::current;
}

void upgradeMusicFile(OpenFiles& files, OpenCollection& opening) {
  const auto [path, backup] =
      moveToBackup(files.fileSystem(), opening.currentPath, "BAK", OldBackup::isDeleted);
  RecordFile from(files, backup, kMusicRecordType4Length, OpenMode::read);
  RecordFile to(files, path, sizeof(MusicRecord), MadeLike{backup});
  HeaderRecord header;
  from.read(kHeaderRecordNumber, bytesOf(header));

  MusicRecord blank;
  fillBlank(kMusicFields, bytesOf(blank));
  const auto blankOld = bytesOf(std::as_const(blank)).first(kMusicRecordType4Length);
  MusicRecord buffer = opening.music;
  // Up to Count, not Count + 1: the last item has never been carried over.
  for (int number = recordNumberOf(1); number <= header.Count; ++number) {
    const WholeNumber mediaType = buffer.MediaType;  // not one of the copied fields
    from.read(number, bytesOf(buffer).first(kMusicRecordType4Length), blankOld);
    buffer.MediaType = mediaType;
    buffer.Genre = -1;
    buffer.BarCode = "Bar Code/ID Here...";
    to.write(number, bytesOf(buffer));
  }
  from.close();

  header.FileType = music_file_type::current;
  header.Version = kVersionText;
  to.write(kHeaderRecordNumber, bytesOf(header));
  to.flush();
  to.close();
  opening.music = buffer;
}

}  // namespace quillbox
