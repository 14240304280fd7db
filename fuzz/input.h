#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quillbox::fuzz {

/// Stops the fuzzer at an input that shows an error in the program.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

/// The bytes of an input, from beginning to end. Past its end are zeros and empty texts.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : left_(reinterpret_cast<const char*>(data), size) {}

  bool empty() const { return left_.empty(); }

  std::string_view text(std::size_t length) {
    const std::string_view taken = left_.substr(0, length);
    left_.remove_prefix(taken.size());
    return taken;
  }
  std::string_view rest() { return text(left_.size()); }

  /// Up to the next line feed, which is removed.
  std::string_view line() {
    const std::string_view taken = text(left_.find('\n'));
    text(1);
    return taken;
  }

  std::uint8_t byte() {
    const std::string_view taken = text(1);
    return taken.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(taken.front());
  }
  std::int16_t whole() {
    const unsigned low = byte();
    return static_cast<std::int16_t>(low | unsigned{byte()} << 8U);
  }
  double real() {
    std::uint64_t bits = 0;
    for (unsigned place = 0; place < sizeof bits; ++place)
      bits |= std::uint64_t{byte()} << (8 * place);
    return std::bit_cast<double>(bits);
  }

 private:
  std::string_view left_;
};

}  // namespace quillbox::fuzz
