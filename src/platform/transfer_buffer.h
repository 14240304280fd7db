#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace quillbox {

/// Zeroed memory to read and write files from in large pieces. It begins with a line of the
/// processor's cache; elsewhere the system takes up to twice as long to copy whole pages from or to
/// it.
class TransferBuffer {
 public:
  explicit TransferBuffer(std::size_t size) : lines_((size + kLine - 1) / kLine), size_(size) {}

  std::size_t size() const { return size_; }
  std::span<std::byte> bytes() { return std::as_writable_bytes(std::span(lines_)).first(size_); }
  char* text() { return reinterpret_cast<char*>(lines_.data()); }

 private:
  static constexpr std::size_t kLine = 64;
  struct alignas(kLine) Line {
    std::byte bytes[kLine];
  };

  std::vector<Line> lines_;
  std::size_t size_;
};

}  // namespace quillbox
