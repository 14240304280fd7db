#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace quillbox {

/// Puts `rows` in the order of their keys; rows with the same key stay as they were. Each key is
/// made once: one that is costly is made as often as there are rows, not as often as two are
/// compared.
template <typename Row, typename KeyOf>
void sortByKey(std::vector<Row>& rows, const KeyOf& keyOf) {
  using Key = decltype(keyOf(rows.front()));
  std::vector<std::pair<Key, Row>> keyed;
  keyed.reserve(rows.size());
  for (Row& row : rows) {
    Key key = keyOf(row);
    keyed.emplace_back(std::move(key), std::move(row));
  }
  std::ranges::stable_sort(keyed, {}, &std::pair<Key, Row>::first);
  std::ranges::transform(keyed, rows.begin(),
                         [](auto& pair) -> Row&& { return std::move(pair.second); });
}

}  // namespace quillbox
