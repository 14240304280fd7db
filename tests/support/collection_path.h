#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/checked16.h"
#include "records/collection_store.h"
#include "records/kinds.h"
#include "support/fault_table.h"

namespace quillbox::test {

inline std::string extensionIn(const CollectionKind& kind) { return std::string(kind.extension); }

/// Kinds that write the header with every item, and put new items into deleted slots.
inline bool tendsHeader(const CollectionKind& kind) {
  return kind.editor == EditorForm::music || kind.editor == EditorForm::wave;
}

inline std::string plainHeader(const CollectionKind& kind, int count,
                               std::string_view version = "1.71    ") {
  const auto bits = static_cast<unsigned>(count);
  const char fileType = kind.editor == EditorForm::music ? 5 : 1;
  return std::string{static_cast<char>(bits & 0xFFU), static_cast<char>(bits >> 8U), fileType, 0}
      .append(version);
}

/// An item whose every text is blank but the first one.
inline std::string plainItem(const CollectionKind& kind, std::string_view first) {
  std::string item(kind.recordLength, '\0');
  fillBlank(kind.fields, std::as_writable_bytes(std::span(item)));
  return item.replace(0, first.size(), first);
}

/// A collection of these items with a completely filled header record. The version shows whether
/// the header was written again.
inline std::string plainCollection(const CollectionKind& kind,
                                   const std::vector<std::string>& items,
                                   std::string_view version = "0.99    ") {
  std::string bytes = plainHeader(kind, static_cast<int>(items.size()), version);
  bytes.resize(kind.recordLength, '=');
  for (const std::string& item : items) bytes += item;
  return bytes;
}

/// A write path on an open collection.
class CollectionPath : public FaultPath {
 protected:
  CollectionPath(const CollectionKind& kind, const std::string& bytes, int count)
      : kind_(kind), path_(folder_.path("mine." + extensionIn(kind))), before_(bytes) {
    writeFile(path_, bytes);
    state_.currentPath = path_;
    state_.Count = checked16(count);
  }
  CollectionPath(const CollectionKind& kind, const std::vector<std::string>& items)
      : CollectionPath(kind, plainCollection(kind, items), static_cast<int>(items.size())) {}

  std::string collection() const { return bytesAt(path_); }
  void expectCollectionUntouched() const { EXPECT_TRUE(collection() == before_); }

  const CollectionKind& kind_;
  std::string path_;
  std::string before_;
};

/// A row for each kind that `belongs`.
template <typename Path, typename Belongs>
std::vector<FaultPathRow> rowsOf(const std::string& name, const Belongs& belongs) {
  std::vector<FaultPathRow> rows;
  for (const CollectionKind& kind : collectionKinds())
    if (belongs(kind))
      rows.push_back(
          {name + "In" + extensionIn(kind), [&kind] { return std::make_unique<Path>(kind); }});
  return rows;
}

template <typename Path>
std::vector<FaultPathRow> rowsOf(const std::string& name) {
  return rowsOf<Path>(name, [](const CollectionKind&) { return true; });
}

inline std::vector<FaultPathRow> joined(const std::vector<std::vector<FaultPathRow>>& groups) {
  std::vector<FaultPathRow> all;
  for (const auto& group : groups) all.insert(all.end(), group.begin(), group.end());
  return all;
}

}  // namespace quillbox::test
