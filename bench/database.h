#pragma once

#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace quillbox::bench {

/// A music collection as a table of a relational database, the peer for searching and sorting: a
/// column for each field, one for each song, texts without padding.
class Database {
 public:
  /// Creates the database file from the items of a collection.
  static void make(const std::string& path, const std::string& collection);

  explicit Database(const std::string& path);

  /// Runs a statement with text arguments and reads every column of its rows; returns the number of
  /// rows.
  int run(const std::string& statement, const std::vector<std::string>& arguments = {});

 private:
  struct Close {
    void operator()(sqlite3* connection) const;
  };
  std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace quillbox::bench
