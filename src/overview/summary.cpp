#include "overview/summary.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

#include "overview/sort_by_key.h"
#include "platform/ascii.h"
#include "records/app_state.h"
#include "text/date_text.h"
#include "text/folding.h"
#include "text/number_text.h"
#include "text/padding.h"

namespace quillbox {
namespace {

using enum Grouping::By;

constexpr std::string_view kNoValue = "(none)";
constexpr char kBeforeEnding = '.';
constexpr std::string_view kYear = "Year of Acquisition";
constexpr std::int64_t kTenThousandths = 10'000;

constexpr Grouping kMusic[] = {{"Media Type", musicField("MediaType"), entry},
                               {"Genre", musicField("Genre"), entry},
                               {"Record Co", musicField("RecordCo"), text},
                               {kYear, musicField("AquireDate"), year}};
constexpr Grouping kVideo[] = {{"Media Type", videoField("MediaType"), entry},
                               {"Publisher", videoField("Publisher"), text},
                               {kYear, videoField("AquireDate"), year}};
constexpr Grouping kSoftware[] = {{"Media Type", softwareField("MediaType"), entry},
                                  {"Publisher", softwareField("Publisher"), text}};
constexpr Grouping kComics[] = {{"Publisher", comicField("Publisher"), text},
                                {kYear, comicField("AquireDate"), year}};
constexpr Grouping kBooks[] = {{"Media Type", bookField("MediaType"), entry},
                               {"Genre", bookField("Genre"), entry},
                               {"Publisher", bookField("Publisher"), text}};
constexpr Grouping kMediaFiles[] = {{"Type of File", mediaFileField("FileName"), ending},
                                    {"Path To File", mediaFileField("FilePath"), text}};

struct SummaryRow {
  EditorForm editor;
  std::span<const Grouping> groupings = {};
  PriceFields prices = {};
};
constexpr SummaryRow kRows[] = {
    {EditorForm::music, kMusic, {musicField("AquireCost"), musicField("CurrCost")}},
    {EditorForm::video, kVideo, {videoField("PurPrice"), videoField("CurrPrice")}},
    {EditorForm::software, kSoftware, {softwareField("PurPrice"), softwareField("CurrPrice")}},
    {EditorForm::comics, kComics, {comicField("PurPrice"), comicField("CurrPrice")}},
    {EditorForm::books, kBooks},
    {EditorForm::wave, kMediaFiles},
};

/// The first number of four digits that can be a year, for dates not in the system's form.
std::optional<int> yearWithin(std::string_view text) {
  constexpr std::size_t digitsOfYear = 4;
  constexpr int first = 1000;
  constexpr int last = 2999;
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::size_t end = at;
    int number = 0;
    for (; end < text.size() && isDigit(text[end]); ++end)
      if (end - at < digitsOfYear) number = 10 * number + (text[end] - '0');
    if (end - at == digitsOfYear && number >= first && number <= last) return number;
    at = std::max(at, end);
  }
  return std::nullopt;
}

std::optional<int> yearIn(const Field& field, std::span<const std::byte> record,
                          const std::string& dateForm) {
  if (field.type == FieldType::date) return yearOf(realOf(field, record));
  const std::string_view text = readable(textOf(field, record));
  if (const auto date = dateIn(text, dateForm)) return yearOf(*date);
  return yearWithin(text);
}

/// A name that only begins with a point has no ending.
std::string endingOf(std::string_view name) {
  const std::size_t point = name.rfind(kBeforeEnding);
  if (point == std::string_view::npos || point == 0) return {};
  std::string ending(name.substr(point + 1));
  std::ranges::transform(ending, ending.begin(), asciiCapital);
  return ending;
}

void add(Totals& totals, std::int64_t cost, std::int64_t worth) {
  ++totals.items;
  totals.cost.add(cost);
  totals.worth.add(worth);
}

}  // namespace

std::span<const Grouping> groupingsOf(const CollectionKind& kind) {
  return rowOf<kRows>(kind.editor).groupings;
}

