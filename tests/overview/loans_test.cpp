#include "overview/loans.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/overview_model.h"

namespace quillbox::test {
namespace {

constexpr double kLastDayOf1999 = 36525;

/// A borrowed album.
std::string lent(std::string_view borrower, std::string_view due,
                 std::string_view album = "Album") {
  const std::string item = itemWith(kMusic, {{"txtArtist", "Artist"},
                                             {"txtAlbum", album},
                                             {"txtBorrower", borrower},
                                             {"txtDateLoaned", "11/1/99"},
                                             {"txtDueDate", due}});
  return withNumber(kMusic, item, "chkCurrLoaned", 1);
}

Loans loansOf(const std::vector<std::string>& items) {
  Loans loans(kMusic.row(), "M/d/yy");
  for (std::size_t at = 0; at < items.size(); ++at)
    loans.take(static_cast<int>(at) + 1, recordOf(items[at]));
  return loans;
}

/// The borrowers and their items, in this order.
std::string whoHasWhat(const Loans& loans) {
  std::string text;
  for (const BorrowerLoans& borrower : loans.byBorrower()) {
    text += "[" + borrower.name + "]";
    for (const Loan& loan : borrower.loans) text += " " + std::to_string(loan.item);
    text += "; ";
  }
  return text;
}

TEST(Loans, OnlyMusicHasThem) {
  for (const ModelKind& kind : kModelKinds) {
    EXPECT_EQ(Loans::hasLoans(kind.row()), kind.isMusic()) << kind.name;
    Loans loans(kind.row(), "M/d/yy");
    loans.take(1, recordOf(std::string(kind.recordLength, '\1')));
    EXPECT_EQ(loans.all().size(), kind.isMusic() ? 1U : 0U) << kind.name;
  }
}

TEST(Loans, SayWhoHasWhatSinceWhenAndUntilWhen) {
  const auto all = loansOf({familyItem(kMusic, "At home"), lent(" Ann ", "12/31/99")}).all();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0].item, 2);
  EXPECT_EQ(all[0].artist, "Artist");
  EXPECT_EQ(all[0].album, "Album");
  EXPECT_EQ(all[0].borrower, "Ann");
  EXPECT_EQ(all[0].since, "11/1/99");
  EXPECT_EQ(all[0].due, "12/31/99");
  EXPECT_EQ(all[0].day, kLastDayOf1999);
  EXPECT_FALSE(all[0].withBooklet);
}

TEST(Loans, AreWhereTheBoxIsTickedAndTheItemNotDeleted) {
  std::string deleted = lent("Ann", "");
  putBytes(deleted, 0, fixedText("DETELED", 50));
  const auto unticked = withNumber(kMusic, lent("Ann", ""), "chkCurrLoaned", 0);
  const auto oddly = withNumber(kMusic, lent("Ann", ""), "chkCurrLoaned", -256);
  const auto all = loansOf({deleted, unticked, oddly}).all();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0].item, 3);
}

TEST(Loans, ABookletGoesWithItsAlbum) {
  for (const int hasBook : {0, 1})
    for (const int bookLoaned : {0, 1})
      for (const int loaned : {0, 1}) {
        std::string item = withNumber(kMusic, lent("Ann", ""), "chkHasBook", hasBook);
        item = withNumber(kMusic, item, "chkBookLoaned", bookLoaned);
        item = withNumber(kMusic, item, "chkCurrLoaned", loaned);
        const auto all = loansOf({item}).all();
        ASSERT_EQ(all.size(), static_cast<std::size_t>(loaned));
        if (loaned == 0) continue;
        EXPECT_EQ(all[0].withBooklet, hasBook == 1 && bookLoaned == 1);
      }
}

TEST(Loans, AreOverdueFromTheDayAfter) {
  const auto all = loansOf({lent("Ann", "12/31/99"), lent("Ann", "next week"), lent("Ann", ""),
                            lent("Ann", "12/31/99 13:30")})
                       .all();
  EXPECT_FALSE(all[0].isOverdue(kLastDayOf1999));
  EXPECT_FALSE(all[0].isOverdue(kLastDayOf1999 + 0.9));
  EXPECT_TRUE(all[0].isOverdue(kLastDayOf1999 + 1));
  EXPECT_FALSE(all[1].isOverdue(1e6));
  EXPECT_FALSE(all[2].isOverdue(1e6));
  EXPECT_FALSE(all[3].isOverdue(kLastDayOf1999 + 0.9));
  EXPECT_TRUE(all[3].isOverdue(kLastDayOf1999 + 1));
}

TEST(Loans, AreByBorrowerCapitalsAndAccentsAside) {
  const auto loans = loansOf({lent("Zo\xEB", ""), lent("", ""), lent("bob", ""), lent("ZOE", ""),
                              lent("Uncle 10", ""), lent("Uncle 9", ""), lent("Bob ", "")});
  EXPECT_EQ(whoHasWhat(loans), "[bob] 3 7; [Uncle 9] 6; [Uncle 10] 5; [Zo\xEB] 1 4; [] 2; ");
}

TEST(Loans, WhatIsDueFirstComesFirst) {
  const auto loans = loansOf({lent("Ann", "soon"), lent("Ann", "2/1/00"), lent("Ann", ""),
                              lent("Ann", "12/31/99"), lent("Ann", "2/1/00")});
  EXPECT_EQ(whoHasWhat(loans), "[Ann] 4 2 5 1 3; ");
}

TEST(Loans, ThatAreDueOnOneDayKeepTheOrderOfTheirItems) {
  const auto borrowers = loansOf(std::vector<std::string>(100, lent("Ann", "2/1/00"))).byBorrower();
  ASSERT_EQ(borrowers.size(), 1U);
  EXPECT_EQ(borrowers[0].loans.size(), 100U);
  EXPECT_TRUE(std::ranges::is_sorted(borrowers[0].loans, {}, &Loan::item));
}

TEST(Loans, AnItemIsTakenAgainAndTheLastForgotten) {
  Loans loans = loansOf({lent("Ann", ""), lent("Bob", ""), lent("Cid", "")});
  loans.take(1, recordOf(familyItem(kMusic, "Back")));
  loans.take(2, recordOf(lent("Dan", "")));
  EXPECT_EQ(whoHasWhat(loans), "[Cid] 3; [Dan] 2; ");
  loans.cutTo(2);
  EXPECT_EQ(whoHasWhat(loans), "[Dan] 2; ");
}

TEST(Loans, AreTheTickedOnesOfAnyItems) {
  OverviewItems random(kMusic);
  const auto items = random.items(500);
  std::size_t expected = 0;
  for (const std::string& item : items)
    if (!modelDeleted(kMusic, item) && numberAt(item, 2190, 2) != 0) ++expected;
  const Loans loans = loansOf(items);
  EXPECT_EQ(loans.all().size(), expected);
  std::size_t grouped = 0;
  for (const BorrowerLoans& borrower : loans.byBorrower()) {
    grouped += borrower.loans.size();
    for (const Loan& loan : borrower.loans)
      EXPECT_EQ(modelFolded(loan.borrower), modelFolded(borrower.name));
  }
  EXPECT_EQ(grouped, expected);
}

}  // namespace
}  // namespace quillbox::test
