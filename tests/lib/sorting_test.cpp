#include "mirval.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

TEST(Sortr1, Ascending) {
  std::vector<float> x = {3, 1, 2, -5};
  sortr1(x.data(), 4, "A");
  EXPECT_EQ(x, (std::vector<float>{-5, 1, 2, 3}));
}

TEST(Sortr1, DescendingAnyCase) {
  std::vector<float> x = {3, 1, 2, -5};
  sortr1(x.data(), 4, "d");
  EXPECT_EQ(x, (std::vector<float>{3, 2, 1, -5}));
}

TEST(Sortr1, OnlyTheFirstNAndNanLast) {
  std::vector<float> x = {2, NAN, 1, 0};
  sortr1(x.data(), 3, "A");
  EXPECT_EQ(x[0], 1);
  EXPECT_EQ(x[1], 2);
  EXPECT_TRUE(std::isnan(x[2]));
  EXPECT_EQ(x[3], 0);
}

TEST(Sortr1, BadOptionOrCountLeavesTheArray) {
  std::vector<float> x = {2, 1};
  sortr1(x.data(), 2, "X");
  sortr1(x.data(), 0, "A");
  sortr1(x.data(), 2, nullptr);
  EXPECT_EQ(x, (std::vector<float>{2, 1}));
}

TEST(Sortr2, CarriesYAlongAndKeepsEqualKeysInOrder) {
  std::vector<float> x = {3, 1, 3, 2}, y = {30, 10, 31, 20};
  sortr2(x.data(), y.data(), 4, "A");
  EXPECT_EQ(x, (std::vector<float>{1, 2, 3, 3}));
  EXPECT_EQ(y, (std::vector<float>{10, 20, 30, 31}));
  sortr2(x.data(), y.data(), 4, "D");
  EXPECT_EQ(x, (std::vector<float>{3, 3, 2, 1}));
  EXPECT_EQ(y, (std::vector<float>{30, 31, 20, 10}));
}
