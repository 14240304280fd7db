#include "platform/text_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "support/failing_files.h"
#include "support/failure.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr int kNumber = 253;
constexpr std::size_t kBuffer = 256 * 1024;

/// Files that can be opened but not written.
class FullDisk : public DiskFileSystem {
 public:
  std::unique_ptr<File> open(const std::string& path, OpenMode mode) override {
    return std::make_unique<FullFile>(path, DiskFileSystem::open(path, mode));
  }

 private:
  class FullFile : public File {
   public:
    FullFile(std::string path, std::unique_ptr<File> file)
        : path_(std::move(path)), file_(std::move(file)) {}
    std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) override {
      return file_->readAt(offset, into);
    }
    void writeAt(std::uint64_t, std::span<const std::byte>) override {
      throw RunTimeError(ErrorNumber::diskFull, path_);
    }
    void flush() override { file_->flush(); }
    void close() override { file_->close(); }

   private:
    std::string path_;
    std::unique_ptr<File> file_;
  };
};

class TextWriterTest : public testing::Test {
 protected:
  /// Writes a whole file, and returns it as one text.
  std::string write(const std::vector<std::string>& texts) {
    std::string all;
    TextWriter writer(open_, "list.txt", kNumber);
    for (const std::string& text : texts) {
      writer.write(text);
      all += text;
    }
    writer.close();
    EXPECT_FALSE(open_.isOpen(kNumber));
    return all;
  }

  int writes() const { return files_.countOf(FileOperation::write); }

  TestFolder folder_;
  FailingFiles files_;
  OpenFiles open_{files_};
};

TEST_F(TextWriterTest, TheTextsFollowOneAnother) {
  write({"one", "", " two\r\n", "\xE9t\xE9"});
  EXPECT_EQ(readFile("list.txt"), "one two\r\n\xE9t\xE9");
  write({std::string("zero\0byte", 9), "\n"});
  EXPECT_EQ(readFile("list.txt"), std::string("zero\0byte\n", 10));
}

