#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "opendata/values.h"

namespace quillbox {

/// The name of the item number in open data.
inline constexpr std::string_view kItemColumn = "Item";

struct Cell {
  const DataColumn* column;
  std::string_view text;  ///< UTF-8, in the form of Values
};

/// One item of the input; valid only during the call.
struct Row {
  std::string place;                       ///< its place in the input: "row 12"
  std::optional<std::string_view> number;  ///< the item's number; none, or empty, for a new one
  std::optional<bool> isDeleted = {};      ///< as the data has it
  std::vector<Cell> cells;                 ///< values not named are unchanged
  bool decimalComma = false;               ///< amounts may have a decimal comma
};

/// Receives rows in order.
class RowSink {
 public:
  virtual ~RowSink() = default;
  virtual void row(const Row& row) = 0;
};

}  // namespace quillbox
