#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "records/header_record.h"
#include "records/kinds.h"

namespace quillbox {

/// A collection as its file says, without a program that has it open.
struct CollectionFile {
  std::string path;  ///< as it was asked for
  const CollectionKind* kind;
  HeaderRecord header;
  int count;                      ///< items; none when the header counts less than none
  std::size_t recordLength;       ///< bytes; shorter in music of the older type
  std::span<const Field> fields;  ///< of its records
  std::uint64_t size;             ///< bytes of the file

  /// True of music that is upgraded when it is opened: its records are read, but never written.
  bool isOfOlderType() const { return recordLength != kind->recordLength; }

  /// The items of which the file holds at least a byte.
  int itemsThere() const;

  /// True when the file holds all of its items, but for the last, which it may lack altogether: a
  /// program that was ended between writing the header and the item leaves it so.
  bool isWhole() const;

  /// True when nothing lies behind the last item, either: a file that tells by its length alone
  /// that it is of this kind.
  bool endsExactly() const;
};

/// The word for a kind in open data and in commands: "music", "books".
std::string_view kindName(const CollectionKind& kind);

/// The kind that the end of a path tells, capitals or small letters; a DataError when it is none.
const CollectionKind& kindOfPath(std::string_view path);

/// Looks a collection up. A DataError for what is none, or too old for its items to be read; a
/// RunTimeError for what cannot be read.
CollectionFile readCollectionFile(FileSystem& files, const std::string& path);

/// The same for a kind that is known, whatever the file is called.
CollectionFile readCollectionFile(FileSystem& files, const std::string& path,
                                  const CollectionKind& kind);

/// The bytes of an open file. Found at once where it is one of those that are likely.
std::uint64_t sizeOf(File& file, std::span<const std::uint64_t> likely = {});

/// True when a new item may take the place: the kind does so, and the place is a deleted one.
bool isFreePlace(const CollectionKind& kind, std::span<const std::byte> record);

/// Reads items in any order; quick when they follow one another. The file stays open.
class ItemReader {
 public:
  ItemReader(FileSystem& files, const CollectionFile& collection);

  /// An item from 1 on, valid until the next call. What lies past the end of the file is blank.
  std::span<const std::byte> read(int item);

  /// The same as a record of the kind as it is now: what the older type has not is blank.
  std::span<const std::byte> readFull(int item);

 private:
  std::unique_ptr<File> file_;
  std::size_t recordLength_;
  int last_;  // items there are
  std::vector<std::byte> blank_;
  std::vector<std::byte> full_;
  std::vector<std::byte> block_;
  int firstOfBlock_ = 0;
  int endOfBlock_ = 0;
};

}  // namespace quillbox
