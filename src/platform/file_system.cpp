#include "platform/file_system.h"

#include "platform/run_time_error.h"

namespace quillbox {

void FileSystem::exchange(const std::string& one, const std::string& other) {
  const std::string spare = one + "~";
  rename(one, spare);
  try {
    rename(other, one);
  } catch (const RunTimeError&) {
    ignoringErrors([&] { rename(spare, one); });
    throw;
  }
  try {
    rename(spare, other);
  } catch (const RunTimeError&) {
    ignoringErrors([&] {
      rename(one, other);
      rename(spare, one);
    });
    throw;
  }
}

}  // namespace quillbox
