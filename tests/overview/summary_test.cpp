#include "overview/summary.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "overview/item_reading.h"
#include "support/overview_model.h"

namespace quillbox::test {
namespace {

constexpr const char* kTypeOfFile = "Type of File";

/// A grouping, specified independently.
struct ModelGrouping {
  std::string name;
  std::string input;
};
std::vector<ModelGrouping> groupingsOfModel(const ModelKind& kind) {
  const std::string year = "Year of Acquisition";
  if (kind.isMusic())
    return {{"Media Type", "cmbMediaType"},
            {"Genre", "cmbGenre"},
            {"Record Co", "txtRecordCo"},
            {year, "txtAquireDate"}};
  if (kind.isVideo())
    return {{"Media Type", "cmbMediaType"}, {"Publisher", "txtPublisher"}, {year, "txtAquireDate"}};
  if (kind.code == kSoftware.code)
    return {{"Media Type", "cmbMediaType"}, {"Publisher", "txtSftWare_1"}};
  if (kind.code == kComics.code) return {{"Publisher", "txtCmic_6"}, {year, "txtCmic_9"}};
  if (kind.isBooks())
    return {{"Media Type", "cmbMedia"}, {"Genre", "cmbGenre"}, {"Publisher", "txtBooks_2"}};
  return {{kTypeOfFile, "txtFileName"}, {"Path To File", "txtPath"}};
}

std::pair<std::string, std::string> pricesOfModel(const ModelKind& kind) {
  if (kind.isMusic()) return {"txtAquireCost", "txtCurrCost"};
  if (kind.isVideo()) return {"txtPurPrice", "txtCurrPrice"};
  if (kind.code == kSoftware.code) return {"txtSftWare_2", "txtSftWare_3"};
  if (kind.code == kComics.code) return {"txtCmic_7", "txtCmic_8"};
  return {};
}

const ModelInput& inputOf(const ModelKind& kind, const std::string& name) {
  for (const ModelInput& input : kind.inputs)
    if (input.name == name) return input;
  throw std::out_of_range(name);
}

std::string yearOfModel(double date) {
  const std::string text = dateText(date, "yyyy-MM-dd");
  return text.empty() ? text : std::to_string(std::stoi(text));
}

/// The first separate number of four digits that is a year from 1000 to 2999.
std::string modelYear(const std::string& text) {
  if (const auto date = dateIn(text, kOverviewDates)) return yearOfModel(*date);
  std::string digits;
  for (const char c : text + " ") {
    if (c >= '0' && c <= '9') {
      digits += c;
      continue;
    }
    if (digits.size() == 4 && (digits[0] == '1' || digits[0] == '2')) return digits;
    digits.clear();
  }
  return {};
}

class SummaryTest : public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }

  std::int64_t price(const std::string& name, const std::string& item) const {
    if (name.empty()) return 0;
    const ModelInput& input = inputOf(kind(), name);
    const std::int64_t number = numberAt(item, input.offset, input.width);
    return input.is == Is::whole ? 10'000 * number : number;
  }

  std::string value(const ModelGrouping& grouping, const std::string& item) const {
    const ModelInput& input = inputOf(kind(), grouping.input);
    const std::string shown = modelShown(kind(), input, item);
    if (input.is == Is::date)
      return yearOfModel(std::bit_cast<double>(numberAt(item, input.offset, input.width)));
    if (grouping.name.starts_with("Year")) return modelYear(shown);
    const std::string text = trimmedOf(shown);
    if (grouping.name != kTypeOfFile) return modelFolded(text);
    const auto point = text.find_last_of('.');
    return point == std::string::npos || point == 0 ? "" : modelFolded(text.substr(point + 1));
  }

  void expectTotals(const Totals& totals, const std::vector<const std::string*>& items) const {
    AmountSum cost;
    AmountSum worth;
    const auto [costs, worths] = pricesOfModel(kind());
    for (const std::string* item : items) {
      cost.add(price(costs, *item));
      worth.add(price(worths, *item));
    }
    EXPECT_EQ(totals.items, static_cast<int>(items.size()));
    EXPECT_EQ(totals.cost.text(), cost.text());
    EXPECT_EQ(totals.worth.text(), worth.text());
  }

