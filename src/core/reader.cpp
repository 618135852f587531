// The command line, script files and the record reader. Records (physical lines of at
// most 131 characters) become statements: comments are removed, blank runs collapsed,
// continued records ("@") joined, quotes and parentheses checked.
#include "core/reader.h"

#include "binding/call.h"
#include "core/blocks.h"
#include "core/error.h"
#include "core/replay.h"
#include "core/statement.h"
#include "lang/lexer.h"
#include "lang/value.h"
#include "mirval.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

#ifdef HAVE_READLINE
#include <readline/history.h>
#include <readline/readline.h>
#endif

int g_intact = 0, iactive = 0, iinp = 0, iverb = 0, ioutwn = 0;
int g_idev = 0, g_idata = 0, inclfl = 0;
char g_cdev[7], g_cdata[PATHLEN + 1], cincfl[PATHLEN + 1];
char cinp[MAXFILES][PATHLEN + 1];
FILE *fpin[MAXFILES];
int nfpin = 0;
int nrecnr[MAXFILES];
FILE *fp = nullptr;
int nrec = 0;
int inext = 1, inclop = 0;
int ilog = 0;
FILE *fplog = nullptr;
unsigned char ilabop[8];
unsigned char included[MAXFILES];


void lowstr(char *text) {
  for (; *text; ++text)
    if (*text >= 'A' && *text <= 'Z') *text = static_cast<char>(*text - 'A' + 'a');
}

int calc_exec() { return ifjmp + ilbjmp + ilpjmp + icajmp + iswjmp + irtjmp; }

void add_extension(char *name, int max, const char *ext) {
  const char *part = std::strchr(name, ']');
  if (!part) part = std::strchr(name, '/');
  if (!part) part = name;
  if (!std::strchr(part, '.')) qqscat(name, ext, max);
}

void prtver() {
  const char *lines[] = {
      "  ZKL, Version 11.6.0,  The program is written by:",
      "",
      "  The MIRZKL developers",
      "  mirzkl@localhost",
  };
  std::printf("\n     +--------------------------------------------------------+\n");
  for (const char *l : lines) std::printf("     |%-56s|\n", l);
  std::printf("     +--------------------------------------------------------+\n\n");
}

int getlis(int argc, char **argv) {
  int nargs = 0;
  bool keep_name = false;  // "-F": the script name gets no default extension
  for (int i = 1; i < argc; ++i) {
    const char *arg = argv[i];
    char prefix[5];
    qqscpy(prefix, arg, 4);
    upstr(prefix);
    auto is = [&](const char *opt) { return std::strncmp(prefix, opt, std::strlen(opt)) == 0; };
    if (is("-V")) {
      iverb = 1;
    } else if (is("-O")) {
      ioutwn = 1;
    } else if (is("-F=")) {
      qqscpy(g_cdata, arg + 3, PATHLEN);
      g_idata = 1;
    } else if (is("-F")) {
      keep_name = true;
    } else if (is("-I=")) {
      qqscpy(cincfl, arg + 3, PATHLEN);
      inclfl = 1;
    } else if (is("-D")) {
      if (arg[2] == '=') {
        qqscpy(g_cdev, arg + 3, 6);
        g_idev = 1;
      } else if (i + 1 < argc) {
        qqscpy(g_cdev, argv[++i], 6);
        g_idev = 1;
      }
    } else if (!iinp) {
      qqscpy(cinp[0], arg, PATHLEN);
      iinp = 1;
    } else {
      int index = find_freevar();
      if (index >= 0) {
        char name[NAMELEN + 1];
        std::snprintf(name, sizeof name, "%cARG%d", '%', ++nargs);
        set_name(&varlist[index], name);
        varlist[index].level = 0;
        varlist[index].ndim = 1;
        var_setstr(&varlist[index], arg);
      }
    }
  }
  if (argc > 1) {
    int index = find_freevar();
    if (index >= 0) {
      set_name(&varlist[index], "%NARGS");
      varlist[index].type = T_INT;
      varlist[index].count = 1;
      varlist[index].ndim = 1;
      varlist[index].level = 0;
      varlist[index].value.i = nargs;
    }
  }
  if (iinp && !keep_name) add_extension(cinp[0], PATHLEN, ".zkl");
  return 0;
}

