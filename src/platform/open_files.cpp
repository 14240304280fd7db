#include "platform/open_files.h"

#include <utility>

namespace quillbox {

int OpenFiles::open(int number, const std::string& path, OpenMode mode) {
  number = freed(number);
  table_.at(static_cast<std::size_t>(number)) = files_.open(path, mode);
  return number;
}

int OpenFiles::make(int number, const std::string& path, const std::string& like) {
  number = freed(number);
  table_.at(static_cast<std::size_t>(number)) = files_.make(path, like);
  return number;
}

/// The number, after closing what was open under it.
int OpenFiles::freed(int number) {
  if (number != file_number::fresh) {
    close(number);
    return number;
  }
  number = 1;
  while (slot(number)) ++number;
  return number;
}

void OpenFiles::close(int number) {
  // Removed from the table first: a file that fails to close is closed all the same.
  const auto file = std::exchange(table_.at(static_cast<std::size_t>(number)), nullptr);
  if (file) file->close();
}

void OpenFiles::closeAll() {
  for (auto& file : table_) file.reset();
}

}  // namespace quillbox
