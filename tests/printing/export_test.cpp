#include "printing/export.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/checked16.h"
#include "records/header_record.h"
#include "support/failing_files.h"
#include "support/failure.h"
#include "support/family_files.h"
#include "support/machine.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::string_view kOld = "what was there before, and longer than any line of these tests";

class Export : public testing::Test {
 protected:
  /// Opens a collection of that kind with these bytes.
  void open(std::string_view extension, int count, std::string_view bytes) {
    kind_ = kindOfExtension(extension);
    state_.currentPath = path_ = folder_.path("mine." + std::string(extension));
    state_.Count = checked16(count);
    bytes_ = bytes;
    writeFile(path_, bytes);
    files_.forget();
  }
  void open(std::initializer_list<MusicRecord> albums) {
    open("MCS", static_cast<int>(albums.size()), musicFile(albums));
  }

  /// Opens a collection of blank items.
  void openBlank(std::string_view extension, int count) {
    const CollectionKind& kind = *kindOfExtension(extension);
    std::string bytes = familyHeader(count);
    bytes.resize(kind.recordLength);
    std::string item(kind.recordLength, '\0');
    fillBlank(kind.fields, std::as_writable_bytes(std::span(item)));
    for (int n = 0; n < count; ++n) bytes += item;
    open(extension, count, bytes);
  }

  Failure exportTo(const std::string& target) {
    return failureOf([&] { exportCollection(state_.files, state_, *kind_, target); });
  }

  /// The export, without an error.
  std::string exported() {
    EXPECT_EQ(exportTo(target_), Failure{});
    expectCollectionUntouched();
    return readFile(target_);
  }

