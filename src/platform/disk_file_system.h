#pragma once

#include "platform/file_system.h"

namespace quillbox {

/// The file system of the machine.
class DiskFileSystem : public FileSystem {
 public:
  std::unique_ptr<File> open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<File> make(const std::string& path, const std::string& like) override;
  bool exists(const std::string& path) override;
  std::optional<std::string> linkTarget(const std::string& path) override;
  bool isSameFile(const std::string& a, const std::string& b) override;
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  void exchange(const std::string& one, const std::string& other) override;
  std::string currentFolder() override;
  void setCurrentFolder(const std::string& folder) override;
  std::string resolvedFolder(const std::string& folder) override;
  std::string programFolder() override;
  std::vector<FolderEntry> list(const std::string& folder) override;
};

}  // namespace quillbox
