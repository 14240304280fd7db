#pragma once

#include <string>
#include <vector>

namespace quillbox {

/// A table of texts (UTF-8) for a terminal, a line for each row. Characters that would steer a
/// terminal are blanks in it.
class Table {
 public:
  struct Head {
    std::string name;
    bool toTheRight = false;
  };

  explicit Table(std::vector<Head> heads) : heads_(std::move(heads)) {}

  void add(std::vector<std::string> row);

  /// Columns lined up, two blanks between them; the heads bold where that is wanted.
  std::string aligned(bool boldHeads) const;

  /// With tabs between the columns.
  std::string tabSeparated() const;

  /// An array of objects, of which each has its values by the heads' names.
  std::string json() const;

 private:
  std::vector<Head> heads_;
  std::vector<std::vector<std::string>> rows_;
};

/// The text with blanks for what would steer a terminal or end a line.
std::string printable(std::string text);

}  // namespace quillbox
