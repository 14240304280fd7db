#include "text/folding.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/overview_model.h"

namespace quillbox::test {
namespace {

using Words = std::vector<std::string>;
using Ranges = std::vector<TextRange>;

TEST(Folding, EveryCharacterIsFoldedAsTheTableSays) {
  for (int code = 0; code <= 255; ++code) {
    const char c = static_cast<char>(code);
    EXPECT_EQ(folded(std::string(1, c)), modelFolded(c)) << code;
  }
}

TEST(Folding, LeavesCapitalsAndAccentsAside) {
  EXPECT_EQ(folded(fromUtf8("Élan Vital — “Straße” Æon Œuvre Ørsted Þór…")),
            "elan vital - \"strasse\" aeon oeuvre orsted thor...");
  EXPECT_EQ(folded(""), "");
}

TEST(Folding, IsAppended) {
  std::string text = "as is ";
  appendFolded(text, "\xDF\xDF");
  EXPECT_EQ(text, "as is ssss");
}

TEST(Folding, NeverMakesMoreOfACharacterThanItSays) {
  for (int code = 0; code <= 255; ++code)
    EXPECT_LE(folded(std::string(1, static_cast<char>(code))).size(), kMostFolded) << code;
}

TEST(FoldedWords, AreWhatStandsBetweenBlanks) {
  EXPECT_EQ(foldedWords(" Blue\tTrain\xA0"
                        "caf\xE9 "),
            (Words{"blue", "train", "cafe"}));
  EXPECT_EQ(foldedWords(""), Words());
  EXPECT_EQ(foldedWords("   "), Words());
}

TEST(FoldedWords, LeaveOutWhatAnotherSays) {
  EXPECT_EQ(foldedWords("blue Blue BLUE"), Words{"blue"});
  EXPECT_EQ(foldedWords("lu blue ue bluest"), Words{"bluest"});
}

TEST(WordRanges, AreBytesOfTheTextItself) {
  EXPECT_EQ(wordRanges("Die Stra\xDF"
                       "e",
                       {"strasse"}),
            (Ranges{{4, 6}}));
  EXPECT_EQ(wordRanges("\xC6on", {"ae"}), (Ranges{{0, 1}}));
}

TEST(WordRanges, HoldAWholeCharacterWhereAWordBeginsOrEndsInIt) {
  EXPECT_EQ(wordRanges("Stra\xDF"
                       "e",
                       {"se"}),
            (Ranges{{4, 2}}));
  EXPECT_EQ(wordRanges("Stra\xDF"
                       "e",
                       {"as"}),
            (Ranges{{3, 2}}));
}

TEST(WordRanges, AreInOrderAndJoinedWhereTheyTouch) {
  EXPECT_EQ(wordRanges("Blue in Green, blue", {"green", "blue"}),
            (Ranges{{0, 4}, {8, 5}, {15, 4}}));
  EXPECT_EQ(wordRanges("abcdef", {"def", "abc"}), (Ranges{{0, 6}}));
  EXPECT_EQ(wordRanges("aaaaa", {"aa"}), (Ranges{{0, 5}}));
  EXPECT_EQ(wordRanges("abcd", {"abcd", "bc"}), (Ranges{{0, 4}}));
}

TEST(WordRanges, AreNoneWithoutAWordThatOccurs) {
  EXPECT_EQ(wordRanges("Blue", {"red"}), Ranges());
  EXPECT_EQ(wordRanges("Blue", {}), Ranges());
  EXPECT_EQ(wordRanges("", {"red"}), Ranges());
}

/// The texts are in the order of their keys, each before the next.
void expectRising(const std::vector<std::string>& texts) {
  for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
    const std::string one = fromUtf8(texts[i]);
    const std::string next = fromUtf8(texts[i + 1]);
    EXPECT_LT(naturalKey(one), naturalKey(next)) << texts[i] << " | " << texts[i + 1];
  }
}

TEST(NaturalKey, NumbersGoByTheirValue) {
  expectRising({"Vol. 2", "Vol. 10", "Vol. 10 a", "Vol. 0100", "Vol. A"});
  expectRising({"0", "1", "9", "10", "99", "100", "18446744073709551616"});
  expectRising({"1.2", "1.10", "2"});
  expectRising(
      {"x" + std::string(254, '9'), "x1" + std::string(254, '0'), "x1" + std::string(600, '0')});
}

TEST(NaturalKey, AccentsStandBesideTheirLettersAndCountLast) {
  expectRising({"cote", "coté", "cotes", "côtes", "cotf"});
  expectRising({"Elan", "Élan", "elan vital", "Zoo"});
  expectRising({"Strasse", "Straße", "Strasse 2"});
}

TEST(NaturalKey, CapitalsDoNotCount) {
  EXPECT_EQ(naturalKey("ABBA"), naturalKey("abba"));
  EXPECT_EQ(naturalKey("\xC9t\xE9"), naturalKey("\xE9T\xC9"));
}

TEST(NaturalKey, ArticlesStay) { expectRising({"A Night", "Night", "The Night"}); }

TEST(NaturalKey, ATextComesBeforeThoseItBegins) { expectRising({"", "a", "a b", "ab", "b"}); }

TEST(NaturalKey, ComparesAsTheModelDoes) {
  OverviewItems items(kMusic);
  std::mt19937 random(1);
  const auto anyText = [&] {
    std::string text = items.text();
    if (items.below(3) == 0) text += static_cast<char>(random());
    return upToZero(text);
  };
  for (int round = 0; round < 20'000; ++round) {
    const std::string a = anyText();
    const std::string b = anyText();
    const int compared = naturalKey(a).compare(naturalKey(b));
    ASSERT_EQ((compared > 0) - (compared < 0), modelCompared(a, b)) << a << " | " << b;
  }
}

}  // namespace
}  // namespace quillbox::test
