#include "fuzz/collection_input.h"

#include <cstring>

#include "records/header_record.h"

namespace quillbox::fuzz {
namespace {

constexpr std::int16_t kMostItems = 40;
constexpr std::size_t kMostBytes = 128 * 1024;  // of a file made from few bytes

// A text's length, or one of these.
constexpr std::uint8_t kRestIsBlank = 0xFF;
constexpr std::uint8_t kRestIsZero = 0xFE;
constexpr std::uint8_t kPaddedWithZeros = 0x80;

std::string packedItem(const CollectionKind& kind, Input& input) {
  std::string item;
  for (const Field& field : kind.fields) {
    for (std::size_t entry = 0; entry < field.count; ++entry) {
      if (field.type != FieldType::text) {
        item.append(input.text(field.width));
      } else {
        const std::uint8_t length = input.byte();
        if (length == kRestIsBlank || length == kRestIsZero) {
          item.resize(kind.recordLength, length == kRestIsBlank ? ' ' : '\0');
          return item;
        }
        const std::size_t most = std::min<std::size_t>(length % kPaddedWithZeros, field.width);
        std::string text(input.text(most));
        text.resize(field.width, length >= kPaddedWithZeros ? '\0' : ' ');
        item.append(text);
      }
      item.resize(field.offset + (entry + 1) * field.width);
    }
  }
  return item;
}

std::string packedFile(const CollectionKind& kind, Input& input) {
  std::string bytes(input.text(sizeof(HeaderRecord)));
  bytes.resize(kind.recordLength);
  while (!input.empty() && bytes.size() < kMostBytes) bytes.append(packedItem(kind, input));
  return bytes;
}

void lowerCount(std::string& bytes) {
  HeaderRecord header{};
  std::memcpy(&header, bytes.data(), std::min(bytes.size(), sizeof header));
  if (header.Count <= kMostItems) return;
  header.Count = kMostItems;
  std::memcpy(bytes.data(), &header, std::min(bytes.size(), sizeof header.Count));
}

}  // namespace

CollectionInput collectionOf(Input input) {
  const auto kinds = collectionKinds();
  const std::size_t choice = input.byte();
  const CollectionKind& kind = kinds[choice / 2 % kinds.size()];
  std::string bytes = choice % 2 == 0 ? std::string(input.rest()) : packedFile(kind, input);
  lowerCount(bytes);
  return {kind, std::move(bytes)};
}

std::vector<std::string> wholeItems(const std::string& bytes, std::size_t recordLength, int count) {
  std::vector<std::string> items;
  for (int item = 1; item <= count; ++item) {
    const std::size_t at = static_cast<std::size_t>(item) * recordLength;
    if (at + recordLength > bytes.size()) break;
    items.push_back(bytes.substr(at, recordLength));
  }
  return items;
}

}  // namespace quillbox::fuzz
