#include "platform/text_writer.h"

#include "platform/run_time_error.h"

namespace quillbox {
namespace {

constexpr std::size_t kBufferBytes = 262'144;

}  // namespace

TextWriter::TextWriter(OpenFiles& files, const std::string& path, int number)
    : files_(files), number_(files.open(number, path, OpenMode::replace)), buffer_(kBufferBytes) {}

TextWriter::~TextWriter() {
  // Callers that need to know of a failure call close().
  if (closed_) return;
  ignoringErrors([this] { writeBuffer(); });
  ignoringErrors([this] { files_.close(number_); });
}

/// Returns the rest of the text, which fits into the buffer. Only whole buffers are written, so
/// that the system always gets whole pages.
std::string_view TextWriter::writeFullBuffers(std::string_view text) {
  while (text.size() > buffer_.size() - filled_) {
    const std::size_t taken = text.copy(buffer_.text() + filled_, buffer_.size() - filled_);
    filled_ += taken;
    text.remove_prefix(taken);
    writeBuffer();
  }
  return text;
}

void TextWriter::close() {
  writeBuffer();
  closed_ = true;
  files_.close(number_);
}

void TextWriter::writeBuffer() {
  files_.file(number_).writeAt(written_, buffer_.bytes().first(filled_));
  written_ += filled_;
  filled_ = 0;
}

}  // namespace quillbox
