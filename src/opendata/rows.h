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
  std::string_view text;  ///< UTF-8, as Values has it
};

/// An item as it comes in; valid only while it is handed over.
struct Row {
  std::string place;                       ///< where it stood: "row 12"
  std::optional<std::string_view> number;  ///< of the item; none, or empty, for a new one
  std::optional<bool> isDeleted = {};      ///< what the data says of that
  std::vector<Cell> cells;                 ///< what is not named stays
  bool decimalComma = false;               ///< amounts may be written with one
};

/// Takes rows in their order.
class RowSink {
 public:
  virtual ~RowSink() = default;
  virtual void row(const Row& row) = 0;
};

}  // namespace quillbox
