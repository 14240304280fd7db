#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace quillbox {

/// A source of bytes, read once and in order.
class ByteSource {
 public:
  virtual ~ByteSource() = default;

  /// Fills `into` as far as bytes are available; 0 only at the end. A RunTimeError when reading
  /// fails.
  virtual std::size_t read(std::span<char> into) = 0;
};

/// A destination for text, written in order.
class TextSink {
 public:
  virtual ~TextSink() = default;

  /// A RunTimeError when writing fails.
  virtual void write(std::string_view text) = 0;
};

}  // namespace quillbox
