// The expression parser: recursive descent that evaluates as it reads. Operands go onto the
// evaluation stack at once and every operator is applied as soon as its operands are there.
#pragma once
#include "lang/value.h"

constexpr int MAXIDX = 8;  // subscripts of one element

enum IndexKind : uint8_t { IDX_ALL = 2, IDX_RANGE = 3, IDX_OPEN = 4, IDX_ONE = 8 };

struct IndexRecord {
  uint8_t kind[MAXIDX];
  uint8_t nidx;
  int32_t nsel;
  int32_t start[MAXIDX];
  int32_t end[MAXIDX];
};

extern int ipopt;
extern IndexRecord idxr, idxl;
// Set when an expression is given up (a bad subscript, a full stack); parse then yields none.
extern bool g_abort;

StackEntry *parse(int mode);
// Parses the parameters of a statement whose first one is a text, left at stack entry 0;
// otherwise reports the one message or the other and returns false with the stack empty.
bool parse_text_param(const char *missing, const char *not_text);
IndexRecord *parse_idx();
int set_index(IndexRecord *rec, int k);
int push_int(int32_t value);
int push_double(double value);
int push_str(const char *text);
// Pushes a STRING of n characters that takes over text (freed when the stack is full).
int push_owned_str(char *text, int32_t n);
int push_var(const VarRecord *rec);
int push_index(int index);
// Takes the next free stack slot, cleared; null (after a message) when the stack is full.
StackEntry *push_slot();
int unary_stack(int op);
int neg_stack(int pos);
int pop_stack();
int free_stack(int mark);
