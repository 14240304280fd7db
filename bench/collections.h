#pragma once

#include <filesystem>
#include <string>

#include "records/kinds.h"

namespace quillbox::bench {

/// As many items as a collection can have.
inline constexpr int kItems = 32767;

/// All items between the first and the last.
inline constexpr int kDeletedItems = kItems - 2;

/// The kind of all collections here but those of exports.
inline const CollectionKind& music() { return *kindOfExtension("MCS"); }

/// A collection that is timed.
struct Sized {
  std::string path;
  int items;
};

/// Creates a music collection of `count` items with every field filled in.
Sized makeFullCollection(const std::string& path, int count = kItems);

/// Creates one of `count` items in random order, with every field filled in.
void makeMixedCollection(const std::string& path, int count);

/// A full collection with every item between the first and the last deleted.
void makeDeletedCollection(const std::string& path);

/// Reads the file from beginning to end with bare system calls.
void readThrough(const std::string& path);

std::string contentsOf(const std::filesystem::path& path);

/// Leaves the file in the system's cache as if read from the disk, which is how a user's file gets
/// there: in larger pieces than when it is written by records or rows.
void readFromDisk(const std::string& path);

}  // namespace quillbox::bench
