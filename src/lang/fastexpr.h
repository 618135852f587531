// Stored statements run again and again (loops, procedures): their expressions are compiled
// the first time into code over INT, FLOAT and DOUBLE scalars, kept while the statement stays
// in the buffer. The code covers only what evaluates without a message. Where a value falls
// outside it (a zero divisor, a missing variable, a subscript out of range, another type) the
// code gives up before anything has changed, and the text is parsed as it always was.
#pragma once
#include "lang/stack.h"
#include "lang/value.h"

#include <vector>

// A name of compiled code and the record it found. The record is taken again while nothing
// was added to or renamed in the variable table, the level is the same and the record still
// answers to the name.
struct NameSlot {
  char name[NAMELEN + 1];
  int rec, index, level;
  unsigned gen;
};
NameSlot make_slot(const char *name);
// search_var through the slot.
int slot_var(NameSlot &slot);

struct Insn {
  uint8_t op;
  uint8_t n;      // subscripts of an element
  int16_t slot;   // name slot
  int32_t i;      // INT constant, operator, function number
  double d;       // DOUBLE constant
};

// One token as the lexer gives it, with where the lexer stands after it.
struct Tok {
  int tok, end, iold;
  char name[NAMELEN + 1];
  int32_t i;
  double d;
};
// Up to `max` tokens of text from `pos` on, the lexer's history being `iold`, without a
// message; they end early at the end of the text or a faulty token. The lexer is left as it was.
std::vector<Tok> quiet_tokens(const char *text, int pos, int iold, int max);
// What the lexer keeps of a token it delivered (vlex).
void lexed(const Tok &t);

// The values of an expression list as parse(0) reads it from one place of a text, and the
// token after it, on which the lexer stops.
struct ExprCode {
  std::vector<Insn> code;
  std::vector<NameSlot> names;
  int nvalues;
  Tok next;
};
// Null when the list is outside what compiled code covers.
ExprCode *compile_expr(const char *text, int pos, int iold);
// The values into out[0 .. nvalues - 1] (room for MAXSTACK); false for the long way.
bool eval_expr(ExprCode &c, Scalar *out);

// The storage position of the element that n INT subscripts select in an array of INT, FLOAT
// or DOUBLE elements; false where the record or the subscripts would give a message.
bool element_at(const VarRecord &v, const Scalar *subs, int n, int64_t *pos);

// The compiled expressions of one stored statement, by the place and history they start at.
struct StmtExprs {
  struct Entry {
    int pos, iold;
    ExprCode *code;  // null: parsed as text
  };
  const char *text = nullptr;
  int len = 0;
  bool dead = false;  // released by the buffer
  std::vector<Entry> entries;
  ExprCode *at(int pos, int iold);
  ~StmtExprs();
};
// The stored statement being replayed, or null.
extern StmtExprs *g_stmt_exprs;
// parse(0) by compiled code, when the lexer stands in the stored statement being replayed and
// the code evaluates; else null, with nothing changed.
StackEntry *parse_compiled();
