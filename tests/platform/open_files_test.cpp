#include "platform/open_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/failing_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

class OpenFilesTest : public testing::Test {
 protected:
  OpenFilesTest() {
    writeFile("a", "A");
    writeFile("b", "B");
  }

  int openFresh(const std::string& path) {
    return open_.open(file_number::fresh, path, OpenMode::read);
  }

  std::string firstByteOf(int number) {
    std::string byte(1, '#');
    open_.file(number).readAt(0, std::as_writable_bytes(std::span(byte)));
    return byte;
  }

  TestFolder folder_;
  FailingFiles files_;
  OpenFiles open_{files_};
};

TEST_F(OpenFilesTest, NothingIsOpenAtFirst) {
  for (int number = 1; number <= 255; ++number) EXPECT_FALSE(open_.isOpen(number)) << number;
  EXPECT_EQ(&open_.fileSystem(), &files_);
}

TEST_F(OpenFilesTest, AFreshNumberIsTheLowestFreeOne) {
  EXPECT_EQ(openFresh("a"), 1);
  EXPECT_EQ(openFresh("b"), 2);
  EXPECT_EQ(openFresh("a"), 3);
  open_.close(2);
  EXPECT_FALSE(open_.isOpen(2));
  EXPECT_EQ(openFresh("b"), 2);
  EXPECT_EQ(openFresh("b"), 4);
  open_.close(3);
  open_.close(1);
  EXPECT_EQ(openFresh("b"), 1);
  EXPECT_EQ(openFresh("b"), 3);
}

TEST_F(OpenFilesTest, NumbersWithARoleOfTheirOwnAreGivenAsAsked) {
  for (const int number :
       {file_number::collection, file_number::spool, file_number::exportFile, 7}) {
    EXPECT_EQ(open_.open(number, "a", OpenMode::read), number);
    EXPECT_TRUE(open_.isOpen(number)) << number;
  }
  EXPECT_EQ(file_number::exportFile, 253);
  EXPECT_EQ(file_number::spool, 254);
  EXPECT_EQ(file_number::collection, 255);
  EXPECT_EQ(openFresh("b"), 1);
}

TEST_F(OpenFilesTest, AFileIsMadeUnderANumberAsOneIsOpened) {
  open_.open(file_number::collection, "a", OpenMode::read);
  files_.forget();
  EXPECT_EQ(open_.make(file_number::collection, "new", ""), file_number::collection);
  EXPECT_EQ(open_.make(file_number::fresh, "newer", "a"), 1);
  const std::vector<OperationRecord> expected = {
      {FileOperation::close, "a"}, {FileOperation::make, "new"}, {FileOperation::make, "newer"}};
  EXPECT_EQ(files_.operations(), expected);
  open_.close(file_number::collection);
  EXPECT_THROW(open_.make(7, "new", ""), RunTimeError);
  EXPECT_FALSE(open_.isOpen(7));
}

TEST_F(OpenFilesTest, EachNumberIsItsOwnFile) {
  const int a = openFresh("a");
  const int b = openFresh("b");
  EXPECT_EQ(firstByteOf(a), "A");
  EXPECT_EQ(firstByteOf(b), "B");
}

TEST_F(OpenFilesTest, OpeningANumberThatIsOpenClosesTheOldFileFirst) {
  open_.open(file_number::collection, "a", OpenMode::read);
  files_.forget();
  open_.open(file_number::collection, "b", OpenMode::read);
  const std::vector<OperationRecord> expected = {{FileOperation::close, "a"},
                                                 {FileOperation::open, "b"}};
  EXPECT_EQ(files_.operations(), expected);
  EXPECT_EQ(firstByteOf(file_number::collection), "B");
}

TEST_F(OpenFilesTest, ANumberThatCannotBeClosedIsNotOpenedAgainButFree) {
  open_.open(file_number::collection, "a", OpenMode::read);
  files_.failNth(FileOperation::close, 0, ErrorNumber::deviceIo);
  files_.forget();
  EXPECT_THROW(open_.open(file_number::collection, "b", OpenMode::read), RunTimeError);
  const std::vector<OperationRecord> expected = {{FileOperation::close, "a"}};
  EXPECT_EQ(files_.operations(), expected);
  EXPECT_FALSE(open_.isOpen(file_number::collection));
}

TEST_F(OpenFilesTest, AFileThatCannotBeOpenedTakesNoNumber) {
  EXPECT_THROW(openFresh("missing"), RunTimeError);
  EXPECT_FALSE(open_.isOpen(1));
  EXPECT_THROW(open_.open(9, "missing", OpenMode::update), RunTimeError);
  EXPECT_FALSE(open_.isOpen(9));
  EXPECT_EQ(openFresh("a"), 1);
}

TEST_F(OpenFilesTest, TheFileIsOpenedInTheModeAskedFor) {
  open_.open(1, "made", OpenMode::create);
  EXPECT_TRUE(std::filesystem::exists("made"));
  const std::string text = "x";
  open_.open(2, "a", OpenMode::read);
  EXPECT_THROW(open_.file(2).writeAt(0, std::as_bytes(std::span(text))), RunTimeError);
  open_.open(2, "a", OpenMode::update);
  open_.file(2).writeAt(0, std::as_bytes(std::span(text)));
  open_.close(2);
  EXPECT_EQ(readFile("a"), "x");
}

TEST_F(OpenFilesTest, ClosingANumberThatIsNotOpenIsNoError) {
  EXPECT_NO_THROW(open_.close(1));
  EXPECT_NO_THROW(open_.close(255));
  const int number = openFresh("a");
  open_.close(number);
  EXPECT_NO_THROW(open_.close(number));
  const std::vector<OperationRecord> expected = {{FileOperation::open, "a"},
                                                 {FileOperation::close, "a"}};
  EXPECT_EQ(files_.operations(), expected);
}

TEST_F(OpenFilesTest, AFileThatFailsToCloseIsReportedAndItsNumberIsFree) {
  const auto before = openDescriptors();
  const int number = openFresh("a");
  files_.failNth(FileOperation::close, 0, ErrorNumber::diskFull);
  try {
    open_.close(number);
    ADD_FAILURE() << "the failure went unheard";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::diskFull);
    EXPECT_EQ(error.file(), "a");
  }
  EXPECT_FALSE(open_.isOpen(number));
  EXPECT_EQ(openDescriptors(), before);
  EXPECT_NO_THROW(open_.close(number));
  EXPECT_EQ(openFresh("b"), number);
}

TEST_F(OpenFilesTest, ClosingEverythingClosesEveryNumber) {
  const auto before = openDescriptors();
  openFresh("a");
  openFresh("b");
  open_.open(100, "a", OpenMode::update);
  open_.open(file_number::collection, "b", OpenMode::read);
  EXPECT_EQ(openDescriptors(), before + 4);
  open_.closeAll();
  EXPECT_EQ(openDescriptors(), before);
  for (int number = 1; number <= 255; ++number) EXPECT_FALSE(open_.isOpen(number)) << number;
  EXPECT_EQ(openFresh("a"), 1);
}

TEST_F(OpenFilesTest, ClosingEverythingIsSilentAboutFailures) {
  openFresh("a");
  openFresh("b");
  files_.failNth(FileOperation::close, 0, ErrorNumber::diskFull);
  EXPECT_NO_THROW(open_.closeAll());
  EXPECT_FALSE(open_.isOpen(1));
  EXPECT_FALSE(open_.isOpen(2));
  EXPECT_NO_THROW(open_.closeAll());
}

}  // namespace
}  // namespace quillbox::test
