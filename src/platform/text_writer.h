#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/open_files.h"
#include "platform/transfer_buffer.h"

namespace quillbox {

/// A text file that is written from beginning to end and replaces what was there before. If close()
/// was not called or failed, the contents of the file are incomplete.
class TextWriter {
 public:
  TextWriter(OpenFiles& files, const std::string& path, int number);
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;
  ~TextWriter();

  void write(std::string_view text) {
    if (text.size() > buffer_.size() - filled_) text = writeFullBuffers(text);
    filled_ += text.copy(buffer_.text() + filled_, text.size());
  }

  /// Writes the rest and closes the file.
  void close();

 private:
  std::string_view writeFullBuffers(std::string_view text);
  void writeBuffer();

  OpenFiles& files_;
  int number_;
  TransferBuffer buffer_;
  std::size_t filled_ = 0;
  std::uint64_t written_ = 0;
  bool closed_ = false;
};

}  // namespace quillbox
