#pragma once

#include <stdexcept>
#include <string>

namespace quillbox {

/// Data that cannot be taken: a collection that is none, a row that is wrong. The text says why, in
/// one line of UTF-8, without the file's name, which whoever asked knows.
class DataError : public std::runtime_error {
 public:
  explicit DataError(const std::string& why) : std::runtime_error(why) {}
};

}  // namespace quillbox
