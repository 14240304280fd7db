#pragma once

#include <cstring>
#include <string_view>
#include <vector>

#include "opendata/streams.h"

namespace quillbox {

/// Collects small pieces of text and passes many at a time to a sink.
class SinkBuffer {
 public:
  explicit SinkBuffer(TextSink& to) : to_(to), buffer_(kAtOnce) {}

  SinkBuffer& operator+=(std::string_view text) {
    char* const room = roomFor(text.size());
    if (!text.empty()) std::memcpy(room, text.data(), text.size());
    endAt(room + text.size());
    return *this;
  }

  SinkBuffer& operator+=(char c) {
    char* const room = roomFor(1);
    *room = c;
    endAt(room + 1);
    return *this;
  }

  /// The place after the text, with room for so many characters. What is written there counts once
  /// endAt() has been called with its end; until then nothing else may be added.
  char* roomFor(std::size_t characters) {
    if (characters > buffer_.size() - filled_) makeRoom(characters);
    return buffer_.data() + filled_;
  }
  void endAt(const char* end) { filled_ = static_cast<std::size_t>(end - buffer_.data()); }

  /// Passes on the rest.
  void flush() {
    to_.write({buffer_.data(), filled_});
    filled_ = 0;
  }

 private:
  static constexpr std::size_t kAtOnce = 32'768;

  void makeRoom(std::size_t characters) {
    flush();
    if (characters > buffer_.size()) buffer_.resize(characters);
  }

  TextSink& to_;
  std::vector<char> buffer_;
  std::size_t filled_ = 0;
};

}  // namespace quillbox
