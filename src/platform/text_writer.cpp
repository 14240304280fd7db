#include "platform/text_writer.h"

#include "platform/run_time_error.h"

namespace quillbox {
namespace {

constexpr std::size_t kBufferBytes = 65'536;

}  // namespace

TextWriter::TextWriter(OpenFiles& files, const std::string& path, int number)
    : files_(files), number_(files.open(number, path, OpenMode::replace)) {
  buffer_.reserve(kBufferBytes);
}

TextWriter::~TextWriter() {
  // Whoever wants to hear of a failure calls close().
  if (closed_) return;
  ignoringErrors([this] { writeBuffer(); });
  ignoringErrors([this] { files_.close(number_); });
}

void TextWriter::write(std::string_view text) {
  if (buffer_.size() + text.size() > kBufferBytes) writeBuffer();
  buffer_.append(text);
}

void TextWriter::close() {
  writeBuffer();
  closed_ = true;
  files_.close(number_);
}

void TextWriter::writeBuffer() {
  files_.file(number_).writeAt(written_, std::as_bytes(std::span(buffer_)));
  written_ += buffer_.size();
  buffer_.clear();
}

}  // namespace quillbox
