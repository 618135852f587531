// Start-up state and the record reader: records become statements.
#pragma once
#include <cstdio>

constexpr int MAXFILES = 8;     // nesting of script, procedure and included files
constexpr int RECLEN = 131;     // characters of one record
constexpr int STMTLEN = 1024;   // characters of one statement
constexpr int PATHLEN = 256;
constexpr const char *ZKL_VERSION = "11.6.0";

extern int g_intact, iactive, iinp, iverb, ioutwn;
extern int g_idev, g_idata, inclfl;
extern char g_cdev[7], g_cdata[PATHLEN + 1], cincfl[PATHLEN + 1];
extern char cinp[MAXFILES][PATHLEN + 1];
extern FILE *fpin[MAXFILES];
extern int nfpin;
extern int nrecnr[MAXFILES];
extern FILE *fp;
extern int nrec;
extern int inext, inclop;
extern int ilog;
extern FILE *fplog;
extern unsigned char ilabop[8];
// Per open file: it was opened by INCLUDE (inclop follows the file being read).
extern unsigned char included[MAXFILES];

int getlis(int argc, char **argv);
FILE *open_file(const char *name);
// Opens a script by the search rules; `opened` (PATHLEN + 1) receives the path that opened.
FILE *search_file(const char *name, char *opened);
// Upper-cases a header record; true when it begins a script.
bool check_header(char *record);
void exec_file();
// Closes the procedure and included files still open and forgets the records read.
void reset_reader();
void add_extension(char *name, int max, const char *ext);
void prtver();
void lowstr(char *text);
int calc_exec();
