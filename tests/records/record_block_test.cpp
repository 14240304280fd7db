#include "records/record_block.h"

#include <gtest/gtest.h>

#include <string>

#include "support/failing_files.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr std::size_t kLength = 1000;
constexpr int kMost = kRecordBlockBytes / kLength;

class RecordBlockTest : public testing::Test {
 protected:
  void put(int record, char with) {
    const std::string bytes(kLength, with);
    block_.put(record, std::as_bytes(std::span(bytes)));
  }
  void write() {
    RecordFile file(open_, path_, kLength, OpenMode::create);
    block_.writeTo(file);
    file.close();
  }
  std::string all() const { return readFile(path_); }

  TestFolder folder_;
  std::string path_ = folder_.path("items");
  FailingFiles files_;
  OpenFiles open_{files_};
  RecordBlock block_{kLength};
};

std::string record(char of) { return std::string(kLength, of); }

TEST_F(RecordBlockTest, RecordsAreWrittenInOnePiece) {
  EXPECT_TRUE(block_.isEmpty());
  for (const char with : {'a', 'b', 'c'}) put(with - 'a' + 1, with);
  EXPECT_FALSE(block_.isEmpty());
  write();
  EXPECT_EQ(files_.operations(), (std::vector<OperationRecord>{{FileOperation::open, path_},
                                                               {FileOperation::write, path_},
                                                               {FileOperation::close, path_}}));
  EXPECT_TRUE(all() == record('a') + record('b') + record('c'));
  EXPECT_TRUE(block_.isEmpty());
}

TEST_F(RecordBlockTest, TheLastRecordCanBePutAgain) {
  put(1, 'a');
  put(1, 'A');
  put(2, 'b');
  put(2, 'B');
  put(3, 'c');
  write();
  EXPECT_TRUE(all() == record('A') + record('B') + record('c'));
}

TEST_F(RecordBlockTest, BlocksBeginWithAnyRecord) {
  put(3, 'c');
  write();
  put(1, 'a');
  put(2, 'b');
  write();
  EXPECT_TRUE(all() == record('a') + record('b') + record('c'));
}

TEST_F(RecordBlockTest, AFullBlockHasRoomForItsLastRecordOnly) {
  for (int n = 1; n <= kMost; ++n) {
    EXPECT_TRUE(block_.hasRoomFor(n));
    put(n, 'x');
  }
  EXPECT_TRUE(block_.hasRoomFor(kMost));
  EXPECT_FALSE(block_.hasRoomFor(kMost + 1));
  put(kMost, 'y');
  write();
  EXPECT_TRUE(all() == std::string((kMost - 1) * kLength, 'x') + record('y'));
  EXPECT_TRUE(block_.hasRoomFor(kMost + 1));
}

TEST_F(RecordBlockTest, ARecordLongerThanABlockIsOneOfItsOwn) {
  RecordBlock block(kRecordBlockBytes + 1);
  EXPECT_TRUE(block.hasRoomFor(1));
  const std::string bytes(kRecordBlockBytes + 1, 'z');
  block.put(1, std::as_bytes(std::span(bytes)));
  EXPECT_FALSE(block.hasRoomFor(2));
  RecordFile file(open_, path_, bytes.size(), OpenMode::create);
  block.writeTo(file);
  EXPECT_TRUE(all() == bytes);
}

TEST_F(RecordBlockTest, WhatCouldNotBeWrittenIsKept) {
  put(1, 'a');
  put(2, 'b');
  files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
  EXPECT_EQ(failureOf([&] { write(); }), (Failure{61, path_}));
  EXPECT_FALSE(block_.isEmpty());
  put(3, 'c');
  write();
  EXPECT_TRUE(all() == record('a') + record('b') + record('c'));
}

TEST_F(RecordBlockTest, WhatIsClearedIsNotWritten) {
  put(1, 'a');
  block_.clear();
  EXPECT_TRUE(block_.isEmpty());
  put(5, 'e');
  write();
  EXPECT_TRUE(all() == std::string(4 * kLength, '\0') + record('e'));
}

}  // namespace
}  // namespace quillbox::test
