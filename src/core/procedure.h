// Procedures in their own files, included files, EXTERN and initialiser lists.
#pragma once
#include "lang/fastexpr.h"
#include "lang/value.h"

#include <memory>
#include <vector>

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

// Procedures replayed from the buffer: a function call V = F(...) of a stored statement and
// the SUBROUTINE or FUNCTION statement it leads to are read once; each run then does what
// exec_assign with call_zkl, or subr_zkl, would do, or returns false with nothing changed when
// a message could come, so that the statement takes the long way.
struct CallForm {
  struct Param {
    NameSlot var;                   // a plain variable name: passed by reference
    std::unique_ptr<ExprCode> value;  // else the value of an expression
  };
  char fname[NAMELEN + 1];
  std::vector<Param> params;
};
// `args` is the text after the "=" of the statement; null where the long way is needed.
std::unique_ptr<CallForm> compile_call(const char *fname, const char *args);
bool run_call(CallForm &c, NameSlot &target);

struct HeaderForm {
  struct Formal {
    char name[NAMELEN + 1];
    int type;  // 0: any
  };
  char pname[NAMELEN + 1];
  std::vector<Formal> formals;
};
// `text` is the statement after its keyword.
std::unique_ptr<HeaderForm> compile_header(const char *text);
bool run_header(const HeaderForm &h);
// A function's RETURN of one value (the long way for other kinds of procedure).
bool run_return(const Scalar &value);
