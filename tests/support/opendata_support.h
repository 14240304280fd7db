#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "opendata/streams.h"

namespace quillbox::test {

/// A text as a source that hands out so many bytes at once.
class TextSource : public ByteSource {
 public:
  explicit TextSource(std::string text, std::size_t atOnce = 1'000'000)
      : text_(std::move(text)), atOnce_(atOnce) {}

  std::size_t read(std::span<char> into) override {
    const std::size_t taken = text_.copy(into.data(), std::min(into.size(), atOnce_), at_);
    at_ += taken;
    return taken;
  }

 private:
  std::string text_;
  std::size_t atOnce_;
  std::size_t at_ = 0;
};

/// A sink that keeps what is written.
class KeptText : public TextSink {
 public:
  void write(std::string_view text) override { kept.append(text); }
  std::string kept;
};

}  // namespace quillbox::test
