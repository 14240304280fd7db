#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace quillbox::test {

/// Of light that a colour gives: 0 for black, 1 for white.
inline double luminance(const QColor& color) {
  const auto part = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

/// From 1, the same luminance, to 21, black and white.
inline double contrast(double one, double other) {
  const auto [darker, lighter] = std::minmax(one, other);
  return (lighter + 0.05) / (darker + 0.05);
}
inline double contrast(const QColor& one, const QColor& other) {
  return contrast(luminance(one), luminance(other));
}

}  // namespace quillbox::test
