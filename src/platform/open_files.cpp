#include "platform/open_files.h"

#include <utility>

namespace quillbox {

int OpenFiles::open(int number, const std::string& path, OpenMode mode) {
  if (number == file_number::fresh) {
    number = 1;
    while (slot(number)) ++number;
  } else {
    close(number);
  }
  table_.at(static_cast<std::size_t>(number)) = files_.open(path, mode);
  return number;
}

void OpenFiles::close(int number) {
  // Out of the table first: a file that fails to close is closed all the same.
  const auto file = std::exchange(table_.at(static_cast<std::size_t>(number)), nullptr);
  if (file) file->close();
}

void OpenFiles::closeAll() {
  for (auto& file : table_) file.reset();
}

}  // namespace quillbox