TEST_F(TextWriterTest, WhatWasInTheFileBeforeIsGone) {
  writeFile("list.txt", std::string(200'000, '#'));
  write({"new"});
  EXPECT_EQ(readFile("list.txt"), "new");
}

TEST_F(TextWriterTest, AFileWithoutTextIsEmpty) {
  writeFile("list.txt", "before");
  write({});
  EXPECT_EQ(readFile("list.txt"), "");
  write({"", ""});
  EXPECT_EQ(readFile("list.txt"), "");
}

TEST_F(TextWriterTest, TextsOfAnyLengthArriveWhole) {
  const std::vector<std::vector<std::size_t>> lengths = {
      {kBuffer - 1},
      {kBuffer},
      {kBuffer + 1},
      {kBuffer, 1},
      {1, kBuffer},
      {kBuffer - 1, 1, 1},
      {kBuffer - 1, 2, kBuffer},
      {5 * kBuffer + 3},
      {7, 5 * kBuffer, 7, 3 * kBuffer, 0, kBuffer},
      std::vector<std::size_t>(1'000, 5'522),
  };
  for (const auto& row : lengths) {
    std::vector<std::string> texts;
    for (const std::size_t length : row)
      texts.emplace_back(length, static_cast<char>('a' + texts.size() % 26));
    const std::string all = write(texts);
    EXPECT_TRUE(readFile("list.txt") == all) << row.front();
  }
}

TEST_F(TextWriterTest, RandomTextsArriveInTheirOrder) {
  std::mt19937 random(17);
  for (int round = 0; round < 30; ++round) {
    std::vector<std::string> texts(random() % 200);
    for (std::string& text : texts) {
      text.resize(random() % (random() % 20 == 0 ? 100'000 : 3'000));
      for (char& c : text) c = static_cast<char>(random() % 256);
    }
    const std::string all = write(texts);
    EXPECT_TRUE(readFile("list.txt") == all) << round;
  }
}

TEST_F(TextWriterTest, ShortTextsAreWrittenTogether) {
  write(std::vector<std::string>(6'000, "0123456789"));
  EXPECT_EQ(writes(), 1);
  files_.forget();
  write(std::vector<std::string>(60'000, "0123456789"));
  EXPECT_EQ(writes(), 3);
}

TEST_F(TextWriterTest, TheFileHasItsNumberUntilItIsClosed) {
  TextWriter writer(open_, "list.txt", kNumber);
  EXPECT_TRUE(open_.isOpen(kNumber));
  writer.close();
  EXPECT_FALSE(open_.isOpen(kNumber));
}

TEST_F(TextWriterTest, ANumberInUseIsTakenOver) {
  writeFile("other", "kept");
  open_.open(kNumber, "other", OpenMode::update);
  write({"text"});
  EXPECT_EQ(readFile("list.txt"), "text");
  EXPECT_EQ(readFile("other"), "kept");
}

TEST_F(TextWriterTest, OnceClosedItLeavesTheNumberToOthers) {
  std::optional<TextWriter> writer;
  writer.emplace(open_, "list.txt", kNumber);
  writer->write("text");
  writer->close();
  writeFile("other", "kept");
  open_.open(kNumber, "other", OpenMode::update);
  writer.reset();
  EXPECT_TRUE(open_.isOpen(kNumber));
  EXPECT_EQ(readFile("other"), "kept");
  EXPECT_EQ(readFile("list.txt"), "text");
}

TEST_F(TextWriterTest, WhoeverEndsWithoutClosingLeavesNothingOpen) {
  { TextWriter(open_, "list.txt", kNumber).write("text"); }
  EXPECT_FALSE(open_.isOpen(kNumber));
  files_.failNth(FileOperation::close, 0, ErrorNumber::diskFull);
  EXPECT_EQ(failureOf([&] { TextWriter(open_, "list.txt", kNumber).write("text"); }), Failure{});
  EXPECT_TRUE(files_.hasFailed());
  EXPECT_FALSE(open_.isOpen(kNumber));
}

TEST_F(TextWriterTest, AFileThatCannotBeOpenedIsAnError) {
  std::filesystem::create_directory("folder");
  for (const Failure& failure :
       {Failure{53, ""}, Failure{76, "missing/list.txt"}, Failure{75, "folder"}}) {
    EXPECT_EQ(failureOf([&] { TextWriter(open_, failure.file, kNumber); }), failure);
    EXPECT_FALSE(open_.isOpen(kNumber));
  }
}

TEST_F(TextWriterTest, AnyFailureIsReportedAndLeavesNothingOpen) {
  const std::vector<std::string> texts(30, std::string(5'000, 'w'));
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    int failures = 0;
    for (int nth = 0;; ++nth) {
      files_.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = failureOf([&] { write(texts); });
      if (!files_.hasFailed()) break;
      ++failures;
      EXPECT_EQ(failure, (Failure{61, "list.txt"})) << nth;
      EXPECT_FALSE(open_.isOpen(kNumber)) << nth;
      const std::string all = write(texts);
      EXPECT_TRUE(readFile("list.txt") == all) << nth;
    }
    EXPECT_EQ(failures, files_.operationsThatMatter());
  }
}

TEST_F(TextWriterTest, ADiskThatStaysFullLeavesNothingOpenEither) {
  FullDisk disk;
  OpenFiles open(disk);
  for (const std::size_t length : {std::size_t{10}, 2 * kBuffer}) {
    const Failure failure = failureOf([&] {
      TextWriter writer(open, "list.txt", kNumber);
      writer.write(std::string(length, 'w'));
      writer.write("more");
      writer.close();
    });
    EXPECT_EQ(failure, (Failure{61, "list.txt"}));
    EXPECT_FALSE(open.isOpen(kNumber)) << length;
    open.closeAll();
  }
}

}  // namespace
}  // namespace quillbox::test
