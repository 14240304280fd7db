#include "overview/doubles.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "overview/item_reading.h"
#include "support/overview_model.h"

namespace quillbox::test {
namespace {

using Groups = std::vector<std::vector<int>>;

/// The telling texts of a kind, specified independently.
std::vector<std::string> tellingInputs(const ModelKind& kind) {
  if (kind.isMusic()) return {"txtArtist", "txtAlbum"};
  if (kind.isBooks()) return {"txtBooks_0", "txtBooks_1"};
  if (kind.code == kComics.code) return {"txtCmic_0", "txtCmic_1"};
  return {kind.firstBox()};
}

bool isLetterOrDigit(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

/// One character at a time: everything between letters and digits is removed, then the articles.
std::string modelTold(const std::string& text) {
  static const std::set<std::string> articles = {"the",  "a",   "an", "der", "die", "das", "ein",
                                                 "eine", "le",  "la", "les", "un",  "une", "el",
                                                 "los",  "las", "il", "lo",  "gli"};
  const std::string plain = modelFolded(text);
  std::vector<std::string> words;
  std::vector<bool> isArticle;
  std::size_t behindLast = 0;
  for (std::size_t at = 0; at < plain.size(); ++at) {
    if (!isLetterOrDigit(plain[at])) continue;
    std::string word;
    const std::string between = plain.substr(behindLast, at - behindLast);
    for (; at < plain.size() && isLetterOrDigit(plain[at]); ++at) word += plain[at];
    behindLast = at;
    bool isLast = true;
    for (std::size_t more = at; more < plain.size(); ++more)
      isLast = isLast && !isLetterOrDigit(plain[more]);
    const bool inverted = between.find(',') != std::string::npos;
    const bool elided = word == "l" && at < plain.size() && plain[at] == '\'';
    words.push_back(word);
    isArticle.push_back(elided || (articles.contains(word) && (!isLast || inverted)));
  }
  const auto join = [&](bool withArticles) {
    std::string all;
    for (std::size_t word = 0; word < words.size(); ++word) {
      if (isArticle[word] && !withArticles) continue;
      const bool twoNumbers = !all.empty() && all.back() <= '9' && words[word].front() <= '9';
      all += (twoNumbers ? " " : "") + words[word];
    }
    return all;
  };
  std::string told = join(false);
  if (told.empty()) told = join(true);
  if (told.empty())
    for (const char c : plain)
      if (c != ' ') told += c;
  return told;
}

class DoublesTest : public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }

  std::vector<std::string> told(const std::string& item) const {
    std::vector<std::string> all;
    for (const std::string& name : tellingInputs(kind()))
      for (const ModelInput& input : kind().inputs)
        if (input.name == name) all.push_back(modelTold(textIn(item, input.offset, input.width)));
    return all;
  }

  bool countsFor(const std::string& item) const {
    const auto texts = told(item);
    return !modelDeleted(kind(), item) &&
           std::ranges::any_of(texts, [](const std::string& text) { return !text.empty(); });
  }

  /// Compares every item with every other.
  Groups expected(const std::vector<std::string>& items) const {
    std::vector<std::vector<std::string>> all;
    for (const std::string& item : items)
      all.push_back(countsFor(item) ? told(item) : std::vector<std::string>());
    Groups groups;
    std::set<std::size_t> grouped;
    for (std::size_t one = 0; one < items.size(); ++one) {
      if (all[one].empty() || grouped.contains(one)) continue;
      std::vector<int> group;
      for (std::size_t other = one; other < items.size(); ++other)
        if (all[one] == all[other]) {
          group.push_back(static_cast<int>(other) + 1);
          grouped.insert(other);
        }
      if (group.size() > 1) groups.push_back(group);
    }
    return groups;
  }

