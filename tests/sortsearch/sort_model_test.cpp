#include "support/sort_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/paths.h"
#include "platform/run_time_error.h"
#include "records/field_types.h"
#include "sortsearch/sort_engine.h"
#include "sortsearch/sort_rules.h"
#include "sortsearch/sort_slots.h"
#include "support/memory_files.h"

namespace quillbox::test {
namespace {

constexpr unsigned kSeed = 20'261'121;
constexpr int kCollections = 2'000;
constexpr int kMaxItems = 12;

/// Collections of few items that are similar: what they have in common is where sorting can go
/// wrong.
class RandomCollections {
 public:
  explicit RandomCollections(const ModelKind& kind)
      : kind_(kind), random_(kSeed + static_cast<unsigned>(kind.code)) {}

  std::vector<std::string> items() {
    const int blanksInTen = pick({0, 0, 1, 3, 6});
    std::vector<std::string> items(below(kMaxItems + 1));
    char filler = 'a';
    for (std::string& item : items) item = this->item(blanksInTen, filler++);
    return items;
  }

  std::vector<bool> ticked() {
    std::vector<bool> ticked = kind_.everyTick();
    for (auto&& tick : ticked) tick = below(5) < 3;
    return ticked;
  }

  SortHeader header() {
    return {pick({1, 4, 5, -1, 300}), pick<std::string_view>({"1.71    ", "0.9     ", "garbage!"})};
  }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }

  template <typename Value>
  Value pick(std::initializer_list<Value> values) {
    return *(values.begin() + below(values.size()));
  }

  std::string item(int blanksInTen, char filler) {
    std::vector<std::string> keys;
    for (const KeyPlace& key : kind_.keys) keys.push_back(key.isNumber() ? number() : text(key));
    const bool isBlank = below(10) < static_cast<std::size_t>(blanksInTen);
    if (isBlank) {
      if (below(2) == 0) return std::string(kind_.recordLength, '\0');
      keys.front().front() = '\0';
    } else if (below(8) == 0) {
      keys.front() = kind_.marker();
    }
    return sortItem(kind_, keys, filler);
  }

  std::string number() {
    return std::to_string(pick({-1, -1, 0, 0, 0, 1, 1, 2, 255, 256, -256, 32767, -32768}));
  }

  std::string text(const KeyPlace& key) {
    static constexpr std::string_view characters =
        "AaBbZz~ \x80\x8A\x9A\x9F\xFF\xC9\xE9\xC9\xE9\xD7\xF7\x1F";
    std::string text(below(3), ' ');
    for (char& c : text) c = characters[below(characters.size())];
    // Some are padded with zero bytes, some differ only in their last character.
    text.resize(key.width, below(8) == 0 ? '\0' : ' ');
    if (below(8) == 0) text.back() = characters[below(characters.size())];
    if (text.front() == '\0') text.front() = 'a';
    return text;
  }

  const ModelKind& kind_;
  std::mt19937 random_;
};

class SortModelTest : public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }

  /// Sorts the items in a fresh collection; true when that ends the program.
  bool sortsToTheEndOfTheProgram(const std::string& collection, std::size_t count,
                                 const std::vector<bool>& ticked) {
    files_.files = {{path_, std::make_shared<std::string>(collection)}};
    board_.told.clear();
    state_.currentPath = path_;
    state_.Count = static_cast<std::int16_t>(count);
    try {
      state_.Count = sortCollection(state_.files, state_, kind().row(), ticked, board_);
    } catch (const ProgramEnd&) {
      return true;
    }
    return false;
  }

  std::vector<std::string> told(const SortModel& model) const {
    if (!kind().showsProgress) return {};
    std::vector<std::string> told = {"open: Reading File..."};
    told.insert(told.end(), model.told.begin(), model.told.end());
    told.emplace_back("close");
    return told;
  }

  /// Fails the test unless `path` is the only file and holds these bytes.
  void expectOnly(const std::string& path, const std::string& bytes) {
    ASSERT_EQ(files_.files.size(), 1U);
    EXPECT_EQ(files_.files.begin()->first, path);
    EXPECT_TRUE(*files_.files.begin()->second == bytes);
  }

  std::string path_ = joinPath("", "things." + std::string(kind().extension));
  std::string backup_ = joinPath("", "things.bak");
  MemoryFiles files_;
  AppState state_{files_};
  RecordingBoard board_;
  RandomCollections random_{kind()};
};

TEST_P(SortModelTest, CollectionsAreSortedAsTheModelSortsThem) {
  for (int round = 0; round < kCollections && !HasFailure(); ++round) {
    const std::vector<std::string> items = random_.items();
    const std::vector<bool> ticked = random_.ticked();
    const SortHeader header = random_.header();
    SCOPED_TRACE("seed " + std::to_string(kSeed) + ", collection " + std::to_string(round) +
                 " of " + std::to_string(items.size()) + " items");
    const std::string before = sortFile(kind(), items, header);
    SortModel model(kind(), items);

    const bool ended = sortsToTheEndOfTheProgram(before, items.size(), ticked);
    ASSERT_EQ(ended, kind().endsProgram);
    if (ended) {
      model.runToTheEndOfTheProgram(ticked);
      expectOnly(backup_, before);
      EXPECT_EQ(state_.Count, static_cast<int>(items.size()));
    } else {
      model.run(ticked);
      expectOnly(path_, sortFile(kind(), model.items(), header));
      EXPECT_EQ(state_.Count, model.count);
    }
    EXPECT_EQ(board_.told, told(model));
  }
}

TEST_P(SortModelTest, TheItemsInMemoryAreSortedAsTheModelSortsThem) {
  const std::span<const SortKey> keys = sortRulesOf(kind().row()).keys;
  ASSERT_EQ(keys.size(), kind().keys.size());
  const Field& test = kind().row().fields.front();
  for (int round = 0; round < kCollections && !HasFailure(); ++round) {
    const std::vector<std::string> items = random_.items();
    const std::vector<bool> ticked = random_.ticked();
    SCOPED_TRACE("seed " + std::to_string(kSeed) + ", collection " + std::to_string(round) +
                 " of " + std::to_string(items.size()) + " items");
    SortSlots slots(static_cast<int>(items.size()), kind().recordLength);
    for (std::size_t i = 0; i < items.size(); ++i)
      std::memcpy(slots.record(static_cast<int>(i) + 1).data(), items[i].data(), items[i].size());
    SortModel model(kind(), items);

    slots.compact(test);
    model.compact();
    EXPECT_EQ(slots.count(), model.count);
    std::size_t repetitions = 0;
    for (std::size_t key = keys.size(); key-- > 0;) {
      if (!kind().alwaysSorted && !ticked[key]) continue;
      slots.exchangeSort(*keys[key].field, [&] { ++repetitions; });
      model.passes(kind().keys[key]);
    }
    EXPECT_EQ(2 * repetitions, model.told.size());  // a caption and a line for each
    slots.compact(test);
    model.compact();

    ASSERT_EQ(slots.count(), model.count);
    const std::vector<std::string> expected = model.items();
    for (std::size_t i = 0; i < expected.size(); ++i) {
      const auto record = slots.record(static_cast<int>(i) + 1);
      EXPECT_EQ(std::memcmp(record.data(), expected[i].data(), record.size()), 0) << "slot " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, SortModelTest, testing::ValuesIn(kModelKinds), nameOfKind);

}  // namespace
}  // namespace quillbox::test
