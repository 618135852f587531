#include "mirval.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <string>

TEST(Strings, UpperCaseInPlace) {
  char s[] = "Hello, zkl 1!";
  upstr(s);
  EXPECT_STREQ(s, "HELLO, ZKL 1!");
  upstr(nullptr);
}

TEST(Strings, TrimmedLength) {
  EXPECT_EQ(trmlen("abc   "), 3);
  EXPECT_EQ(trmlen("  a b"), 5);
  EXPECT_EQ(trmlen("   "), 0);
  EXPECT_EQ(trmlen(nullptr), 0);
}

TEST(Strings, BoundedCopy) {
  char s[8];
  qqscpy(s, "abcdefghij", 5);
  EXPECT_STREQ(s, "abcde");
  qqscpy(s, "ab", 5);
  EXPECT_STREQ(s, "ab");
  qqscpy(s, nullptr, 5);
  EXPECT_STREQ(s, "");
}

TEST(Strings, BoundedAppend) {
  char s[8] = "abc";
  qqscat(s, "defgh", 5);
  EXPECT_STREQ(s, "abcde");
  qqscat(s, "x", 5);
  EXPECT_STREQ(s, "abcde");
  qqscat(s, "", 3);
  EXPECT_STREQ(s, "abc");
}

TEST(Dates, FollowSourceDateEpoch) {
  setenv("SOURCE_DATE_EPOCH", "1700000000", 1);  // 2023-11-14 22:13:20 UTC
  EXPECT_STREQ(dddate(), "14.11.2023");
  EXPECT_STREQ(ddtime(), "22:13:20");
  unsetenv("SOURCE_DATE_EPOCH");
}

TEST(Dates, ShapeOfTheCurrentDate) {
  unsetenv("SOURCE_DATE_EPOCH");
  EXPECT_TRUE(std::regex_match(dddate(), std::regex(R"(\d\d\.\d\d\.\d{4})")));
  EXPECT_TRUE(std::regex_match(ddtime(), std::regex(R"(\d\d:\d\d:\d\d)")));
}

TEST(Dates, UnusableEpochMeansNow) {
  setenv("SOURCE_DATE_EPOCH", "soon", 1);
  EXPECT_TRUE(std::regex_match(dddate(), std::regex(R"(\d\d\.\d\d\.\d{4})")));
  unsetenv("SOURCE_DATE_EPOCH");
}
