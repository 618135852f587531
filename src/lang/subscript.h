// Subscripts: written subscript lists become storage positions; elements are read onto the
// stack and written from values.
#pragma once
#include "lang/parser.h"
#include "lang/value.h"

int check_index(VarRecord *var, IndexRecord *idx);
int get_address(const VarRecord *var, const IndexRecord *idx);
int get_permut(const VarRecord *var, const IndexRecord *idx, int k);
int push_element(VarRecord *var, IndexRecord *idx);
int insert_element(VarRecord *var, int pos, const StackEntry *value);
int insert_array(VarRecord *var, IndexRecord *idx, const StackEntry *value);
int check_varidx(int index, int type);
int check_var(const char *name, int type);
int alloc_stack(int type, int index);
// The element assignment statement NAME[...] = expression.
int exec_element(const char *name);
