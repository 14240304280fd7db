#include "text/amount_sum.h"

#include <cstdlib>

#include "text/number_text.h"

namespace quillbox {

void AmountSum::add(std::int64_t tenThousandths) {
  high_ += tenThousandths / kPart;
  low_ += tenThousandths % kPart;
  carry();
}

void AmountSum::add(const AmountSum& other) {
  high_ += other.high_;
  low_ += other.low_;
  carry();
}

void AmountSum::carry() {
  high_ += low_ / kPart;
  low_ %= kPart;
  const std::int64_t borrowed = high_ > 0 && low_ < 0 ? 1 : high_ < 0 && low_ > 0 ? -1 : 0;
  high_ -= borrowed;
  low_ += borrowed * kPart;
}

std::string AmountSum::text() const {
  if (high_ == 0) return plainAmount(low_);
  constexpr std::int64_t units = 10'000;
  constexpr std::size_t digitsOfPart = 8;  // before the point
  const std::int64_t low = std::abs(low_);
  std::string whole = std::to_string(low / units);
  whole.insert(0, digitsOfPart - whole.size(), '0');
  return std::to_string(high_).append(whole).append(plainAmount(low % units).substr(1));
}

double AmountSum::approximate() const {
  constexpr double units = 1e4;
  return (static_cast<double>(high_) * static_cast<double>(kPart) + static_cast<double>(low_)) /
         units;
}

}  // namespace quillbox
