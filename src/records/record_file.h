#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "platform/open_files.h"

namespace quillbox {

/// What many records are read or written at a time, in whole records: large enough that the calls
/// cost nothing, small enough to stay in the processor's cache.
inline constexpr std::size_t kRecordBlockBytes = 262'144;

/// A file is to be made, as FileSystem::make does it.
struct MadeLike {
  std::string file;  ///< empty: like any new file
};

/// A file of fixed-length records, numbered from 1, open for as long as the object lives.
class RecordFile {
 public:
  RecordFile(OpenFiles& files, std::string path, std::size_t recordLength, OpenMode mode,
             int number = file_number::fresh);
  RecordFile(OpenFiles& files, std::string path, std::size_t recordLength, const MadeLike& like,
             int number = file_number::fresh);
  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;
  ~RecordFile();

  /// Fills `into`, which may be shorter than a record. What lies past the end of the file is taken
  /// from the same place of `blank`, which is as long as `into`, or is zeros when it is empty.
  void read(int recordNumber, std::span<std::byte> into, std::span<const std::byte> blank = {});

  /// Reads into all of `into`, which may span many records; returns the number of bytes that were
  /// there, less than asked only at the end of the file.
  std::size_t readRecords(int firstRecordNumber, std::span<std::byte> into);

  /// Run-time error 63: the file is shorter than it should be.
  [[noreturn]] void failShort() const;

  std::size_t recordLength() const { return recordLength_; }

  /// Writes `from` to the start of a record and leaves the rest of it alone.
  void write(int recordNumber, std::span<const std::byte> from);

  /// Writes whole records that follow one another.
  void writeRecords(int firstRecordNumber, std::span<const std::byte> from);

  /// Returns when what was written will survive a power cut.
  void flush() { files_.file(number_).flush(); }

  /// Closes the file and reports a failure. Nothing else may be called after that.
  void close();

 private:
  std::uint64_t offsetOf(int recordNumber) const;

  OpenFiles& files_;
  std::string path_;
  std::size_t recordLength_;
  int number_;
  bool closed_ = false;
};

/// Makes a file, has `fill` write all of it, and closes it. One that could not be written is
/// deleted again: half a file under a collection's name would pass for the collection.
void makeRecordFile(OpenFiles& files, const std::string& path, std::size_t recordLength,
                    const MadeLike& like, int number,
                    const std::function<void(RecordFile& file)>& fill);

}  // namespace quillbox
