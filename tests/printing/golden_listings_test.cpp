#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/checked16.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "support/failing_files.h"
#include "support/fake_desktop.h"
#include "support/music_files.h"
#include "support/test_folder.h"
#include "text/windows1252.h"

namespace quillbox::test {
namespace {

constexpr const char* kLong = "long";

/// Converted before printing, or refused, or without items.
const std::set<std::string> kNotPrinted = {"albums-type4.MCS", "type1.MCS", "empty.MCS"};

std::string golden(const std::string& name) { return readFile(dataFile("listings/" + name)); }

/// Replaces the program's line ends by those of a golden file.
std::string withLineEnds(std::string_view text) {
  std::string converted;
  for (const char c : text) converted += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return converted;
}

/// The sheets of a golden file, each below a line with its number.
std::vector<std::string> goldenSheets(const std::string& name) {
  std::vector<std::string> sheets;
  std::string text = golden(name + ".sheets.txt");
  while (!text.empty()) {
    const std::string mark = "=== sheet " + std::to_string(sheets.size() + 1) + " ===\n";
    EXPECT_TRUE(text.starts_with(mark)) << text.substr(0, mark.size());
    if (!text.starts_with(mark)) break;
    text.erase(0, mark.size());
    const auto end = text.find("=== sheet ");
    sheets.push_back(withLineEnds(text.substr(0, end)));
    text.erase(0, end);
  }
  return sheets;
}

/// Album `n` of the long collection, by the rule in make_listings.py.
MusicRecord longAlbum(int n) {
  const std::string number = std::to_string(n);
  MusicRecord record = album(n % 13 == 0 ? "DETELED" : "Artist " + number, "Caf\xE9 " + number);
  record.RecordCo = "Label " + number;
  for (int k = 1; k <= n * 6 % 41; ++k)
    if (k % 6 != 0)
      record.Songs.at(static_cast<std::size_t>(k - 1)) =
          "Song " + std::to_string(k) + " of album " + number;
  record.AquireDate = number + "/1/2001";
  record.AquireCost = n * 12500;
  record.CurrCost = n * -625;
  record.HasBook = checked16(n % 2);
  record.MediaType = checked16(n % 10 - 1);
  record.CurrLoaned = n % 3 == 0 ? 1 : 0;
  record.Borrower = "Friend " + number;
  record.DateLoaned = "1/" + number + "/2002";
  record.DueDate = "2/" + number + "/2002";
  record.BookLoaned = n % 9 == 0 ? 1 : 0;
  record.Notes = "Shelf " + number;
  record.Genre = checked16(n % 17 - 1);
  record.BarCode = std::string(12 - number.size(), '0') + number;
  return record;
}

std::string longCollection() {
  constexpr int albums = 40;
  std::string bytes = musicFile(albums, music_file_type::current, {});
  for (int n = 1; n <= albums; ++n) {
    const MusicRecord record = longAlbum(n);
    bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
  }
  return bytes;
}

/// The collections for which there are golden listings.
std::vector<std::string> collections() {
  std::vector<std::string> names = {kLong};
  for (const auto& entry : std::filesystem::directory_iterator(QUILLBOX_TEST_DATA)) {
    const std::string name = entry.path().filename().string();
    const bool isCollection = std::filesystem::exists(entry.path().string() + ".json");
    if (isCollection && !kNotPrinted.contains(name)) names.push_back(name);
  }
  std::ranges::sort(names);
  return names;
}

class GoldenListings : public testing::TestWithParam<std::string> {
 protected:
  GoldenListings() {
    const std::string bytes = isLong() ? longCollection() : readFile(dataFile(GetParam()));
    writeFile(path_, bytes);
    state_.currentPath = path_;
    state_.Count = headerOf(bytes).Count;
  }

  static bool isLong() { return GetParam() == kLong; }

