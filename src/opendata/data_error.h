#pragma once

#include <stdexcept>
#include <string>

namespace quillbox {

/// Data that cannot be accepted: a file that is no collection, a row with an error. The text has
/// the reason in one line of UTF-8, without the file's name, which the caller knows.
class DataError : public std::runtime_error {
 public:
  explicit DataError(const std::string& why) : std::runtime_error(why) {}
};

}  // namespace quillbox