// Opens `name` as given, else below ZKL_PATH, else in the library's script folder.
FILE *search_file(const char *name, char *opened) {
  qqscpy(opened, name, PATHLEN);
  FILE *f = std::fopen(opened, "r");
  const char *zkl_path = std::getenv("ZKL_PATH");
  if (!f && zkl_path) {
    qqscpy(opened, zkl_path, PATHLEN);
    qqscat(opened, "/", PATHLEN);
    qqscat(opened, name, PATHLEN);
    f = std::fopen(opened, "r");
  }
  if (!f) {
    const char *mirval = std::getenv("MIRVAL");
    qqscpy(opened, mirval ? mirval : "/usr/local/mirval", PATHLEN);
    qqscat(opened, "/zkldir/", PATHLEN);
    qqscat(opened, name, PATHLEN);
    f = std::fopen(opened, "r");
  }
  if (!f) std::printf(" >>>> Open error in file %s\n", name);
  return f;
}

// A header record upper-cased must begin with "%ZKL" but not with "%ZKL-" (a data file).
bool check_header(char *record) {
  upstr(record);
  return std::strncmp(record, "%ZKL", 4) == 0 && std::strncmp(record, "%ZKL-", 5) != 0;
}

FILE *open_file(const char *name) {
  char opened[PATHLEN + 1];
  FILE *f = search_file(name, opened);
  if (!f) return nullptr;
  char record[82];
  for (;;) {
    if (!std::fgets(record, sizeof record, f)) {
      std::printf(" >>>> Open error in file %s\n", name);
      std::fclose(f);
      return nullptr;
    }
    if (record[0] != '#' && !(record[0] == '/' && record[1] == '/')) break;
    ++nrec;
  }
  if (!check_header(record)) {
    std::printf(" >>>> Not allowed file format in %s\n", name);
    std::fclose(f);
    return nullptr;
  }
  return f;
}

// The record read and the statement being assembled across records. A callback procedure
// runs the reader again from inside a statement; it keeps the outer reader's copy aside.
struct Assembly {
  char crec[RECLEN + 1];
  char cstmt[STMTLEN + 1];
  int nkeep, overflow, inquote, qchar, depth, nblank, contin;
};
static Assembly as;
static char *const crec = as.crec;
static char *const cstmt = as.cstmt;
static int &nkeep = as.nkeep, &overflow = as.overflow, &inquote = as.inquote, &qchar = as.qchar;
static int &depth = as.depth, &nblank = as.nblank, &contin = as.contin;
static int reading = 0;  // nesting of exec_file

static void clear_statement() { nkeep = overflow = inquote = qchar = depth = nblank = contin = 0; }

static void keep(char c) {
  if (nkeep < STMTLEN) cstmt[nkeep++] = c;
  else overflow = 1;
  contin = 0;
  if (c != ' ') nblank = 0;
}

// Scans one record into the statement (outside quotes: comments end it, blanks collapse).
static void scan_record() {
  for (const char *p = crec; *p && *p != '\n'; ++p) {
    char c = *p;
    if (inquote) {
      keep(c);
      if (c == qchar) inquote = 0;
      continue;
    }
    switch (c) {
      case ' ': case '\t':
        if (++nblank == 1) keep(' ');
        break;
      case '\r': break;
      case '#': return;
      case '/':
        if (p[1] == '/') return;
        keep(c);
        break;
      case '(': ++depth; keep(c); break;
      case ')': --depth; keep(c); break;
      case '@': contin = 1; break;
      case '\'': case '"':
        inquote = 1;
        qchar = c;
        keep(c);
        break;
      default: keep(c); break;
    }
  }
}

// Executes the assembled statement, then whatever the buffer queued for replay.
static void finish_statement() {
  if (inquote) {
    error("Missing Apostroph or Quotation mark");
  } else {
    if (depth != 0) {
      error("Missing '(' or ')'");
    } else if (overflow) {
      error("Statement overflow");
      overflow = 0;
    } else {
      cstmt[nkeep] = '\0';
      if (nkeep > 0) {
        exec_stmt(cstmt);
        while (nstptr < nstrec) {
          // -1: a jump to the first stored statement, made as if from a replayed one
          if (nstptr >= 0) exec_stored(nstptr);
          ++nstptr;
        }
      }
    }
    depth = 0;
  }
  nkeep = 0;
  inquote = 0;
}

