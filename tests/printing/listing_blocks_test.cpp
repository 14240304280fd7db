#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "printing/listing.h"
#include "records/kinds.h"
#include "support/listed_item.h"

namespace quillbox::test {
namespace {

using namespace std::string_view_literals;

/// The lines starting with `from`; none when there is no such line.
Lines linesFrom(const Lines& lines, std::string_view from) {
  return {std::ranges::find(lines, from), lines.end()};
}

bool contains(const Lines& lines, std::string_view line) {
  return std::ranges::find(lines, line) != lines.end();
}

TEST(ListingBlocks, AnAlbum) {
  ListedItem item("MCS");
  item.text("Artist", "Bj\xF6rk").text("Album", "Debut").text("RecordCo", "One Little Indian");
  item.text("BarCode", "5099706493525").text("AquireDate", "7/5/1993");
  item.money("AquireCost", 119900).money("CurrCost", 0).whole("MediaType", 3);
  item.text("Notes", "Reissue").whole("HasBook", 1).whole("Genre", 14);
  item.text("Songs", "Human Behaviour", 1).text("Songs", "Violently Happy", 40);
  const Lines expected = {"Record #          :  5 of 12",
                          "Artist            : Bj\xF6rk",
                          "Album Title       : Debut",
                          "Record Company    : One Little Indian",
                          "Bar Code/ID       : 5099706493525",
                          "Aquisition Date   : 7/5/1993",
                          "Aquisition Cost   :  11.99",
                          "Current Price     :  0",
                          "Media Type        : Record Album",
                          "Notes             : Reissue",
                          "Has Booklet       : Yes",
                          "Genre             : Soundtrack",
                          kSongList,
                          "Song 1            : Human Behaviour",
                          "Song 40           : Violently Happy",
                          kSeparator};
  EXPECT_EQ(item.block(5, 12), expected);
}

TEST(ListingBlocks, ATape) {
  ListedItem item("VCS");
  item.text("Label", "Silent comedies").text("Publisher", "Kino").money("PurPrice", 399500);
  item.money("CurrPrice", -30000).whole("MediaType", 1).real("AquireDate", 29221);
  item.text("Notes", "Off air").whole("Commercial", 1).text("Movies", "City Lights", 10);
  const Lines expected = {"Record #          :  1 of 1",     "Label Text        : Silent comedies",
                          "Publisher         : Kino",        "Purchase Price    :  39.95",
                          "Current Price     : -3",          "Media Type        : LaserDisc",
                          "Aquisition Date   : 1/1/80",      "Notes             : Off air",
                          "Commercial        : Yes",         std::string(35, ' ') + "Movie List",
                          "Movie 10          : City Lights", kSeparator};
  EXPECT_EQ(item.block(), expected);
}

TEST(ListingBlocks, ADisk) {
  ListedItem item("SCS");
  item.text("DiskLabel", "Tools 1").text("Publisher", "Various").whole("PurPrice", 79);
  item.whole("CurrPrice", -5).whole("MediaType", 2).text("Notes", "2 discs");
  item.whole("Commercial", 1).whole("CDRequired", 0).whole("Shareware", 1);
  item.text("Programs", "PKZIP", 2).text("Programs", "List", 10);
  const Lines expected = {"Record #          :  1 of 1",
                          "Disk Label        : Tools 1",
                          "Publisher         : Various",
                          "Purchase Price    :  79",
                          "Current Price     : -5",
                          "Media Type        : CD-ROM",
                          "Notes             : 2 discs",
                          "Commercial        : Yes",
                          "CD Required       : No",
                          "Shareware         : Yes",
                          std::string(35, ' ') + "Program List",
                          "Program 2         : PKZIP",
                          "Program 10        : List",
                          kSeparator};
  EXPECT_EQ(item.block(), expected);
}

TEST(ListingBlocks, AComic) {
  ListedItem item("CCS");
  item.text("BookTitle", "Action Comics").text("ComicTitle", "No. 1");
  item.text("Publisher", "National").text("AquireDate", "4/18/38").money("PurPrice", 1000);
  item.money("CurrPrice", 125000).text("Artists", "Joe Shuster").text("Heroes", "Superman");
  item.text("Villains", "Luthor").text("FirstApp", "Lois Lane").whole("Bagged", 1);
  item.text("Notes", "Reprint", 1).text("Notes", "Cover worn", 5);
  const Lines expected = {"Record #          :  1 of 1",
                          "Comic Name        : Action Comics",
                          "Comic Title       : No. 1",
                          "Publisher         : National",
                          "Aquisition Date   : 4/18/38",
                          "Purchase Price    :  0.1",
                          "Current Price     :  12.5",
                          "Artists           : Joe Shuster",
                          "Hero(es)          : Superman",
                          "Villain(s)        : Luthor",
                          "First Appearance  : Lois Lane",
                          "Bagged            : Yes",
                          "Boarded           : No",
                          "Notes             : ",
                          "Note  1           : Reprint",
                          "Note  5           : Cover worn",
                          kSeparator};
  EXPECT_EQ(item.block(), expected);
}

TEST(ListingBlocks, ABook) {
  ListedItem item("BCS");
  item.text("Author", "Mary Shelley").text("Title", "Frankenstein").text("Publisher", "Lackington");
  item.whole("Genre", 1).whole("MediaType", 2).text("Notes", "Signed").text("Reserved", "kept");
  const Lines expected = {"Record #          :  1 of 1",      "Author            : Mary Shelley",
                          "Book Title        : Frankenstein", "Publisher         : Lackington",
                          "Genre             : Horror",       "Media Type        : Hardcover",
                          "Notes             : Signed",       kSeparator};
  EXPECT_EQ(item.block(), expected);
}

TEST(ListingBlocks, AMediaFileOfAnyKind) {
  for (const std::string_view extension : {"WCS", "ICS", "GCS", "MPS"}) {
    ListedItem item(extension);
    item.text("FileName", "CHIMES.WAV").text("FilePath", R"(C:\WINDOWS\MEDIA)");
    item.real("FileSize", 15920).text("Description", "Start-up chime");
    const Lines expected = {"Record #          :  1 of 1",
                            "FileName          : CHIMES.WAV",
                            R"(File Path         : C:\WINDOWS\MEDIA)",
                            "File Size         : 15920 Bytes",
                            "Description       : Start-up chime",
                            kSeparator};
    EXPECT_EQ(item.block(), expected) << extension;
  }
}

TEST(ListingBlocks, MediaFilesOfAnySizeListItInDecimal) {
  constexpr int catalogue = 2000;
  constexpr unsigned bitsOfADouble = 53;
  std::mt19937_64 random(7);  // NOLINT: the same sizes each time
  for (int item = 1; item <= catalogue; ++item) {
    // As many bits as a double holds exactly, at any height of 64.
    const std::uint64_t bytes = (random() >> (64 - bitsOfADouble)) >>
                                random() % bitsOfADouble << random() % (64 - bitsOfADouble + 1);
    ListedItem listed("WCS");
    listed.text("FileName", "A.WAV").text("FilePath", "C:").text("Description", "-");
    listed.real("FileSize", static_cast<double>(bytes));
    const Lines expected = {
        "Record #          :  " + std::to_string(item) + " of " + std::to_string(catalogue),
        "FileName          : A.WAV",
        "File Path         : C:",
        "File Size         : " + std::to_string(bytes) + " Bytes",
        "Description       : -",
        kSeparator};
    ASSERT_EQ(listed.block(item, catalogue), expected);
  }
}

TEST(ListingBlocks, ABlankItemHasItsLinesAndNoGroups) {
  const struct {
    std::string_view extension;
    std::size_t lines;
    std::string_view last;
  } rows[] = {{"MCS", 13, "Genre             : Alternative"},
              {"VCS", 10, "Commercial        : No"},
              {"SCS", 11, "Shareware         : No"},
              {"CCS", 15, "Notes             : "},
              {"BCS", 8, "Notes             : "},
              {"WCS", 6, "Description       : "},
              {"ICS", 6, "Description       : "},
              {"GCS", 6, "Description       : "},
              {"MPS", 6, "Description       : "}};
  for (const auto& row : rows) {
    const Lines lines = ListedItem(row.extension).block();
    ASSERT_EQ(lines.size(), row.lines) << row.extension;
    EXPECT_EQ(lines.at(row.lines - 2), row.last);
    EXPECT_EQ(lines.back(), kSeparator);
  }
}

/// A borrowed album.
ListedItem lent(int hasBook, int bookLoaned) {
  ListedItem item("MCS");
  item.whole("CurrLoaned", 1).whole("HasBook", hasBook).whole("BookLoaned", bookLoaned);
  item.text("Borrower", "A friend").text("DateLoaned", "1/2/2001").text("DueDate", "soon");
  return item;
}

TEST(ListingBlocks, AnAlbumThatIsLentSaysSoAboveItsSongs) {
  Lines expected = {kLoaned,
                    "Borrower          : A friend",
                    "Loaned On         : 1/2/2001",
                    "Due Back On       : soon",
                    "Book Loaned       : Yes",
                    kSongList,
                    "Song 1            : Something",
                    kSeparator};
  const Lines lines = lent(1, 1).text("Songs", "Something").block();
  EXPECT_EQ(linesFrom(lines, kLoaned), expected);
  EXPECT_EQ(lines.at(11), "Genre             : Alternative");
  EXPECT_EQ(lines.at(12), kLoaned);
}

TEST(ListingBlocks, OnlyABookletThatThereIsCanBeLent) {
  for (const int bookLoaned : {0, 1, 2, -1})
    EXPECT_EQ(lent(1, bookLoaned).value("Book Loaned"), bookLoaned == 1 ? "Yes" : "No");
  for (const int hasBook : {0, 2, -1}) {
    const Lines lines = lent(hasBook, 1).block();
    EXPECT_EQ(linesFrom(lines, kLoaned).size(), 5U) << hasBook;
    EXPECT_FALSE(contains(lines, "Book Loaned       : Yes")) << hasBook;
  }
}

TEST(ListingBlocks, NothingButOneIsLent) {
  for (const int loaned : {0, 2, -1, 256}) {
    const Lines lines = lent(1, 1).whole("CurrLoaned", loaned).block();
    EXPECT_EQ(lines.size(), 13U) << loaned;
    EXPECT_FALSE(contains(lines, kLoaned)) << loaned;
  }
}

TEST(ListingBlocks, FilledSlotsKeepTheirNumbers) {
  const struct {
    std::string_view extension;
    std::string_view field;
    std::string_view heading;
    std::string_view label;
    std::size_t last;
  } rows[] = {{"MCS", "Songs", "Song List", "Song ", 40},
              {"VCS", "Movies", "Movie List", "Movie ", 10},
              {"SCS", "Programs", "Program List", "Program ", 10},
              {"CCS", "Notes", "", "Note  ", 5}};
  for (const auto& row : rows) {
    for (std::size_t slot = 1; slot <= row.last; ++slot) {
      const Lines lines = ListedItem(row.extension).text(row.field, "  entry", slot).block();
      std::string line = std::string(row.label) + std::to_string(slot);
      line.resize(18, ' ');
      ASSERT_EQ(lines.at(lines.size() - 2), line + ":   entry") << row.extension;
      const bool isHeaded = lines.at(lines.size() - 3) == std::string(35, ' ').append(row.heading);
      EXPECT_EQ(isHeaded, !row.heading.empty()) << row.extension;
      EXPECT_EQ(lines.size(), ListedItem(row.extension).block().size() + (isHeaded ? 2 : 1));
    }
  }
}

TEST(ListingBlocks, SlotsOfBlanksOrBeginningWithAZeroByteAreNotFilled) {
  ListedItem item("MCS");
  item.text("Songs", "\0hidden"sv, 1).text("Songs", "   ", 2).text("Songs", "shown  \0cut"sv, 3);
  item.text("Songs", std::string(50, '\0'), 4).text("Songs", "last", 5);
  const Lines expected = {kSongList, "Song 3            : shown", "Song 5            : last",
                          kSeparator};
  EXPECT_EQ(linesFrom(item.block(), kSongList), expected);
}

TEST(ListingBlocks, ASlotOfBlanksAndAZeroByteIsFilledAndShowsNothing) {
  const Lines expected = {kSongList, "Song 2            : ", kSeparator};
  EXPECT_EQ(linesFrom(ListedItem("MCS").text("Songs", "  \0hidden"sv, 2).block(), kSongList),
            expected);
}

TEST(ListingBlocks, TheLongestBlockFitsTheLines) {
  ListedItem item = lent(1, 0);
  for (std::size_t slot = 1; slot <= 40; ++slot) item.text("Songs", std::string(50, 's'), slot);
  const Lines lines = item.block(32767, 32767);
  EXPECT_EQ(lines.size(), 12U + 5 + 41 + 1);
  EXPECT_EQ(lines.back(), kSeparator);
}

TEST(ListingBlocks, OnlyTheLinesOfTheBlockAreTouched) {
  PrintLines lines;
  lines.fill("as it was");
  const ListedItem item("BCS");
  const CollectionKind& books = *kindOfExtension("BCS");
  std::vector<std::byte> blank(books.recordLength);
  fillBlank(books.fields, blank);
  EXPECT_EQ(Listing(books, {choiceOf, "M/d/yy"}).block(blank, 1, 1, lines), 8);
  EXPECT_EQ(Lines(lines.begin() + 1, lines.begin() + 9), item.block());
  EXPECT_EQ(lines.front(), "as it was");
  for (std::size_t line = 9; line < lines.size(); ++line) EXPECT_EQ(lines.at(line), "as it was");
}

}  // namespace
}  // namespace quillbox::test
