#include "records/music_file.h"

#include <algorithm>
#include <utility>

#include "platform/paths.h"
#include "records/record_file.h"
#include "records/version.h"

namespace quillbox {

namespace {

/// A file without its header would pass for one of an older type.
void makeMusicFile(AppState& state, CollectionStore& store) {
  try {
    store.writeHeader(0, music_file_type::current, OpenMode::create);
  } catch (const RunTimeError&) {
    ignoringErrors([&] { state.files.fileSystem().remove(state.currentPath); });
    throw;
  }
}

}  // namespace

MusicFileState openMusicFile(AppState& state, CollectionStore& store) {
  if (!state.files.fileSystem().exists(state.currentPath)) makeMusicFile(state, store);
  const HeaderRecord header = store.readHeader();
  state.Count = std::max<std::int16_t>(header.Count, 0);
  if (header.FileType < music_file_type::upgradable) return MusicFileState::refused;
  if (header.FileType == music_file_type::upgradable) return MusicFileState::upgradable;
  return MusicFileState::current;
}

void upgradeMusicFile(AppState& state) {
  FileSystem& files = state.files.fileSystem();
  const std::string backup = backupPath(state.currentPath, "BAK");
  if (files.exists(backup)) {
    // The old backup may be all there is on the disk of what the collection holds.
    RecordFile collection(state.files, state.currentPath, sizeof(MusicRecord), OpenMode::read);
    collection.flush();
    files.remove(backup);
  }
  files.rename(state.currentPath, backup);

  RecordFile from(state.files, backup, kMusicRecordType4Length, OpenMode::read);
  RecordFile to(state.files, state.currentPath, sizeof(MusicRecord), OpenMode::create);
  HeaderRecord header;
  from.read(kHeaderRecordNumber, bytesOf(header));

  MusicRecord blank;
  fillBlank(kMusicFields, bytesOf(blank));
  const auto blankOld = bytesOf(std::as_const(blank)).first(kMusicRecordType4Length);
  MusicRecord& buffer = state.music;
  // Up to Count, not Count + 1: the item in the last record has never been carried over.
  for (int number = recordNumberOf(1); number <= header.Count; ++number) {
    const WholeNumber mediaType = buffer.MediaType;  // not among what is copied
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
}

}  // namespace quillbox
