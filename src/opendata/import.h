#pragma once

#include <optional>
#include <string>
#include <vector>

#include "opendata/collection_file.h"
#include "opendata/replacement.h"
#include "opendata/rows.h"
#include "opendata/values.h"

namespace quillbox {

struct ImportOptions {
  bool makesNew = false;  ///< a collection that is not there yet; every row is a new item
  bool dryRun = false;    ///< tell what would change, write nothing
  StoreRules store;
};

/// Hears what an import does, or would do.
class ImportWatcher {
 public:
  virtual ~ImportWatcher() = default;
  virtual void changed(int item, const DataColumn& column, const std::string& before,
                       const std::string& after) = 0;
  virtual void added(int item, std::span<const std::byte> record) = 0;
  /// Something in the data is wrong, so that nothing will be written.
  virtual void wrong(const std::string& place, const std::string& why) = 0;
  /// So many rows were read.
  virtual void read(int /*rows*/) {}
};

struct ImportResult {
  int rows = 0;
  int changed = 0;  ///< items
  int added = 0;
  int wrong = 0;
  std::string keptAs;  ///< where the earlier collection is; empty when nothing took its place
};

/// The rows of open data on their way into a collection. Rows with a number change the values of
/// that item which they name and which say something else; rows without one are new items, which
/// go into deleted places first where the kind does so, and then to the end. What rows do not
/// change keeps its bytes, and rows that change nothing write nothing.
///
/// Everything is written to a new file, which takes the collection's place in finish(), and only
/// when no row was wrong. The collection is open for reading until then.
class Import : public RowSink {
 public:
  Import(FileSystem& files, const CollectionFile& collection, const Values& values,
         const ImportOptions& options, ImportWatcher& watcher);

  /// A DataError when so much is wrong that there is no use in going on, and when the collection
  /// cannot be written to.
  void row(const Row& row) override;

  /// Call it once, after the last row.
  ImportResult finish();

 private:
  std::optional<int> itemOf(const Row& row);
  bool storeCells(const Row& row, std::optional<int> item, std::span<const std::byte> before);
  void checkDeleted(const Row& row) const;
  void wrong(const std::string& place, const std::string& why);
  void add(std::vector<std::byte> record);
  void placeHeldRows();
  void begin();
  void writeItem(int item, std::span<const std::byte> record);
  void writeHeader();
  bool isAnyFree();

  FileSystem& files_;
  const CollectionFile& collection_;
  const Values& values_;
  const ImportOptions options_;
  ImportWatcher& watcher_;
  std::optional<ItemReader> reader_;
  Replacement target_;
  const std::vector<std::byte> empty_;
  std::vector<std::byte> record_;  // of the row at hand
  std::vector<bool> seen_;         // items that a row had the number of
  std::vector<bool> changed_;
  std::vector<std::vector<std::byte>> held_;  // new rows that may find a deleted place
  std::optional<bool> mayHold_;               // unknown until there is one
  bool hasBegun_ = false;
  int count_;
  ImportResult result_;
};

/// A collection of a kind that is to be made: no items, no file yet.
CollectionFile collectionToMake(const std::string& path);

}  // namespace quillbox