  Groups found(const std::vector<std::string>& items) const {
    Doubles doubles(kind().row());
    for (std::size_t at = 0; at < items.size(); ++at)
      doubles.take(static_cast<int>(at) + 1, recordOf(items[at]));
    return doubles.groups();
  }
};
INSTANTIATE_TEST_SUITE_P(AllKinds, DoublesTest, testing::ValuesIn(kModelKinds), nameOfKind);

TEST_P(DoublesTest, AreThoseOfTheModel) {
  std::size_t groups = 0;
  for (unsigned seed = 1; seed <= 30; ++seed) {
    OverviewItems random(kind(), seed);
    auto items = random.items(20);
    for (std::size_t copies = 6; copies > 0; --copies)
      items.push_back(items[random.below(items.size())]);
    ASSERT_EQ(found(items), expected(items)) << seed;
    groups += expected(items).size();
  }
  EXPECT_GT(groups, 50U);
}

TEST_P(DoublesTest, EveryTellingFieldCounts) {
  const auto names = tellingInputs(kind());
  const auto with = [&](const std::string& name) {
    std::string item = familyItem(kind(), "");
    for (const ModelInput& input : kind().inputs)
      if (std::ranges::count(names, input.name) == 1)
        putBytes(item, input.offset, fixedText(input.name == name ? "Other" : "Same", input.width));
    return item;
  };
  for (const std::string& name : names)
    EXPECT_EQ(found({with(""), with(name), with("")}), (Groups{{1, 3}})) << name;
}

TEST_P(DoublesTest, DeletedAndBlankItemsAreNone) {
  const std::string deleted = familyItem(kind(), kind().marker());
  const std::string blank = familyItem(kind(), "");
  const std::string zeros(kind().recordLength, '\0');
  EXPECT_EQ(found({deleted, deleted, blank, blank, zeros, zeros}), Groups());
}

TEST_P(DoublesTest, AnItemIsTakenAgainAndTheLastForgotten) {
  Doubles doubles(kind().row());
  for (int item = 3; item > 0; --item) doubles.take(item, recordOf(familyItem(kind(), "Same")));
  EXPECT_EQ(doubles.groups(), (Groups{{1, 2, 3}}));
  doubles.take(2, recordOf(familyItem(kind(), "Other")));
  EXPECT_EQ(doubles.groups(), (Groups{{1, 3}}));
  doubles.take(2, recordOf(familyItem(kind(), "Same")));
  doubles.take(1, recordOf(familyItem(kind(), kind().marker())));
  EXPECT_EQ(doubles.groups(), (Groups{{2, 3}}));
  doubles.cutTo(2);
  EXPECT_EQ(doubles.groups(), Groups());
  doubles.cutTo(-1);
  EXPECT_EQ(doubles.groups(), Groups());
}

TEST(WithoutTrimmings, LeavesWhatTells) {
  const struct {
    std::string_view text;
    std::string_view told;
  } rows[] = {
      {"The Wall", "wall"},
      {"Wall, The", "wall"},
      {"  THE   wall!  ", "wall"},
      {"AC/DC", "acdc"},
      {"Dark Side of the Moon", "darksideofmoon"},
      {"Caf\xE9 M\xFCller", "cafemuller"},
      {"L'Amour", "amour"},
      {"L\x92"
       "Amour",
       "amour"},
      {"L Amour", "lamour"},
      {"Die Toten Hosen", "totenhosen"},
      {"La, la, la", "lalala"},
      {"Vitamin A", "vitamina"},
      {"Hits, Volume A", "hitsvolumea"},
      {"A", "a"},
      {"The The", "the"},
      {"A, The", "athe"},
      {"Vol. 1 2", "vol1 2"},
      {"Vol. 12", "vol12"},
      {"!!!", "!!!"},
      {"? ?", "??"},
      {"", ""},
      {"   ", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(withoutTrimmings(row.text), row.told) << row.text;
}

TEST(WithoutTrimmings, LeavesOutEveryArticle) {
  for (const std::string article :
       {"the", "a", "an", "der", "die", "das", "ein", "eine", "le", "la", "les", "un", "une", "el",
        "los", "las", "il", "lo", "gli"})
    EXPECT_EQ(withoutTrimmings(article + " wall"), "wall") << article;
}

TEST(Doubles, FieldsAreNotRunTogether) {
  Doubles doubles(kMusic.row());
  doubles.take(1, recordOf(itemWith(kMusic, {{"txtArtist", "Blue"}, {"txtAlbum", "Train"}})));
  doubles.take(2, recordOf(itemWith(kMusic, {{"txtArtist", "Blue Train"}})));
  doubles.take(3, recordOf(itemWith(kMusic, {{"txtArtist", "BLUE"}, {"txtAlbum", "A Train."}})));
  EXPECT_EQ(doubles.groups(), (Groups{{1, 3}}));
}

}  // namespace
}  // namespace quillbox::test
