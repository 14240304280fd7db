#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quillbox::bench {

/// The median of `values`, which must not be empty.
inline double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  if (values.size() % 2 != 0) return *middle;
  return (*middle + *std::max_element(values.begin(), middle)) / 2;
}

}  // namespace quillbox::bench
