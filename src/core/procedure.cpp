// Procedures and included files: placeholders until procedures are built.
#include "core/procedure.h"

#include "core/statement.h"

int call_zkl(int, const char *) { return not_available("CALL"); }
int subr_zkl(int kind) { return not_available(kind == 1 ? "SUBROUTINE" : "FUNCTION"); }
int return_zkl() { return not_available("RETURN"); }
int extern_zkl() { return not_available("EXTERN"); }
int end_zkl() { return 0; }
int exec_include() { return not_available("INCLUDE"); }
int inczkl(const char *) { return not_available("INCLUDE"); }
int exec_init(const char *, int) {
  not_available("{...}");
  return -1;
}
int proc_argcnt() { return 0; }
int proc_keycnt() { return 0; }
