#include "printing/listing.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "records/kinds.h"
#include "support/listed_item.h"

namespace quillbox::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(Listing, PositionAndCountAreNumbersWithABlank) {
  const ListedItem item("BCS");
  EXPECT_EQ(item.block(1, 32767).front(), "Record #          :  1 of 32767");
  EXPECT_EQ(item.block(32767, 32767).front(), "Record #          :  32767 of 32767");
}

TEST(Listing, ADeletedItemIsOneLine) {
  const struct {
    std::string_view extension;
    std::string_view marker;
  } rows[] = {{"MCS", "DETELED"}, {"VCS", "DELETED"}, {"SCS", "DELETED"},
              {"CCS", "DETELED"}, {"BCS", "DELETED"}, {"WCS", "DELETED"},
              {"ICS", "DELETED"}, {"GCS", "DELETED"}, {"MPS", "DELETED"}};
  for (const auto& row : rows) {
    const ListedItem item = ListedItem(row.extension).first(row.marker);
    EXPECT_EQ(item.block(5, 12), Lines{"Record # 5 Has been deleted."}) << row.extension;
  }
}

TEST(Listing, AnyOtherTextIsNotTheMarker) {
  for (const CollectionKind& kind : collectionKinds()) {
    const bool isOfMusic = kind.extension == "MCS" || kind.extension == "CCS";
    const std::string marker = isOfMusic ? "DETELED" : "DELETED";
    for (const std::string& text :
         {isOfMusic ? "DELETED"s : "DETELED"s, " " + marker, marker + " 2", marker + "\0"s,
          "deteled"s, "deleted"s, ""s, "DEL"s})
      EXPECT_EQ(ListedItem(kind.extension).first(text).block().size(),
                ListedItem(kind.extension).block().size())
          << kind.extension << ' ' << text;
  }
}

TEST(Listing, TextsEndAtTheirFirstZeroByteAndLoseTheBlanksBehind) {
  const struct {
    std::string_view stored;
    std::string_view shown;
  } rows[] = {{"plain", "plain"},
              {"  leading", "  leading"},
              {"trailing   ", "trailing"},
              {"cut\0off"sv, "cut"},
              {"cut  \0off"sv, "cut"},
              {"\0all"sv, ""},
              {"", ""},
              {"\x80 \x81 \xFF", "\x80 \x81 \xFF"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ListedItem("MCS").text("Notes", row.stored).value("Notes"), row.shown);
    EXPECT_EQ(ListedItem("MCS").text("AquireDate", row.stored).value("Aquisition Date"), row.shown);
    EXPECT_EQ(ListedItem("CCS").text("AquireDate", row.stored).value("Aquisition Date"), row.shown);
    EXPECT_EQ(ListedItem("MPS").text("FilePath", row.stored).value("File Path"), row.shown);
  }
  const std::string full(50, 'x');
  EXPECT_EQ(ListedItem("BCS").text("Title", full).value("Book Title"), full);
}

TEST(Listing, AmountsAreNumbers) {
  const struct {
    std::int64_t stored;
    std::string_view shown;
  } rows[] = {{0, " 0"},
              {125000, " 12.5"},
              {-30000, "-3"},
              {1, " 0.0001"},
              {-1, "-0.0001"},
              {-12500, "-1.25"},
              {9223372037, " 922337.2037"},
              {std::numeric_limits<std::int64_t>::max(), " 922337203685477.5807"},
              {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ListedItem("MCS").money("AquireCost", row.stored).value("Aquisition Cost"),
              row.shown);
    EXPECT_EQ(ListedItem("VCS").money("PurPrice", row.stored).value("Purchase Price"), row.shown);
    EXPECT_EQ(ListedItem("CCS").money("CurrPrice", row.stored).value("Current Price"), row.shown);
  }
  EXPECT_EQ(ListedItem("SCS").whole("PurPrice", 32767).value("Purchase Price"), " 32767");
  EXPECT_EQ(ListedItem("SCS").whole("CurrPrice", -32768).value("Current Price"), "-32768");
}

TEST(Listing, OnlyOneIsYes) {
  const struct {
    std::string_view extension;
    std::string_view field;
    std::string_view label;
  } flags[] = {{"MCS", "HasBook", "Has Booklet"},    {"VCS", "Commercial", "Commercial"},
               {"SCS", "Commercial", "Commercial"},  {"SCS", "Shareware", "Shareware"},
               {"SCS", "CDRequired", "CD Required"}, {"CCS", "Bagged", "Bagged"},
               {"CCS", "Boarded", "Boarded"}};
  for (const auto& [extension, field, label] : flags)
    for (const int value : {0, 1, 2, -1, 256, 32767})
      EXPECT_EQ(ListedItem(extension).whole(field, value).value(label), value == 1 ? "Yes" : "No")
          << label << ' ' << value;
}

