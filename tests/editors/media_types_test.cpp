#include "editors/media_types.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/failing_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using namespace std::string_view_literals;

using Entries = std::vector<std::string>;

const std::string kName(kMediaTypeFileName);

Entries builtIn() {
  return {"Compact Disc", "Cassette Tape", "Digital Audio Tape", "Record Album",
          "8-Track",      "4-Track",       "Reel To Reel Tape",  "Cart"};
}

/// The seven entries kept with a valid file, followed by these.
Entries sevenAnd(const Entries& more) {
  Entries entries = builtIn();
  entries.pop_back();
  entries.insert(entries.end(), more.begin(), more.end());
  return entries;
}

void expectValid(std::string_view bytes, const Entries& more) {
  const MediaTypeList list = mediaTypesFrom(bytes);
  EXPECT_FALSE(list.corrupt) << bytes;
  EXPECT_EQ(list.entries, sevenAnd(more)) << bytes;
}

TEST(MediaTypes, TheBuiltInListHasEightEntries) {
  EXPECT_EQ(builtInMediaTypes().entries, builtIn());
  EXPECT_FALSE(builtInMediaTypes().corrupt);
}

TEST(MediaTypes, TheFirstLineAloneLeavesSevenEntries) {
  for (const std::string_view bytes :
       {"[MEDIA]", "[MEDIA]\n", "[MEDIA]\r\n", "[MEDIA]\n\n", "[MEDIA]\r\n\r\n\r\n"})
    expectValid(bytes, {});
}

TEST(MediaTypes, TheTextAfterTheFirstCommaIsAnEntry) {
  expectValid("[MEDIA]\nMD,Mini Disc\n", {"Mini Disc"});
  EXPECT_EQ(mediaTypesFrom("[MEDIA]\nMD,Mini Disc\n").entries.at(7), "Mini Disc");
  expectValid("[MEDIA]\nx,a,b\n", {"a,b"});
  expectValid("[MEDIA]\nx,,\n", {","});
  expectValid("[MEDIA]\n,no key\n", {"no key"});
  expectValid("[MEDIA]\nk,a\nk,a\n", {"a", "a"});
  expectValid("[MEDIA]\nc,Cart\n", {"Cart"});
  expectValid("[MEDIA]\nx,[MEDIA]\n[MEDIA]\ny,z", {"[MEDIA]", "z"});
}

TEST(MediaTypes, ALineWithoutACommaOrThatEndsAtItsFirstOneIsSkipped) {
  expectValid("[MEDIA]\nMini Disc\n", {});
  expectValid("[MEDIA]\nMD,\n", {});
  expectValid("[MEDIA]\r\nMD,\r\n", {});
  expectValid("[MEDIA]\n,\n", {});
  expectValid("[MEDIA]\n\n\na,one\n\nnothing\nb,\nc,two\nd", {"one", "two"});
  expectValid("[MEDIA]\nMD,", {});
}

TEST(MediaTypes, NothingOfAnEntryIsTrimmed) {
  expectValid("[MEDIA]\nx, Mini Disc  \n", {" Mini Disc  "});
  expectValid("[MEDIA]\nx,\tMini Disc\t\n", {"\tMini Disc\t"});
  expectValid("[MEDIA]\nx, \n", {" "});
  expectValid("[MEDIA]\n x ,\"y\"\n", {"\"y\""});
}

TEST(MediaTypes, LinesEndInEitherWayAndTheLastOneNeedNoEnd) {
  expectValid("[MEDIA]\na,one\nb,two\n", {"one", "two"});
  expectValid("[MEDIA]\r\na,one\r\nb,two\r\n", {"one", "two"});
  expectValid("[MEDIA]\na,one\nb,two", {"one", "two"});
  expectValid("[MEDIA]\r\na,one\r\nb,two", {"one", "two"});
  expectValid("[MEDIA]\r\na,one\nb,two\r\n", {"one", "two"});
}

TEST(MediaTypes, AnyOtherFirstLineIsCorruptAndLeavesTheBuiltInList) {
  for (const std::string_view bytes :
       {""sv, "\n"sv, "\r\n"sv, "\n[MEDIA]\n"sv, "[media]\nx,a\n"sv, "[Media]\nx,a\n"sv,
        " [MEDIA]\nx,a\n"sv, "[MEDIA] \nx,a\n"sv, "[MEDIA]\t\nx,a\n"sv, "[MEDIA\nx,a\n"sv,
        "MEDIA\nx,a\n"sv, "[MEDIA];\nx,a\n"sv, "x,a\n"sv, "\xEF\xBB\xBF[MEDIA]\nx,a\n"sv,
        "\xFF\xFE[\0M\0"sv, "\0\0\0\0\0\0\0\0"sv, "[MEDIA]\0\nx,a\n"sv, "[MEDIA]\rx,a\r"sv}) {
    const MediaTypeList list = mediaTypesFrom(bytes);
    EXPECT_TRUE(list.corrupt) << bytes;
    EXPECT_EQ(list.entries, builtIn()) << bytes;
  }
}

TEST(MediaTypes, EntriesMayBeOfTodaysEncodingOrOfYesterdays) {
  expectValid("[MEDIA]\nx,Caf\xC3\xA9 \xE2\x82\xAC\n", {"Caf\xE9 \x80"});
  expectValid("[MEDIA]\nx,Caf\xE9 \x80\n", {"Caf\xE9 \x80"});
  expectValid("[MEDIA]\nx,Caf\xE9\ny,Caf\xC3\xA9\n", {"Caf\xE9", "Caf\xE9"});
  expectValid("[MEDIA]\nx,\xE6\x97\xA5\n", {"?"});
  // The text before the comma is ignored.
  expectValid("[MEDIA]\n\xE9,Caf\xC3\xA9\n", {"Caf\xE9"});
}

