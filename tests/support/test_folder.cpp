#include "support/test_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace quillbox::test {

TestFolder::TestFolder() : before_(std::filesystem::current_path()) {
  // No dot anywhere in the name: the first dot of a path is where its backup's name is cut.
  std::string name = (std::filesystem::temp_directory_path() / "quillbox-test-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no folder for the test";
  folder_ = name;
  std::filesystem::current_path(folder_);
}

TestFolder::~TestFolder() {
  std::filesystem::current_path(before_);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_))
    if (entry.is_directory())
      std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all);
  std::filesystem::permissions(folder_, std::filesystem::perms::owner_all);
  std::filesystem::remove_all(folder_);
}

OrdinaryUser::OrdinaryUser(const TestFolder& folder) {
  if (::geteuid() != 0) return;
  using std::filesystem::perms;
  std::filesystem::permissions(folder.path(), perms::group_read | perms::group_exec,
                               std::filesystem::perm_options::add);
  constexpr uid_t nobody = 65534;
  if (::seteuid(nobody) != 0) ADD_FAILURE() << "cannot give up root's rights";
}

OrdinaryUser::~OrdinaryUser() {
  if (::getuid() == 0 && ::seteuid(0) != 0) ADD_FAILURE() << "cannot take root's rights back";
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) ADD_FAILURE() << "cannot read " << path;
  // As a whole: character by character would be most of what some tests do.
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

void writeFile(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string dataFile(std::string_view name) {
  return (std::filesystem::path(QUILLBOX_TEST_DATA) / name).string();
}

}  // namespace quillbox::test
