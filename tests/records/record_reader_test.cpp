#include "records/record_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "records/header_record.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr std::size_t kBlock = kRecordBlockBytes;

/// The record of an item: its number, repeated.
std::string recordOf(int item, std::size_t length) {
  std::string record;
  while (record.size() < length) record += std::to_string(item) + " ";
  return record.substr(0, length);
}

class RecordReaderTest : public testing::TestWithParam<std::size_t> {
 protected:
  std::size_t length() const { return GetParam(); }

  void makeFile(int count) {
    std::string bytes(length(), 'h');
    for (int item = 1; item <= count; ++item) bytes += recordOf(item, length());
    writeFile(path_, bytes);
  }

  std::string next(RecordReader& reader) {
    const auto record = reader.next();
    return {reinterpret_cast<const char*>(record.data()), record.size()};
  }

  int reads() const { return files_.countOf(FileOperation::read); }

  TestFolder folder_;
  std::string path_ = folder_.path("items");
  FailingFiles files_;
  OpenFiles open_{files_};
};

TEST_P(RecordReaderTest, HandsOutEveryItemInOrder) {
  const int count = static_cast<int>(2 * kBlock / length()) + 3;
  makeFile(count);
  RecordFile file(open_, path_, length(), OpenMode::read);
  RecordReader reader(file, count, recordNumberOf(1));
  for (int item = 1; item <= count; ++item)
    ASSERT_EQ(next(reader), recordOf(item, length())) << item;
}

TEST_P(RecordReaderTest, ReadsTheFileInBlocksOfWholeRecords) {
  const int perBlock = static_cast<int>(std::max<std::size_t>(kBlock / length(), 1));
  const int count = 2 * perBlock + 1;
  makeFile(count);
  RecordFile file(open_, path_, length(), OpenMode::read);
  RecordReader reader(file, count, recordNumberOf(1));
  for (int item = 1; item <= count; ++item) {
    reader.next();
    EXPECT_EQ(reads(), (item - 1) / perBlock + 1) << item;
  }
}

TEST_P(RecordReaderTest, AShortFileGivesTheItemsItHoldsWhole) {
  makeFile(2);
  for (const std::size_t missing : {std::size_t{1}, length() - 1, length()}) {
    writeFile(path_, readFile(path_).substr(0, 3 * length() - missing));
    RecordFile file(open_, path_, length(), OpenMode::read);
    RecordReader reader(file, 5, recordNumberOf(1));
    EXPECT_EQ(next(reader), recordOf(1, length()));
    for (int attempt = 0; attempt < 2; ++attempt)
      EXPECT_EQ(failureOf([&] { reader.next(); }), (Failure{63, path_})) << missing;
  }
}

TEST_P(RecordReaderTest, OnlyTheLastRecordMayBeMissingAndIsBlankThen) {
  makeFile(2);
  const std::vector<std::byte> blank(length(), std::byte{'b'});
  const std::string whole = readFile(path_);
  const auto readAll = [&](int count) {
    RecordFile file(open_, path_, length(), OpenMode::read);
    RecordReader reader(file, count, recordNumberOf(1), blank);
    std::string all;
    for (int item = 1; item <= count; ++item) all += next(reader);
    return all;
  };
  EXPECT_EQ(readAll(2), recordOf(1, length()) + recordOf(2, length()));
  EXPECT_EQ(readAll(3), recordOf(1, length()) + recordOf(2, length()) + std::string(length(), 'b'));
  EXPECT_EQ(failureOf([&] { readAll(4); }), (Failure{63, path_})) << "two are missing";
  writeFile(path_, whole + "x");
  EXPECT_EQ(failureOf([&] { readAll(3); }), (Failure{63, path_})) << "it is cut off";
  writeFile(path_, whole.substr(0, whole.size() - 1));
  EXPECT_EQ(failureOf([&] { readAll(3); }), (Failure{63, path_})) << "the one before it is";
}

TEST_P(RecordReaderTest, WithoutABlankTheLastRecordMayNotBeMissingEither) {
  makeFile(2);
  RecordFile file(open_, path_, length(), OpenMode::read);
  RecordReader reader(file, 3, recordNumberOf(1));
  EXPECT_EQ(next(reader), recordOf(1, length()));
  EXPECT_EQ(next(reader), recordOf(2, length()));
  EXPECT_EQ(failureOf([&] { reader.next(); }), (Failure{63, path_}));
}

TEST_P(RecordReaderTest, ReadsFromAnyRecordOn) {
  makeFile(3);
  RecordFile file(open_, path_, length(), OpenMode::read);
  RecordReader reader(file, 2, recordNumberOf(2));
  EXPECT_EQ(next(reader), recordOf(2, length()));
  EXPECT_EQ(next(reader), recordOf(3, length()));
}

TEST_P(RecordReaderTest, AFailedReadIsReported) {
  makeFile(3);
  RecordFile file(open_, path_, length(), OpenMode::read);
  RecordReader reader(file, 3, recordNumberOf(1));
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  EXPECT_EQ(failureOf([&] { reader.next(); }), (Failure{57, path_}));
}

INSTANTIATE_TEST_SUITE_P(Lengths, RecordReaderTest,
                         testing::Values(224, 2372, kBlock - 1, kBlock, kBlock + 1));

}  // namespace
}  // namespace quillbox::test