TEST(MediaTypes, ControlCharactersAreKept) {
  expectValid("[MEDIA]\nx,a\0b\x01\x1A\n"sv, {std::string("a\0b\x01\x1A"sv)});
}

TEST(MediaTypes, AFileMayHaveAHundredThousandLines) {
  std::string bytes = "[MEDIA]\n";
  Entries expected;
  for (int i = 0; i < 100'000; ++i) {
    bytes += "k,type " + std::to_string(i) + '\n';
    expected.push_back("type " + std::to_string(i));
  }
  const MediaTypeList list = mediaTypesFrom(bytes);
  EXPECT_FALSE(list.corrupt);
  EXPECT_TRUE(list.entries == sevenAnd(expected));
}

class MediaTypeFileTest : public testing::Test {
 protected:
  std::optional<RunTimeError> failure() {
    try {
      readMediaTypes(files_);
    } catch (const RunTimeError& error) {
      return error;
    }
    return std::nullopt;
  }

  TestFolder folder_;
  FailingFiles files_;
};

TEST_F(MediaTypeFileTest, AMissingFileLeavesTheBuiltInList) {
  const MediaTypeList list = readMediaTypes(files_);
  EXPECT_EQ(list.entries, builtIn());
  EXPECT_FALSE(list.corrupt);
  EXPECT_FALSE(std::filesystem::exists(kName));
}

TEST_F(MediaTypeFileTest, TheFileIsLookedForInTheCurrentFolderByItsBareName) {
  writeFile(folder_.path("QBX Music.ini"), "[MEDIA]\nMD,Mini Disc\n");
  EXPECT_EQ(readMediaTypes(files_).entries, sevenAnd({"Mini Disc"}));
  const std::vector<OperationRecord> expected = {{FileOperation::exists, "QBX Music.ini"},
                                                 {FileOperation::open, "QBX Music.ini"},
                                                 {FileOperation::read, "QBX Music.ini"}};
  EXPECT_EQ(files_.operations(), expected);
  std::filesystem::create_directory("elsewhere");
  std::filesystem::current_path("elsewhere");
  EXPECT_EQ(readMediaTypes(files_).entries, builtIn());
}

TEST_F(MediaTypeFileTest, TheFileIsOnlyRead) {
  for (const std::string_view bytes : {"[MEDIA]\r\nMD,Mini Disc", "corrupt", ""}) {
    writeFile(kName, bytes);
    readMediaTypes(files_);
    EXPECT_EQ(readFile(kName), bytes);
  }
}

TEST_F(MediaTypeFileTest, ACorruptFileIsSaidToBe) {
  writeFile(kName, "[media]\nMD,Mini Disc\n");
  EXPECT_TRUE(readMediaTypes(files_).corrupt);
  EXPECT_EQ(readMediaTypes(files_).entries, builtIn());
  writeFile(kName, "");
  EXPECT_TRUE(readMediaTypes(files_).corrupt);
}

TEST_F(MediaTypeFileTest, EveryReadingStartsFromTheBuiltInListAgain) {
  writeFile(kName, "[MEDIA]\na,one\n");
  EXPECT_EQ(readMediaTypes(files_).entries, sevenAnd({"one"}));
  writeFile(kName, "[MEDIA]\nb,two\n");
  EXPECT_EQ(readMediaTypes(files_).entries, sevenAnd({"two"}));
  std::filesystem::remove(kName);
  EXPECT_EQ(readMediaTypes(files_).entries, builtIn());
}

TEST_F(MediaTypeFileTest, AFileOfAnyLengthIsReadWhole) {
  const std::string start = "[MEDIA]\nx,";
  for (const std::size_t length : {4095U, 4096U, 4097U, 8191U, 8192U, 8193U, 100'000U}) {
    const std::string entry(length - start.size() - 1, 'e');
    writeFile(kName, start + entry + "!");
    EXPECT_TRUE(readMediaTypes(files_).entries == sevenAnd({entry + "!"})) << length;
  }
}

TEST_F(MediaTypeFileTest, AFolderOfThatNameIsAnErrorThatNamesIt) {
  std::filesystem::create_directory(kName);
  const auto error = failure();
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), ErrorNumber::pathFileAccess);
  EXPECT_EQ(error->file(), kName);
  EXPECT_TRUE(std::filesystem::is_directory(kName));
}

TEST_F(MediaTypeFileTest, AFileThatCannotBeReadIsAnErrorThatNamesIt) {
  const std::string bytes = "[MEDIA]\nx," + std::string(5'000, 'e');
  writeFile(kName, bytes);
  int failures = 0;
  for (int nth = 0;; ++nth) {
    files_.failNth(nth, ErrorNumber::deviceIo);
    const auto error = failure();
    if (!files_.hasFailed()) break;
    ++failures;
    ASSERT_TRUE(error) << nth;
    EXPECT_EQ(error->number(), ErrorNumber::deviceIo);
    EXPECT_EQ(error->file(), kName);
    EXPECT_EQ(readFile(kName), bytes);
  }
  EXPECT_EQ(failures, files_.operationsThatMatter());
}

}  // namespace
}  // namespace quillbox::test