PriceFields priceFieldsOf(const CollectionKind& kind) { return rowOf<kRows>(kind.editor).prices; }

std::int64_t priceOf(const Field& field, std::span<const std::byte> record) {
  return field.type == FieldType::whole ? wholeOf(field, record) * kTenThousandths
                                        : moneyOf(field, record);
}

Summary::Summary(const CollectionKind& kind, RecordTexts texts)
    : kind_(kind), texts_(std::move(texts)), values_(groupingsOf(kind).size()) {}

std::string Summary::labelOf(const Grouping& grouping, std::span<const std::byte> record) const {
  const Field& field = *grouping.field;
  switch (grouping.by) {
    case entry:
      return std::string(withoutBlanksAround(texts_.choice(field, wholeOf(field, record))));
    case text:
      return std::string(withoutBlanksAround(upToNul(textOf(field, record))));
    case ending:
      return endingOf(withoutBlanksAround(upToNul(textOf(field, record))));
    case year:
      break;
  }
  const auto found = yearIn(field, record, texts_.dateForm);
  return found ? std::to_string(*found) : std::string();
}

std::string Summary::valueOf(const Grouping& grouping, std::span<const std::byte> record) const {
  return folded(labelOf(grouping, record));
}

void Summary::take(int item, std::span<const std::byte> record) {
  const auto at = static_cast<std::size_t>(item - 1);
  if (at >= taken_.size()) taken_.resize(at + 1);
  Taken& taken = taken_[at];
  taken = {.isThere = true, .isDeleted = isDeleted(kind_, record)};
  const PriceFields prices = priceFieldsOf(kind_);
  if (prices.cost != nullptr) taken.cost = priceOf(*prices.cost, record);
  if (prices.worth != nullptr) taken.worth = priceOf(*prices.worth, record);
  for (std::size_t group = 0; group < values_.size(); ++group) {
    const std::string label = labelOf(groupingsOf(kind_)[group], record);
    auto& [numbers, labels] = values_[group];
    const auto next = static_cast<std::uint32_t>(labels.size());
    const auto [number, isNew] = numbers.try_emplace(folded(label), next);
    if (isNew) labels.push_back(label);
    taken.values.at(group) = number->second;
  }
}

void Summary::cutTo(int count) {
  taken_.resize(std::min(taken_.size(), static_cast<std::size_t>(std::max(count, 0))));
}

BarGroup Summary::barsOf(std::size_t at) const {
  const Grouping& grouping = groupingsOf(kind_)[at];
  const Values& values = values_[at];
  std::vector<Bar> bars(values.labels.size());
  for (const auto& [value, number] : values.numbers) {
    bars[number].value = value;
    bars[number].label = value.empty() ? std::string(kNoValue) : values.labels[number];
  }
  for (std::size_t item = 0; item < taken_.size(); ++item) {
    const Taken& taken = taken_[item];
    if (!taken.isThere || taken.isDeleted) continue;
    Bar& bar = bars[taken.values.at(at)];
    add(bar.totals, taken.cost, taken.worth);
    bar.items.push_back(static_cast<int>(item) + 1);
  }
  std::erase_if(bars, [](const Bar& bar) { return bar.items.empty(); });
  sortByKey(bars, [&](const Bar& bar) {
    const int most = grouping.by == year ? 0 : -bar.totals.items;
    return std::tuple(bar.value.empty(), most, naturalKey(bar.label));
  });
  return {&grouping, std::move(bars)};
}

SummaryFigures Summary::figures() const {
  SummaryFigures figures;
  for (const Taken& taken : taken_) {
    if (taken.isDeleted) ++figures.deleted;
    if (taken.isThere && !taken.isDeleted) add(figures.totals, taken.cost, taken.worth);
  }
  for (std::size_t at = 0; at < values_.size(); ++at) figures.groups.push_back(barsOf(at));
  return figures;
}

}  // namespace quillbox
