// The lexer's token sequences, including its history-dependent "+", "-" and "%".
#include "lang/lexer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

static std::vector<int> tokens(const char *text) {
  init_lex(text);
  std::vector<int> out;
  for (int t = lexan(); t != TK_END; t = lexan()) out.push_back(t);
  return out;
}

TEST(Lexer, MinusAfterOperandIsBinary) {
  EXPECT_EQ(tokens("x-1"), (std::vector<int>{TK_ID, '-', TK_INT}));
  EXPECT_EQ(tokens("-3"), (std::vector<int>{TK_UMINUS, TK_INT}));
  EXPECT_EQ(tokens("(a)-1"), (std::vector<int>{'(', TK_ID, ')', '-', TK_INT}));
}

TEST(Lexer, StringBeforeMinusMakesItUnaryButNotPlus) {
  EXPECT_EQ(tokens("'a' - 1"), (std::vector<int>{TK_STR, TK_UMINUS, TK_INT}));
  EXPECT_EQ(tokens("'a' + 1"), (std::vector<int>{TK_STR, '+', TK_INT}));
}

TEST(Lexer, PercentIsNameOrModulo) {
  EXPECT_EQ(tokens("(A)%B"), (std::vector<int>{'(', TK_ID, ')', TK_ID}));
  EXPECT_EQ(std::string(vlex.name), "%B");
  EXPECT_EQ(tokens("A % B"), (std::vector<int>{TK_ID, '%', TK_ID}));
  EXPECT_EQ(tokens("5%B"), (std::vector<int>{TK_INT, '%', TK_ID}));
  EXPECT_EQ(tokens("%X1"), (std::vector<int>{TK_ID}));
  EXPECT_EQ(std::string(vlex.name), "%X1");
}

TEST(Lexer, Numbers) {
  init_lex("0x1F");
  EXPECT_EQ(lexan(), TK_INT);
  EXPECT_EQ(vlex.value.i, 31);
  init_lex("1e-3");
  EXPECT_EQ(lexan(), TK_FLOAT);
  EXPECT_DOUBLE_EQ(vlex.value.d, 1e-3);
  init_lex("12AB");
  EXPECT_EQ(lexan(), TK_INT);
  EXPECT_EQ(vlex.value.i, 12);
  EXPECT_EQ(lexan(), TK_END);
  init_lex("1.5.2e3");
  EXPECT_EQ(lexan(), TK_FLOAT);
  EXPECT_DOUBLE_EQ(vlex.value.d, 1.5);
  init_lex("1.2.3e1");
  EXPECT_EQ(lexan(), TK_FLOAT);
  EXPECT_DOUBLE_EQ(vlex.value.d, 1.2);
  init_lex(".5");
  EXPECT_EQ(lexan(), TK_FLOAT);
  init_lex("1.");
  EXPECT_EQ(lexan(), TK_FLOAT);
}

TEST(Lexer, BadNumbersAndCharacters) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(tokens("0x1.5"), (std::vector<int>{TK_ERR}));
  EXPECT_EQ(tokens("1.2.3"), (std::vector<int>{TK_ERR}));
  EXPECT_EQ(tokens(";"), (std::vector<int>{TK_ERR}));
  EXPECT_EQ(tokens("\t"), (std::vector<int>{TK_ERR}));
  std::string out = testing::internal::GetCapturedStdout();
  EXPECT_NE(out.find("Syntax error"), std::string::npos);
}

TEST(Lexer, NamesFoldAndCut) {
  init_lex("abcdefghijklmnopqrst");
  EXPECT_EQ(lexan(), TK_ID);
  EXPECT_EQ(std::string(vlex.name), "ABCDEFGHIJKLMNO");
}

TEST(Lexer, LongStringKeepsFirst132) {
  std::string text = "'" + std::string(200, 'x') + "'";
  init_lex(text.c_str());
  EXPECT_EQ(lexan(), TK_STR);
  EXPECT_EQ(vlex.count, 132);
  EXPECT_EQ(std::string(clexbf).size(), 132u);
}

TEST(Lexer, TwoCharacterOperators) {
  EXPECT_EQ(tokens("a<=b"), (std::vector<int>{TK_ID, TK_LE, TK_ID}));
  EXPECT_EQ(tokens("a< =b"), (std::vector<int>{TK_ID, TK_LT, '=', TK_ID}));
  EXPECT_EQ(tokens("a**b"), (std::vector<int>{TK_ID, TK_POW, TK_ID}));
  EXPECT_EQ(tokens("a&&b||c"), (std::vector<int>{TK_ID, TK_AND, TK_ID, TK_OR, TK_ID}));
}

TEST(Lexer, SplittingProcedureArguments) {
  char piece[1025], key[16];
  const char *text = "F(1, 'x,y', N=3)";
  ASSERT_EQ(get_parexpr(text, 1, piece, key), 1);
  EXPECT_STREQ(piece, "1");
  EXPECT_STREQ(key, "");
  ASSERT_EQ(get_parexpr(text, 0, piece, key), 1);
  EXPECT_STREQ(piece, " 'x,y'");
  ASSERT_EQ(get_parexpr(text, 0, piece, key), 1);
  EXPECT_STREQ(piece, "3");
  EXPECT_STREQ(key, " N");
  EXPECT_EQ(get_parexpr(text, 0, piece, key), 0);
  EXPECT_EQ(get_parexpr("S()", 1, piece, key), 0);
}

TEST(Lexer, NameTables) {
  EXPECT_EQ(search_zkl("BREAK"), 0);
  EXPECT_EQ(search_zkl("CONTINUE"), 5);
  EXPECT_EQ(search_zkl("SURSHADE"), 31);
  EXPECT_EQ(search_stdf("ABS"), 0);
  EXPECT_EQ(search_stdf("TANH"), 93);
  EXPECT_EQ(search_routine("ABS3PT", 1), 0);
  EXPECT_EQ(search_routine("ZSCALE", 1), 664);
  EXPECT_EQ(search_routine("ZBFINI", 2), 128);
  EXPECT_EQ(search_routine("CURVE", 3), -1);
  EXPECT_EQ(search_sysv("ZTIC"), 65);
  EXPECT_EQ(sysv_type(search_sysv("XMIN")), 10);
  EXPECT_STREQ(get_parstr(0, 1), "X,X,X,U,U");
  EXPECT_EQ(get_parstr(665, 1), nullptr);
  EXPECT_EQ(get_parstr(94, 3), nullptr);
  EXPECT_EQ(get_parstr(0, 4), nullptr);
}
