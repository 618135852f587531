// The variable store: visibility by level, references, the fixed capacity.
#include "lang/value.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

int make_int(const char *name, int level, int value) {
  int saved = g_nlevel;
  g_nlevel = level;
  VarRecord r{};
  set_name(&r, name);
  r.type = T_INT;
  r.count = 1;
  r.value.i = value;
  int i = insert_var(&r, -1);
  g_nlevel = saved;
  return i;
}

struct Store : testing::Test {
  void SetUp() override {
    for (int i = 0; i < MAXVAR; ++i)
      if (varlist[i].type != T_FREE) free_var(i);
    init_var();
    init_lab();
    g_nlevel = 0;
  }
};

}  // namespace

TEST_F(Store, LevelsSeeOnlyTheirOwnButPercentNamesEverywhere) {
  make_int("A", 0, 1);
  make_int("%A", 0, 2);
  g_nlevel = 1;
  EXPECT_EQ(search_var("A"), -1);
  EXPECT_GE(search_var("%A"), 0);
  int inner = make_int("A", 1, 3);
  EXPECT_EQ(search_var("A"), inner);
  g_nlevel = 0;
  EXPECT_NE(search_var("A"), inner);
}

TEST_F(Store, ReferenceIsFollowedOneStep) {
  for (int i = 0; i < 8; ++i) make_int(("V" + std::to_string(i)).c_str(), 0, i);
  VarRecord r{};
  set_name(&r, "R");
  r.type = T_REF;
  r.value.ref = 7;
  int ri = insert_var(&r, -1);
  EXPECT_EQ(search_var("R"), 7);
  VarRecord s{};
  set_name(&s, "S");
  s.type = T_REF;
  s.value.ref = ri;
  insert_var(&s, -1);
  EXPECT_EQ(search_var("S"), ri);
  free_var(ri);
  EXPECT_EQ(varlist[7].type, T_INT);
}

TEST_F(Store, CapacityAndReservedNames) {
  testing::internal::CaptureStdout();
  for (int i = 0; i < MAXVAR; ++i) ASSERT_GE(make_int(("N" + std::to_string(i)).c_str(), 0, i), 0);
  EXPECT_EQ(make_int("ONEMORE", 0, 0), -1);
  std::string out = testing::internal::GetCapturedStdout();
  EXPECT_NE(out.find("Maximal number of variables is reached"), std::string::npos);
  for (int i = 0; i < MAXVAR; ++i) free_var(i);
  testing::internal::CaptureStdout();
  EXPECT_EQ(make_int("SIN", 0, 0), -1);
  out = testing::internal::GetCapturedStdout();
  EXPECT_NE(out.find("Reserved identifier SIN"), std::string::npos);
}

TEST_F(Store, LabelsAndTypeNames) {
  testing::internal::CaptureStdout();
  for (int i = 0; i < MAXLAB; ++i) ASSERT_GE(insert_lab(("L" + std::to_string(i)).c_str()), 0);
  EXPECT_EQ(insert_lab("ONEMORE"), -1);
  std::string out = testing::internal::GetCapturedStdout();
  EXPECT_NE(out.find("Maximal number of labels is reached"), std::string::npos);
  EXPECT_STREQ(get_type(16), "INT");
  EXPECT_STREQ(get_type(12), "STRING");
  EXPECT_STREQ(get_type(1), "NONE");
  EXPECT_STREQ(get_type(20), "NONE");
}

TEST_F(Store, CharArrayNeedsATerminator) {
  char text[3] = {'a', 'b', '\0'};
  VarRecord r{};
  r.type = T_CHARR;
  r.count = 3;
  r.value.p = text;
  EXPECT_EQ(check_crayvar(&r), 0);
  text[2] = 'c';
  testing::internal::CaptureStdout();
  EXPECT_EQ(check_crayvar(&r), 1);
  r.count = 0;
  EXPECT_EQ(check_crayvar(&r), 1);
  std::string out = testing::internal::GetCapturedStdout();
  EXPECT_NE(out.find("Non terminated character array"), std::string::npos);
}
