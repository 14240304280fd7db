#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "support/model_bytes.h"

namespace quillbox::test {

#ifdef _WIN32
/// Names that differ in capitals alone are the same file's.
struct PathOrder {
  static char small(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  }
  bool operator()(const std::string& a, const std::string& b) const {
    return std::ranges::lexicographical_compare(a, b, {}, small, small);
  }
};
#else
using PathOrder = std::less<std::string>;
#endif

/// Files as bytes, by their paths.
using ModelDisk = std::map<std::string, std::string, PathOrder>;

/// A path with the part after its first dot replaced. No folder above has a dot in its name.
inline std::string withEnding(const std::string& path, const std::string& ending) {
  return path.substr(0, path.find('.') + 1) + ending;
}

/// The header of a collection that the new-collection dialog makes.
inline std::string headerOfNew() { return littleEndian(0, 2) + littleEndian(1, 2) + "1.71    "; }

/// The collection that is open, as bytes of a file.
class ModelStore {
 public:
  int count = 0;  ///< items, as the editor knows it

  /// The collection that is open.
  const std::string& path() const { return path_; }
  const std::string& file() const { return disk_.at(path_); }

  std::string record(int item) const {
    std::string bytes = blankRecord();
    const std::size_t at = static_cast<std::size_t>(item) * kind_.recordLength;
    if (at < file().size()) putBytes(bytes, 0, file().substr(at, kind_.recordLength));
    return bytes;
  }
  bool isWhole(int item) const {
    return file().size() >= static_cast<std::size_t>(item + 1) * kind_.recordLength;
  }

  /// The last item may be missing completely, and then is blank.
  bool canBeRead(int item) const {
    return isWhole(item) ||
           (item == count && file().size() <= static_cast<std::size_t>(item) * kind_.recordLength);
  }

  bool canSort() const {
    for (int item = 1; item <= count; ++item)
      if (!canBeRead(item)) return false;
    return true;
  }

  /// New File leaves the header, for music one of the older type.
  void leaveForNew() {
    writeAt(0, littleEndian(count, 2) + littleEndian(kind_.fileTypeLeftBehind(), 2) + "1.71    ");
  }

  /// Exports to a file of that name, and path.
  std::string exportTo(const std::string& name, const std::string& path) {
    if (path == path_) return errorText(55, name);
    std::string& text = disk_[path];
    text.clear();
    for (int item = 1; item <= count; ++item) {
      if (!canBeRead(item)) return errorText(63, path_);
      if (kind_.isMedia()) return errorText(13);
      text += exportedLines(record(item));
    }
    return {};
  }

  /// From the file's header, which may be all of an incomplete file.
  int headerCount() const { return std::max(0, headerNumber(0)); }

 protected:
  ModelStore(const ModelKind& kind, ModelDisk& disk) : kind_(kind), disk_(disk) {}

  int headerNumber(std::size_t offset) const {
    std::string header = file().substr(0, 4);
    header.resize(4);
    return static_cast<int>(numberAt(header, offset, 2));
  }

  std::string blankRecord() const {
    std::string blank(kind_.recordLength, '\0');
    const auto fill = [&](std::size_t offset, std::size_t width) {
      putBytes(blank, offset, std::string(width, ' '));
    };
    for (const ModelInput& input : kind_.inputs)
      if (input.isText()) fill(input.offset, input.width);
    fill(kind_.list.offset, static_cast<std::size_t>(kind_.list.entries) * ModelList::kWidth);
    fill(kind_.reservedOffset, kind_.recordLength - kind_.reservedOffset);
    return blank;
  }

  std::string markerOf(const std::string& record) const {
    return record.substr(0, kind_.markerWidth());
  }
  bool isDeleted(const std::string& record) const {
    return withoutEndBlanks(markerOf(record)) == kind_.marker();
  }

  /// The first one whose place a new item takes.
  std::optional<int> deletedItem() const {
    for (int item = 1; kind_.skipsDeleted() && item <= count; ++item)
      if (trimmedOf(markerOf(record(item))) == kind_.marker()) return item;
    return std::nullopt;
  }

  void writeAt(std::size_t offset, const std::string& bytes) {
    std::string& file = disk_[path_];
    file.resize(std::max(file.size(), offset + bytes.size()), '\0');
    putBytes(file, offset, bytes);
  }
  void writeHeader(int items) {
    writeAt(0, littleEndian(items, 2) + littleEndian(kind_.fileType(), 2) + "1.71    ");
  }
  void writeItem(int item, const std::string& bytes, int items) {
    if (kind_.skipsDeleted()) writeHeader(items);
    writeAt(static_cast<std::size_t>(item) * kind_.recordLength, bytes);
  }

  /// A line for each entry of the item's list that does not begin with a zero byte.
  std::string exportedLines(const std::string& record) const {
    const auto quoted = [&](std::size_t offset) {
      return '"' + withoutEndBlanks(upToZero(record.substr(offset, ModelList::kWidth))) + '"';
    };
    std::string lines;
    for (std::size_t entry = 0; entry < static_cast<std::size_t>(kind_.list.entries); ++entry) {
      const std::size_t offset = kind_.list.offset + entry * ModelList::kWidth;
      if (record[offset] == '\0') continue;
      for (int text = 0; text < kind_.exportedTexts; ++text)
        lines += quoted(static_cast<std::size_t>(text) * ModelList::kWidth) + ',';
      lines += quoted(offset) + "\r\n";
    }
    return lines;
  }

  const ModelKind& kind_;
  ModelDisk& disk_;
  std::string path_;
};

}  // namespace quillbox::test
