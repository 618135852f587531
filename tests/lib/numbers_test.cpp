#include "mirval.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

std::string fcha_text(float x, int ndig) {
  char buf[81];
  int n = fcha(x, ndig, buf);
  EXPECT_EQ(n, static_cast<int>(std::string(buf).size()));
  return buf;
}

}  // namespace

TEST(Fcha, WritesTheGivenDecimals) {
  EXPECT_EQ(fcha_text(3.14159f, 2), "3.14");
  EXPECT_EQ(fcha_text(-2.5f, 3), "-2.500");
  EXPECT_EQ(fcha_text(1e6f, 1), "1000000.0");
}

TEST(Fcha, ZeroDecimalsKeepThePoint) {
  EXPECT_EQ(fcha_text(12.3f, 0), "12.");
  EXPECT_EQ(fcha_text(2.5f, 0), "3.");
}

TEST(Fcha, MinusOneGivesTheRoundedInteger) {
  EXPECT_EQ(fcha_text(2.5f, -1), "3");
  EXPECT_EQ(fcha_text(-2.5f, -1), "-3");
  EXPECT_EQ(fcha_text(7.49f, -1), "7");
}

TEST(Fcha, ZeroHasNoSign) {
  EXPECT_EQ(fcha_text(-0.001f, 2), "0.00");
  EXPECT_EQ(fcha_text(-0.4f, -1), "0");
}

TEST(Fcha, NonFiniteValuesAndHugeDecimalCounts) {
  EXPECT_EQ(fcha_text(NAN, 2), "nan");
  EXPECT_EQ(fcha_text(-INFINITY, 2), "-inf");
  EXPECT_LE(fcha_text(-3.4e38f, 1000).size(), 80u);
}

TEST(Fcha, NullBufferStillCounts) { EXPECT_EQ(fcha(1.25f, 2, nullptr), 4); }

TEST(Flen, IsTheLengthOfTheText) {
  EXPECT_EQ(flen(3.14159f, 2), 4);
  EXPECT_EQ(flen(-10.0f, -1), 3);
  EXPECT_EQ(flen(5.0f, 0), 2);
}

TEST(Intcha, WritesTheInteger) {
  char buf[16];
  EXPECT_EQ(intcha(-1234, buf), 5);
  EXPECT_STREQ(buf, "-1234");
  EXPECT_EQ(intlen(0), 1);
  EXPECT_EQ(intlen(-2147483647 - 1), 11);
}

TEST(Range, LeastAndGreatest) {
  const float a[] = {3, -1, 7, 2};
  EXPECT_EQ(qqfmin(a, 4), -1);
  EXPECT_EQ(qqfmax(a, 4), 7);
}

TEST(Range, FirstElementBelowTwo) {
  const float a[] = {5, -9};
  EXPECT_EQ(qqfmin(a, 1), 5);
  EXPECT_EQ(qqfmax(a, 0), 5);
  EXPECT_EQ(qqfmin(a, -3), 5);
}

TEST(Range, NanIsPassedOver) {
  const float a[] = {1, NAN, -4};
  EXPECT_EQ(qqfmin(a, 3), -4);
  EXPECT_EQ(qqfmax(a, 3), 1);
}
