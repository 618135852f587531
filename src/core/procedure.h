// Procedures in their own files, included files, EXTERN and initialiser lists.
#pragma once

int call_zkl(int kind, const char *name);
int subr_zkl(int kind);
int return_zkl();
int extern_zkl();
int end_zkl();
int exec_include();
int inczkl(const char *name);
int exec_init(const char *name, int index);
// Arguments and keyword arguments passed to the procedure now running (0 in the main script).
int proc_argcnt();
int proc_keycnt();
