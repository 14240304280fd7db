#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

/// The types that records are made of. Each has alignment 1 and the same layout in memory and on
/// disk, on any host, so that a record struct is the bytes of the file.
namespace quillbox {

/// N single-byte characters (Windows-1252), cut to the width and padded with blanks on the right.
template <std::size_t N>
class FixedText {
 public:
  FixedText() = default;  ///< N zero bytes when value-initialised
  constexpr explicit FixedText(std::string_view text) { *this = text; }

  constexpr FixedText& operator=(std::string_view text) {
    const auto length = std::min(text.size(), N);
    std::copy_n(text.begin(), length, bytes_.begin());
    std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(length), bytes_.end(), ' ');
    return *this;
  }

  /// All N characters.
  constexpr std::string_view view() const { return {bytes_.data(), N}; }

 private:
  std::array<char, N> bytes_;
};

namespace detail {

/// An integer stored as little-endian bytes.
template <typename Value, typename Bits = std::make_unsigned_t<Value>>
class LittleEndian {
 public:
  constexpr operator Value() const {
    Bits bits = 0;
    for (std::size_t i = sizeof(Value); i-- > 0;)
      bits = static_cast<Bits>((std::uint64_t{bits} << 8U) | bytes_[i]);
    return static_cast<Value>(bits);
  }
  constexpr LittleEndian& operator=(Value value) {
    auto bits = std::uint64_t{static_cast<Bits>(value)};
    for (auto& byte : bytes_) {
      byte = static_cast<std::uint8_t>(bits);
      bits >>= 8U;
    }
    return *this;
  }

 private:
  std::array<std::uint8_t, sizeof(Value)> bytes_;
};

}  // namespace detail

/// 16-bit signed.
using WholeNumber = detail::LittleEndian<std::int16_t>;

/// An amount in ten-thousandths, 64-bit signed.
using Money = detail::LittleEndian<std::int64_t>;

/// An IEEE double.
class Real {
 public:
  constexpr operator double() const {
    return std::bit_cast<double>(static_cast<std::int64_t>(bits_));
  }
  constexpr Real& operator=(double value) {
    bits_ = std::bit_cast<std::int64_t>(value);
    return *this;
  }

 private:
  detail::LittleEndian<std::int64_t> bits_;
};
static_assert(sizeof(Real) == 8 && alignof(Real) == 1);

static_assert(sizeof(WholeNumber) == 2 && alignof(WholeNumber) == 1);
static_assert(sizeof(Money) == 8 && alignof(Money) == 1);

/// The bytes of a record, for reading and writing files.
template <typename Record>
std::span<std::byte> bytesOf(Record& record) {
  return std::as_writable_bytes(std::span(&record, 1));
}
template <typename Record>
std::span<const std::byte> bytesOf(const Record& record) {
  return std::as_bytes(std::span(&record, 1));
}

}  // namespace quillbox
