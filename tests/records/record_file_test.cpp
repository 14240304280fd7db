#include "records/record_file.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "support/failing_files.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kLength = 5;

std::span<const std::byte> asBytes(std::string_view text) { return std::as_bytes(std::span(text)); }

std::string read(RecordFile& file, int number, std::size_t length, std::string_view blank = "") {
  std::string bytes(length, '#');
  file.read(number, std::as_writable_bytes(std::span(bytes)), asBytes(blank));
  return bytes;
}

class RecordFileTest : public testing::Test {
 protected:
  RecordFileTest() { writeFile("list", "AAAAABBBBBCCCCC"); }

  TestFolder folder_;
  FailingFiles files_;
  OpenFiles open_{files_};
};

TEST_F(RecordFileTest, RecordsAreNumberedFromOne) {
  RecordFile file(open_, "list", kLength, OpenMode::read);
  EXPECT_EQ(read(file, 1, kLength), "AAAAA");
  EXPECT_EQ(read(file, 2, kLength), "BBBBB");
  EXPECT_EQ(read(file, 3, kLength), "CCCCC");
  EXPECT_EQ(read(file, 2, 3), "BBB");
}

TEST_F(RecordFileTest, ARecordNumberBelowOneIsBad) {
  RecordFile file(open_, "list", kLength, OpenMode::update);
  for (const int number : {0, -1, -2, std::numeric_limits<int>::min()}) {
    const Failure reading = failureOf([&] { read(file, number, kLength); });
    EXPECT_EQ(reading.number, 63) << number;
    EXPECT_EQ(reading.file, "list");
    const Failure writing = failureOf([&] { file.write(number, asBytes("xxxxx")); });
    EXPECT_EQ(writing.number, 63) << number;
    EXPECT_EQ(writing.file, "list");
  }
  EXPECT_EQ(readFile("list"), "AAAAABBBBBCCCCC");
}

TEST_F(RecordFileTest, ACutOffRecordHasTheBytesThereAndThenBlank) {
  writeFile("list", "AAAAABB");
  RecordFile file(open_, "list", kLength, OpenMode::read);
  EXPECT_EQ(read(file, 2, kLength, "vwxyz"), "BBxyz");
  EXPECT_EQ(read(file, 1, kLength, "vwxyz"), "AAAAA");
  EXPECT_EQ(read(file, 3, kLength, "vwxyz"), "vwxyz");
  EXPECT_EQ(read(file, 32768, kLength, "vwxyz"), "vwxyz");
  EXPECT_EQ(read(file, 2, 4, "vwxy"), "BBxy");
}

TEST_F(RecordFileTest, WithoutABlankRecordTheEndOfTheFileIsFollowedByZeros) {
  writeFile("list", "AAAAABB");
  RecordFile file(open_, "list", kLength, OpenMode::read);
  EXPECT_EQ(read(file, 2, kLength), "BB\0\0\0"sv);
  EXPECT_EQ(read(file, 3, kLength), "\0\0\0\0\0"sv);
}

TEST_F(RecordFileTest, AnEmptyFileIsAllBlank) {
  writeFile("list", "");
  RecordFile file(open_, "list", kLength, OpenMode::read);
  EXPECT_EQ(read(file, 1, kLength), "\0\0\0\0\0"sv);
  EXPECT_EQ(read(file, 1, kLength, "vwxyz"), "vwxyz");
}

TEST_F(RecordFileTest, WritingChangesOneRecordOnly) {
  RecordFile file(open_, "list", kLength, OpenMode::update);
  file.write(2, asBytes("12345"));
  EXPECT_EQ(readFile("list"), "AAAAA12345CCCCC");
}

TEST_F(RecordFileTest, WhatIsShorterThanARecordLeavesTheRestOfItAlone) {
  RecordFile file(open_, "list", kLength, OpenMode::update);
  file.write(1, asBytes("hd"));
  EXPECT_EQ(readFile("list"), "hdAAABBBBBCCCCC");
}

TEST_F(RecordFileTest, AShortWriteToANewFileMakesItThatLong) {
  RecordFile file(open_, "new", kLength, OpenMode::create);
  file.write(1, asBytes("hd"));
  file.close();
  EXPECT_EQ(readFile("new"), "hd");
}

