#include "records/record_block.h"

#include <gtest/gtest.h>

#include <string>

#include "support/failing_files.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr std::size_t kLength = 1000;
constexpr int kBegun = kRecordBlockBytes / kLength + 1;  // records in the first piece

class RecordBlockTest : public testing::Test {
 protected:
  void put(int record, char with) {
    const std::string bytes(kLength, with);
    block_.put(record, std::as_bytes(std::span(bytes)));
  }
  /// Puts records from `first` on as long as there is room; returns the last.
  int fill(int first) {
    int n = first;
    for (; block_.hasRoomFor(n); ++n) put(n, 'x');
    return n - 1;
  }
  void write() {
    RecordFile file(open_, path_, kLength, OpenMode::create);
    block_.writeTo(file);
    file.close();
  }
  void writePiece() {
    RecordFile file(open_, path_, kLength, OpenMode::create);
    block_.writePieceTo(file);
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
  fill(1);
  EXPECT_TRUE(block_.hasRoomFor(kBegun));
  EXPECT_FALSE(block_.hasRoomFor(kBegun + 1));
  put(kBegun, 'y');
  write();
  EXPECT_TRUE(all() == std::string((kBegun - 1) * kLength, 'x') + record('y'));
  EXPECT_TRUE(block_.hasRoomFor(kBegun + 1));
}

TEST_F(RecordBlockTest, PiecesEndAtWholePagesAndTheNextBeginThere) {
  const int last = fill(1);
  writePiece();
  EXPECT_EQ(all().size(), kRecordBlockBytes);
  EXPECT_FALSE(block_.isEmpty());
  EXPECT_EQ(fill(last + 1), 2 * kRecordBlockBytes / kLength + 1);
  writePiece();
  EXPECT_EQ(all().size(), 2 * kRecordBlockBytes);
  const int end = 2 * kRecordBlockBytes / kLength + 1;
  put(end + 1, 'y');
  put(end + 1, 'z');
  write();
  EXPECT_TRUE(all() == std::string(end * kLength, 'x') + record('z'));
  EXPECT_TRUE(block_.isEmpty());
}

TEST_F(RecordBlockTest, ABlockThatBeginsWithinAPageEndsWithAWholeOne) {
  EXPECT_EQ(fill(kBegun + 1), 2 * kRecordBlockBytes / kLength + 1);
  writePiece();
  EXPECT_EQ(all().size(), 2 * kRecordBlockBytes);
  EXPECT_TRUE(all().substr(0, kBegun * kLength) == std::string(kBegun * kLength, '\0'));
}

TEST_F(RecordBlockTest, APieceThatEndsWithARecordLeavesNothing) {
  constexpr std::size_t length = kRecordBlockBytes / 4;
  RecordBlock block(length);
  const std::string bytes(length, 'x');
  for (int n = 1; n <= 4; ++n) block.put(n, std::as_bytes(std::span(bytes)));
  EXPECT_FALSE(block.hasRoomFor(5));
  RecordFile file(open_, path_, length, OpenMode::create);
  block.writePieceTo(file);
  EXPECT_TRUE(block.isEmpty());
  EXPECT_EQ(all().size(), kRecordBlockBytes);
}

TEST_F(RecordBlockTest, ARecordMayBeLongerThanAPiece) {
  constexpr std::size_t length = 2 * kRecordBlockBytes + 1;
  RecordBlock block(length);
  EXPECT_TRUE(block.hasRoomFor(1));
  const std::string bytes(length, 'z');
  block.put(1, std::as_bytes(std::span(bytes)));
  EXPECT_FALSE(block.hasRoomFor(2));
  RecordFile file(open_, path_, length, OpenMode::create);
  block.writePieceTo(file);
  EXPECT_EQ(all().size(), 2 * kRecordBlockBytes);
  block.put(2, std::as_bytes(std::span(bytes)));
  block.writeTo(file);
  EXPECT_TRUE(all() == bytes + bytes);
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

TEST_F(RecordBlockTest, APieceThatCouldNotBeWrittenIsKept) {
  const int last = fill(1);
  files_.failNth(FileOperation::write, 0, ErrorNumber::diskFull);
  EXPECT_EQ(failureOf([&] { writePiece(); }), (Failure{61, path_}));
  EXPECT_EQ(fill(last + 1), last);
  write();
  EXPECT_TRUE(all() == std::string(static_cast<std::size_t>(last) * kLength, 'x'));
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