  void expectCollectionUntouched() const { EXPECT_TRUE(readFile(path_) == bytes_); }
  void expectNothingOpen() const {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  TestFolder folder_;
  std::string target_ = folder_.path("out.txt");
  std::string path_;
  std::string bytes_;
  const CollectionKind* kind_ = nullptr;
  FailingFiles files_;
  AppState state_{files_};
};

/// An album whose entries all begin with a zero byte: none is filled.
MusicRecord songless(std::string_view artist, std::string_view title) {
  MusicRecord record = album(artist, title);
  for (auto& song : record.Songs) song = std::string_view("\0", 1);
  return record;
}

MusicRecord withSongs(std::string_view artist, std::string_view title,
                      std::initializer_list<std::string_view> songs) {
  MusicRecord record = songless(artist, title);
  std::size_t slot = 0;
  for (const std::string_view song : songs) record.Songs.at(slot++) = song;
  return record;
}

TEST_F(Export, AnAlbumIsALineForEachSong) {
  open({withSongs("Miles Davis", "Kind of Blue", {"So What", "Blue in Green"}),
        songless("Nobody", "Nothing"), withSongs("The Beatles", "Abbey Road", {"Something"})});
  EXPECT_EQ(exported(),
            "\"Miles Davis\",\"Kind of Blue\",\"So What\"\r\n"
            "\"Miles Davis\",\"Kind of Blue\",\"Blue in Green\"\r\n"
            "\"The Beatles\",\"Abbey Road\",\"Something\"\r\n");
  expectNothingOpen();
}

TEST_F(Export, ASlotOfBlanksIsAnEmptyField) {
  MusicRecord record = songless("A", "B");
  record.Songs.at(0) = "";
  record.Songs.at(2) = "three";
  record.Songs.at(39) = "   ";
  open({record});
  EXPECT_EQ(exported(), "\"A\",\"B\",\"\"\r\n\"A\",\"B\",\"three\"\r\n\"A\",\"B\",\"\"\r\n");
}

TEST_F(Export, OnlyItsFirstCharacterMakesASlotEmpty) {
  MusicRecord record = songless("A", "B");
  record.Songs.at(0) = "\0hidden"sv;
  record.Songs.at(1) = " \0rest"sv;
  record.Songs.at(2) = "shown \0rest"sv;
  open({record});
  EXPECT_EQ(exported(), "\"A\",\"B\",\"\"\r\n\"A\",\"B\",\"shown\"\r\n");
}

TEST_F(Export, FieldsEndAtTheirFirstZeroByteAndLoseTheBlanksBehind) {
  open({withSongs("  Art  \0junk"sv, "", {"  leading"}), withSongs("\0junk"sv, "B", {"s"})});
  EXPECT_EQ(exported(), "\"  Art\",\"\",\"  leading\"\r\n\"\",\"B\",\"s\"\r\n");
}

TEST_F(Export, QuotesAndCommasStandAsTheyAre) {
  open({withSongs("12\" Mix", "a, b", {"\"Heroes\"", ","})});
  EXPECT_EQ(exported(), "\"12\" Mix\",\"a, b\",\"\"Heroes\"\"\r\n\"12\" Mix\",\"a, b\",\",\"\r\n");
}

TEST_F(Export, TextsStayInTheRecordsCharacters) {
  open({withSongs("Bj\xF6rk", "\x80 5", {"D\xE9j\xE0 vu", std::string(50, '\xFF')})});
  const std::string start = "\"Bj\xF6rk\",\"\x80 5\",\"";
  EXPECT_EQ(exported(), start + "D\xE9j\xE0 vu\"\r\n" + start + std::string(50, '\xFF') + "\"\r\n");
}

TEST_F(Export, DeletedItemsAreIncluded) {
  open({withSongs("DETELED", "Gone", {"still here"}), withSongs("DELETED", "", {"and here"})});
  EXPECT_EQ(exported(), "\"DETELED\",\"Gone\",\"still here\"\r\n\"DELETED\",\"\",\"and here\"\r\n");
}

TEST_F(Export, ADeletedItemOfZeroBytesHasNoLines) {
  open("VCS", 1, familyFile(kVideo, {"DELETED"}));
  EXPECT_EQ(exported(), "");
}

TEST_F(Export, ATapeIsALineForEachMovie) {
  auto tape = blankRecord<VideoRecord>(kVideoFields);
  tape.Label = "Silent comedies";
  for (auto& movie : tape.Movies) movie = std::string_view("\0", 1);
  tape.Movies.at(0) = "The General";
  tape.Movies.at(9) = "City Lights";
  open("VCS", 1, fileOf({tape}));
  EXPECT_EQ(exported(),
            "\"Silent comedies\",\"The General\"\r\n\"Silent comedies\",\"City Lights\"\r\n");
}

TEST_F(Export, ADiskIsALineForEachProgram) {
  auto disk = blankRecord<SoftwareRecord>(kSoftwareFields);
  disk.DiskLabel = "Tools 1";
  disk.Publisher = "Various";
  for (auto& program : disk.Programs) program = std::string_view("\0", 1);
  disk.Programs.at(1) = "List";
  disk.Programs.at(9) = "Edit";
  open("SCS", 1, fileOf({disk}));
  EXPECT_EQ(exported(), "\"Tools 1\",\"List\"\r\n\"Tools 1\",\"Edit\"\r\n");
}

TEST_F(Export, AComicIsALineForEachNote) {
  auto comic = blankRecord<ComicRecord>(kComicFields);
  comic.BookTitle = "Action Comics";
  comic.ComicTitle = "No. 1";
  for (auto& note : comic.Notes) note = std::string_view("\0", 1);
  comic.Notes.at(0) = "Reprint";
  comic.Notes.at(4) = "Cover worn";
  open("CCS", 1, fileOf({comic}));
  EXPECT_EQ(exported(),
            "\"Action Comics\",\"No. 1\",\"Reprint\"\r\n"
            "\"Action Comics\",\"No. 1\",\"Cover worn\"\r\n");
}

TEST_F(Export, EveryBlankSlotOfABlankItemIsALine) {
  const struct {
    std::string_view extension;
    std::string_view line;
    int lines;
  } rows[] = {{"MCS", "\"\",\"\",\"\"\r\n", 40},
              {"VCS", "\"\",\"\"\r\n", 10},
              {"SCS", "\"\",\"\"\r\n", 10},
              {"CCS", "\"\",\"\",\"\"\r\n", 5}};
  for (const auto& row : rows) {
    std::string expected;
    for (int n = 0; n < 2 * row.lines; ++n) expected += row.line;
    openBlank(row.extension, 2);
    EXPECT_EQ(exported(), expected) << row.extension;
  }
}

TEST_F(Export, ALongCollectionIsExportedWhole) {
  constexpr int albums = 90;  // more than is read, or written, at once
  std::string bytes = musicFile(albums, music_file_type::current, {});
  std::string expected;
  for (int n = 1; n <= albums; ++n) {
    MusicRecord record = album("Artist " + std::to_string(n), std::string(50, 'T'));
    const std::string start = "\"Artist " + std::to_string(n) + "\",\"" + std::string(50, 'T');
    for (std::size_t slot = 0; slot < kSongs; ++slot) {
      record.Songs.at(slot) = "Song " + std::to_string(slot);
      expected += start + "\",\"Song " + std::to_string(slot) + "\"\r\n";
    }
    bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
  }
  open("MCS", albums, bytes);
  EXPECT_TRUE(exported() == expected);
}

TEST_F(Export, ItemsBeyondTheCountAreLeftOut) {
  open("MCS", 1, musicFile({withSongs("A", "", {"1"}), withSongs("B", "", {"2"})}));
  EXPECT_EQ(exported(), "\"A\",\"\",\"1\"\r\n");
}

TEST_F(Export, AnEmptyCollectionMakesAnEmptyFileOfEveryKind) {
  for (const CollectionKind& kind : collectionKinds()) {
    openBlank(kind.extension, 0);
    writeFile(target_, kOld);
    EXPECT_EQ(exported(), "") << kind.extension;
    expectNothingOpen();
  }
}

TEST_F(Export, BooksLeaveTheFileEmpty) {
  open("BCS", 3, familyFile(kBooks, {"Mary Shelley", "DELETED", "Jules Verne"}));
  writeFile(target_, kOld);
  EXPECT_EQ(exported(), "");
  expectNothingOpen();
}

TEST_F(Export, EveryBookIsReadAllTheSame) {
  const std::string bytes = familyFile(kBooks, {"Mary Shelley", "Jules Verne"});
  open("BCS", 2, bytes.substr(0, bytes.size() - 1));
  EXPECT_EQ(exportTo(target_), (Failure{63, path_}));
  EXPECT_EQ(readFile(target_), "");
}

TEST_F(Export, MediaFilesEndInAnErrorAtTheFirstItem) {
  for (const std::string_view extension : {"WCS", "ICS", "GCS", "MPS"})
    for (const int items : {0, 1, 2}) {
      SCOPED_TRACE(std::string(extension) + " of " + std::to_string(items));
      openBlank(extension, items);
      writeFile(target_, kOld);
      EXPECT_EQ(exportTo(target_), items == 0 ? Failure{} : (Failure{13, ""}));
      EXPECT_EQ(readFile(target_), "");
      expectCollectionUntouched();
      expectNothingOpen();
    }
}

TEST_F(Export, AFileThatIsThereIsReplaced) {
  open({withSongs("A", "B", {"C"})});
  writeFile(target_, kOld);
  EXPECT_EQ(exported(), "\"A\",\"B\",\"C\"\r\n");
}

TEST_F(Export, TheCollectionItselfIsNeverWrittenOver) {
  for (const CollectionKind& kind : collectionKinds()) {
    openBlank(kind.extension, 2);
    const std::string name = std::filesystem::path(path_).filename().string();
    makeLink(path_, folder_.path("soft.txt"));
    std::filesystem::create_hard_link(path_, folder_.path("hard.txt"));
    for (const std::string& target :
         {path_, name, "./" + name, folder_.path("soft.txt"), folder_.path("hard.txt")}) {
      EXPECT_EQ(exportTo(target).number, 55) << target;
      expectCollectionUntouched();
      expectNothingOpen();
    }
    std::filesystem::remove(folder_.path("soft.txt"));
    std::filesystem::remove(folder_.path("hard.txt"));
  }
}

TEST_F(Export, ACollectionThatIsTooShortIsExportedAsFarAsItsItemsAreWhole) {
  const std::string bytes = musicFile({withSongs("A", "", {"1"}), withSongs("B", "", {"2"})});
  const struct {
    std::size_t cut;
    std::string_view lines;
  } rows[] = {
      {1, "\"A\",\"\",\"1\"\r\n"}, {sizeof(MusicRecord) + 1, ""}, {2 * sizeof(MusicRecord), ""}};
  for (const auto& row : rows) {
    open("MCS", 2, bytes.substr(0, bytes.size() - row.cut));
    EXPECT_EQ(exportTo(target_), (Failure{63, path_})) << row.cut;
    EXPECT_EQ(readFile(target_), row.lines) << row.cut;
    expectCollectionUntouched();
    expectNothingOpen();
  }
}

TEST_F(Export, ALastItemThatIsMissingIsBlank) {
  const std::string bytes = musicFile({withSongs("A", "", {"1"})});
  open("MCS", 2, bytes);
  EXPECT_EQ(exportTo(target_), Failure{});
  std::string lines = "\"A\",\"\",\"1\"\r\n";
  for (std::size_t song = 0; song < kSongs; ++song) lines += "\"\",\"\",\"\"\r\n";
  EXPECT_EQ(readFile(target_), lines);
}

TEST_F(Export, ACollectionThatIsGoneIsReported) {
  open({album("A")});
  std::filesystem::remove(path_);
  EXPECT_EQ(exportTo(target_), (Failure{53, path_}));
  EXPECT_FALSE(std::filesystem::exists(path_));
  expectNothingOpen();
}

TEST_F(Export, AMissingFolderIsReported) {
  open({withSongs("A", "", {"1"})});
  const std::string target = folder_.path("nowhere/out.txt");
  EXPECT_EQ(exportTo(target), (Failure{76, target}));
  EXPECT_FALSE(std::filesystem::exists(folder_.path("nowhere")));
  expectCollectionUntouched();
  expectNothingOpen();
}

TEST_F(Export, AFileThatMayNotBeWrittenIsLeftAlone) {
  QUILLBOX_NEEDS(readOnlyFiles);
  open({withSongs("A", "", {"1"})});
  writeFile(target_, kOld);
  std::filesystem::permissions(target_, std::filesystem::perms(0444));
  {
    const OrdinaryUser user(folder_);
    EXPECT_EQ(exportTo(target_), (Failure{70, target_}));
  }
  EXPECT_EQ(readFile(target_), kOld);
  expectNothingOpen();
}

TEST_F(Export, TheTextFileHasTheNumber253) {
  open({withSongs("A", "", {"1"})});
  writeFile(folder_.path("other.txt"), kOld);
  state_.files.open(253, folder_.path("other.txt"), OpenMode::read);
  std::vector<int> numbers;
  files_.beforeRead = [&] {
    for (int number = 2; number <= 255; ++number)
      if (state_.files.isOpen(number)) numbers.push_back(number);
  };
  EXPECT_EQ(exported(), "\"A\",\"\",\"1\"\r\n");
  EXPECT_EQ(numbers, std::vector{253});
  EXPECT_EQ(readFile(folder_.path("other.txt")), kOld);
  expectNothingOpen();
}

TEST_F(Export, TheStateStaysAsItWas) {
  open({withSongs("A", "", {"1"}), withSongs("B", "", {"2"})});
  state_.CurRec = 2;
  state_.ListPos = 1;
  state_.music = album("on screen");
  exported();
  EXPECT_EQ(state_.Count, 2);
  EXPECT_EQ(state_.CurRec, 2);
  EXPECT_EQ(state_.ListPos, 1);
  EXPECT_EQ(text(state_.music.Artist), "on screen");
}

TEST_F(Export, AnyFailureIsReportedAndHarmsNothing) {
  constexpr std::string_view lines = "\"A\",\"\",\"1\"\r\n";
  for (const bool shortWrites : {false, true}) {
    files_.shortWrites = shortWrites;
    int failures = 0;
    for (int nth = 0;; ++nth) {
      SCOPED_TRACE("operation " + std::to_string(nth));
      open({withSongs("A", "", {"1"})});
      files_.failNth(nth, ErrorNumber::diskFull);
      const Failure failure = exportTo(target_);
      expectCollectionUntouched();
      expectNothingOpen();
      if (!files_.hasFailed()) {
        EXPECT_EQ(failure, Failure{});
        EXPECT_EQ(readFile(target_), lines);
        break;
      }
      const OperationRecord failed = files_.operations().at(static_cast<std::size_t>(nth));
      if (failed == OperationRecord{FileOperation::close, path_}) {
        // Failing to close a file that was only read does not matter.
        EXPECT_EQ(failure, Failure{});
        EXPECT_EQ(readFile(target_), lines);
        continue;
      }
      ++failures;
      EXPECT_EQ(failure, (Failure{61, failed.path}));
    }
    EXPECT_EQ(failures, files_.operationsThatMatter());
  }
}

TEST(ExportName, OnlyBooksHaveAFixedName) {
  for (const CollectionKind& kind : collectionKinds()) {
    const auto expected =
        kind.extension == "BCS" ? std::optional<std::string>("export.txt") : std::nullopt;
    EXPECT_EQ(exportName(kind), expected) << kind.extension;
  }
}

}  // namespace
}  // namespace quillbox::test
