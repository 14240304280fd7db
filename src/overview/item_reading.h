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

enum class ReadState {
  unfinished,  ///< call `readOn` again
  done,        ///< every item was read
  failed,      ///< `failure` says why; another `readOn` tries again from there
};

/// Reads all items of a collection once, from the first to the last, in pieces as short as whoever
/// calls wants them. Between two pieces the file is closed, and anything may happen to it: an item
/// is what it is when its piece comes.
class ItemReading {
 public:
  /// Handed the items 1, 2, 3 ... in this order; the record is valid during the call. It must not
  /// fail.
  using Use = std::function<void(int item, std::span<const std::byte> record)>;

  /// Asked after each item whether the piece has been long enough.
  using Stop = std::function<bool()>;

  /// The collection is looked at with each piece, for its path alone, and must outlive this.
  ItemReading(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind);

  /// Begins at item 1 of `count`, without touching the file. A negative count is none.
  void start(int count);

  /// There are more items now, or fewer; those that were read stay so.
  void setCount(int count);

  /// Hands out the items from the first that was not read on, at least one if there is one. Never
  /// throws a RunTimeError: a file that is gone, cannot be read, or does not hold an item is a
  /// state. As everywhere, a last item of which the file holds nothing is blank.
  ReadState readOn(const Use& use, const Stop& stop);

  ReadState state() const;
  const std::optional<RunTimeError>& failure() const { return failure_; }

  int count() const { return count_; }
  int readItems() const { return read_; }

  /// The count in the file's header at the last piece, 0 before; not `count` where another program
  /// has added items or put another file there.
  int countInFile() const { return countInFile_; }

  /// Takes the first item that was not read for read.
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

/// Reads all items of a collection in one go; throws the RunTimeError that ended it.
void readAllItems(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind,
                  int count, const ItemReading::Use& use);

}  // namespace quillbox
