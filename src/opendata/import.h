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
  bool makesNew = false;  ///< a collection that does not exist yet; every row is a new item
  bool dryRun = false;    ///< report what would change, write nothing
  StoreRules store;
};

/// Receives what an import does, or would do.
class ImportWatcher {
 public:
  virtual ~ImportWatcher() = default;
  virtual void changed(int item, const DataColumn& column, const std::string& before,
                       const std::string& after) = 0;
  virtual void added(int item, std::span<const std::byte> record) = 0;
  /// An error in the data, so that nothing will be written.
  virtual void wrong(const std::string& place, const std::string& why) = 0;
  /// The number of rows read so far.
  virtual void read(int /*rows*/) {}
};

struct ImportResult {
  int rows = 0;
  int changed = 0;  ///< items
  int added = 0;
  int wrong = 0;
  std::string keptAs;  ///< the path of the earlier collection; empty when nothing was replaced
};

/// Imports rows of open data into a collection. A row with a number changes the values that it
/// names in that item, where they differ; a row without one is a new item, which takes a deleted
/// place if the kind does so, and otherwise goes to the end. What rows do not change keeps its
/// bytes, and if no row changes anything, nothing is written.
///
/// Everything is written to a new file, which replaces the collection in finish(), and only if no
/// row had an error. The collection is open for reading until then.
class Import : public RowSink {
 public:
  Import(FileSystem& files, const CollectionFile& collection, const Values& values,
         const ImportOptions& options, ImportWatcher& watcher);

  /// A DataError when there are too many errors to continue, and when the collection cannot be
  /// written.
  void row(const Row& row) override;

  /// Called once, after the last row.
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
  std::vector<std::byte> record_;  // of the current row
  std::vector<bool> seen_;         // items whose number a row had
  std::vector<bool> changed_;
  std::vector<std::vector<std::byte>> held_;  // new rows that may take a deleted place
  std::optional<bool> mayHold_;               // unknown until the first new row
  bool hasBegun_ = false;
  int count_;
  ImportResult result_;
};

/// A collection of a kind that is to be created: no items, no file yet.
CollectionFile collectionToMake(const std::string& path);

}  // namespace quillbox
