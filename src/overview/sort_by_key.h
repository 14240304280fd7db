#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace quillbox {

/// Sorts `rows` by their keys; rows with equal keys keep their order. Each key is computed only
/// once, however often it is compared.
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
