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

/// A collection as its file describes it, without a program that has it open.
struct CollectionFile {
  std::string path;  ///< as passed in
  const CollectionKind* kind;
  HeaderRecord header;
  int count;                      ///< items; 0 when the header has less
  std::size_t recordLength;       ///< bytes; shorter in music of the older type
  std::span<const Field> fields;  ///< the fields of its records
  std::uint64_t size;             ///< bytes of the file

  /// True for music that is upgraded when it is opened: its records are read, but never written.
  bool isOfOlderType() const { return recordLength != kind->recordLength; }

  /// The number of items of which at least a byte is in the file.
  int itemsThere() const;

  /// True when all items are in the file, except perhaps the last, which may be missing completely:
  /// a program that was ended between writing the header and the item leaves it so.
  bool isWhole() const;

  /// True when, in addition, nothing follows the last item: the length alone shows that the file is
  /// of this kind.
  bool endsExactly() const;
};

/// The name of a kind in open data and commands: "music", "books".
std::string_view kindName(const CollectionKind& kind);

/// The kind for the end of a path, in any case; a DataError when there is none.
const CollectionKind& kindOfPath(std::string_view path);

/// Reads a collection's header and size. A DataError for a file that is no collection, or too old
/// for its items to be read; a RunTimeError when reading fails.
CollectionFile readCollectionFile(FileSystem& files, const std::string& path);

/// The same for a known kind, whatever the file's name.
CollectionFile readCollectionFile(FileSystem& files, const std::string& path,
                                  const CollectionKind& kind);

/// The length of an open file; fast if it is one of `likely`.
std::uint64_t sizeOf(File& file, std::span<const std::uint64_t> likely = {});

/// True for a deleted item whose place a new item may take by its kind's rules.
bool isFreePlace(const CollectionKind& kind, std::span<const std::byte> record);

/// Reads items in any order; fast in sequence. The file stays open.
class ItemReader {
 public:
  ItemReader(FileSystem& files, const CollectionFile& collection);

  /// An item, counted from 1, valid until the next call. What is past the end of the file is blank.
  std::span<const std::byte> read(int item);

  /// The same as a current record of the kind: fields that the older type lacks are blank.
  std::span<const std::byte> readFull(int item);

 private:
  std::unique_ptr<File> file_;
  std::size_t recordLength_;
  int last_;  // the number of items
  std::vector<std::byte> blank_;
  std::vector<std::byte> full_;
  std::vector<std::byte> block_;
  int firstOfBlock_ = 0;
  int endOfBlock_ = 0;
};

}  // namespace quillbox
