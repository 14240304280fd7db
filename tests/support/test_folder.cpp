#include "support/test_folder.h"

#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

#include <fstream>
#include <random>
#include <sstream>

#include "support/machine.h"

namespace quillbox::test {
namespace {

/// Where paths are not bytes they are UTF-8 to Quillbox.
std::filesystem::path asPath(std::string_view path) {
  return std::u8string(path.begin(), path.end());
}

}  // namespace

std::string textOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string inFolder(std::string_view folder, std::string_view name) {
  return textOf((asPath(folder) / asPath(name)).make_preferred());
}

TestFolder::TestFolder() : before_(std::filesystem::current_path()) {
  // No dot anywhere in the name: a backup's name is cut at the first dot of a path.
  std::random_device random;
  do
    folder_ =
        std::filesystem::temp_directory_path() / ("quillbox-test-" + std::to_string(random()));
  while (!std::filesystem::create_directory(folder_));
  std::filesystem::permissions(folder_, std::filesystem::perms::owner_all);
  std::filesystem::current_path(folder_);
}

TestFolder::~TestFolder() {
  std::filesystem::current_path(before_);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_))
    if (!entry.is_symlink())
      std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all);
  std::filesystem::permissions(folder_, std::filesystem::perms::owner_all);
  std::filesystem::remove_all(folder_);
}

std::string TestFolder::path() const { return textOf(folder_); }

std::string TestFolder::path(std::string_view name) const { return inFolder(path(), name); }

void makeLink(const std::string& file, const std::string& name) {
  if (kMachine.links == nullptr)
    std::filesystem::create_symlink(file, name);
  else
    std::filesystem::create_hard_link(file, name);
}

#ifdef _WIN32

std::ptrdiff_t openDescriptors() {
  // Handles are small multiples of four; most of them are no files.
  constexpr std::uintptr_t most = 16'384;
  std::ptrdiff_t count = 0;
  for (std::uintptr_t handle = 4; handle < most; handle += 4)
    if (::GetFileType(reinterpret_cast<HANDLE>(handle)) == FILE_TYPE_DISK) ++count;
  return count;
}

OrdinaryUser::OrdinaryUser(const TestFolder&) {}

OrdinaryUser::~OrdinaryUser() = default;

#else

std::ptrdiff_t openDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
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

#endif

std::string readFile(const std::string& path) {
  std::ifstream file(asPath(path), std::ios::binary);
  if (!file) ADD_FAILURE() << "cannot read " << path;
  // At once: character by character would take most of the time of some tests.
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

void writeFile(const std::string& path, std::string_view bytes) {
  std::ofstream(asPath(path), std::ios::binary) << bytes;
}

void removeFile(const std::string& path) { std::filesystem::remove(asPath(path)); }

std::string dataFile(std::string_view name) {
  return (std::filesystem::path(QUILLBOX_TEST_DATA) / name).string();
}

}  // namespace quillbox::test
