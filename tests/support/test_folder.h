#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillbox::test {

/// A fresh folder that is the current folder for as long as the object lives, then deleted.
class TestFolder {
 public:
  TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder();

  std::string path() const;

  /// The name in the folder, with the platform's own separators.
  std::string path(std::string_view name) const;

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

/// A path as Quillbox has it: where paths are not bytes they are UTF-8.
std::string textOf(const std::filesystem::path& path);

/// The name in that folder, with the platform's own separators.
std::string inFolder(std::string_view folder, std::string_view name);

/// Gives a file a second name: a symbolic link, or a hard one where QUILLBOX_NEEDS(links) would
/// skip.
void makeLink(const std::string& file, const std::string& name);

/// The number of files the program has open.
std::ptrdiff_t openDescriptors();

/// Of a file that nobody may write.
inline constexpr auto kReadOnly = std::filesystem::perms::owner_read |
                                  std::filesystem::perms::group_read |
                                  std::filesystem::perms::others_read;

/// While the object lives, the test has only the rights of an ordinary user, even when run by root:
/// what is forbidden really fails. Needs `permissions`, or `readOnlyFiles` for a file that its
/// owner may only read.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const TestFolder& folder);
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser();
};

/// Whole files as bytes. Reading a missing file fails the test.
std::string readFile(const std::string& path);
void writeFile(const std::string& path, std::string_view bytes);
void removeFile(const std::string& path);

/// A file of tests/data.
std::string dataFile(std::string_view name);

}  // namespace quillbox::test
