#pragma once

#include <ostream>
#include <string>

#include "platform/run_time_error.h"

namespace quillbox::test {

/// The run-time error of a call; number 0 when there was none.
struct Failure {
  int number = 0;
  std::string file;

  bool operator==(const Failure&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Failure& failure) {
  return out << failure.number << " [" << failure.file << "]";
}

template <typename Call>
Failure failureOf(const Call& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return {static_cast<int>(error.number()), error.file()};
  }
  return {};
}

}  // namespace quillbox::test
