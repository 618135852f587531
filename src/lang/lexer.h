// The lexer: one statement's text becomes tokens. One token of history decides whether
// "+", "-" and "%" are unary, binary or part of a name.
#pragma once
#include "lang/value.h"

enum Token {
  TK_END = -1,
  TK_ID = 256,
  TK_INT = 259,
  TK_FLOAT = 260,
  TK_STR = 262,
  TK_UMINUS = 263,
  TK_UPLUS = 264,
  TK_POW = 265,
  TK_EQ = 301,
  TK_NE = 302,
  TK_GE = 303,
  TK_LE = 304,
  TK_GT = 305,
  TK_LT = 306,
  TK_AND = 307,
  TK_OR = 308,
  TK_XOR = 309,
  TK_ERR = 999,
};

constexpr int STRLIT_MAX = 132;  // characters kept of a string literal

extern const char *clex;
extern int istart;
extern int iold;
extern int ilex;
extern VarRecord vlex;
extern char clexbf[160];
// Set while statements are compiled: a faulty token gives TK_ERR without its message.
extern bool lex_quiet;

void init_lex(const char *text);
// The lexer's whole state, for reading another text in between.
struct LexState {
  const char *clex;
  int istart, iold, ilex;
  VarRecord vlex;
  char buf[sizeof clexbf];
};
LexState save_lex();
void restore_lex(const LexState &state);
int lexan();
int lookup();
int match(int expected);

int search_zkl(const char *name);
int search_stdf(const char *name);
int search_routine(const char *name, int kind);
int search_sysv(const char *name);
int sysv_type(int index);
int stdf_opt(int index);
const char *stdf_name(int index);
const char *get_parstr(int index, int kind);
int get_parexpr(const char *text, int first, char *piece, char *keyname);

extern const char *const czkl[32];