  /// Composes the pages and delivers them, as the editors do.
  void print(int pagesExpected) {
    std::int16_t mode = print_mode::printer;
    engine_.OpenPrinter(mode);
    const std::int16_t pages =
        composePages(state_.files, state_, kind_, listing_, mode, engine_, board_);
    EXPECT_EQ(pages, pagesExpected);
    const auto heading = listing_.fileHeading(kind_.mediaCode);
    ASSERT_TRUE(heading);
    engine_.PrintOut(mode, pages, *heading);
  }

  std::vector<std::string> printedSheets() {
    const int pages = static_cast<int>(goldenSheets(GetParam()).size());
    const std::string last = std::to_string(pages);
    desktop_.fakePrinter.sheets.clear();
    desktop_.expectPrint(PrintChoice{});
    desktop_.expectInput("Starting Page", "Printer Data", "1", "1");
    desktop_.expectInput("Ending Page", "Printer Data", last, last);
    print(pages);
    return desktop_.fakePrinter.sheets;
  }

  std::string writtenFile() {
    desktop_.expectPrint(PrintChoice{.toFile = true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", offered_, written_);
    print(static_cast<int>(goldenSheets(GetParam()).size()));
    offered_ = written_;
    return readFile(written_);
  }

  static std::string choiceOf(const Field& field, int index) {
    const bool isEntry = index >= 0 && index < static_cast<int>(field.choices.size());
    return isEntry ? std::string(field.choices[static_cast<std::size_t>(index)]) : std::string();
  }

  TestFolder folder_;
  std::string extension_ = isLong() ? "MCS" : GetParam().substr(GetParam().find('.') + 1);
  const CollectionKind& kind_ = *kindOfExtension(extension_);
  std::string path_ = folder_.path("mine." + extension_);
  std::string written_ = folder_.path("list.txt");
  std::optional<std::string> offered_;
  FailingFiles files_;
  AppState state_{files_};
  FakeDesktop desktop_;
  NoBoard board_;
  PrintEngine engine_{state_, desktop_, board_};
  Listing listing_{kind_, {choiceOf, "M/d/yy"}};
};

TEST_P(GoldenListings, TheSheetsOfThePrinter) {
  const std::vector<std::string> expected = goldenSheets(GetParam());
  const std::vector<std::string> sheets = printedSheets();
  ASSERT_EQ(sheets.size(), expected.size());
  for (std::size_t n = 0; n < sheets.size(); ++n)
    EXPECT_EQ(sheets[n], expected[n]) << "sheet " << n + 1;
}

TEST_P(GoldenListings, TheTextFile) {
  EXPECT_EQ(toUtf8(writtenFile()), withLineEnds(golden(GetParam() + ".text.txt")));
}

TEST_P(GoldenListings, EachPrintoutIsThatOfAFreshEngine) {
  const std::vector<std::string> sheets = printedSheets();
  const std::string text = writtenFile();
  EXPECT_TRUE(printedSheets() == sheets);
  EXPECT_TRUE(writtenFile() == text);
}

TEST_P(GoldenListings, PrintingLeavesTheCollectionAsItWasAndNothingBehind) {
  const std::string before = readFile(path_);
  printedSheets();
  writtenFile();
  EXPECT_TRUE(readFile(path_) == before);
  for (int number = 1; number <= 255; ++number) EXPECT_FALSE(state_.files.isOpen(number)) << number;
  std::set<std::string> left;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
    left.insert(entry.path().filename().string());
  EXPECT_EQ(left, (std::set<std::string>{"list.txt", "mine." + extension_}));
}

INSTANTIATE_TEST_SUITE_P(Collections, GoldenListings, testing::ValuesIn(collections()),
                         [](const auto& collection) {
                           std::string name = collection.param;
                           std::erase(name, '.');
                           return name;
                         });

TEST(TheGoldenListings, EachIsOfACollection) {
  std::set<std::string> expected = {"make_listings.py"};
  for (const std::string& name : collections()) {
    expected.insert(name + ".sheets.txt");
    expected.insert(name + ".text.txt");
  }
  std::set<std::string> there;
  for (const auto& entry : std::filesystem::directory_iterator(dataFile("listings")))
    there.insert(entry.path().filename().string());
  EXPECT_EQ(there, expected);
}

}  // namespace
}  // namespace quillbox::test
