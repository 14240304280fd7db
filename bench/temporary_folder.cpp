#include "temporary_folder.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace quillbox::bench {

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "quillbox-bench-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), name);
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace quillbox::bench
