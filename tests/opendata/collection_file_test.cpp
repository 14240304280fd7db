#include "opendata/collection_file.h"

#include <gtest/gtest.h>

#include "support/opendata_support.h"

namespace quillbox::test {
namespace {

TEST(CollectionFile, KnowsFromItsLengthWhatIsThere) {
  const CollectionKind& kind = *kindOfCode(2);
  const auto length = static_cast<int>(kind.recordLength);
  constexpr int header = sizeof(HeaderRecord);
  // The first record is the header's.
  const struct {
    int count;
    int size;
    int itemsThere;
    bool isWhole;
    bool endsExactly;
  } rows[] = {
      {3, 0, 0, false, false},
      {3, header, 0, false, false},
      {3, length, 0, false, false},
      {3, length + 1, 1, false, false},
      {3, 2 * length, 1, false, false},
      {3, 2 * length + 1, 2, false, false},
      {3, 3 * length - 1, 2, false, false},
      {3, 3 * length, 2, true, true},  // the last one was never written
      {3, 3 * length + 1, 3, false, false},
      {3, 4 * length - 1, 3, false, false},
      {3, 4 * length, 3, true, true},
      {3, 4 * length + 1, 3, true, false},
      {3, 5 * length, 3, true, false},
      {2, 2 * length, 1, true, true},
      {2, 2 * length + 1, 2, false, false},
      {2, 3 * length, 2, true, true},
      {1, header, 0, true, false},
      {1, length, 0, true, true},
      {1, length + 1, 1, false, false},
      {1, 2 * length - 1, 1, false, false},
      {1, 2 * length, 1, true, true},
      {1, 2 * length + 1, 1, true, false},
      {0, 0, 0, true, false},
      {0, header, 0, true, true},
      {0, header + 1, 0, true, false},
      {0, length, 0, true, true},
      {0, length + 1, 0, true, false},
  };
  for (const auto& row : rows) {
    const CollectionFile file{"",
                              &kind,
                              {},
                              row.count,
                              kind.recordLength,
                              kind.fields,
                              static_cast<std::uint64_t>(row.size)};
    SCOPED_TRACE(std::to_string(row.count) + " items in " + std::to_string(row.size) + " bytes");
    EXPECT_EQ(file.itemsThere(), row.itemsThere);
    EXPECT_EQ(file.isWhole(), row.isWhole);
    EXPECT_EQ(file.endsExactly(), row.endsExactly);
  }
}

}  // namespace
}  // namespace quillbox::test