TEST(Listing, AChoiceIsTheTextOfItsListsEntry) {
  const struct {
    std::string_view extension;
    std::string_view field;
    std::string_view label;
  } choices[] = {
      {"MCS", "MediaType", "Media Type"}, {"MCS", "Genre", "Genre"},
      {"VCS", "MediaType", "Media Type"}, {"SCS", "MediaType", "Media Type"},
      {"BCS", "MediaType", "Media Type"}, {"BCS", "Genre", "Genre"},
  };
  const ListingTexts asked = {[](const Field& field, int index) {
                                return std::string(field.name) + "/" + std::to_string(index);
                              },
                              "M/d/yy"};
  for (const auto& [extension, field, label] : choices) {
    for (const int index : {0, 4, 99, -1, -32768})
      EXPECT_EQ(ListedItem(extension).whole(field, index).value(label, asked),
                std::string(field) + "/" + std::to_string(index));
    EXPECT_EQ(ListedItem(extension).whole(field, -1).value(label), "");
    EXPECT_EQ(ListedItem(extension).whole(field, 99).value(label), "");
  }
}

TEST(Listing, OnlyAVideosDateIsInTheSystemsForm) {
  const ListedItem tape = ListedItem("VCS").real("AquireDate", 36526.75);
  EXPECT_EQ(tape.value("Aquisition Date"), "1/1/00 18:00");
  EXPECT_EQ(tape.value("Aquisition Date", {choiceOf, "dd.MM.yyyy"}), "01.01.2000 18:00");
  EXPECT_EQ(ListedItem("VCS").value("Aquisition Date", {choiceOf, "yyyy-MM-dd"}), "1899-12-30");
  const ListedItem album = ListedItem("MCS").text("AquireDate", "spring of '68");
  EXPECT_EQ(album.value("Aquisition Date", {choiceOf, "dd.MM.yyyy"}), "spring of '68");
}

TEST(Listing, AFileSizeIsANumberOfBytesWithoutABlank) {
  const struct {
    double stored;
    std::string_view shown;
  } rows[] = {{0, "0 Bytes"},
              {1, "1 Bytes"},
              {3000000000.0, "3000000000 Bytes"},
              {999999999999999.0, "999999999999999 Bytes"},
              {1e15, "1000000000000000 Bytes"},
              {-1, "-1 Bytes"}};
  for (const auto& row : rows)
    EXPECT_EQ(ListedItem("WCS").real("FileSize", row.stored).value("File Size"), row.shown);
}

TEST(Listing, TheHeadingsOfPagesAndTextFiles) {
  const struct {
    std::string_view extension;
    std::string_view page;
    std::string_view file;
  } rows[] = {
      {"MCS", "Music", "Music"},
      {"VCS", "Video", "Music"},
      {"SCS", "Software", "Software"},
      {"CCS", "Comic", "Comic"},
      {"BCS", "Book", "Book"},
      {"WCS", "Wave/Mid/Graphic", "WAV File"},
      {"ICS", "Wave/Mid/Graphic", "MIDI File"},
      {"GCS", "Wave/Mid/Graphic", "Graphic File"},
      {"MPS", "Wave/Mid/Graphic", "MP3 File"},
  };
  for (const auto& row : rows) {
    const CollectionKind& kind = *kindOfExtension(row.extension);
    const Listing listing(kind, {choiceOf, "M/d/yy"});
    EXPECT_EQ(listing.pageHeading(),
              "Quillbox V1.71   - " + std::string(row.page) + " Collection Printout Page #");
    EXPECT_EQ(listing.fileHeading(kind.mediaCode),
              "Quillbox V1.71   - " + std::string(row.file) + " Collection");
  }
}

TEST(Listing, ATextFileOfAnUnknownMediaCodeHasNoHeading) {
  for (const std::string_view extension : {"WCS", "ICS", "GCS", "MPS"}) {
    const Listing listing(*kindOfExtension(extension), {choiceOf, "M/d/yy"});
    for (const int mediaCode : {0, 5, -1, 255})
      EXPECT_EQ(listing.fileHeading(mediaCode), std::nullopt) << extension << mediaCode;
  }
}

}  // namespace
}  // namespace quillbox::test
