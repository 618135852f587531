#include "mirval.h"

#include <gtest/gtest.h>

TEST(Bitsi4, MovesAFieldIntoPlace) {
  // bits 4..7 of 0xAB (0xA) into bits 8..11 of 0xFFFF0000
  EXPECT_EQ(bitsi4(4, 0xAB, 4, static_cast<int>(0xFFFF0000u), 8), static_cast<int>(0xFFFF0A00u));
  EXPECT_EQ(bitsi4(1, 1, 0, 0, 31), static_cast<int>(0x80000000u));
  EXPECT_EQ(bitsi4(32, 0x12345678, 0, 0, 0), 0x12345678);
}

TEST(Bitsi4, ClearsTheTargetField) { EXPECT_EQ(bitsi4(8, 0, 0, 0x7FFF, 4), 0x700F); }

TEST(Bitsi4, BadFieldLeavesTheTarget) {
  EXPECT_EQ(bitsi4(0, 1, 0, 42, 0), 42);
  EXPECT_EQ(bitsi4(8, 1, 28, 42, 0), 42);
  EXPECT_EQ(bitsi4(8, 1, 0, 42, -1), 42);
}

TEST(Bitsi2, WorksOnSixteenBits) {
  EXPECT_EQ(bitsi2(4, 0x00F0, 4, 0, 12), static_cast<short>(0xF000));
  EXPECT_EQ(bitsi2(3, 5, 0, 0x00FF, 0), 0x00FD);
  EXPECT_EQ(bitsi2(17, 1, 0, 7, 0), 7);
}

TEST(Swap, TwoByteValues) {
  short a[] = {0x1234, static_cast<short>(0xFF00)};
  swapi2(a, 2);
  EXPECT_EQ(a[0], 0x3412);
  EXPECT_EQ(a[1], 0x00FF);
}

TEST(Swap, FourByteValuesAndNothingBeyondN) {
  int a[] = {0x12345678, 0x01020304};
  swapi4(a, 1);
  EXPECT_EQ(a[0], 0x78563412);
  EXPECT_EQ(a[1], 0x01020304);
  swapi4(a, -1);
  EXPECT_EQ(a[0], 0x78563412);
}
