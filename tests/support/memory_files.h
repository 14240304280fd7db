#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "platform/run_time_error.h"

namespace quillbox::test {

/// Files in memory: thousands of sorts, or of fuzz inputs, must not wait for a disk or leave
/// anything behind.
class MemoryFiles : public FileSystem {
 public:
  std::map<std::string, std::shared_ptr<std::string>> files;

  void put(const std::string& path, std::string bytes) {
    files[path] = std::make_shared<std::string>(std::move(bytes));
  }

  /// The contents of the file, which must exist.
  const std::string& bytes(const std::string& path) const { return *files.at(path); }

  std::unique_ptr<File> open(const std::string& path, OpenMode mode) override {
    if (!exists(path)) {
      if (mode == OpenMode::read || mode == OpenMode::update)
        throw RunTimeError(ErrorNumber::fileNotFound, path);
      put(path, {});
    }
    if (mode == OpenMode::replace) files.at(path)->clear();
    return std::make_unique<MemoryFile>(files.at(path));
  }
  std::unique_ptr<File> make(const std::string& path, const std::string& /*like*/) override {
    if (exists(path)) throw RunTimeError(ErrorNumber::fileAlreadyExists, path);
    return open(path, OpenMode::create);
  }
  std::optional<std::string> linkTarget(const std::string& /*path*/) override { return {}; }
  bool exists(const std::string& path) override { return files.contains(path); }
  bool isSameFile(const std::string& a, const std::string& b) override {
    return a == b && exists(a);
  }
  void remove(const std::string& path) override {
    if (files.erase(path) == 0) throw RunTimeError(ErrorNumber::fileNotFound, path);
  }
  void rename(const std::string& from, const std::string& to) override {
    if (exists(to)) throw RunTimeError(ErrorNumber::fileAlreadyExists, to);
    auto moved = files.extract(from);
    if (moved.empty()) throw RunTimeError(ErrorNumber::fileNotFound, from);
    moved.key() = to;
    files.insert(std::move(moved));
  }
  std::string currentFolder() override { return "/"; }
  void setCurrentFolder(const std::string& /*folder*/) override {}
  std::string resolvedFolder(const std::string& folder) override { return folder; }
  std::string programFolder() override { return "/"; }
  std::vector<FolderEntry> list(const std::string& /*folder*/) override { return {}; }

 private:
  class MemoryFile : public File {
   public:
    explicit MemoryFile(std::shared_ptr<std::string> bytes) : bytes_(std::move(bytes)) {}

    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override {
      if (offset >= bytes_->size()) return 0;
      const std::size_t there = std::min<std::size_t>(into.size(), bytes_->size() - offset);
      std::memcpy(into.data(), bytes_->data() + offset, there);
      return there;
    }
    void writeAt(std::uint64_t offset, std::span<const std::byte> from) override {
      if (from.empty()) return;
      bytes_->resize(std::max<std::size_t>(bytes_->size(), offset + from.size()));
      std::memcpy(bytes_->data() + offset, from.data(), from.size());
    }
    void flush() override {}
    void close() override {}

   private:
    std::shared_ptr<std::string> bytes_;
  };
};

}  // namespace quillbox::test
