#include "support/family_files.h"

#include "records/kinds.h"
#include "text/padding.h"

namespace quillbox::test {

std::string familyHeader(int count, int fileType) {
  return wholeBytes(count) + wholeBytes(fileType) + "1.71    ";
}

std::string familyItem(const ModelKind& kind, std::string_view first, std::string_view other) {
  std::string item(kind.recordLength, '\0');
  fillBlank(kind.row().fields, std::as_writable_bytes(std::span(item)));
  item.replace(0, first.size(), first);
  item.replace(kind.inputs[1].offset, other.size(), other);
  return item;
}

std::string deletedItem(const ModelKind& kind) {
  std::string item(kind.recordLength, '\0');
  const std::string marker = "DELETED" + std::string(43, ' ');
  return item.replace(0, marker.size(), marker);
}

std::string familyFile(const ModelKind& kind, std::initializer_list<std::string_view> firsts) {
  return familyFile(kind, static_cast<int>(firsts.size()), firsts);
}

std::string familyFile(const ModelKind& kind, int count,
                       std::initializer_list<std::string_view> firsts) {
  std::string bytes = familyHeader(count);
  bytes.resize(kind.recordLength);
  for (const std::string_view first : firsts)
    bytes += first == "DELETED" ? deletedItem(kind) : familyItem(kind, first);
  return bytes;
}

std::string itemBytes(const ModelKind& kind, std::string_view file, int n) {
  const auto at = static_cast<std::size_t>(n) * kind.recordLength;
  if (file.size() < at + kind.recordLength) throw std::out_of_range("no such item");
  return std::string(file.substr(at, kind.recordLength));
}

std::string textAt(std::string_view item, std::size_t offset, std::size_t width) {
  return std::string(withoutTrailingBlanks(item.substr(offset, width)));
}

}  // namespace quillbox::test
