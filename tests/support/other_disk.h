#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <random>
#include <string>

namespace quillbox::test {

/// A fresh folder on another file system than the current folder, deleted at the end.
class OtherDisk {
 public:
  OtherDisk() {
    std::random_device random;
    for (const char* disk : {"/dev/shm", "/tmp"}) {
      const std::string folder = std::string(disk) + "/quillbox-test-" + std::to_string(random());
      std::error_code error;
      if (isThere() || !isAnother(disk)) continue;
      if (std::filesystem::create_directory(folder, error)) folder_ = folder;
    }
  }
  OtherDisk(const OtherDisk&) = delete;
  OtherDisk& operator=(const OtherDisk&) = delete;
  ~OtherDisk() {
    std::error_code error;
    if (isThere()) std::filesystem::remove_all(folder_, error);
  }

  /// False on a machine without one.
  bool isThere() const { return !folder_.empty(); }

  std::string path(const std::string& name) const { return folder_ + "/" + name; }

 private:
  static bool isAnother(const char* folder) {
    struct stat here {};
    struct stat there {};
    return ::stat(".", &here) == 0 && ::stat(folder, &there) == 0 && here.st_dev != there.st_dev;
  }

  std::string folder_;
};

}  // namespace quillbox::test