  void expectFigures(const SummaryFigures& figures, const std::vector<std::string>& items) const {
    std::vector<const std::string*> left;
    for (const std::string& item : items)
      if (!modelDeleted(kind(), item)) left.push_back(&item);
    expectTotals(figures.totals, left);
    EXPECT_EQ(figures.deleted, static_cast<int>(items.size() - left.size()));
    const auto groupings = groupingsOfModel(kind());
    ASSERT_EQ(figures.groups.size(), groupings.size());
    for (std::size_t at = 0; at < groupings.size(); ++at)
      expectGroup(figures.groups[at], groupings[at], items);
  }

  void expectGroup(const BarGroup& group, const ModelGrouping& grouping,
                   const std::vector<std::string>& items) const {
    SCOPED_TRACE(grouping.name);
    EXPECT_EQ(group.grouping->name, grouping.name);
    std::map<std::string, std::vector<int>> expected;
    for (std::size_t at = 0; at < items.size(); ++at)
      if (!modelDeleted(kind(), items[at]))
        expected[value(grouping, items[at])].push_back(static_cast<int>(at) + 1);
    std::map<std::string, std::vector<int>> found;
    for (const Bar& bar : group.bars) {
      EXPECT_TRUE(found.emplace(bar.value, bar.items).second) << bar.value;
      EXPECT_EQ(modelFolded(bar.label), bar.value.empty() ? "(none)" : bar.value);
      std::vector<const std::string*> ofBar;
      for (const int item : bar.items) ofBar.push_back(&items[static_cast<std::size_t>(item - 1)]);
      expectTotals(bar.totals, ofBar);
    }
    EXPECT_EQ(found, expected);
    for (std::size_t at = 0; at + 1 < group.bars.size(); ++at)
      expectBefore(group.bars[at], group.bars[at + 1], grouping.name.starts_with("Year"));
  }

  static void expectBefore(const Bar& bar, const Bar& next, bool isYear) {
    EXPECT_FALSE(bar.value.empty()) << "what has no value is last";
    if (next.value.empty()) return;
    const int first = isYear ? 0 : -bar.totals.items;
    const int second = isYear ? 0 : -next.totals.items;
    EXPECT_LE(first, second);
    if (first < second) return;
    EXPECT_LT(isYear ? std::stoi(bar.label) - std::stoi(next.label)
                     : modelCompared(bar.label, next.label),
              0);
  }

  Summary summaryOf(const std::vector<std::string>& items) const {
    Summary summary(kind().row(), overviewTexts());
    for (std::size_t at = 0; at < items.size(); ++at)
      summary.take(static_cast<int>(at) + 1, recordOf(items[at]));
    return summary;
  }
};
INSTANTIATE_TEST_SUITE_P(AllKinds, SummaryTest, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(SummaryTest, AddsUpWhatTheModelAddsUp) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const auto items = OverviewItems(kind(), seed).items(60);
    expectFigures(summaryOf(items).figures(), items);
  }
}

TEST_P(SummaryTest, AnItemIsTakenAgainAndTheLastForgotten) {
  OverviewItems random(kind());
  auto items = random.items(20);
  Summary summary = summaryOf(items);
  for (int round = 0; round < 100; ++round) {
    const std::size_t at = random.below(items.size());
    items[at] = random.item();
    summary.take(static_cast<int>(at) + 1, recordOf(items[at]));
  }
  expectFigures(summary.figures(), items);
  items.resize(12);
  summary.cutTo(12);
  expectFigures(summary.figures(), items);
}

TEST_P(SummaryTest, AnItemThatWasNotTakenIsNotCounted) {
  Summary summary(kind().row(), overviewTexts());
  summary.take(3, recordOf(familyItem(kind(), "Third")));
  EXPECT_EQ(summary.figures().totals.items, 1);
  EXPECT_EQ(summary.figures().deleted, 0);
  summary.cutTo(-1);
  EXPECT_EQ(summary.figures().totals.items, 0);
}

