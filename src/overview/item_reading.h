#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/open_files.h"
#include "platform/run_time_error.h"
#include "records/app_state.h"
#include "records/kinds.h"

namespace quillbox {

/// The milliseconds that a piece of reading takes while somebody may type: no key waits longer than
/// these and one item.
constexpr int kReadingPiece = 10;

enum class ReadState {
  unfinished,  ///< call `readOn` again
  done,        ///< every item was read
  failed,      ///< `failure` has the cause; another `readOn` tries again from there
};

/// Reads all items of a collection once, from first to last, in pieces as short as the caller
/// wants. The file is closed between two pieces, and anything may happen to it: an item is returned
/// as it is when its piece is read.
class ItemReading {
 public:
  /// Called with items 1, 2, 3 ... in this order; the record is valid during the call. Must not
  /// fail.
  using Use = std::function<void(int item, std::span<const std::byte> record)>;

  /// Called after each item; true ends the piece.
  using Stop = std::function<bool()>;

  /// The collection is used by each piece, only for its path, and must outlive this object.
  ItemReading(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind);

  /// Begins at item 1 of `count`, without touching the file. A negative count is 0.
  void start(int count);

  /// There are more items now, or fewer; those already read stay read.
  void setCount(int count);

  /// Passes on the items from the first unread one, at least one if there is one. Never throws a
  /// RunTimeError: a file that is missing, cannot be read, or does not hold an item is a state. As
  /// everywhere, a last item that is not in the file at all is blank.
  ReadState readOn(const Use& use, const Stop& stop);

  ReadState state() const;
  const std::optional<RunTimeError>& failure() const { return failure_; }

  int count() const { return count_; }
  int readItems() const { return read_; }

  /// The count in the file's header at the last piece, 0 before; it differs from `count` if another
  /// program has added items or replaced the file.
  int countInFile() const { return countInFile_; }

  /// Marks the first unread item as read.
  void skip();

 private:
  void readPiece(const Use& use, const Stop& stop);

  OpenFiles& files_;
  const OpenCollection& collection_;
  const CollectionKind& kind_;
  std::vector<std::byte> blank_;
  int count_ = 0;
  int read_ = 0;
  int countInFile_ = 0;
  std::optional<RunTimeError> failure_;
};

/// Reads all items of a collection at once; throws the RunTimeError that ended it.
void readAllItems(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
                  int count, const ItemReading::Use& use);

}  // namespace quillbox