TEST_F(RecordFileTest, WritingBeyondTheEndFillsTheGapWithZeros) {
  writeFile("list", "AA");
  RecordFile file(open_, "list", kLength, OpenMode::update);
  file.write(3, asBytes("CCCCC"));
  file.close();
  EXPECT_EQ(readFile("list"), "AA\0\0\0\0\0\0\0\0CCCCC"sv);
}

TEST_F(RecordFileTest, TheLastPositionOfTheLongestRecordsFits) {
  RecordFile file(open_, "list", 2372, OpenMode::update);
  file.write(32768, asBytes("end"));
  file.close();
  EXPECT_EQ(std::filesystem::file_size("list"), 32767ULL * 2372 + 3);
}

TEST_F(RecordFileTest, TheFileIsOpenForAsLongAsTheObjectLives) {
  {
    RecordFile file(open_, "list", kLength, OpenMode::read);
    EXPECT_TRUE(open_.isOpen(1));
    {
      RecordFile other(open_, "list", kLength, OpenMode::read, file_number::collection);
      EXPECT_TRUE(open_.isOpen(file_number::collection));
      EXPECT_FALSE(open_.isOpen(2));
    }
    EXPECT_FALSE(open_.isOpen(file_number::collection));
    EXPECT_TRUE(open_.isOpen(1));
  }
  EXPECT_FALSE(open_.isOpen(1));
}

TEST_F(RecordFileTest, AFileThatCannotBeOpenedTakesNoNumber) {
  const Failure failure =
      failureOf([&] { RecordFile file(open_, "missing", kLength, OpenMode::update); });
  EXPECT_EQ(failure.number, 53);
  EXPECT_EQ(failure.file, "missing");
  EXPECT_FALSE(open_.isOpen(1));
}

TEST_F(RecordFileTest, TheNumberIsFreeAfterAFailedOperation) {
  for (const FileOperation operation : {FileOperation::read, FileOperation::write}) {
    const Failure failure = failureOf([&] {
      RecordFile file(open_, "list", kLength, OpenMode::update);
      files_.failNth(operation, 0, ErrorNumber::deviceIo);
      read(file, 1, kLength);
      file.write(1, asBytes("xxxxx"));
    });
    EXPECT_EQ(failure.number, 57);
    EXPECT_EQ(failure.file, "list");
    EXPECT_FALSE(open_.isOpen(1));
  }
}

TEST_F(RecordFileTest, ClosingReportsAFailure) {
  RecordFile file(open_, "list", kLength, OpenMode::update);
  files_.failNth(FileOperation::close, 0, ErrorNumber::diskFull);
  const Failure failure = failureOf([&] { file.close(); });
  EXPECT_EQ(failure.number, 61);
  EXPECT_EQ(failure.file, "list");
  EXPECT_FALSE(open_.isOpen(1));
}

TEST_F(RecordFileTest, LeavingWithoutClosingIsSilentAboutAFailure) {
  EXPECT_NO_THROW({
    RecordFile file(open_, "list", kLength, OpenMode::update);
    files_.failNth(FileOperation::close, 0, ErrorNumber::diskFull);
  });
  EXPECT_TRUE(files_.hasFailed());
  EXPECT_FALSE(open_.isOpen(1));
}

TEST_F(RecordFileTest, AFileIsClosedOnlyOnce) {
  {
    RecordFile file(open_, "list", kLength, OpenMode::read);
    file.close();
  }
  const std::vector<OperationRecord> expected = {{FileOperation::open, "list"},
                                                 {FileOperation::close, "list"}};
  EXPECT_EQ(files_.operations(), expected);
}

TEST_F(RecordFileTest, AClosedFileLeavesTheNextHolderOfItsNumberAlone) {
  auto first = std::make_unique<RecordFile>(open_, "list", kLength, OpenMode::read);
  first->close();
  RecordFile second(open_, "list", kLength, OpenMode::read);
  first.reset();
  ASSERT_TRUE(open_.isOpen(1));
  EXPECT_EQ(read(second, 2, kLength), "BBBBB");
}

TEST_F(RecordFileTest, FlushingReachesTheFileAndReportsAFailure) {
  RecordFile file(open_, "list", kLength, OpenMode::update);
  files_.forget();
  file.flush();
  const std::vector<OperationRecord> expected = {{FileOperation::flush, "list"}};
  EXPECT_EQ(files_.operations(), expected);
  files_.failNth(FileOperation::flush, 0, ErrorNumber::deviceIo);
  EXPECT_EQ(failureOf([&] { file.flush(); }).number, 57);
}

}  // namespace
}  // namespace quillbox::test