TEST_P(SummaryTest, ABarsValueIsThatOfItsItems) {
  const auto items = OverviewItems(kind()).items(60);
  const Summary summary = summaryOf(items);
  for (const BarGroup& group : summary.figures().groups)
    for (const Bar& bar : group.bars)
      for (std::size_t at = 0; at < items.size(); ++at) {
        const bool isIn = std::ranges::binary_search(bar.items, static_cast<int>(at) + 1);
        const bool hasValue = summary.valueOf(*group.grouping, recordOf(items[at])) == bar.value;
        ASSERT_EQ(isIn, hasValue && !modelDeleted(kind(), items[at]));
      }
}

TEST_P(SummaryTest, PricesAreThoseOfTheKind) {
  const bool hasPrices = !pricesOfModel(kind()).first.empty();
  EXPECT_EQ(priceFieldsOf(kind().row()).cost != nullptr, hasPrices);
  EXPECT_EQ(priceFieldsOf(kind().row()).worth != nullptr, hasPrices);
}

TEST(Summary, TheLargestPricesOfAFullCollectionAreAddedExactly) {
  const std::string dear =
      withNumber(kMusic, familyItem(kMusic, "Gold"), "txtAquireCost", INT64_MAX);
  Summary summary(kMusic.row(), overviewTexts());
  for (int item = 1; item <= 32'767; ++item) summary.take(item, recordOf(dear));
  EXPECT_EQ(summary.figures().totals.cost.text(), "30222223153162043886.7969");
}

TEST(Summary, AYearIsTakenOutOfADateInAnyForm) {
  const struct {
    std::string_view date;
    std::string_view label;
  } rows[] = {{"3/14/98", "1998"},    {"14/03/1998", "1998"},       {"1998-03-14", "1998"},
              {"March 1987", "1987"}, {"about 1950?", "1950"},      {"0999", "(none)"},
              {"3000", "(none)"},     {"19987", "(none)"},          {"8/88", "(none)"},
              {"", "(none)"},         {"no. 12345 of 2001", "2001"}};
  for (const auto& row : rows) {
    Summary summary(kComics.row(), overviewTexts());
    summary.take(1, recordOf(itemWith(kComics, {{"txtCmic_0", "Title"}, {"txtCmic_9", row.date}})));
    EXPECT_EQ(summary.figures().groups.back().bars.at(0).label, row.label) << row.date;
  }
}

TEST(Summary, FilesAreCountedByTheirEndingsWhateverTheirCapitals) {
  const struct {
    std::string_view name;
    std::string_view label;
  } rows[] = {{"bell.wav", "WAV"}, {"BELL.Wav", "WAV"}, {"two.tar.gz", "GZ"},  {"README", "(none)"},
              {".bash", "(none)"}, {"ends.", "(none)"}, {"a. b.mp3  ", "MP3"}, {".x.jpeg", "JPEG"}};
  for (const auto& row : rows) {
    Summary summary(kWaves.row(), overviewTexts());
    summary.take(1, recordOf(itemWith(kWaves, {{"txtFileName", row.name}})));
    EXPECT_EQ(summary.figures().groups.front().bars.at(0).label, row.label) << row.name;
  }
}

TEST(Summary, BarsOfAsManyItemsAreInNaturalOrder) {
  Summary summary(kBooks.row(), overviewTexts());
  int item = 0;
  for (const char* publisher : {"Vol. 10", "vol. 2", "Alpha", "vol. 2", "Alpha", "Vol. 10"})
    summary.take(++item,
                 recordOf(itemWith(kBooks, {{"txtBooks_0", "Author"}, {"txtBooks_2", publisher}})));
  std::vector<std::string> labels;
  const SummaryFigures figures = summary.figures();
  for (const Bar& bar : figures.groups.back().bars) labels.push_back(bar.label);
  EXPECT_EQ(labels, (std::vector<std::string>{"Alpha", "vol. 2", "Vol. 10"}));
}

}  // namespace
}  // namespace quillbox::test
