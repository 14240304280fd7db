#pragma once

#include <cstdint>
#include <string>

namespace quillbox {

/// A sum of amounts in ten-thousandths, exact for a million million of them.
class AmountSum {
 public:
  void add(std::int64_t tenThousandths);
  void add(const AmountSum& other);

  /// In decimal, in the form of plainAmount.
  std::string text() const;

  /// Precise enough to draw a bar.
  double approximate() const;

  friend bool operator==(const AmountSum&, const AmountSum&) = default;

 private:
  void carry();

  static constexpr std::int64_t kPart = 1'000'000'000'000;

  // The sum is high_ * kPart + low_. Both have its sign, or are 0, and low_ is less than a part.
  std::int64_t high_ = 0;
  std::int64_t low_ = 0;
};

}  // namespace quillbox
