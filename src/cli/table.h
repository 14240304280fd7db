#pragma once

#include <string>
#include <vector>

namespace quillbox {

/// A table of texts (UTF-8) for a terminal, one line for each row. Control characters in it become
/// blanks.
class Table {
 public:
  struct Head {
    std::string name;
    bool toTheRight = false;
  };

  explicit Table(std::vector<Head> heads) : heads_(std::move(heads)) {}

  void add(std::vector<std::string> row);

  /// In aligned columns with two blanks between them; the heads can be bold.
  std::string aligned(bool boldHeads) const;

  /// With tabs between the columns.
  std::string tabSeparated() const;

  /// An array of objects, with the heads as names.
  std::string json() const;

 private:
  std::vector<Head> heads_;
  std::vector<std::vector<std::string>> rows_;
};

/// The text with blanks for all characters that control a terminal or end a line.
std::string printable(std::string text);

}  // namespace quillbox
