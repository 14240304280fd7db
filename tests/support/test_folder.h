#pragma once

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

  std::string path() const { return folder_.string(); }
  std::string path(std::string_view name) const { return (folder_ / name).string(); }

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

/// For as long as the object lives the test has no more rights than an ordinary user, root's tests
/// included: what is forbidden really fails.
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

/// A file of tests/data.
std::string dataFile(std::string_view name);

}  // namespace quillbox::test
