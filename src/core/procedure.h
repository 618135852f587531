// Procedures in their own files, included files, EXTERN and initialiser lists.
#pragma once
#include "lang/value.h"

constexpr int MAXLEVEL = 8;  // procedure levels below the main script

// The procedure table: the latest call's parameters and, per level 1..8 (index level - 1),
// what the level was started with.
struct ProcTable {
  char name[NAMELEN + 1];  // the procedure being called, checked by SUBROUTINE/FUNCTION
  int first, last;         // records of the actual parameters of the latest call
  int nparam[MAXLEVEL];
  int nkey[MAXLEVEL];
  int resvar[MAXLEVEL];    // a function's result variable
  int bufpos[MAXLEVEL];    // nstrec at the time of the call
  int8_t kind[MAXLEVEL];   // 0 CALL, 1 function, 2 and 3 callback procedures
  bool returned[MAXLEVEL]; // a RETURN was executed
  int blocks[MAXLEVEL][3]; // open IF, loop and SWITCH blocks at the call: the level's own close with it
};
extern ProcTable usrproc;
extern double xcbret;  // the value a kind-3 callback procedure returns

int call_zkl(int kind, const char *name);
int subr_zkl(int kind);
int return_zkl();
int extern_zkl();
int end_zkl();
int exec_include();
int inczkl(const char *name);
// Opens the next procedure level for a procedure of `kind` (0 CALL, 1 function, 2 and 3
// callbacks) with its parameter counts and result variable.
void enter_level(int kind, int nparam, int nkey, int resvar);
// Pushes the file of a procedure (not an included file) for CALL and callbacks.
int push_procedure(const char *file);
int exec_init(const char *name, int index);
// The variable that receives the value of the function about to be called.
void set_result_var(int index);
// Arguments and keyword arguments passed to the procedure now running (0 in the main script).
int proc_argcnt();
int proc_keycnt();