#ifdef HAVE_READLINE
// At a terminal the user gets line editing and a history; the line read is handed out as
// records exactly as a file would give it.
static bool read_terminal() {
  static char *line = nullptr;
  static size_t pos = 0, len = 0;
  if (!line) {
    line = readline("ZKL> ");
    if (!line) return false;
    if (*line) add_history(line);
    pos = 0;
    len = std::strlen(line);
  }
  size_t rest = len - pos;
  size_t take = rest < RECLEN ? rest : RECLEN;
  std::memcpy(crec, line + pos, take);
  pos += take;
  crec[take] = '\0';
  if (take < RECLEN || pos == len) {  // the line end belongs to the last record of the line
    if (take < RECLEN) {
      crec[take] = '\n';
      crec[take + 1] = '\0';
    }
    std::free(line);
    line = nullptr;
  }
  return true;
}
#endif

static bool read_record() {
#ifdef HAVE_READLINE
  static const bool terminal = isatty(0);
  if (g_intact == 1 && fp == stdin && terminal) return read_terminal();
#endif
  if (g_intact == 1) {
    std::printf("ZKL> ");
    std::fflush(stdout);
  }
  if (!std::fgets(crec, RECLEN + 1, fp)) return false;
  // A line of exactly RECLEN characters is one record: its line end is not another.
  if (std::strlen(crec) == RECLEN) {
    int c = std::getc(fp);
    if (c != '\n' && c != EOF) std::ungetc(c, fp);
  }
  return true;
}

// The end of the current file; false when reading stops.
static bool end_of_file() {
  inext = 1;
  if (inclop != 1) {
    if (g_nlevel <= 0) return false;
    error("Missing END statement");
    exec_end(TK_END, "END");
    if (istopt == 1 && nstptr == nstrec) save_stmt("END");
    return true;
  }
  inclop = 0;
  if (nfpin < 2) return false;
  std::fclose(fpin[--nfpin]);
  inclop = included[nfpin - 1];  // the outer file may itself be an included one
  fp = fpin[nfpin - 1];
  nrec = nrecnr[nfpin - 1];
  clear_statement();
  if (nfpin == 1) g_intact = iactive;
  return true;
}

void reset_reader() {
  for (int i = 0; i < nfpin; ++i)
    if (fpin[i] != stdin) std::fclose(fpin[i]);
  nfpin = 0;
  fp = nullptr;
  nrec = 0;
  inext = 1;
  inclop = 0;
  reading = 0;
  std::memset(included, 0, sizeof included);
  std::memset(ilabop, 0, sizeof ilabop);
  clear_statement();
}

void exec_file() {
  Assembly outer;
  if (reading++ > 0) outer = as;
  inext = 1;
  clear_statement();
  for (;;) {
    if (!read_record()) {
      if (!end_of_file()) break;
      if (inext != 1 && reading > 1) {  // the callback procedure was closed at its end
        inext = 1;
        break;
      }
      continue;
    }
    ++nrec;
    if (g_intact == 1 && ilog == 1 && fplog) std::fputs(crec, fplog);
    if (crec[0] == '$') {
      crec[std::strcspn(crec, "\r\n")] = '\0';
      syscll(crec + 1);
      if (g_intact == 1) std::putchar('\n');
      continue;
    }
    if (crec[0] == '#' || (crec[0] == '/' && crec[1] == '/')) continue;
    scan_record();
    if (contin) continue;
    finish_statement();
    if (inext != 1) {
      if (reading > 1) {  // a callback procedure has ended: back to the library
        inext = 1;
        break;
      }
      if (!end_of_file()) break;
    }
  }
  if (--reading > 0) {
    as = outer;
    return;
  }
  if (iflev != 0) error("Missing END IF");
  if (const char *label = pending_label()) char_error("Label not found:", label);
}
