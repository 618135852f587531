// The evaluation stack machine: binary operators on the two top entries, the result in the
// lower slot. Widening of mixed types, integer arithmetic at the operand's width, complex
// arithmetic, string concatenation and comparison, element-wise array arithmetic, powers.
#pragma once
#include "lang/value.h"

int exec_stack(int op);
int exp_stack();
int array_stack(int op, StackEntry *lower, StackEntry *upper, int ltype, int utype);
int op_arrarr(int op, int ltype, int utype, StackEntry *lower, StackEntry *upper, int count);
int op_scaarr(int op, int ltype, int utype, StackEntry *lower, StackEntry *upper, int count);
int op_arrsca(int op, int ltype, int utype, StackEntry *lower, StackEntry *upper, int count);
int change_stackvar(int from, int to, int pos);
int change_arrvar(int from, int to, StackEntry *entry);
int change_scavar(int type, int pos);
int32_t ipower(int32_t b, int32_t n);
double dpower(double b, int32_t n);
double power(double b, double x);

// An INT, FLOAT or DOUBLE scalar of the compiled expressions of stored statements.
struct Scalar {
  int type;
  Value value;
};
// The scalar operators of exec_stack, exp_stack and neg_stack, computed alike but without a
// message: false wherever those would report one (the statement then takes the long way).
bool quiet_binary(int op, Scalar &l, Scalar u);
bool quiet_power(Scalar &b, Scalar e);
void quiet_neg(Scalar &s);
