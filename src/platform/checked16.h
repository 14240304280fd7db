#pragma once

#include <cstdint>

#include "platform/run_time_error.h"

namespace quillbox {

/// `value` as a 16-bit number, the type of counts and positions; run-time error 6 when it does not
/// fit.
constexpr std::int16_t checked16(int value) {
  if (value < INT16_MIN || value > INT16_MAX) throw RunTimeError(ErrorNumber::overflow);
  return static_cast<std::int16_t>(value);
}

}  // namespace quillbox
