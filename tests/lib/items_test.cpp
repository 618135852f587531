#include "mirval.h"

#include <gtest/gtest.h>

#include <string>

TEST(Items, BuildAList) {
  char list[64] = "";
  itmcat(list, "Red");
  EXPECT_STREQ(list, "Red");
  itmcat(list, "Green");
  itmcat(list, "Blue");
  EXPECT_STREQ(list, "Red|Green|Blue");
  EXPECT_EQ(itmcnt(list), 3);
}

TEST(Items, BoundedAppendCutsToTheBuffer) {
  char list[8] = "ab";
  itmncat(list, 6, "cdefg");
  EXPECT_STREQ(list, "ab|cd");
  itmncat(list, 0, "x");
  EXPECT_STREQ(list, "ab|cd");
}

TEST(Items, CountsAnEmptyListAsNone) {
  EXPECT_EQ(itmcnt(""), 0);
  EXPECT_EQ(itmcnt(nullptr), 0);
  EXPECT_EQ(itmcnt("one"), 1);
  EXPECT_EQ(itmcnt("a||"), 3);
}

TEST(Items, ItemsCountFromOne) {
  EXPECT_EQ(std::string(itmstr("Red|Green|Blue", 1)), "Red");
  EXPECT_EQ(std::string(itmstr("Red|Green|Blue", 2)), "Green");
  EXPECT_EQ(std::string(itmstr("Red|Green|Blue", 3)), "Blue");
  EXPECT_EQ(std::string(itmstr("a||c", 2)), "");
  EXPECT_EQ(std::string(itmstr("a|", 2)), "");
}

TEST(Items, MissingItemsAreEmpty) {
  EXPECT_EQ(std::string(itmstr("Red|Green", 0)), "");
  EXPECT_EQ(std::string(itmstr("Red|Green", 3)), "");
  EXPECT_EQ(std::string(itmstr("", 1)), "");
  EXPECT_EQ(std::string(itmstr(nullptr, 1)), "");
}
