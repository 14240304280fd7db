#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include "records/entered.h"
#include "support/failure.h"
#include "support/search_form.h"

namespace quillbox::test {
namespace {

TEST(SearchQuery, ADateKeptAsANumberIsComparedAsItsText) {
  constexpr double never = 1e9;  // no date at all
  const struct {
    const char* dateForm;
    double stored;
    std::string_view typed;
    bool found;
  } rows[] = {
      {"M/d/yy", 46347, "11/21/26", true},
      {"M/d/yy", 46347, "11/21/26   ", true},
      {"M/d/yy", 46347, " 11/21/26", false},
      {"M/d/yy", 46347, "11/21/2026", false},
      {"M/d/yy", 46347, "11/21", false},
      {"M/d/yy", 46347, "11/22/26", false},
      {"M/d/yy", 46347, "46347", false},
      {"M/d/yy", 46347, "21.11.2026", false},
      {"M/d/yy", 46347, " ", false},
      {"M/d/yy", 46348, "11/21/26", false},
      {"M/d/yy", 46347.5625, "11/21/26 13:30", true},
      {"M/d/yy", 46347.5625, "11/21/26", false},
      {"M/d/yy", 46347, "11/21/26 13:30", false},
      {"M/d/yy", 0, "12/30/1899", true},
      {"M/d/yy", 0, " ", false},
      {"M/d/yy", never, " ", true},
      {"M/d/yy", never, "11/21/26", false},
      {"M/d/yy", std::numeric_limits<double>::quiet_NaN(), " ", true},
      {"dd.MM.yyyy", 46347, "21.11.2026", true},
      {"dd.MM.yyyy", 46347, "11/21/26", false},
      {"dd.MM.yyyy", 46054, "01.02.2026", true},
      {"dd.MM.yyyy", 46054, "1.2.2026", false},
  };
  for (const auto& row : rows)
    EXPECT_EQ(typed(kVideoDate, row.typed)
                  .query(row.dateForm)
                  .matches(Item("VCS").real(kVideoDate, row.stored).bytes()),
              row.found)
        << row.dateForm << ": [" << row.typed << "] in " << row.stored;
}

TEST(SearchQuery, AnAmountIsTheNumberThatTheTextBeginsWith) {
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
  const struct {
    std::string_view typed;
    std::int64_t stored;
    bool found;
  } rows[] = {
      {"12.5", 125'000, true},
      {"12.50", 125'000, true},
      {" 12.5 ", 125'000, true},
      {"12.5 dollars", 125'000, true},
      {"1e2", 1'000'000, true},
      {"12.5", 125'001, false},
      {"12.5", 120'000, false},
      {"12.5", 125, false},
      {"12", 120'000, true},
      {"-3", -30'000, true},
      {"3", -30'000, false},
      {"0", 0, true},
      {"0", 1, false},
      {"free", 0, true},
      {"free", 1, false},
      {"$12.5", 125'000, false},
      {" ", 0, true},
      {" ", 125'000, false},
      {"0.00015", 2, true},
      {"0.00025", 2, true},
      {"922337203685477.5807", most, true},
      {"-922337203685477.5808", least, true},
  };
  for (const Input& input : inputsOf(FieldType::money)) {
    for (const auto& row : rows)
      EXPECT_EQ(typed(input, row.typed).finds(Item(input.extension).money(input, row.stored)),
                row.found)
          << input << ": [" << row.typed << "] in " << row.stored;
    for (const char* beyond : {"922337203685477.5808", "-922337203685477.5809", "1e30"})
      EXPECT_EQ(failureOf([&] { typed(input, beyond).query(); }), (Failure{6, ""}))
          << input << ": " << beyond;
  }
}

TEST(SearchQuery, AWholePriceIsTheNearestWholeNumber) {
  const struct {
    std::string_view typed;
    int stored;
    bool found;
  } rows[] = {
      {"12", 12, true},        {"12", 13, false},  {"12.4", 12, true},     {"12.5", 12, true},
      {"12.5", 13, false},     {"13.5", 14, true}, {"13.5", 13, false},    {"12 dollars", 12, true},
      {"free", 0, true},       {"free", 1, false}, {" ", 0, true},         {" ", 12, false},
      {"-3", -3, true},        {"3", -3, false},   {"32767", 32767, true}, {"-32768", -32768, true},
      {"12", 12 + 256, false},
  };
  const auto inputs = inputsOf(FieldType::whole);
  EXPECT_EQ(inputs, (std::vector<Input>{{"SCS", "PurPrice"}, {"SCS", "CurrPrice"}}));
  for (const Input& input : inputs) {
    for (const auto& row : rows)
      EXPECT_EQ(typed(input, row.typed).finds(Item(input.extension).whole(input, row.stored)),
                row.found)
          << input << ": [" << row.typed << "] in " << row.stored;
    for (const char* beyond : {"70000", "32768", "32767.5", "-32769", "1e30"})
      EXPECT_EQ(failureOf([&] { typed(input, beyond).query(); }), (Failure{6, ""}))
          << input << ": " << beyond;
  }
}

TEST(SearchQuery, AListFindsThePlaceThatIsChosen) {
  for (const Input& input : inputsOf(FieldType::choice)) {
    const int places = static_cast<int>(fieldOf(input).choices.size());
    std::vector<int> stored = {-1, 300, -32768, 32767};
    for (int place = 0; place <= places; ++place) stored.push_back(place);
    for (const int place : stored) {
      const Item item = Item(input.extension).whole(input, place);
      EXPECT_TRUE(SearchForm(input.extension).choose(input, -1).finds(item)) << input << place;
      for (int chosen = 0; chosen <= places; ++chosen)
        EXPECT_EQ(SearchForm(input.extension).choose(input, chosen).finds(item), chosen == place)
            << input << ": " << chosen << " in " << place;
    }
  }
}

TEST(SearchQuery, ACheckBoxFindsOnlyWhatIsTickedAsItIs) {
  for (const Input& input : inputsOf(FieldType::flag)) {
    const SearchForm unticked(input.extension);
    const SearchForm ticked = SearchForm(input.extension).tick(input);
    for (const int stored : {0, 1, 2, -1, 256, 32767, -32768}) {
      const Item item = Item(input.extension).whole(input, stored);
      EXPECT_EQ(ticked.finds(item), stored != 0) << input << ": " << stored;
      EXPECT_EQ(unticked.finds(item), stored == 0) << input << ": " << stored;
    }
  }
}

TEST(SearchQuery, TheSizeOfAFileIsNeverAskedFor) {
  const Input size = {"WCS", "FileSize"};
  const Input name = {"WCS", "FileName"};
  const Entered sizeOnly[] = {{&fieldOf(size), "12", 12}};
  const Entered nameToo[] = {{&fieldOf(size), "12", 12}, {&fieldOf(name), "song.wav"}};
  const Query any(kindOf("WCS"), sizeOnly, "M/d/yy");
  const Query named(kindOf("WCS"), nameToo, "M/d/yy");
  for (const double stored : {0.0, 12.0, 13.0, -1.0, 1e300}) {
    const Item song = Item("WCS").text(name, "song.wav").real(size, stored);
    const Item noise = Item("WCS").text(name, "noise.wav").real(size, stored);
    EXPECT_TRUE(any.matches(song.bytes())) << stored;
    EXPECT_TRUE(any.matches(noise.bytes())) << stored;
    EXPECT_TRUE(named.matches(song.bytes())) << stored;
    EXPECT_FALSE(named.matches(noise.bytes())) << stored;
  }
}

}  // namespace
}  // namespace quillbox::test
