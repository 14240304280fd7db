#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "platform/open_files.h"

namespace quillbox {

/// About how many bytes are read or written at a time: large enough that the calls cost nothing,
/// small enough to fit into the processor's cache.
inline constexpr std::size_t kRecordBlockBytes = 262'144;

/// The file is to be created, as FileSystem::make does.
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

  /// Fills `into`, which may be shorter than a record. What is past the end of the file comes from
  /// the same place in `blank`, which is as long as `into`, or is zeros when `blank` is empty.
  void read(int recordNumber, std::span<std::byte> into, std::span<const std::byte> blank = {});

  /// Reads into all of `into`, which may cover many records; returns the number of bytes read,
  /// fewer than that only at the end of the file.
  std::size_t readRecords(int firstRecordNumber, std::span<std::byte> into);

  /// Run-time error 63: the file is shorter than it should be.
  [[noreturn]] void failShort() const;

  std::size_t recordLength() const { return recordLength_; }

  /// Writes `from` to the start of a record and leaves the rest unchanged.
  void write(int recordNumber, std::span<const std::byte> from);

  /// Writes consecutive records at once.
  void writeRecords(int firstRecordNumber, std::span<const std::byte> from);

  /// Writes anything from any byte of the file on.
  void writeBytes(std::uint64_t at, std::span<const std::byte> from);

  /// Returns once what was written will survive a power cut.
  void flush() { files_.file(number_).flush(); }

  /// Closes the file and reports a failure. No other call may follow.
  void close();

 private:
  std::uint64_t offsetOf(int recordNumber) const;

  OpenFiles& files_;
  std::string path_;
  std::size_t recordLength_;
  int number_;
  bool closed_ = false;
};

/// Creates a file, lets `fill` write all of it, and closes it. If that fails, the file is deleted:
/// half a file under a collection's name would pass for the collection.
void makeRecordFile(OpenFiles& files, const std::string& path, std::size_t recordLength,
                    const MadeLike& like, int number,
                    const std::function<void(RecordFile& file)>& fill);

}  // namespace quillbox
