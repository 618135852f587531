// The statement buffer and statement dispatch.
#pragma once

constexpr int MAXSTMT = 3000;  // statements in the buffer

extern char *stlist[MAXSTMT];
extern int nstrec;
extern int nstptr;
extern int istopt;
extern const char *cpstmt;
extern int iexec;
extern int ifjmp, ilbjmp, ilpjmp, icajmp, iswjmp, irtjmp;

int save_stmt(const char *text);
int exec_stmt(const char *text);
// The rest of exec_stmt, once the first word and the second token are read.
int run_stmt(int tok2, const char *word);
int switch_stmt(int tok2, const char *word);
int exec_zkl(int tok2, const char *word);
int exec_assign(const char *name);
int exec_end(int tok2, const char *word);
int exec_call(const char *word);
// Releases the stored statements from `first` up to nstrec; nstrec and nstptr become `first`.
void release_stmts(int first);
