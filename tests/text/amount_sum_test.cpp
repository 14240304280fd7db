#include "text/amount_sum.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "text/number_text.h"

namespace quillbox {
namespace {

AmountSum sumOf(std::initializer_list<std::int64_t> amounts) {
  AmountSum sum;
  for (const std::int64_t amount : amounts) sum.add(amount);
  return sum;
}

TEST(AmountSum, SmallSumsAreWrittenAsAmountsAre) {
  EXPECT_EQ(AmountSum().text(), "0");
  EXPECT_EQ(sumOf({125'000, 5'000}).text(), "13");
  EXPECT_EQ(sumOf({-1, -1}).text(), "-0.0002");
  EXPECT_EQ(sumOf({10'000, -12'500}).text(), "-0.25");
}

TEST(AmountSum, IsExactBeyondSixtyFourBits) {
  AmountSum most;
  AmountSum least;
  for (int item = 0; item < 32'767; ++item) {
    most.add(INT64_MAX);
    least.add(INT64_MIN);
  }
  EXPECT_EQ(most.text(), "30222223153162043886.7969");
  EXPECT_EQ(least.text(), "-30222223153162043890.0736");
  most.add(least);
  EXPECT_EQ(most.text(), "-3.2767");
}

TEST(AmountSum, ZerosWithinANumberStay) {
  EXPECT_EQ(sumOf({1'000'000'000'000}).text(), "100000000");
  EXPECT_EQ(sumOf({2'000'000'000'000}).text(), "200000000");
  EXPECT_EQ(sumOf({-2'000'000'000'000}).text(), "-200000000");
  EXPECT_EQ(sumOf({1'000'000'000'001}).text(), "100000000.0001");
  EXPECT_EQ(sumOf({-1'000'000'500'000}).text(), "-100000050");
  EXPECT_EQ(sumOf({1'000'000'000'000, -1}).text(), "99999999.9999");
  EXPECT_EQ(sumOf({-1'000'000'000'000, 1}).text(), "-99999999.9999");
}

TEST(AmountSum, DoesNotDependOnTheOrder) {
  std::mt19937_64 random(1);
  for (int round = 0; round < 2'000; ++round) {
    std::int64_t plain = 0;
    AmountSum one;
    AmountSum other;
    AmountSum half;
    for (int i = 0; i < 8; ++i) {
      const auto amount = static_cast<std::int64_t>(random()) >> (8 + random() % 50);
      plain += amount;
      one.add(amount);
      (i % 2 == 0 ? other : half).add(amount);
    }
    half.add(other);
    ASSERT_EQ(one.text(), plainAmount(plain));
    ASSERT_EQ(one, half);
  }
}

TEST(AmountSum, IsNearEnoughForABar) {
  EXPECT_DOUBLE_EQ(sumOf({125'000}).approximate(), 12.5);
  EXPECT_DOUBLE_EQ(sumOf({-INT64_MAX, -INT64_MAX}).approximate(), -1844674407370955.1614);
}

}  // namespace
}  // namespace quillbox
