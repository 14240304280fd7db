#include "editors/media_loader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "records/record_file.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/file_size_limit.h"
#include "support/loading.h"
#include "support/machine.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

using Names = std::vector<std::string>;

constexpr int kMediaCodes[] = {1, 2, 3, 4};

/// A board that records what is shown on it.
class RecordingBoard : public Board {
 public:
  void open(const std::string& caption) override { others.push_back("open " + caption); }
  void setBoardCaption(const std::string& caption) override {
    others.push_back("caption " + caption);
  }
  void clear() override { others.emplace_back("clear"); }
  void print(const std::string& line) override { lines.push_back(line); }
  void progress(int done, int total) override { steps.emplace_back(done, total); }
  void close() override { others.emplace_back("close"); }

  Names lines;
  std::vector<std::pair<int, int>> steps;
  Names others;
};

MediaFileRecord mediaFile(std::string_view name, std::string_view folder = "/old") {
  MediaFileRecord record;
  record.FileName = name;
  record.FilePath = folder;
  record.FileSize = 12.5;
  record.Description = "kept";
  return record;
}

std::string bytesIn(const MediaFileRecord& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

Names namesUpTo(int count) {
  Names names;
  for (int n = 0; n < count; ++n) names.push_back(std::to_string(n) + ".wav");
  return names;
}

std::string headerBytes(int count) {
  return std::string{static_cast<char>(count % 256), static_cast<char>(count / 256)} + "\x01\x00"s +
         "1.71    ";
}

class MediaLoaderTest : public testing::Test {
 protected:
  MediaLoaderTest() { state_.currentPath = path_; }

  /// Creates the catalogue, with a header of an older version.
  void items(const std::vector<MediaFileRecord>& records) {
    std::string bytes = headerBytes(static_cast<int>(records.size()));
    bytes.replace(2, 10, "\x07\x00"s + "0.99    ");
    bytes.resize(sizeof(MediaFileRecord), '=');
    for (const MediaFileRecord& record : records) bytes += bytesIn(record);
    writeFile(path_, bytes);
    state_.Count = 0;
  }

  void load(const Names& names, const std::string& folder = "/music") {
    loadAndCount(state_, *kindOfExtension("WCS"), folder, names, board_);
  }

  std::string file() const { return readFile(path_); }

  std::string itemBytes(int item) const {
    return file().substr(static_cast<std::size_t>(item) * sizeof(MediaFileRecord),
                         sizeof(MediaFileRecord));
  }
  MediaFileRecord item(int n) const {
    MediaFileRecord record{};
    const std::string bytes = itemBytes(n);
    EXPECT_EQ(bytes.size(), sizeof record) << n;
    std::memcpy(&record, bytes.data(), std::min(bytes.size(), sizeof record));
    return record;
  }

  /// The names of all items in the file, whatever its header says.
  Names stored() const {
    Names names;
    const auto records = static_cast<int>(file().size() / sizeof(MediaFileRecord));
    for (int n = 1; n < records; ++n) names.push_back(text(item(n).FileName));
    return names;
  }

  void expectNothingOpen() {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  TestFolder folder_;
  std::string path_ = folder_.path("sounds.WCS");
  FailingFiles files_;
  AppState state_{files_};
  RecordingBoard board_;
};

TEST(LoaderRows, AreTheFourDialogs) {
  EXPECT_STREQ(loaderRow(1).title, "Wave Collection");
  EXPECT_STREQ(loaderRow(1).filter, "Wave Files (*.WAV)|*.WAV");
  EXPECT_TRUE(loaderRow(1).saysWhenEmpty);
  EXPECT_STREQ(loaderRow(2).title, "MIDI Collection");
  EXPECT_STREQ(loaderRow(2).filter, "MIDI Files (*.MID)|*.MID");
  EXPECT_TRUE(loaderRow(2).saysWhenEmpty);
  EXPECT_STREQ(loaderRow(3).title, "Graphics Collection");
  EXPECT_STREQ(loaderRow(3).filter,
               "Graphics Files (*.JPG,*.GIF,*.BMP,*.TIF,*.RLE)|*.JPG;*.GIF;*.BMP;*.TIF;*.RLE");
  EXPECT_FALSE(loaderRow(3).saysWhenEmpty);
  EXPECT_STREQ(loaderRow(4).title, "MPEG Layer3(MP3) Audio Collection");
  EXPECT_STREQ(loaderRow(4).filter, "MPEG Files (*.MP3)|*.MP3");
  EXPECT_FALSE(loaderRow(4).saysWhenEmpty);
}

TEST(LoaderPatterns, AreWhatStandsBehindTheFiltersBar) {
  EXPECT_EQ(loaderPatterns(loaderRow(1).filter), (Names{"*.WAV"}));
  EXPECT_EQ(loaderPatterns(loaderRow(2).filter), (Names{"*.MID"}));
  EXPECT_EQ(loaderPatterns(loaderRow(3).filter),
            (Names{"*.JPG", "*.GIF", "*.BMP", "*.TIF", "*.RLE"}));
  EXPECT_EQ(loaderPatterns(loaderRow(4).filter), (Names{"*.MP3"}));
  EXPECT_EQ(loaderPatterns("A;B|*.C"), (Names{"*.C"}));
}

TEST(LoaderPatterns, AreTenAtMost) {
  std::string filter = "Many|0";
  Names expected = {"0"};
  for (int n = 1; n < 10; ++n) {
    filter += ";" + std::to_string(n);
    expected.push_back(std::to_string(n));
  }
  EXPECT_EQ(loaderPatterns(filter), expected);
  EXPECT_EQ(loaderPatterns(filter + ";10"), expected);
  EXPECT_EQ(loaderPatterns(filter + ";10;11;12"), expected);
}

TEST(LoaderPatterns, AreNoneOfAnEmptyFilter) {
  EXPECT_EQ(loaderPatterns(""), Names{});
  EXPECT_EQ(loaderPatterns("Nothing|"), Names{});
  EXPECT_EQ(loaderPatterns("|"), Names{});
}

TEST_F(MediaLoaderTest, VisibleFilesOfThePatternAreFoundWhateverTheirCapitals) {
  for (const char* name : {"a.wav", "B.WAV", "c.Wav", "d e.wAv", ".wav", ".hidden.wav", "wav",
                           "a.wave", "a.mid", "a.wav.txt", "awav", "x.y.wav"})
    writeFile(folder_.path(name), "");
  Names found = filesToLoad(files_, folder_.path(), {"*.WAV"});
  std::ranges::sort(found);
  EXPECT_EQ(found, (Names{"B.WAV", "a.wav", "c.Wav", "d e.wAv", "x.y.wav"}));
}

TEST_F(MediaLoaderTest, OnlyPlainFilesAreFoundThroughLinksToo) {
  QUILLBOX_NEEDS(links);
  std::filesystem::create_directory("folder.wav");
  writeFile("file.wav", "");
  writeFile("folder.wav/inside.wav", "");
  std::filesystem::create_symlink("file.wav", "link.wav");
  std::filesystem::create_directory_symlink("folder.wav", "folderlink.wav");
  std::filesystem::create_symlink("missing.wav", "broken.wav");
  Names found = filesToLoad(files_, folder_.path(), {"*.WAV"});
  std::ranges::sort(found);
  EXPECT_EQ(found, (Names{"file.wav", "link.wav"}));
}

/// A folder that lists its entries in a known order.
class ScriptedFolder : public DiskFileSystem {
 public:
  explicit ScriptedFolder(std::vector<FolderEntry> entries) : entries_(std::move(entries)) {}
  std::vector<FolderEntry> list(const std::string&) override {
    ++lists;
    return entries_;
  }

  int lists = 0;

 private:
  std::vector<FolderEntry> entries_;
};

TEST(FilesToLoad, AreInTheOrderOfThePatternsAndThenOfTheFolder) {
  ScriptedFolder folder({{"z.bmp", true},
                         {"b.jpg", true},
                         {"pipe.jpg", false},
                         {"m.rle", true},
                         {"a.JPG", true},
                         {".c.jpg", true},
                         {"n.gif", true},
                         {"a.bmp", true},
                         {"o.txt", true}});
  EXPECT_EQ(filesToLoad(folder, "/pictures", loaderPatterns(loaderRow(3).filter)),
            (Names{"b.jpg", "a.JPG", "n.gif", "z.bmp", "a.bmp", "m.rle"}));
  EXPECT_EQ(filesToLoad(folder, "/pictures", {"*.txt", "*.RLE"}), (Names{"o.txt", "m.rle"}));
  EXPECT_EQ(filesToLoad(folder, "/pictures", {"*.TIF"}), Names{});
  EXPECT_EQ(filesToLoad(folder, "/pictures", {}), Names{});
  ScriptedFolder empty({});
  EXPECT_EQ(filesToLoad(empty, "/pictures", {"*"}), Names{});
}

TEST_F(MediaLoaderTest, AFolderThatIsMissingIsAnErrorThatNamesIt) {
  const std::string missing = folder_.path("missing");
  EXPECT_EQ(failureOf([&] { filesToLoad(files_, missing, {"*.WAV"}); }), (Failure{76, missing}));
}

TEST_F(MediaLoaderTest, AFolderThatMayNotBeReadIsAnErrorThatNamesIt) {
  QUILLBOX_NEEDS(permissions);
  const std::string closed = folder_.path("closed");
  std::filesystem::create_directory(closed);
  std::filesystem::permissions(closed, std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  EXPECT_EQ(failureOf([&] { filesToLoad(files_, closed, {"*.WAV"}); }), (Failure{70, closed}));
}

TEST_F(MediaLoaderTest, AnItemIsAddedForEachFile) {
  for (const int code : kMediaCodes) {
    const CollectionKind& kind = *kindOfCode(code + 5);
    state_.currentPath = folder_.path(kind.extension);
    writeFile(state_.currentPath, "\0\0\7\0"s + "0.99    ");
    loadAndCount(state_, kind, "/music/new", {"b.wav", "a.wav"}, board_);
    MediaFileRecord first{};
    first.FileName = "b.wav";
    first.FilePath = "/music/new";
    first.FileSize = 0;
    first.Description = "";
    MediaFileRecord second = first;
    second.FileName = "a.wav";
    EXPECT_EQ(readFile(state_.currentPath), headerBytes(2) +
                                                std::string(sizeof(MediaFileRecord) - 12, '\0') +
                                                bytesIn(first) + bytesIn(second))
        << kind.extension;
    EXPECT_EQ(state_.Count, 2);
  }
  expectNothingOpen();
}

TEST_F(MediaLoaderTest, WhatTheCatalogueHasStaysAndTheNewItemsFollow) {
  items({mediaFile("one.wav"), mediaFile("two.wav")});
  const std::string before = file();
  state_.mediaFile = mediaFile("shown.wav");  // the contents of the buffer are not used
  load({"three.wav"});
  EXPECT_EQ(state_.Count, 3);
  const std::string after = file();
  EXPECT_TRUE(after.substr(0, 12) == headerBytes(3));
  EXPECT_TRUE(after.substr(12, before.size() - 12) == before.substr(12));
  EXPECT_EQ(text(item(3).FileName), "three.wav");
  EXPECT_EQ(text(item(3).FilePath), "/music");
  EXPECT_EQ(item(3).FileSize, 0.0);
  EXPECT_EQ(item(3).Description.view(), std::string(128, ' '));
  EXPECT_EQ(after.size(), before.size() + sizeof(MediaFileRecord));
}

TEST_F(MediaLoaderTest, AFolderLoadedAgainAddsNothing) {
  items({});
  load({"a.wav", "b.wav"});
  const std::string once = file();
  load({"a.wav", "b.wav"});
  EXPECT_TRUE(file() == once);
  EXPECT_EQ(state_.Count, 2);
  load({"b.wav", "c.wav", "a.wav"});
  EXPECT_EQ(stored(), (Names{"a.wav", "b.wav", "c.wav"}));
}

TEST_F(MediaLoaderTest, AFileOfTheSameNameInAnotherFolderIsNotAdded) {
  items({});
  load({"a.wav"}, "/first");
  load({"a.wav", "b.wav"}, "/second");
  EXPECT_EQ(stored(), (Names{"a.wav", "b.wav"}));
  EXPECT_EQ(text(item(1).FilePath), "/first");
  EXPECT_EQ(text(item(2).FilePath), "/second");
}

TEST_F(MediaLoaderTest, ANameThatIsGivenTwiceIsAddedOnce) {
  items({});
  load({"a.wav", "b.wav", "a.wav"});
  EXPECT_EQ(stored(), (Names{"a.wav", "b.wav"}));
}

TEST_F(MediaLoaderTest, NamesThatDifferInCapitalsAreTwo) {
  items({mediaFile("a.wav")});
  load({"A.wav", "a.WAV", "a.wav", "A.WAV"});
  EXPECT_EQ(stored(), (Names{"a.wav", "A.wav", "a.WAV", "A.WAV"}));
}

TEST_F(MediaLoaderTest, NamesAreComparedAsCutToTheirWidth) {
  const std::string stem(64, 'x');
  items({});
  load({stem + "1.wav", stem + "2.wav", stem, stem.substr(1)});
  EXPECT_EQ(stored(), (Names{stem, stem.substr(1)}));
  load({stem + "3.wav"});
  EXPECT_EQ(state_.Count, 2);
}

TEST_F(MediaLoaderTest, BlanksAtTheEndOfANameAreThePadding) {
  items({mediaFile("a.wav")});
  load({"a.wav ", "a.wav   ", " a.wav"});
  EXPECT_EQ(stored(), (Names{"a.wav", " a.wav"}));
}

TEST_F(MediaLoaderTest, NamesAreStoredInWindows1252) {
  items({});
  load({"d\xC3\xA9j\xC3\xA0 \xE2\x82\xAC.wav"}, "/m\xC3\xBCsik");
  EXPECT_EQ(text(item(1).FileName), "d\xE9j\xE0 \x80.wav");
  EXPECT_EQ(text(item(1).FilePath), "/m\xFCsik");
  load({"d\xC3\xA9j\xC3\xA0 \xE2\x82\xAC.wav"});
  EXPECT_EQ(state_.Count, 1);
}

TEST_F(MediaLoaderTest, AWideNameIsCutAfterSixtyFourCharactersAndNotBytes) {
  std::string name;
  for (int i = 0; i < 70; ++i) name += "\xC3\xA9";
  items({});
  load({name});
  EXPECT_EQ(item(1).FileName.view(), std::string(64, '\xE9'));
}

TEST_F(MediaLoaderTest, CharactersOutsideTheCodePageAreQuestionMarksAndNeverAddedTwice) {
  items({});
  load({"\xE6\x97\xA5.wav", "\xE6\x9C\xAC.wav", "\xFF.wav", "??.wav"});
  EXPECT_EQ(stored(), (Names{"?.wav", "??.wav"}));
  load({"\xE4\xB8\xAD.wav", "?.wav"});
  EXPECT_EQ(state_.Count, 2);
}

TEST_F(MediaLoaderTest, ALongFolderIsCutAtItsWidth) {
  items({});
  load({"a.wav"}, "/" + std::string(200, 'p'));
  EXPECT_EQ(item(1).FilePath.view(), "/" + std::string(127, 'p'));
  EXPECT_EQ(item(1).Description.view(), std::string(128, ' '));
}

TEST_F(MediaLoaderTest, DeletedItemsAreNotReusedAndADeletedFileIsAddedAnew) {
  items({mediaFile("a.wav"), mediaFile("DELETED"), mediaFile("c.wav")});
  const std::string deleted = itemBytes(2);
  load({"a.wav", "b.wav", "c.wav", "d.wav"});
  EXPECT_EQ(stored(), (Names{"a.wav", "DELETED", "c.wav", "b.wav", "d.wav"}));
  EXPECT_EQ(itemBytes(2), deleted);
  EXPECT_EQ(state_.Count, 5);
}

TEST_F(MediaLoaderTest, CountIsTakenFromTheHeader) {
  items({mediaFile("a.wav"), mediaFile("beyond.wav")});
  writeFile(path_, "\1" + file().substr(1));
  state_.Count = 77;
  load({"beyond.wav"});
  EXPECT_EQ(state_.Count, 2);
  EXPECT_EQ(stored(), (Names{"a.wav", "beyond.wav"}));
  EXPECT_EQ(text(item(2).FilePath), "/music");
}

TEST_F(MediaLoaderTest, ANegativeCountIsNone) {
  writeFile(path_, "\xFB\xFF\x01\x00"s + "1.71    ");
  load({"a.wav"});
  EXPECT_EQ(state_.Count, 1);
  EXPECT_EQ(headerOf(file()).Count, 1);
  EXPECT_EQ(stored(), (Names{"a.wav"}));
}

TEST_F(MediaLoaderTest, ItemsThatTheFileIsTooShortForAreNoNames) {
  writeFile(path_, headerBytes(3));
  load({"a.wav"});
  EXPECT_EQ(state_.Count, 4);
  EXPECT_EQ(text(item(4).FileName), "a.wav");
}

TEST_F(MediaLoaderTest, NoFilesAreNoChange) {
  items({mediaFile("a.wav")});
  const std::string before = file();
  load({});
  EXPECT_TRUE(file() == before);
  EXPECT_EQ(state_.Count, 1);
  EXPECT_TRUE(board_.lines.empty());
  expectNothingOpen();
}

TEST_F(MediaLoaderTest, AMissingCatalogueIsNotMade) {
  EXPECT_EQ(failureOf([&] { load({"a.wav"}); }), (Failure{53, path_}));
  EXPECT_FALSE(std::filesystem::exists(path_));
  expectNothingOpen();
}

TEST_F(MediaLoaderTest, WhenTheCatalogueIsFullWhatWasAddedIsKept) {
  writeFile(path_, headerBytes(32765));
  EXPECT_EQ(failureOf([&] { load({"a.wav", "b.wav", "c.wav"}); }).number, 6);
  EXPECT_EQ(state_.Count, 32767);
  expectNothingOpen();
  const std::string after = file();
  ASSERT_EQ(after.size(), 32768U * sizeof(MediaFileRecord));
  EXPECT_TRUE(after.substr(0, 12) == headerBytes(32767));
  EXPECT_TRUE(after.substr(32766 * sizeof(MediaFileRecord)).starts_with("a.wav   "));
  EXPECT_TRUE(after.substr(32767 * sizeof(MediaFileRecord)).starts_with("b.wav   "));
  EXPECT_EQ(failureOf([&] { load({"b.wav", "a.wav", "c.wav"}); }).number, 6);
  EXPECT_EQ(state_.Count, 32767);
  EXPECT_TRUE(file() == after);
}

TEST_F(MediaLoaderTest, AfterAnyFailureTheHeaderCountsWhatIsThere) {
  const Names names = {"b.wav", "a.wav", "c.wav"};
  int failures = 0;
  for (int nth = 0;; ++nth) {
    SCOPED_TRACE(nth);
    items({mediaFile("a.wav"), mediaFile("DELETED")});
    state_.Count = 2;
    const std::string earlier = file().substr(12);
    files_.failNth(nth, ErrorNumber::diskFull);
    const Failure failure = failureOf([&] { load(names); });
    if (!files_.hasFailed()) break;
    ++failures;
    EXPECT_EQ(failure, (Failure{61, path_}));
    expectNothingOpen();
    const std::string after = file();
    EXPECT_TRUE(after.substr(12, earlier.size()) == earlier);
    EXPECT_EQ(headerOf(after).Count, state_.Count);
    ASSERT_GE(stored().size(), static_cast<std::size_t>(state_.Count));
    load(names);
    EXPECT_EQ(stored(), (Names{"a.wav", "DELETED", "b.wav", "c.wav"}));
    EXPECT_TRUE(file().substr(0, 12) == headerBytes(4));
    EXPECT_EQ(state_.Count, 4);
  }
  EXPECT_EQ(failures, files_.operationsThatMatter());
}

#ifndef _WIN32
TEST_F(MediaLoaderTest, OnAFullDiskWhatFitsIsKept) {
  items({mediaFile("a.wav")});
  {
    const FileSizeLimit limit(4 * sizeof(MediaFileRecord) + 100);
    EXPECT_NE(failureOf([&] { load({"b.wav", "c.wav", "d.wav", "e.wav"}); }), Failure());
  }
  EXPECT_EQ(headerOf(file()).Count, 3);
  EXPECT_EQ(state_.Count, 3);
  load({"b.wav", "c.wav", "d.wav", "e.wav"});
  EXPECT_EQ(stored(), (Names{"a.wav", "b.wav", "c.wav", "d.wav", "e.wav"}));
  EXPECT_TRUE(file().substr(0, 12) == headerBytes(5));
}

TEST_F(MediaLoaderTest, OnAFullDiskWhatFitsOfManyIsKept) {
  const Names names = namesUpTo(30);
  for (int fitting = 0; fitting <= 18; ++fitting) {
    SCOPED_TRACE(fitting);
    items({});
    {
      const FileSizeLimit limit((1 + static_cast<std::size_t>(fitting)) * sizeof(MediaFileRecord) +
                                100);
      EXPECT_NE(failureOf([&] { load(names); }), Failure());
    }
    EXPECT_EQ(headerOf(file()).Count, fitting);
    EXPECT_EQ(state_.Count, fitting);
    load(names);
    EXPECT_EQ(stored(), names);
    EXPECT_TRUE(file().substr(0, 12) == headerBytes(30));
  }
}
#endif

TEST_F(MediaLoaderTest, ItemsAreAddedWhateverTheirNumber) {
  for (int count = 0; count <= 33; ++count) {
    SCOPED_TRACE(count);
    items({mediaFile("here.wav")});
    const Names names = namesUpTo(count);
    load(names);
    Names expected = names;
    expected.insert(expected.begin(), "here.wav");
    EXPECT_EQ(stored(), expected);
    EXPECT_EQ(state_.Count, count + 1);
    EXPECT_EQ(headerOf(file()).Count, count + 1);
  }
}

TEST_F(MediaLoaderTest, AfterAFailureThatPassesTheItemsOfThatWriteAreKeptAndNoMore) {
  const Names names = namesUpTo(20);
  for (const int failing : {0, 1, 2, 3, 4, 5}) {  // items, header, items, ...
    SCOPED_TRACE(failing);
    items({});
    files_.failNth(FileOperation::write, failing, ErrorNumber::deviceIo);
    EXPECT_EQ(failureOf([&] { load(names); }), (Failure{57, path_}));
    const int kept = std::min(failing / 2 * 8 + 8, 20);
    EXPECT_EQ(state_.Count, kept);
    EXPECT_EQ(headerOf(file()).Count, kept);
    EXPECT_EQ(stored(), Names(names.begin(), names.begin() + kept));
    load(names);
    EXPECT_EQ(stored(), names);
    EXPECT_EQ(state_.Count, 20);
  }
}

TEST_F(MediaLoaderTest, AfterAHalfWrittenRecordLoadingAgainMakesItWhole) {
  files_.shortWrites = true;
  int failures = 0;
  for (int nth = 0;; ++nth) {
    SCOPED_TRACE(nth);
    items({mediaFile("a.wav")});
    const std::string earlier = file().substr(12);
    files_.failNth(FileOperation::write, nth, ErrorNumber::diskFull);
    const Failure failure = failureOf([&] { load({"b.wav", "c.wav"}); });
    if (!files_.hasFailed()) break;
    ++failures;
    EXPECT_EQ(failure, (Failure{61, path_}));
    EXPECT_TRUE(file().substr(12, earlier.size()) == earlier);
    load({"b.wav", "c.wav"});
    EXPECT_EQ(stored(), (Names{"a.wav", "b.wav", "c.wav"}));
    EXPECT_EQ(file().size(), 4 * sizeof(MediaFileRecord));
    EXPECT_EQ(headerOf(file()).Count, 3);
  }
  EXPECT_EQ(failures, files_.countOf(FileOperation::write));
}

TEST_F(MediaLoaderTest, EachNameIsALineAndAStep) {
  items({mediaFile("b.wav")});
  load({"a.wav", "b.wav", "\xC3\xA9.wav", "a.wav"});
  EXPECT_EQ(board_.lines, (Names{"a.wav", "b.wav", "\xC3\xA9.wav", "a.wav"}));
  EXPECT_EQ(board_.steps, (std::vector<std::pair<int, int>>{{1, 4}, {2, 4}, {3, 4}, {4, 4}}));
  EXPECT_TRUE(board_.others.empty());
}

TEST_F(MediaLoaderTest, TheCatalogueIsReadAndWrittenInBlocks) {
  constexpr int existing = 1'000;
  constexpr int found = 2'000;
  std::vector<MediaFileRecord> records;
  for (int n = 0; n < existing; ++n) records.push_back(mediaFile("old" + std::to_string(n)));
  items(records);
  Names names;
  for (int n = 0; n < found; ++n) names.push_back("new" + std::to_string(n) + ".wav");
  files_.forget();
  load(names);
  EXPECT_EQ(state_.Count, existing + found);
  EXPECT_EQ(files_.countOf(FileOperation::read), 3) << "the header, two blocks of items";
  EXPECT_EQ(files_.countOf(FileOperation::open), 1);
  EXPECT_EQ(files_.countOf(FileOperation::write), 2 * found / 8) << "eight items and the header";
  EXPECT_EQ(files_.countOf(FileOperation::close), 1);
  EXPECT_EQ(text(item(existing + found).FileName), "new1999.wav");
  files_.forget();
  load(names);
  EXPECT_EQ(files_.countOf(FileOperation::write), 0);
}

}  // namespace
}  // namespace quillbox::test
